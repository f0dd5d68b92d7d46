#!/usr/bin/env bash
# A short scenario on the embedded default database, printed as it runs.
set -euo pipefail
build=${1:?build folder}
kx=$build/cli/kxcommon
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
db="sqlite:$work/kxcommon.db"
step() { echo; echo "\$ kxcommon $*"; "$kx" --db "$db" "$@"; }
echo "Demo auf der eingebetteten Datenbank $work/kxcommon.db"
step init
step modules add 0002 Lager Artikel --main
step modules add 0002 Lager Artikel_Lagerort
step modules add 7010 Fahrzeuge Fahrzeug --main
step modules
step --json modules
echo
echo "\$ kxcommon modules add 0003 \"Wehr's\" Personal   (ein Hochkomma im Namen bricht die Anweisung)"
"$kx" --db "$db" modules add 0003 "Wehr's" Personal || echo "(Exit-Code $?: Fehler wie erwartet; die Zeilen davor bleiben)"
step modules
