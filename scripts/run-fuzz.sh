#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Runs every fuzz target of a fuzz build for the given seconds, from its seeds in fuzz/corpus
# (what it finds new goes to the build folder, not into the repository), and reports its runs.
# Fails when a target finds a crash, a leak, a time-out (10 s for one input) or a memory above
# 2 GB; the input that did it is kept in the build folder's findings/.
set -uo pipefail
build=${1:?fuzz build folder}
seconds=${2:-60}
root=$(cd "$(dirname "$0")/.." && pwd)
status=0
mkdir -p "$build/findings"
for program in "$build"/fuzz/fuzz_*; do
    [ -f "$program" ] && [ -x "$program" ] || continue
    name=$(basename "$program")
    name=${name#fuzz_}
    work="$build/corpus/$name"
    mkdir -p "$work"
    log="$build/fuzz-$name.log"
    "$program" "$work" "$root/fuzz/corpus/$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -artifact_prefix="$build/findings/$name-" -print_final_stats=1 >"$log" 2>&1
    result=$?
    runs=$(grep -m1 -oE 'stat::number_of_executed_units: *[0-9]+' "$log" | grep -oE '[0-9]+$')
    if [ "$result" -eq 0 ]; then
        echo "fuzz $name: ${runs:-?} runs in ${seconds} s, no finding"
    else
        echo "fuzz $name: FINDING after ${runs:-?} runs (see $log and $build/findings)"
        status=1
    fi
done
exit $status
