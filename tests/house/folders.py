#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Checks who includes whom, and that every file is built: folders.py ROOT LIST

The list is what CMake knows, a line each: "folder NAME", "knows NAME ..." and "builds PATH".
"""
import pathlib
import re
import sys

BESIDE = ("apps", "tests", "benchmarks", "fuzz")
INCLUDE = re.compile(r'^\s*#\s*include\s+[<"](kelo_base/)?([^>"]+)[>"]', re.MULTILINE)


class House:
    """The library's folders and their arrows, as CMake states them."""

    def __init__(self, root, list_file):
        self.knows = {}
        self.builder = {}  # folder by file, both named from the root
        for line in list_file.read_text(encoding="utf-8").splitlines():
            word, _, rest = line.partition(" ")
            if word == "folder":
                folder = rest
            elif word == "knows":
                self.knows[folder] = set(rest.split())
            elif (path := pathlib.Path(rest)).is_relative_to(root):
                self.builder[path.relative_to(root).as_posix()] = folder
        self.top = {folder.split("/")[0] for folder in self.knows}
        self.drawn = {folder: set() for folder in self.knows}  # arrows that an include needs

    def is_public(self, name):
        return name in self.builder and name.endswith(".h") and not name.endswith("_p.h")

    def folder(self, name):
        """Whose a file is: a public header is its list's, any other file its place's."""
        if name in self.builder:
            return self.builder[name]
        places = (parent.as_posix() for parent in pathlib.PurePosixPath(name).parents)
        return next((place for place in places if place in self.knows), None)

    def include_faults(self, source, is_installed_spelling, target):
        """What is wrong with one include line; both files are named from the root."""
        folder, other = self.folder(source), self.folder(target)
        beside, is_private = source.split("/")[0], target.endswith("_p.h")
        if self.is_public(source) and (is_private or re.match(r"(dxflib/)?dl_", target)):
            yield "a public header shows what is private"
        if "/platform/" in source and re.match(r"Q[A-Z]|Qt", target):
            yield "platform sources include no Qt"
        if target.startswith("apps/") and beside != "tests" \
                and not source.startswith(target.rsplit("/", 1)[0]):
            yield "nobody knows a program"
        if not is_installed_spelling and self.is_public(target):
            yield f"spelled <kelo_base/{target}>"
        if other is None:
            if target.split("/")[0] in self.top:
                yield "no such folder"
            return
        if beside == "apps" and not is_installed_spelling:
            yield "programs know public headers alone"
        if folder not in (None, other):
            self.drawn[folder].add(other)
            if other not in self.knows[folder]:
                yield f"{folder} does not know {other}"
            elif is_private and other != "core" and other.split("/")[0] != beside:
                yield f"private to {other}"

    def file_faults(self, path, source):
        # Of the sources for one system, CMake lists those of this one.
        is_alone = source.endswith("_p.h") or "/platform/" in source or \
            re.search(r"_(linux|macos|unix|windows)\.cpp$", source)
        if self.folder(source) and not is_alone and source not in self.builder:
            yield f"{source}: in no CMake list"
        for spelling, target in INCLUDE.findall(path.read_text(encoding="utf-8")):
            for fault in self.include_faults(source, bool(spelling), target):
                yield f"{source} includes {target}: {fault}"

    def idle_arrows(self):
        for folder, knows in self.knows.items():
            for other in sorted(knows - self.drawn[folder]):
                yield f"{folder} is said to know {other}, but includes nothing of it"


def main():
    root = pathlib.Path(sys.argv[1])
    house = House(root, pathlib.Path(sys.argv[2]))
    faults = [] if any(map(house.is_public, house.builder)) else ["CMake names no public header"]
    for top in (*sorted(house.top), *BESIDE):
        for path in sorted((root / top).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                faults += house.file_faults(path, path.relative_to(root).as_posix())
    faults += house.idle_arrows()
    for path in (root / "apps").rglob("CMakeLists.txt"):
        if "kelo_base_objects" in path.read_text(encoding="utf-8"):
            faults.append(f"{path.relative_to(root)}: programs link the shared library alone")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
