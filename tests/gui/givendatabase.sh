#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# The window host does not write its demo data into a database it was given that already holds
# tables, unless told: unattended it ends with exit code 1 and leaves the database as it was.
set -euo pipefail
cli=${1:?kxcommon program}
gui=${2:?kxcommon-gui program}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
db=$work/given.db
"$cli" --db "sqlite:$db" init >/dev/null
before=$(sqlite3 "$db" .schema | md5sum)
status=0
QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work "$gui" --db "sqlite:$db" --screenshots "$work/out" 2>"$work/err" || status=$?
if [ "$status" != 1 ]; then echo "givendatabase.sh: exit code $status, expected 1" >&2; exit 1; fi
grep -q -- "--demo-data" "$work/err"
if [ "$(sqlite3 "$db" .schema | md5sum)" != "$before" ]; then echo "givendatabase.sh: the database was changed" >&2; exit 1; fi
if [ -e "$work/out" ] && [ -n "$(ls -A "$work/out")" ]; then echo "givendatabase.sh: pictures were written" >&2; exit 1; fi
