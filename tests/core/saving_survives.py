#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Kills programs that save configuration files, and looks at what they leave.

usage: saving_survives.py CONFIG_SAVER [KILLS] [SAVES]
"""
import os
import random
import subprocess
import sys
import tempfile
import time

saver = sys.argv[1]
kills = int(sys.argv[2]) if len(sys.argv) > 2 else 200
saves = int(sys.argv[3]) if len(sys.argv) > 3 else 200
KEYS = 40


def start(home, *arguments):
    environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home + "/.config")
    return subprocess.Popen([saver, *map(str, arguments)], env=environment, stdout=subprocess.PIPE)


def config(home, name):
    return f"{home}/Documents/O/A/config/{name}"


def read(path):
    """The values by section and key; fails on any line that is neither section nor value."""
    values, section = {}, None
    with open(path, encoding="utf-8") as file:
        text = file.read()
    assert text.endswith("\n"), f"{path} is cut off"
    for line in filter(None, text.split("\n")):
        if line.startswith("["):
            section = line.strip("[]")
        else:
            key, value = line.split("=", 1)
            values[section, key] = value
    return values


def generation(path):
    """The one generation that the file holds, whole."""
    values = read(path)
    texts = set(values.values())
    assert len(values) == KEYS and len(texts) == 1, f"{path} holds {len(values)} keys of {texts}"
    number, filling = texts.pop().split(" ")
    assert len(filling) == (400 if int(number) % 2 else 40), f"{path}: value cut off"
    return int(number)


def kill_often(mode, home):
    done = 0
    for _ in range(kills):
        process = start(home, mode, done + 1)
        for _ in range(2):  # one of the two generations can be saved even under the limit
            process.stdout.readline()
        time.sleep(random.uniform(0, 0.03))
        process.kill()
        process.communicate()
        for name in "layout.ini", "settings.ini":
            found = generation(config(home, name))
            assert found >= done, f"{name} fell back from {done} to {found}"
            assert mode == "forever" or found % 2 == 0, f"{name} is larger than the disk"
            size = os.path.getsize(config(home, name))
            assert mode == "forever" or size <= 8192
        done = max(generation(config(home, name)) for name in ("layout.ini", "settings.ini"))
    print(f"{mode}: {kills} kills, {done} generations, every file whole")


def save_together(home):
    writers = [start(home, "keys", name, saves) for name in ("A", "B")]
    assert [writer.wait() for writer in writers] == [0, 0]
    values = read(config(home, "settings.ini"))
    for name in "A", "B":
        lost = [i for i in range(1, saves + 1) if values.get((name, f"k{i}")) != str(i)]
        assert not lost, f"lost of {name}: {lost}"
        assert values[name, "count"] == str(1000 + saves)
    print(f"two writers, {2 * saves} saves each: nothing lost")


def keep_in_memory(home):
    """The home of kill_often, made read-only."""
    os.chmod(home, 0o755)
    directory = os.path.dirname(config(home, "settings.ini"))
    os.chmod(directory, 0o555)
    before = generation(config(home, "settings.ini"))
    assert start(home, "readonly").wait() == 0, "a value was lost from memory"
    assert generation(config(home, "settings.ini")) == before
    os.chmod(directory, 0o755)
    print("read-only directory: nothing lost in memory, nothing changed on disk")


for task in (lambda home: (kill_often("forever", home), keep_in_memory(home)),
             lambda home: kill_often("limited", home), save_together):
    with tempfile.TemporaryDirectory() as directory:
        task(directory)
