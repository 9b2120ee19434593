#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Drives the viewer with a real keyboard and pointer, under a window manager, and looks at what it
# remembers: viewerinput.sh VIEWER PLAN
# Status 77: the tools for that are missing.
set -euo pipefail
viewer=$1 plan=$2

# shellcheck source=tests/support/realscreen.sh
source "$(dirname "$0")/../support/realscreen.sh"
export HOME=$folder/home LC_ALL=C.UTF-8
mkdir "$HOME"

failed=0
process=
open_viewer() {
  "$viewer" "$plan" --exchange "$folder/exchange" 2>>"$folder/errors" &
  process=$!
  started+=("$process")
  await xdotool search --onlyvisible --name "$(basename "$plan")"
  sleep 1.5  # for the focus, and the backdrop
  xdotool mousemove 683 420
}
close_viewer() {
  xdotool key ctrl+q
  wait "$process" || { echo "FAIL: the viewer ended with status $?"; failed=1; }
}
# What it keeps of the plan under a key.
kept() {
  grep -rhs "^plans.*\\\\$1=" "$HOME/Documents" | sed 's/.*=//' | tr -d '\r"'
}
# expect NAME KEY CONDITION: the value of the key fits into the condition, for awk.
expect() {
  local value
  value=$(kept "$2")
  if ! awk -v value="$value" "BEGIN { exit !(value != \"\" && ($3)) }"; then
    echo "FAIL: $1: $2 is '$value'"
    failed=1
  fi
}

open_viewer
xdotool key Page_Down Page_Down
close_viewer
expect "two steps by key turn by 30 degrees" NorthAngle "value > 29.99 && value < 30.01"
scale=$(kept MetresPerPixel)
east=$(kept X)

open_viewer
xdotool click --repeat 3 --delay 60 4
close_viewer
expect "three notches zoom in" MetresPerPixel "value < $scale / 1.9 && value > $scale / 2.0"
expect "the angle is there again" NorthAngle "value > 29.99 && value < 30.01"

open_viewer
xdotool key ctrl+u
xdotool mousedown 1 mousemove_relative 60 0 mousemove_relative 60 0 mouseup 1
xdotool mousedown 3 sleep 0.3 mouseup 3 sleep 0.3 key Escape sleep 0.2
close_viewer
expect "north is up again" NorthAngle "value == 0"
expect "dragging to the right moves the view to the west" X "value < $east"

open_viewer
xdotool key F11 sleep 0.7 key F11 sleep 0.7 key Home sleep 0.5 key BackSpace sleep 0.3
close_viewer
expect "the previous view is that from before" MetresPerPixel "value < $scale / 1.9"
exit "$failed"
