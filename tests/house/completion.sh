#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Completes a few command lines as bash does: completion.sh MAKER DXF2GK2 VIEWER FOLDER
set -euo pipefail
export LC_ALL=C.UTF-8 LANGUAGE='' QT_QPA_PLATFORM=offscreen
maker=$1 dxf2gk2=$2 viewer=$3 folder=$4
mkdir -p "$folder"
"$maker" "$dxf2gk2" "$folder"
"$maker" "$viewer" "$folder"
cd "$folder"
rm -rf try
mkdir -p try/folder
cd try
touch plan.dxf PLAN.DXF notes.txt
# shellcheck disable=SC2317
compopt() { :; } # only while the shell itself completes
# shellcheck disable=SC1091
. ../dxf2gk2
# shellcheck disable=SC1091
. ../kelo-viewer

failed=0
offers() { # WORDS WANTED...: what stands behind the last blank is completed
  local expected=${*:2}
  read -ra COMP_WORDS <<<"$1"
  [[ $1 != *' ' ]] || COMP_WORDS+=('')
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  "_${COMP_WORDS[0]//-/_}"
  local got
  got=$(printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort | xargs)
  [ "$got" = "$expected" ] || { echo "'$1' gives '$got', not '$expected'" >&2; failed=1; }
}
offers 'dxf2gk2 ' PLAN.DXF folder plan.dxf
offers 'dxf2gk2 --out' --output --output-dir
offers 'dxf2gk2 --list plan.dxf --progress ' always auto never
offers 'dxf2gk2 --progress = a' always auto
offers 'dxf2gk2 -d ' folder
offers 'dxf2gk2 --compare n' notes.txt
offers 'dxf2gk2 --encoding '
offers 'kelo-viewer ' PLAN.DXF folder plan.dxf
offers 'kelo-viewer --theme ' dark light

for program in dxf2gk2 kelo-viewer; do
  for shell in "zsh -n _$program" "fish --no-execute $program.fish"; do
    command -v "${shell%% *}" >/dev/null || continue
    (cd .. && $shell) || failed=1
  done
done
exit "$failed"
