#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Runs the benchmarks (all, or the one named) with the database servers started for the run.
set -uo pipefail
build=${1:?build folder}
only=${2:-}
root=$(cd "$(dirname "$0")/.." && pwd)
if [ "${KX_IN_TESTDB:-}" != 1 ]; then
    KX_IN_TESTDB=1 exec "$root/scripts/testdb.sh" run "$root/.dbtest" "$0" "$@"
fi
echo "Machine: $(nproc) cores, $(free -g | awk '/^Mem:/ {print $2}') GiB, $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | xargs)"
status=0
for program in "$build"/bench/bench_*; do
    name=$(basename "$program")
    name=${name#bench_}
    [ -n "$only" ] && [ "$only" != "$name" ] && continue
    "$program" || status=1
done
exit $status
