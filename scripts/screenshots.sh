#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Renders every form and frame on the demo data (embedded database, offscreen platform) into
# PNG files named after their classes.
set -euo pipefail
build=${1:?build folder}
out=${2:?target folder}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$out"
# A German workstation: Qt formats sizes and dates from the system locale.
LANG=de_DE.UTF-8 QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work "$build/gui/kxcommon-gui" --db "sqlite:$work/screens.db" --screenshots "$out" \
    2> >(grep -v 'propagateSizeHints' >&2)
