#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# The mutation score of the tests: applies each mutant of scripts/mutants.txt to its source file
# in turn, rebuilds the tests it names incrementally, runs them, and counts the mutants a failing
# test kills. Run by hand (not in CI), after make build:
#   scripts/mutate.sh [BUILD] [ID...]      BUILD defaults to build; IDs pick mutants (default all)
# A test program that runs longer than KX_MUTATE_TIMEOUT seconds (240) counts as failing.
# The database servers are started for the run. The source files are restored after each mutant,
# also when the script is interrupted.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$(realpath "${1:-build}")
[ $# -gt 0 ] && shift
if [ "${KX_IN_TESTDB:-}" != 1 ]; then
    KX_IN_TESTDB=1 exec "$root/scripts/testdb.sh" run "$root/.dbmutate" "$0" "$build" "$@"
fi
cd "$root"
export QT_QPA_PLATFORM=offscreen
log=$build/mutate.log
: >"$log"

backup=
# The original comes back with a new time stamp: older than the mutant's object file, it would
# leave the mutant built in.
restore() {
    if [ -n "$backup" ] && [ -f "$backup" ]; then
        mv "$backup" "${backup%.mutant-original}"
        touch "${backup%.mutant-original}"
    fi
    backup=
}
trap 'restore; exit 130' INT TERM
trap restore EXIT

killed=0 total=0 unbuilt=0
survivors=()
while IFS= read -r line; do
    [[ -z $line || $line == \#* ]] && continue
    # Split at " ¦ " through a separator no source text holds (a "|" may be part of the code).
    IFS=$'\x1f' read -r id file tests original replacement <<<"$(sed $'s/ ¦ /\x1f/g' <<<"$line")"
    id=$(xargs <<<"$id") file=$(xargs <<<"$file") tests=$(xargs <<<"$tests")
    if [ $# -gt 0 ] && ! printf '%s\n' "$@" | grep -qx -- "$id"; then continue; fi
    backup=$file.mutant-original
    cp "$file" "$backup"
    if ! ORIGINAL=${original//⏎/$'\n'} REPLACEMENT=${replacement//⏎/$'\n'} perl -0777 -i -pe \
        '$n = s/\Q$ENV{ORIGINAL}\E/$ENV{REPLACEMENT}/g; END { exit($n == 1 ? 0 : 1) }' "$file"; then
        restore
        echo "$id: the original text is not found once in $file" | tee -a "$log" >&2
        exit 2
    fi
    # The command line too, always: tests start it, and one built with an earlier mutant would
    # carry it on.
    targets=(kxcommon-cli)
    for run in ${tests//,/ }; do
        targets+=("${run%%:*}")
    done
    total=$((total + 1))
    if ! cmake --build "$build" --target "${targets[@]}" >>"$log" 2>&1; then
        restore
        unbuilt=$((unbuilt + 1))
        echo "$id: does not build (not counted)" | tee -a "$log"
        continue
    fi
    result=survived
    for run in ${tests//,/ }; do
        IFS=':' read -r program filter products <<<"$run"
        for product in ${products//+/ }; do
            case $product in
                postgres) [ -n "${KX_TEST_POSTGRES:-}" ] || { echo "$id: no PostgreSQL server" >&2; exit 2; } ;;
                firebird) [ -n "${KX_TEST_FIREBIRD:-}" ] || { echo "$id: no Firebird server" >&2; exit 2; } ;;
            esac
            # A mutant that makes a loop endless is killed by the time limit.
            if ! KX_TEST_DB=$product timeout "${KX_MUTATE_TIMEOUT:-240}" "$build/tests/$program" --gtest_filter="$filter" \
                --gtest_brief=1 >>"$log" 2>&1; then
                result="killed by $program on $product"
                break 2
            fi
        done
    done
    restore
    if [ "$result" = survived ]; then
        survivors+=("$id")
    else
        killed=$((killed + 1))
    fi
    echo "$id: $result" | tee -a "$log"
done <scripts/mutants.txt
# The build again as the sources are.
cmake --build "$build" >>"$log" 2>&1
counted=$((total - unbuilt))
echo "mutation score: $killed of $counted mutants killed${survivors:+; survived: ${survivors[*]}}"
