#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Checks that a library shows only what its headers mark: exports.py NM LIBRARY INCLUDE_DIR"""
import pathlib
import re
import subprocess
import sys

nm, library, include_dir = sys.argv[1:]
headers = "\n".join(path.read_text() for path in pathlib.Path(include_dir).rglob("*.h"))
marked = set(re.findall(r"\b(?:class|struct) KELO_BASE_EXPORT (\w+)", headers))
marked |= set(re.findall(r"\bKELO_BASE_EXPORT [^;{(]*?\b(\w+)\(", headers))

listing = subprocess.run([nm, "--dynamic", "--defined-only", "--demangle", library], check=True,
                         capture_output=True, text=True).stdout
symbols = [line.split(maxsplit=2)[1:] for line in listing.splitlines()]
# The linker's own marks, and the sanitizer's of what it watches.
symbols = [entry for entry in symbols if entry[1] not in ("__bss_start", "_edata", "_end")
           and not entry[1].startswith("__odr_asan.")]
# Inline things of the standard library and of the toolkit are everybody's.
ours = [name for kind, name in symbols
        if kind not in "VWu" or not re.search(r"\b(std|Q\w+)\b", name)]
foreign = [name for name in ours if not marked & set(re.findall(r"\w+", name))]
if not ours:
    sys.exit(f"{library} shows no symbol at all")
if foreign:
    sys.exit("Shown, but marked in no public header:\n" + "\n".join(foreign))
