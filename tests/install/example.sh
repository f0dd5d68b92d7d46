#!/usr/bin/env bash
# Installs the package into a temporary prefix, builds the example against the installed tree
# only, and runs it on a new SQLite database.
set -euo pipefail
build=${1:?build folder}
source=${2:?source folder}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/prefix" >/dev/null
test -L "$work/prefix/lib/libkxcommon.so"
objdump -p "$work/prefix/lib/libkxcommon.so" | grep -q 'SONAME *libkxcommon.so.0'
PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig" pkg-config --cflags --libs kxcommon | grep -q -- '-lkxcommon'
cmake -S "$source/examples/hello" -B "$work/example" -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/example" >/dev/null
# A sanitizer build's library wants its runtime loaded first; the example is built without it.
preload=$(ldd "$work/prefix/lib/libkxcommon.so" | awk '/libasan|libubsan/ {print $3}' | paste -sd: -)
output=$(LD_PRELOAD="$preload" LD_LIBRARY_PATH="$work/prefix/lib" "$work/example/kxcommon-hello" "sqlite:$work/hello.db")
echo "$output"
grep -q '^Brand, 1 h 20 min: ' <<<"$output"
grep -q '^Straße: Hauptstraße, Hausnummer: 12a, Zusatz: Hinterhaus$' <<<"$output"
"$work/prefix/bin/kxcommon" --version | grep -q "^kxcommon 0\.1$"
