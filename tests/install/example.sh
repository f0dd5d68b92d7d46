#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Installs the package into a temporary prefix, builds the example against the installed tree
# only, and runs it on a new SQLite database.
set -euo pipefail
build=${1:?build folder}
source=${2:?source folder}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/prefix" >/dev/null
# The installed tree is moved before use: nothing in it may name the prefix it was installed to.
mv "$work/prefix" "$work/moved"
prefix=$work/moved
test -L "$prefix/lib/libkxcommon.so"
objdump -p "$prefix/lib/libkxcommon.so" | grep -q 'SONAME *libkxcommon.so.0'
fail() { echo "example.sh: $*" >&2; exit 1; }
if grep -rq "$work/prefix" "$prefix/lib/pkgconfig" "$prefix/lib/cmake"; then fail "the installed tree names its prefix"; fi
if PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --print-requires kxcommon | grep -q Sql; then fail "Qt SQL declared"; fi
# The same example without CMake, from the pkg-config file alone.
g++ -std=c++20 -fPIC "$source/examples/hello/main.cpp" -o "$work/hello-pc" \
    $(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --cflags --libs kxcommon)
cmake -S "$source/examples/hello" -B "$work/example" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/example" >/dev/null
# A sanitizer build's library wants its runtime loaded first; the example is built without it.
preload=$(ldd "$prefix/lib/libkxcommon.so" | awk '/libasan|libubsan/ {print $3}' | paste -sd: -)
output=$(LD_PRELOAD="$preload" LD_LIBRARY_PATH="$prefix/lib" "$work/example/kxcommon-hello" "sqlite:$work/hello.db")
echo "$output"
grep -q '^Brand, 1 h 20 min: ' <<<"$output"
grep -q '^Straße: Hauptstraße, Hausnummer: 12a, Zusatz: Hinterhaus$' <<<"$output"
LD_PRELOAD="$preload" LD_LIBRARY_PATH="$prefix/lib" "$work/hello-pc" "sqlite:$work/hello-pc.db" | grep -q '^Brand, 1 h 20 min: '
"$prefix/bin/kxcommon" --version | grep -q "^kxcommon 0\.1$"
