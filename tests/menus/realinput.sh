#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Drives a pie menu with a real keyboard and pointer, on a screen of its own: realinput.sh PROGRAM
# Status 77: the tools for that are missing.
set -euo pipefail
program=$1

# shellcheck source=tests/support/realscreen.sh
source "$(dirname "$0")/../support/realscreen.sh"
"$program" >>"$folder/told" 2>>"$folder/errors" &
started+=($!)
await grep -q ready "$folder/told"
sleep 0.5  # for the window manager to give it the focus

failed=0
# try NAME EXPECTED COMMAND...: what the program tells while each COMMAND, for xdotool, is run.
try() {
  local name=$1 expected=$2 command told
  shift 2
  xdotool mousemove 683 384 key --delay 60 Escape Escape Escape
  : >"$folder/told"
  xdotool key F12
  await grep -q ready "$folder/told"
  for command in "$@"; do
    # shellcheck disable=SC2086
    xdotool $command
  done
  sleep 0.15
  told=$(grep -v ready "$folder/told" | paste -sd, || true)
  if [ "$told" != "$expected" ]; then
    echo "FAIL: $name: told '$told', expected '$expected'"
    failed=1
  fi
}

# Beyond 660 milliseconds a key repeats.
try "the opening key held picks nothing yet" "" \
  "keydown space" "sleep 0.3" "mousemove_relative 90 0" "sleep 1.2"
xdotool keyup space
try "held, pointed, let go" "picked East" \
  "keydown space" "sleep 0.3" "mousemove_relative 90 0" "sleep 1.2" "keyup space"
try "tapped, then clicked" "picked East" "key space" "mousemove_relative 90 0" "click 1"
try "Control let go is not the opening key" "" \
  "keydown ctrl" "keydown m" "sleep 0.4" "mousemove_relative 90 0" "keyup ctrl" "sleep 0.1"
xdotool keyup m
try "the opening key after Control" "picked East" \
  "keydown ctrl" "keydown m" "sleep 0.4" "mousemove_relative 90 0" "keyup ctrl" "keyup m"
try "a key beside the button that opened" "" \
  "keydown ctrl" "mousedown 1" "sleep 0.4" "mousemove_relative 90 0" "keyup ctrl" "sleep 0.1"
xdotool mouseup 1
try "a letter held opens the sub-menu, and picks nothing there" "" \
  "key space" "keydown s" "sleep 1.2" "keyup s"
try "the letter again picks there" "picked Sun" "key space" "key s" "key s"

corner="mousemove 1365 767"
try "a stroke at the edge counts from the press, though the menu is seen" "picked North" \
  "$corner" "mousedown 1" "sleep 0.08" "mousemove_relative -- 0 -60" "mouseup 1"
try "after a rest it counts from the middle" "picked East" \
  "$corner" "mousedown 1" "mousemove_relative -- 0 -60" "sleep 0.5" "mouseup 1"
try "a click at the edge opens" "" "$corner" "click 1" "sleep 0.3"
try "a second click picks what lies there" "picked East" \
  "$corner" "click 1" "sleep 0.3" "mousemove_relative -- 0 -60" "click 1"

try "a button let go over the sub-menu that opened under it picks nothing" "" \
  "mousedown 1" "mousemove_relative 0 90" "sleep 0.9" "mouseup 1" "sleep 0.3"
try "nor does a key" "back" \
  "keydown space" "mousemove_relative 0 90" "sleep 0.9" "keyup space" "sleep 0.3"
try "but the stroke goes on through it" "picked Sub East" \
  "mousedown 1" "mousemove_relative 0 90" "sleep 0.9" "mousemove_relative -- 90 -90" "mouseup 1"
exit "$failed"
