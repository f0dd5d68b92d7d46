#!/usr/bin/env bash
# Runs the benchmarks (all, or the one named) with the database servers started for the run.
set -uo pipefail
build=${1:?build folder}
only=${2:-}
root=$(cd "$(dirname "$0")/.." && pwd)
dbdir=$root/.dbtest
trap '"$root/scripts/testdb.sh" stop "$dbdir"' EXIT
"$root/scripts/testdb.sh" start "$dbdir" || echo "testdb: not every database server started; its figures are skipped"
# shellcheck disable=SC1091
source "$dbdir/env"
export KX_TEST_POSTGRES="${KX_TEST_POSTGRES:-}" KX_TEST_FIREBIRD="${KX_TEST_FIREBIRD:-}"
echo "Machine: $(nproc) cores, $(free -g | awk '/^Mem:/ {print $2}') GiB, $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | xargs)"
status=0
for program in "$build"/bench/bench_*; do
    name=$(basename "$program")
    name=${name#bench_}
    [ -n "$only" ] && [ "$only" != "$name" ] && continue
    "$program" || status=1
done
exit $status
