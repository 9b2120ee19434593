#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Writes the changes as Debian's packages tell them: changelog.py CHANGELOG.md VERSION MAINTAINER FILE

The first version listed has to be VERSION. The date is that of SOURCE_DATE_EPOCH, otherwise that of the list of changes.
"""
import datetime
import email.utils
import os
import re
import sys
import textwrap

source, current, maintainer, target = sys.argv[1:]
seconds = float(os.environ.get("SOURCE_DATE_EPOCH") or os.path.getmtime(source))
date = email.utils.format_datetime(datetime.datetime.fromtimestamp(seconds, datetime.timezone.utc))
entries = []
with open(source, encoding="utf-8") as file:
    for section in file.read().split("\n## ")[1:]:
        version, text = section.split("\n", 1)
        changes = re.split(r"^- ", text, flags=re.MULTILINE)[1:] or [text]
        body = "\n".join(textwrap.fill(" ".join(change.split()), 78, initial_indent="  * ",
                                       subsequent_indent="    ", break_on_hyphens=False)
                         for change in changes)
        entries.append(f"kelo-base ({version.strip()}) bookworm; urgency=medium\n\n{body}\n\n"
                       f" -- {maintainer}  {date}\n")
if not entries or not entries[0].startswith(f"kelo-base ({current})"):
    sys.exit(f"{source} does not begin with version {current}")
with open(target, "w", encoding="utf-8") as file:
    file.write("\n".join(entries))
