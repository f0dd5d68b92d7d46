#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Builds the Debian packages from the build folder, checks their names, dependencies and contents,
# and builds and runs the example against the unpacked runtime and development packages.
set -euo pipefail
build=${1:?build folder}
source=${2:?source folder}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "package.sh: $*" >&2; exit 1; }
(cd "$build" && cpack -B "$work/packages" >/dev/null)
runtime=$(ls "$work"/packages/libkxcommon0.1_*.deb)
dev=$(ls "$work"/packages/libkxcommon-dev_*.deb)
tools=$(ls "$work"/packages/kxcommon-tools_*.deb)

contents() { dpkg-deb --contents "$1" | awk '{ print $6 }'; }
has() { grep -qx -- "$2" <<<"$(contents "$1")" || fail "$(basename "$1") lacks $2"; }
depends() { dpkg-deb --field "$1" Depends; }

has "$runtime" ./usr/lib/libkxcommon-core.so.0.1
has "$runtime" ./usr/lib/libkxcommon.so.0.1
if contents "$runtime" | grep -q "include/\|\.so$"; then fail "development files in the runtime package"; fi
depends "$runtime" | grep -q "libqt6core6" || fail "the runtime package does not depend on QtCore"
depends "$runtime" | grep -q "libpq5" || fail "the runtime package does not depend on libpq"
if depends "$runtime" | grep -q -i "sql6"; then fail "the runtime package depends on Qt SQL"; fi

for file in ./usr/lib/libkxcommon-core.so ./usr/lib/libkxcommon.so ./usr/include/kxcommon/lagercommon.h \
    ./usr/include/kxcommon/version.h ./usr/include/kxcommon/kxcommon_core_export.h \
    ./usr/lib/cmake/kxCommon/kxCommonConfig.cmake ./usr/lib/pkgconfig/kxcommon-core.pc ./usr/lib/pkgconfig/kxcommon.pc; do
    has "$dev" "$file"
done
if contents "$dev" | grep -q "sqldriver.h\|sqldialect.h\|/package.h"; then fail "internal headers in the development package"; fi
depends "$dev" | grep -q "libkxcommon0.1 (= 0.1)" || fail "the development package does not need its runtime"

has "$tools" ./usr/bin/kxcommon
has "$tools" ./usr/bin/kxcommon-gui
has "$tools" ./usr/share/kxcommon/symbols.pak
has "$tools" ./usr/share/man/man1/kxcommon.1
has "$tools" ./usr/share/bash-completion/completions/kxcommon
depends "$tools" | grep -q "libkxcommon0.1 (= 0.1)" || fail "the tools do not need the runtime"

# The example against the unpacked packages, with CMake and with pkg-config.
for deb in "$runtime" "$dev" "$tools"; do dpkg-deb -x "$deb" "$work/root"; done
cmake -S "$source/examples/hello" -B "$work/example" -DCMAKE_PREFIX_PATH="$work/root/usr" >/dev/null
cmake --build "$work/example" >/dev/null
LD_LIBRARY_PATH="$work/root/usr/lib" "$work/example/kxcommon-hello" "sqlite:$work/hello.db" | grep -q '^Brand, 1 h 20 min: ' \
    || fail "the example built against the packages does not run"
g++ -std=c++20 -fPIC "$source/examples/hello/main.cpp" -o "$work/hello-pc" \
    $(PKG_CONFIG_PATH="$work/root/usr/lib/pkgconfig" pkg-config --cflags --libs kxcommon-core)
LD_LIBRARY_PATH="$work/root/usr/lib" "$work/hello-pc" "sqlite:$work/hello-pc.db" | grep -q '^Brand, 1 h 20 min: ' \
    || fail "the example built with pkg-config does not run"
"$work/root/usr/bin/kxcommon" --version | grep -q "^kxcommon 0\.1$" || fail "the packaged command line"
echo "package.sh: $(basename "$runtime") $(basename "$dev") $(basename "$tools") checked"
