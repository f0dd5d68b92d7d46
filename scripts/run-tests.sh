#!/usr/bin/env bash
# Runs every test with the database servers started for the run and stopped after it, and
# closes with the line "N passed, N failed, N skipped".
set -uo pipefail
build=${1:?build folder}
root=$(cd "$(dirname "$0")/.." && pwd)
dbdir=$root/.dbtest
trap '"$root/scripts/testdb.sh" stop "$dbdir"' EXIT
"$root/scripts/testdb.sh" start "$dbdir" || echo "testdb: not every database server started; its tests will say so"
# shellcheck disable=SC1091
source "$dbdir/env"
export KX_TEST_POSTGRES="${KX_TEST_POSTGRES:-}" KX_TEST_FIREBIRD="${KX_TEST_FIREBIRD:-}"
log=$build/ctest.log
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" --timeout 600 2>&1 | tee "$log"
passed=$(grep -cE '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* +Passed +' "$log")
skipped=$(grep -cE '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .*\*\*\*Skipped|Skipped +[0-9.]+ sec' "$log")
total=$(grep -cE '^ *[0-9]+/[0-9]+ Test +#[0-9]+: ' "$log")
failed=$((total - passed - skipped))
if [ "$total" -eq 0 ]; then
    echo "no test ran" >&2
    failed=1
fi
echo "$passed passed, $failed failed, $skipped skipped"
[ "$failed" -eq 0 ]
