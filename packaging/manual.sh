#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Writes a program's manual page from what it prints for --help: manual.sh PROGRAM VERSION PAGE
set -euo pipefail
program=$1 version=$2 page=$3

# The program's first sentence, as the list of manual pages wants it: no capital, no full stop.
name=$("$program" --help | sed -n '2{s/\.$//; s/^./\l&/; p}')
help2man --no-info --locale=C.UTF-8 --manual=kelo_base --source="kelo_base $version" \
  --name="$name" --version-string="$version" --include="$(dirname "$0")/manual.h2m" "$program" |
  sed -E 's/^\.SS "?(Arguments|Exit status):"?$/.SH "\U\1"/' >"$page"
