#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# A screen of its own with a window manager, for whoever sources this; ends with the script. Gives
# $folder, which goes as well, and await. Status 77: the tools for that are missing.

for tool in Xvfb openbox xdotool; do
  command -v "$tool" >/dev/null || { echo "$0: $tool is missing"; exit 77; }
done

folder=$(mktemp -d)
started=()
# shellcheck disable=SC2317  # called by the trap
finish() {
  kill "${started[@]}" 2>/dev/null || true
  wait
  rm -rf "$folder"
}
trap finish EXIT

# Waits until a command succeeds, for twenty seconds at most.
await() {
  for _ in $(seq 400); do
    if "$@" >/dev/null 2>&1; then return 0; fi
    sleep 0.05
  done
  echo "$0: waited in vain for: $*" >&2
  exit 1
}

mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3<>"$folder/display" 2>>"$folder/errors" &
started+=($!)
read -r number <"$folder/display"
export DISPLAY=:$number QT_QPA_PLATFORM=xcb
echo "leak:libdbus" >"$folder/notours"  # which the toolkit's platform plugin keeps to the end
export LSAN_OPTIONS=suppressions=$folder/notours
openbox >>"$folder/errors" 2>&1 &
started+=($!)
await xdotool get_desktop  # answered by the window manager
