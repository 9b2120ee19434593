#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Compares the translations with the texts in the sources: translations.py LUPDATE [--check]

Updates the catalogues unless it only checks. Ends with status 1 when a text lacks its translation,
or a translation is not the text's: another placeholder, mnemonic, plural or end.
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("core", "ipc", "actions", "menus", "navigation", "spreadsheet", "dxf", "apps")
CATALOGUES = ROOT / "resources" / "translations"


def run_lupdate(lupdate, catalogue, *options):
    """Brings a catalogue up to date; the same texts give the same file, wherever they stand."""
    sources = sorted(path.relative_to(ROOT).as_posix() for folder in FOLDERS
                     for path in (ROOT / folder).rglob("*") if path.suffix in (".cpp", ".h"))
    with tempfile.TemporaryDirectory() as include:
        (pathlib.Path(include) / "kelo_base").symlink_to(ROOT)  # public headers tell the classes
        run = subprocess.run([lupdate, "-silent", "-locations", "none", "-no-obsolete", "-I", ".",
                              "-I", include, *options, *sources, "-ts", catalogue],
                             cwd=ROOT, check=True, stderr=subprocess.PIPE, text=True)
    # A class defined outside of its class holds no texts; all else that is told loses some.
    return [line for line in run.stderr.splitlines() if "undeclared qualified class" not in line]


def messages(path):
    """The entries by what identifies them."""
    return {(context.findtext("name"), message.findtext("source"),
             message.findtext("comment", ""), message.get("numerus")): message
            for context in xml.parse(path).iter("context") for message in context.iter("message")}


def forms(message):
    """The translation, in all its plural forms."""
    translation = message.find("translation")
    return [form.text or "" for form in translation.iter("numerusform")] or [translation.text or ""]


def placeholders(text):
    return sorted(re.findall(r"%(?:L?\d{1,2}|L?n)", text))


def mnemonics(text):
    return len(re.findall(r"(?<!&)(?:&&)*&(?!&|\s|\w+;|#\d+;|$)", text))


def ending(text):
    """Blanks at both ends, and what the sentence closes with."""
    before, after = re.match(r"\s*", text)[0], re.search(r"\s*$", text)[0]
    close = re.search(r"(\.\.\.|…|[.:!?])?[)\"“”»«']*$", text.rstrip())[1]
    return before, "…" if close == "..." else close, after


def message_faults(source, message, plurals):
    """What is wrong with one translation."""
    texts = forms(message)
    if message.find("translation").get("type") == "unfinished" or not all(map(str.strip, texts)):
        return ["is not translated"]
    faults = set()
    if len(texts) != plurals:
        faults.add(f"has {len(texts)} plural forms instead of {plurals}")
    for text in texts:
        for aspect, of in (("placeholders", placeholders), ("mnemonics", mnemonics),
                           ("blanks or marks at the ends", ending)):
            if of(text) != of(source):
                faults.add(f"has other {aspect}: {text!r}")
    return sorted(faults)


def main():
    lupdate, is_check = sys.argv[1], "--check" in sys.argv[2:]
    catalogues = sorted(CATALOGUES.glob("kelo_base_*.ts"))
    has_fault = not catalogues
    for path in catalogues:
        language = path.stem.removeprefix("kelo_base_")
        if not is_check:
            run_lupdate(lupdate, path)
        with tempfile.TemporaryDirectory() as folder:
            fresh = pathlib.Path(folder) / path.name
            faults = run_lupdate(lupdate, fresh, "-target-language", language)
            wanted = messages(fresh)
        given = messages(path)
        if given.keys() != wanted.keys():
            faults.append("the sources have other texts: run scripts/translations")
        unfinished = 0
        for key, message in wanted.items():
            context, source, _, _ = key
            told = (message_faults(source, given[key], len(forms(message))) if key in given
                    else ["is not in the catalogue"])
            unfinished += told in (["is not translated"], ["is not in the catalogue"])
            faults += [f"{context}: {source!r} {fault}" for fault in told]
        print("".join(f"{path.name}: {fault}\n" for fault in faults), end="")
        print(f"{language}: {len(wanted) - unfinished} texts translated, {unfinished} not")
        has_fault = has_fault or bool(faults)
    return 1 if has_fault else 0


if __name__ == "__main__":
    sys.exit(main())
