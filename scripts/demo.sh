#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# A short scenario on the embedded default database, printed as it runs.
set -euo pipefail
build=${1:?build folder}
kx=$build/cli/kxcommon
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The database stays after the demo, so that its commands can be tried on it; each demo starts
# it anew.
data=${XDG_DATA_HOME:-$HOME/.local/share}/kxcommon
mkdir -p "$data"
rm -f "$data/demo.db"
db="sqlite:$data/demo.db"
# Each command is echoed with shell quoting, so that it can be pasted (with KXCOMMON_DB set to the
# database below).
show() { echo "\$ kxcommon${*:+ }$(printf '%q ' "$@" | sed 's/ $//')"; }
step() { echo; show "$@"; "$kx" --db "$db" "$@"; }
echo "Demo auf der eingebetteten Datenbank $data/demo.db (zum Nachvollziehen: export KXCOMMON_DB=$db)"
step sys init
step init
step modules add 0002 Lager Artikel --main
step modules add 0002 Lager Artikel_Lagerort
step modules add 7010 Fahrzeuge Fahrzeug --main
step modules
step --json modules
echo
echo "(Ein Hochkomma im Namen wird als Text gespeichert, es bricht keine Anweisung:)"
step modules add 0003 "Wehr's" Personal
step modules

echo
echo "--- Lager: Zugänge, eine Entnahme über zwei Zugänge, eine Korrektur, eine Bestellung ---"
day() { date -d "$1 days ago" +%d.%m.%Y; }
step stock init
step stock article 4711 "Druckschlauch C 15 m"
step stock line LAGERBELEG_POS WE-1 4711 10 --preis 38,50
step stock post LAGERBELEG_POS WE-1 --action add --mode in --modul 0002 --belegnummer 1 --date "$(day 2)"
step stock line LAGERBELEG_POS WE-2 4711 5 --preis 41,00
step stock post LAGERBELEG_POS WE-2 --action add --mode in --modul 0002 --belegnummer 2 --date "$(day 1)"
step stock line LAGERBELEG_POS AUS-1 4711 12
step stock post LAGERBELEG_POS AUS-1 --action sub --mode out --modul 0002 --ausgabe AUS-1
step stock log 4711
echo
echo "(Die Entnahme von 12 nimmt 10 aus dem ersten und 2 aus dem zweiten Zugang, je zu dessen Preis.)"
step stock line LAGERBELEG_POS KOR-1 4711 -- -1
step stock post LAGERBELEG_POS KOR-1 --action add --mode correction --modul 0002
echo
echo "(Die Entnahme wird auf 13 erhöht und erneut gebucht: nur die Änderung wird gebucht; ein zweites Buchen bucht nichts.)"
step stock line LAGERBELEG_POS AUS-1 4711 13
step stock post LAGERBELEG_POS AUS-1 --action sub --mode out --modul 0002
step stock post LAGERBELEG_POS AUS-1 --action sub --mode out --modul 0002
step stock line Bestellungen_artikel B-1 4711 20
step stock order Bestellungen_artikel B-1 --action add
step stock log 4711
step stock avail 4711

echo
echo "--- Gebühren: Beispielsatzung MUSTERSTADT ---"
step fee init --sample
echo
echo "(1 Std. 20 Min. werden auf 90 Minuten gerundet; 12 km Anfahrt)"
step fee MUSTERSTADT brand --hours 1 --minutes 20 --km 12
step fee MUSTERSTADT TH --quantity 2,5

echo
echo "--- AAO: Beispielregeln und ein kleines Straßenverzeichnis ---"
step dispatch init --sample
step aao "Musterstadt - Rathaus" Musterstadt B2 --use-name
step aao Schule Neudorf B2 --date "$(date +%d.%m.%Y)" --time 03:00:00 --explain
step split-street "Nieder-Ramstädter Str. 12a/Hinterhaus"
step --json split-object "Musterstadt - Rathaus"
step district 64285 Musterstadt "Hauptstr." 45
step district "" Musterstadt "Straße des 17. Juni"
step settings-name fms

