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
fail() { echo "example.sh: $*" >&2; exit 1; }
for lib in kxcommon kxcommon-core; do
    test -L "$prefix/lib/lib$lib.so" || fail "lib$lib.so missing"
    objdump -p "$prefix/lib/lib$lib.so" | grep -q "SONAME *lib$lib.so.0.1$" || fail "lib$lib.so: SONAME"
done
# The interface only: no driver, dialect or instance of a Qt template among the exported symbols
# (the standard library's own templates keep the default visibility its headers give them).
for lib in kxcommon kxcommon-core; do
    exported=$(nm -D --defined-only -C "$prefix/lib/lib$lib.so" | cut -d' ' -f3-)
    if grep -E "^(typeinfo (name )?for |vtable for )?(kx::[A-Za-z]*(Driver|Dialect)\b|Q[A-Za-z]*<|QtPrivate::)" <<<"$exported"; then
        fail "lib$lib.so exports internals"
    fi
done
# The interface only, in its own folder: no driver, dialect or unit table.
test -f "$prefix/include/kxcommon/lagercommon.h" || fail "headers not under include/kxcommon"
test -f "$prefix/include/kxcommon/version.h" || fail "no version header"
for internal in sqldriver.h sqldialect.h package.h; do
    if [ -e "$prefix/include/kxcommon/$internal" ]; then fail "internal header $internal installed"; fi
done
if [ -n "$(find "$prefix/include" -maxdepth 1 -name '*.h')" ]; then fail "headers beside include/kxcommon"; fi
# Every installed header compiles from the installed tree: none names a header left inside.
for header in "$prefix"/include/kxcommon/*.h; do echo "#include <kxcommon/$(basename "$header")>"; done >"$work/all.cpp"
g++ -std=c++20 -fPIC -fsyntax-only "$work/all.cpp" $(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --cflags kxcommon) \
    || fail "the installed headers do not compile"
if grep -rq "$work/prefix" "$prefix/lib/pkgconfig" "$prefix/lib/cmake"; then fail "the installed tree names its prefix"; fi
if PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --print-requires kxcommon kxcommon-core | grep -q Sql; then
    fail "Qt SQL declared"
fi
# The same example without CMake, from the pkg-config file of the library with the windows.
g++ -std=c++20 -fPIC "$source/examples/hello/main.cpp" -o "$work/hello-pc" \
    $(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --cflags --libs kxcommon)
cmake -S "$source/examples/hello" -B "$work/example" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/example" >/dev/null
# A sanitizer build's library wants its runtime loaded first; the example is built without it.
preload=$(ldd "$prefix/lib/libkxcommon-core.so" | awk '/libasan|libubsan/ {print $3}' | paste -sd: -)
# Built with CMake against the core library alone, it loads no widget, GUI or X library.
loaded=$(LD_PRELOAD="$preload" LD_LIBRARY_PATH="$prefix/lib" ldd "$work/example/kxcommon-hello")
grep -q "libkxcommon-core.so.0.1 => $prefix/lib/" <<<"$loaded" || fail "the core library not loaded from the prefix"
if grep -E -i "widgets|gui|x11|xcb|egl|fontconfig|libkxcommon.so" <<<"$loaded"; then fail "a widget library loaded"; fi
# A sanitizer build's library is not run from a program built without the sanitizers: with its
# runtime preloaded, the client libraries' exit handlers deadlock in glibc's locale lock.
if [ -z "$preload" ]; then
    output=$(LD_LIBRARY_PATH="$prefix/lib" "$work/example/kxcommon-hello" "sqlite:$work/hello.db")
    echo "$output"
    grep -q '^Brand, 1 h 20 min: ' <<<"$output" || fail "the example's fee"
    grep -q '^Straße: Hauptstraße, Hausnummer: 12a, Zusatz: Hinterhaus$' <<<"$output" || fail "the example's street"
    LD_LIBRARY_PATH="$prefix/lib" "$work/hello-pc" "sqlite:$work/hello-pc.db" | grep -q '^Brand, 1 h 20 min: ' \
        || fail "the example built with pkg-config"
fi
"$prefix/bin/kxcommon" --version | grep -q "^kxcommon 0\.1$" || fail "kxcommon --version"
