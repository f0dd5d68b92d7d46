#!/usr/bin/env bash
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
