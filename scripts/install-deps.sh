#!/usr/bin/env bash
# SPDX-License-Identifier: LGPL-2.1-or-later
# Installs the Debian packages the build needs; "all" (the default) adds what the tests, the
# benchmarks and the database servers need, "demo" only what the demo's program needs, "fuzz"
# the build's packages and clang with libFuzzer.
# As root it installs what is missing; otherwise it prints the command to run.
set -euo pipefail
packages=(cmake ninja-build g++ pkg-config qt6-base-dev qt6-svg-dev qt6-image-formats-plugins libquazip1-qt6-dev libsane-dev libsqlite3-dev libpq-dev firebird-dev
          qt6-translations-l10n help2man)
if [ "${1:-all}" = fuzz ]; then
    packages+=(clang libfuzzer-14-dev)
elif [ "${1:-all}" != demo ]; then
    packages+=(libqt6sql6-sqlite libqt6sql6-psql libqt6sql6-ibase libgtest-dev libbenchmark-dev
               postgresql firebird3.0-server firebird3.0-utils sane-utils librapidcheck-dev sqlite3 dpkg-dev)
fi
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
cmd="DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
    echo "Missing packages. Run as root:" >&2
    echo "  apt-get update && $cmd" >&2
    exit 1
fi
echo "Installing: ${missing[*]}"
# The packaged services are not wanted: the tests start their own servers in a folder of their own.
if [ ! -e /usr/sbin/policy-rc.d ]; then
    printf '#!/bin/sh\nexit 101\n' > /usr/sbin/policy-rc.d && chmod +x /usr/sbin/policy-rc.d
    trap 'rm -f /usr/sbin/policy-rc.d' EXIT
fi
apt-get update -q >/dev/null
eval "$cmd"
