#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Completion for bash, zsh and fish from what a program prints for --help.

completion.py PROGRAM FOLDER writes FOLDER/NAME, FOLDER/_NAME and FOLDER/NAME.fish
"""
import pathlib
import re
import subprocess
import sys
from dataclasses import dataclass


@dataclass
class Option:
    names: list[str]
    value: str  # what it is called; empty: the option takes none
    text: str

    def words(self):
        """The values that the text counts up: "auto, always or never"."""
        listed = re.search(r"(?:: |^)((?:[\w-]+, )*[\w-]+ or [\w-]+)\.", self.text)
        return re.split(r", | or ", listed[1]) if self.value and listed else []

    def kind(self):
        """What its values are: "words", "folder", "file", or "" for what only the user knows."""
        if self.words():
            return "words"
        name = self.value.lower()
        if name in ("dir", "directory", "folder"):
            return "folder"
        return "file" if name in ("file", "old", "plan") else ""


def read_help(program):
    """The options, and what kind the arguments are, of the program's help."""
    text = subprocess.run([program, "--help"], check=True, capture_output=True, text=True).stdout
    sections = re.split(r"^(\w[\w ]*):\n", text, flags=re.MULTILINE)
    bodies = dict(zip(sections[1::2], sections[2::2]))
    options = []
    for line in bodies.get("Options", "").splitlines():
        start = re.match(r"  (-\S.*?)(?:  +(\S.*))?$", line)
        if start:
            value = re.search(r"<(.+?)>", start[1])
            names = re.findall(r"-[\w-]+", re.sub(r"<.*?>", "", start[1]))
            options.append(Option(names, value[1] if value else "", start[2] or ""))
        elif line.strip() and options:
            options[-1].text = f"{options[-1].text} {line.strip()}".strip()
    if not options:
        sys.exit(f"{program} --help tells of no options")
    # The first argument; whatever is not a plan begins with a folder here.
    argument = re.search(r"^  (\S+)", bodies.get("Arguments", ""), flags=re.MULTILINE)
    return options, "plan" if argument and "plan" in argument[1].lower() else "folder"


def bash(name, options, argument):
    def answer(kind, words):
        if kind == "words":
            return f"COMPREPLY=($(compgen -W '{' '.join(words)}' -- \"$word\"))"
        if kind == "folder":
            return "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"$word\")"
        if kind == "plan":
            return ("compopt -o filenames; mapfile -t COMPREPLY < "
                    "<(compgen -d -- \"$word\"; compgen -f -X '!*.[dD][xX][fF]' -- \"$word\")")
        if kind == "file":
            return "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- \"$word\")"
        return ":"

    cases = "".join(f"    {'|'.join(option.names)}) {answer(option.kind(), option.words())}; return ;;\n"
                    for option in options if option.value)
    names = " ".join(spelling for option in options for spelling in option.names)
    function = "_" + name.replace("-", "_")
    return f"""# Completion of {name} in bash.
{function}() {{
  local word=${{COMP_WORDS[COMP_CWORD]}} before=${{COMP_WORDS[COMP_CWORD - 1]}}
  if [[ $word == = ]]; then  # "--option=" comes as words of its own
    word=
  elif [[ $before == = ]]; then
    before=${{COMP_WORDS[COMP_CWORD - 2]}}
  fi
  case $before in
{cases}  esac
  if [[ $word == -* ]]; then
    COMPREPLY=($(compgen -W '{names}' -- "$word"))
  else
    {answer(argument, [])}
  fi
}}
complete -F {function} {name}
"""


def zsh(name, options, argument):
    def quoted(text):
        return re.sub(r"([\[\]:])", r"\\\1", text).replace("'", "'\\''")

    actions = {"file": "_files", "folder": "_files -/", "plan": '_files -g "*.(#i)dxf"', "": " "}
    lines = []
    for option in options:
        action = f"({' '.join(option.words())})" if option.words() else actions[option.kind()]
        value = f":{quoted(option.value)}:{action}" if option.value else ""
        for spelling in option.names:
            equals = "=" if spelling.startswith("--") and option.value else ""
            others = f"({' '.join(option.names)})" if len(option.names) > 1 else ""
            lines.append(f"  '{others}{spelling}{equals}[{quoted(option.text)}]{value}' \\\n")
    return (f"#compdef {name}\n_arguments -s -S \\\n{''.join(lines)}"
            f"  '*:{argument}:{actions[argument]}'\n")


def fish(name, options, argument):
    def quoted(text):
        return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"

    kinds = {"file": "-r -F", "folder": "-x -a '(__fish_complete_directories)'", "": "-x"}
    lines = []
    for option in options:
        spellings = " ".join(f"-l {spelling[2:]}" if spelling.startswith("--") else f"-s {spelling[1:]}"
                             for spelling in option.names)
        values = (f" -x -a {quoted(' '.join(option.words()))}" if option.words()
                  else " " + kinds[option.kind()] if option.value else "")
        lines.append(f"complete -c {name} {spellings}{values} -d {quoted(option.text)}\n")
    arguments = {"plan": "-k -a '(__fish_complete_suffix .dxf)'",
                 "folder": "-f -a '(__fish_complete_directories)'"}
    return f"# Completion of {name} in fish.\ncomplete -c {name} {arguments[argument]}\n{''.join(lines)}"


def main():
    program, folder = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    options, argument = read_help(program)
    for file, shell in ((program.name, bash), ("_" + program.name, zsh), (program.name + ".fish", fish)):
        (folder / file).write_text(shell(program.name, options, argument), encoding="utf-8")


main()
