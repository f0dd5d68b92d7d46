#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Runs every test with the database servers started for the run and stopped after it, and
# closes with the line "N passed, N failed, N skipped".
set -uo pipefail
build=${1:?build folder}
root=$(cd "$(dirname "$0")/.." && pwd)
if [ "${KX_IN_TESTDB:-}" != 1 ]; then
    KX_IN_TESTDB=1 exec "$root/scripts/testdb.sh" run "$root/.dbtest" "$0" "$@"
fi
log=$build/ctest.log
export QT_QPA_PLATFORM=offscreen
if [ "${KX_SANITIZED:-}" = 1 ]; then
    # Any report ends its test with a failure; the leaks of the libraries underneath (fonts, the
    # platform plugin, the database clients) are not ours to fix and are passed over.
    export ASAN_OPTIONS="detect_leaks=1:abort_on_error=0:strict_string_checks=1:check_initialization_order=1"
    export LSAN_OPTIONS="suppressions=$root/scripts/sanitizer-suppressions.txt:print_suppressions=0"
    export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
fi
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" --timeout 600 2>&1 | tee "$log"
passed=$(grep -cE '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* +Passed +' "$log")
skipped=$(grep -cE '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .*\*\*\*Skipped' "$log")
total=$(grep -cE '^ *[0-9]+/[0-9]+ Test +#[0-9]+: ' "$log")
failed=$((total - passed - skipped))
if [ "$total" -eq 0 ]; then
    echo "no test ran" >&2
    failed=1
fi
echo "$passed passed, $failed failed, $skipped skipped"
[ "$failed" -eq 0 ]