echo
echo "--- Kategorien: der gemeinsame Baum \"KATS\", ein Modul mit Kategorietabelle, Häkchen eines Fahrzeugs ---"
step kats init --sample
step kats add Fahrzeuge 7010 Fahrzeug Fahrzeug_Kats "KENNZEICHEN,TYP"
step datalinks Fahrzeug
step kats set FZ-1 Fahrzeuge FZ-LF GE-AS-PA EA
echo
echo "(Übergeordnete Kategorien zeigen [-], wenn nur ein Teil darunter angekreuzt ist.)"
step kats show FZ-2 Fahrzeuge
step kats show FZ-1 Fahrzeuge

echo
echo "--- Mandanten: Einschränkung für die WHERE-Klausel (Zeilenenden CR LF, in --json sichtbar) ---"
step tenants init --sample
step tenant-filter Personal FFM --user demo
step --json tenant-filter Fahrzeug FFM-N --user demo
echo
echo "(Vom Kreisverband aus sieht \"demo\" nur die Musterstädter Mandanten.)"
step tenant-filter Fahrzeug KFV --user demo
echo
echo "(Neudorf ist keiner Gruppe von \"demo\" zugeordnet: keine Einschränkung, leere Ausgabe.)"
step tenant-filter Fahrzeug FFN --user demo
step tenant-filter Fahrzeug FFM --unrestricted

echo
echo "--- Import: ein Straßenverzeichnis aus einem anderen Programm (Windows-1252, CRLF, ohne Kopfzeile) ---"
examples=$(cd "$(dirname "$0")/../examples/import" && pwd)
cp "$examples/orte.csv" "$examples/orte.iDef" "$examples/orte-schluessel.iDef" "$work/"
step import-columns "$work/orte.csv"
step import ORTE "$work/orte.csv" --def "$work/orte.iDef" --yes
step district 64287 Darmstadt "Nieder-Ramstädter Straße" 42
step district 64291 Darmstadt "Frankfurter Landstr." 120
echo
echo "(Mit Schlüsselfeld STRASSE und Schlüsselspalte 4 ändert ein zweiter Import die vorhandenen Zeilen, statt sie zu verdoppeln.)"
step --json import ORTE "$work/orte.csv" --def "$work/orte-schluessel.iDef" --yes

echo
echo "--- Symbole der Lagekarte: eine Symboldatei aus Zeichnungen bauen, auflisten, ein Bild herausholen ---"
symbols=$(cd "$(dirname "$0")/../examples/symbols" && pwd)
step symbols pack "$symbols" "$work/symbols.pak"
step symbols list "$work/symbols.pak"
hlf=$("$kx" symbols list "$work/symbols.pak" 2>/dev/null | awk '$NF == "HLF" { print $1 }')
step symbols extract "$work/symbols.pak" "$hlf" "$work/hlf.png"

echo
echo "--- Dokumente: eine Datei in der Datenbank ablegen, auflisten, wieder herausholen, zu einem anderen Fahrzeug kopieren ---"
printf 'Einsatzbericht 2026-117\r\nBrand in der Hauptstraße 12\r\n' > "$work/Einsatzbericht.txt"
step docs add Fahrzeug_Dokumente FZ-1 "$work/Einsatzbericht.txt" --binary --name "Einsatzbericht 117"
step docs add Fahrzeug_Dokumente FZ-1 /daten/fahrzeuge/Fahrzeugbrief.pdf --name Fahrzeugbrief
step docs list Fahrzeug_Dokumente FZ-1
doc=$("$kx" --db "$db" docs list Fahrzeug_Dokumente FZ-1 | awk '/Einsatzbericht/ { print $1 }')
mkdir -p "$work/ablage"
step docs extract Fahrzeug_Dokumente "$doc" "$work/ablage"
step docs clone Fahrzeug_Dokumente FZ-1 FZ-2
step docs list Fahrzeug_Dokumente FZ-2
echo
echo "Die Datenbank der Demo bleibt: export KXCOMMON_DB=$db"
