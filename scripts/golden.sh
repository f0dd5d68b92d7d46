#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Writes the golden statement traces in tests/golden afresh from the tests named Golden*: SQLite
# first (the shared files), then PostgreSQL and Firebird (their own files where they differ).
# Review the change with git diff like code.
set -euo pipefail
build=${1:?build folder}
root=$(cd "$(dirname "$0")/.." && pwd)
if [ "${KX_IN_TESTDB:-}" != 1 ]; then
    KX_IN_TESTDB=1 exec "$root/scripts/testdb.sh" run "$root/.dbgolden" "$0" "$@"
fi
export QT_QPA_PLATFORM=offscreen KX_GOLDEN_UPDATE=1
log=$build/golden.log
: >"$log"
for product in sqlite postgres firebird; do
    for program in "$build"/tests/*_tests; do
        [ -x "$program" ] || continue
        "$program" --gtest_list_tests --gtest_filter='*.Golden*' 2>/dev/null | grep -q '^  Golden' || continue
        KX_TEST_DB=$product "$program" --gtest_filter='*.Golden*' --gtest_brief=1 >>"$log" 2>&1 \
            || { echo "golden: $(basename "$program") failed on $product (see $log)" >&2; exit 1; }
    done
done
git -C "$root" status --short tests/golden
