#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Drives the command line as its users do and checks exit codes, messages and JSON shapes.
set -uo pipefail
kx=$(realpath "${1:?kxcommon program}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
db="sqlite:$work/k.db"
failures=0

# run EXPECTED_EXIT PATTERN_IN_STDOUT_OR_STDERR ARGS...: the exit code and a text that must appear.
run() {
    local expected=$1 pattern=$2
    shift 2
    "$kx" "$@" >out 2>err
    local code=$?
    if [ "$code" -ne "$expected" ] || ! grep -qF -- "$pattern" out err; then
        echo "FAIL: kxcommon $* -> exit $code (expected $expected), missing: $pattern" >&2
        sed 's/^/  out: /' out >&2
        sed 's/^/  err: /' err >&2
        failures=$((failures + 1))
    fi
}

# The program itself.
run 0 "kxcommon 0." --version
run 2 "Befehle:" ; [ -s out ] && { echo "FAIL: usage went to standard output" >&2; failures=$((failures + 1)); }
run 0 "--action WERT" stock post --help
run 0 "Braucht die Tabellen von: kxcommon stock init, kxcommon sys init" stock post --help

# A path that does not exist is refused, unless the command creates tables.
run 1 "gibt es nicht" --db "sqlite:$work/tippfehler.db" stock articles
[ -e "$work/tippfehler.db" ] && { echo "FAIL: a new database file was made" >&2; failures=$((failures + 1)); }
run 0 "angelegt" --db="$db" stock init

# Prerequisites before anything is written; the connection from the environment.
export KXCOMMON_DB=$db
run 0 "angelegt" stock article 100 Atemschutzfilter --bestand 2
run 0 "Menge 5" stock line LAGERBELEG_POS B1 100 5
run 1 'Bitte zuerst `kxcommon sys init` ausführen' stock post LAGERBELEG_POS B1
run 0 '"countlager": 0' --json stock articles # nothing was booked before the check

# Wrong input is an error with a German message.
run 0 "Systemtabellen angelegt" sys init
run 1 "existiert bereits" stock article 100 Doppelt
run 1 "Artikel 999 gibt es nicht" stock line LAGERBELEG_POS B1 999 1
run 1 "keine Zeilen" stock post LAGERBELEG_POS LEER
run 2 "zu viele Argumente" stock log 100 101
run 0 "gebucht" stock post LAGERBELEG_POS B1
run 0 "nichts mehr zu buchen" stock post LAGERBELEG_POS B1
run 0 '"action": "sub"' --json stock post LAGERBELEG_POS B1 --action=sub --mode=out
grep -q '"mode": "out"' out || { echo "FAIL: the mode not in the command line's word" >&2; failures=$((failures + 1)); }
run 2 "nimmt keinen Wert" stock post LAGERBELEG_POS B1 --charge=1
run 0 "Bestand 7,00" stock log 100
run 0 '"out_idin": null' --json stock log 100 # a receipt draws on none

# Errors as JSON on standard error; results as JSON with numbers as numbers.
run 1 '"exitCode": 1' --json stock post LAGERBELEG_POS LEER
grep -q '"error": "Beleg' err || { echo "FAIL: JSON error object" >&2; failures=$((failures + 1)); }
run 0 '"bestand": 7' --json stock articles
run 0 '"lines": 1' --json stock docs LAGERBELEG_POS

# Fees: the schedule must exist, durations not negative, sample data once, two decimals.
run 0 "Beispielsatzung" fee init --sample
run 0 "Beispielsatzung" fee init --sample
run 0 "MUSTERSTADT" fee schedules
[ "$(grep -c MUSTERSTADT out)" -eq 1 ] || { echo "FAIL: the sample schedule twice" >&2; failures=$((failures + 1)); }
run 0 "BRAND" fee events MUSTERSTADT
run 0 "FWA --> FW:" fee musterstadt brand --hours 1 # schedule and event read without regard to case
run 1 "gibt es nicht" fee GIBTSNICHT BRAND --hours 1
run 1 "nicht negativ" fee MUSTERSTADT BRAND --hours -1
run 0 "FWA --> FW:" fee MUSTERSTADT BRAND --hours 1 --minutes 20
grep -qE 'FWA --> FW: +[0-9]+,[0-9]{2}$' out || { echo "FAIL: amount without two decimals" >&2; failures=$((failures + 1)); }

# AAO: sample once, clear messages where the statement cannot be built.
run 0 "Beispielregeln" dispatch init --sample
run 0 "Beispielregeln" dispatch init --sample
run 0 "Technische Hilfe klein" aao rules
[ "$(grep -c 'Technische Hilfe klein' out)" -eq 1 ] || { echo "FAIL: the sample rules twice" >&2; failures=$((failures + 1)); }
run 1 "braucht die Suche einen Einsatzort" aao "" "" TH1 --date 2026-11-21 --time 12:00:00
run 1 "Ohne Alarmkürzel" aao x y ""
run 0 "Technische Hilfe am Wochenende" aao "" Musterstadt TH1 --date 2026-11-21 --time 12:00:00
run 0 '"alarmobjekt": null' --json aao rules
run 0 '"id": null' --json aao x Nirgendwo GIBTSNICHT

# Import: refused without --yes and for a missing definition, table or file; then the run.
printf '64283;Darmstadt;Rheinstra\xdfe;Innenstadt\r\n' > orte.csv
printf 'PLZ.ORTE=1\r\nORT.ORTE=2\r\nSTRASSE.ORTE=3\r\nORTSTEIL.ORTE=4\r\n' > orte.iDef
printf 'GIBTS.NICHT=1\r\n' > fremd.iDef
run 0 "Rheinstraße" import-columns orte.csv
run 1 "gibt es nicht" import-columns fehlt.csv
run 2 "--yes" import ORTE orte.csv --def orte.iDef
run 2 "--def" import ORTE orte.csv --yes
run 1 "gibt es nicht" import ORTE orte.csv --def fehlt.iDef --yes
run 1 "ist ein Ordner" import ORTE orte.csv --def "$work" --yes
run 1 "gibt es in der Datenbank nicht" import GIBTSNICHT orte.csv --def orte.iDef --yes
run 1 "existiert nicht" import ORTE fehlt.csv --def orte.iDef --yes
run 1 "GIBTS.NICHT\" der Importdefinition gibt es in der Feldliste nicht" import ORTE orte.csv --def fremd.iDef --yes
run 0 '"rowsInserted": 1' --json import ORTE orte.csv --def orte.iDef --yes
run 0 "Ortsteil: Innenstadt" district 64283 Darmstadt Rheinstr. # the search columns were filled

# Symbols: a pack built from a folder, listed, unpacked; wrong calls and a damaged pack refused.
mkdir -p symbole/Fahrzeuge
printf '<svg xmlns="http://www.w3.org/2000/svg" width="32" height="16"><rect width="32" height="16" fill="red"/></svg>' \
    > symbole/Fahrzeuge/LF.svg
printf 'Fahrzeuge/LF.svg;Fire engine;Vehicles\nFahrzeuge/TLF.svg;Tanker;Vehicles\n' > symbole/names.en.csv
run 0 "1 Symbol, Sprachen de, en" symbols pack symbole s.pak --svg-size 40
grep -q 'names.en.csv, Zeile 2: das Bild "Fahrzeuge/TLF.svg" gibt es im Ordner nicht' err \
    || { echo "FAIL: a names line without its image not reported" >&2; failures=$((failures + 1)); }
run 2 "8 bis 1024" symbols pack symbole s.pak --svg-size 4
run 1 "gibt es nicht" symbols pack fehlt s.pak
run 0 '"name": "Fire engine"' --json symbols list s.pak
id=$(grep -o '"identifier": "[^"]*"' out | cut -d'"' -f4)
run 0 "Fahrzeuge             LF" symbols list s.pak
run 2 "nur für einen Symbolordner" symbols list s.pak --type user
run 2 "system, user oder all" symbols list symbole --type alle
run 0 "Bytes" symbols extract s.pak "$id" lf.png
run 0 "Bytes" symbols extract s.pak "$(tr -d '{}' <<<"$id")" lf2.png # the identifier without its braces
[ "$(head -c 4 lf.png | tail -c 3)" = PNG ] || { echo "FAIL: the extracted image is no PNG" >&2; failures=$((failures + 1)); }
run 1 "gibt es in s.pak nicht" symbols extract s.pak "{fehlt}" x.png
head -c 40 s.pak > kaputt.pak
run 1 "ist beschädigt" symbols list kaputt.pak

# Documents: stored in the database and back byte for byte, listed, copied; scanning through SANE's test backend.
head -c 300000 /dev/urandom > bericht.pdf
run 0 "angelegt" --db "sqlite:$work/leer.db" init
run 0 '"modulId": 3,' --json --db "sqlite:$work/leer.db" modules add 0003 Wehr Personal # a number, as in the list
run 1 "sys init" --db "sqlite:$work/leer.db" docs add Fahrzeug_Dokumente FZ-1 bericht.pdf --binary
run 0 "Inhalt in der Datenbank" docs add Fahrzeug_Dokumente FZ-1 bericht.pdf --binary --name Einsatzbericht
run 0 "angelegt" docs add Fahrzeug_Dokumente FZ-1 /daten/plan.pdf
run 0 "bericht.pdf (in der Datenbank)" docs list Fahrzeug_Dokumente FZ-1
doc=$(grep Einsatzbericht out | cut -c1-33 | tr -d ' ')
mkdir raus
run 0 "raus/bericht.pdf" docs extract Fahrzeug_Dokumente "$doc" raus
cmp -s bericht.pdf raus/bericht.pdf || { echo "FAIL: the extracted document differs" >&2; failures=$((failures + 1)); }
run 1 "kein Inhalt" docs extract Fahrzeug_Dokumente GIBTSNICHT raus
run 0 "2 Dokumente von FZ-1 nach FZ-2" docs clone Fahrzeug_Dokumente FZ-1 FZ-2
run 1 "gibt es nicht" docs list Unbekannt_Dokumente FZ-1
mkdir sane.d && echo test > sane.d/dll.conf
export SANE_CONFIG_DIR="$work/sane.d"
run 0 "test:0" scan --list
run 0 "eine Seite von test:0" scan --to seite.jpg
run 1 "gibt es nicht" scan --to seite.jpg --source test:9
run 2 "--list oder --to" scan

echo "$failures failures"
[ "$failures" -eq 0 ]
