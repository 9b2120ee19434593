#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Checks who includes whom, and that every file is built: folders.py ROOT LIST

The list is what CMake knows: the public headers and the library's sources, a path a line.
"""
import pathlib
import re
import sys

KNOWS = {"core": (), "ipc": ("core",), "actions": ("core",), "navigation": ("core",),
         "dxf": ("core",), "menus": ("core", "actions")}
BESIDE = ("apps", "tests", "benchmarks", "fuzz")
INCLUDE = re.compile(r'^\s*#\s*include\s+[<"](kelo_base/)?([^>"]+)[>"]', re.MULTILINE)


def include_faults(source, is_public, is_installed_spelling, target):
    """What is wrong with one include line; both files are named from the root."""
    folder, other = source.split("/")[0], target.split("/")[0]
    is_private = target.endswith("_p.h")
    if is_public and (is_private or re.match(r"(dxflib/)?dl_", target)):
        yield "a public header shows what is private"
    if "/platform/" in source and re.match(r"Q[A-Z]|Qt", target):
        yield "platform sources include no Qt"
    if other == "apps" and folder != "tests" and not source.startswith(target.rsplit("/", 1)[0]):
        yield "nobody knows a program"
    if other not in KNOWS or "/" not in target:
        return
    if folder == "apps" and not is_installed_spelling:
        yield "programs know public headers alone"
    if folder in KNOWS and folder != other:
        if other not in KNOWS[folder]:
            yield f"{folder} does not know {other}"
        elif is_private and other != "core":
            yield f"private to {other}"


def main():
    root = pathlib.Path(sys.argv[1])
    built = {pathlib.Path(line) for line in pathlib.Path(sys.argv[2]).read_text().splitlines()}
    public = {path for path in built if path.suffix == ".h" and not path.name.endswith("_p.h")}
    faults = []
    for folder in (*KNOWS, *BESIDE):
        for path in sorted((root / folder).rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            source = path.relative_to(root).as_posix()
            is_private = source.endswith("_p.h") or "/platform/" in source
            if folder in KNOWS and not is_private and path not in built:
                faults.append(f"{source}: in no CMake list")
            for spelling, target in INCLUDE.findall(path.read_text(encoding="utf-8")):
                faults += [f"{source} includes {target}: {fault}" for fault in
                           include_faults(source, path in public, bool(spelling), target)]
                if not spelling and root / target in public:
                    faults.append(f"{source} includes {target}: spelled <kelo_base/{target}>")
    for path in (root / "apps").rglob("CMakeLists.txt"):
        if "kelo_base_objects" in path.read_text(encoding="utf-8"):
            faults.append(f"{path.relative_to(root)}: programs link the shared library alone")
    print("\n".join(faults))
    return 1 if faults or not public else 0


if __name__ == "__main__":
    sys.exit(main())
