#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Installs the packages beside this script on a bare system, runs the programs as their user would,
# builds against the library, and takes everything away again.
set -euo pipefail
cd "$(dirname "$0")"
export DEBIAN_FRONTEND=noninteractive
add() { apt-get install -yq --no-install-recommends "$@" >/dev/null 2>log || { cat log; exit 1; }; }
fail() { echo "trial: $*" >&2; exit 1; }

add ./libkelo-base0.*.deb ./kelo-base-tools_*.deb
export HOME=/tmp/user XDG_RUNTIME_DIR=/tmp/user
mkdir -m 700 "$HOME"
cd "$HOME"
dxf2gk2 --quiet /usr/share/kelo_base/samples/village.dxf --output village.txt --preview village.png \
  --table village.csv
cmp village.txt /root/trial/expected.txt
for program in $(dpkg --listfiles kelo-base-tools | sed -n 's|^/usr/bin/||p'); do
  "$program" --help >/dev/null || fail "$program does not run"
  [ -f "/usr/share/man/man1/$program.1.gz" ] || fail "$program has no manual page"
done
for window in dxf-workbench kelo-viewer; do
  status=0
  QT_QPA_PLATFORM=offscreen timeout 5 $window /usr/share/kelo_base/samples/village.dxf \
    2>messages || status=$?
  [ "$status" -eq 124 ] || fail "$window ended with $status: $(cat messages)"
  ! grep -v 'does not support propagateSizeHints' messages || fail "$window said this"
done
kelo-viewer --screenshot village.png # of the sample, which it has to find itself
[ "$(stat --format %s village.png)" -gt 20000 ] || fail "kelo-viewer shows nothing"

cd /root/trial
add ./libkelo-base-dev_*.deb g++ cmake make pkgconf
cmake -S consumer -B by-cmake -D wanted_version="$(pkg-config --modversion kelo_base)" >/dev/null
cmake --build by-cmake >/dev/null
by-cmake/consumer /usr/share/kelo_base/samples/village.dxf 21 || fail "the plan has other sheets"
# shellcheck disable=SC2046
g++ -std=c++20 -fPIC core.cpp -o by-pkg-config $(pkg-config --cflags --libs kelo_base)
./by-pkg-config || fail "an application with a database does not start"

apt-get purge -yq 'libkelo-base*' kelo-base-tools >/dev/null
! find / -xdev \( -path /root -o -path "$HOME" \) -prune -o -iname '*kelo[-_]*' -print | grep . || fail "this was left behind"
echo "Installed, run, built against and removed"
