#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""CONFIG_SAVER [KILLS] [SAVES]: kills programs that save files, and looks at what they leave."""
import configparser
import os
import random
import select
import subprocess
import sys
import tempfile
import time

saver, kills, saves = sys.argv[1], *map(int, (sys.argv[2:] + [200, 200])[:2])


def start(home, *arguments):
    environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home + "/.config")
    return subprocess.Popen([saver, *map(str, arguments)], env=environment, stdout=subprocess.PIPE, bufsize=0)


def read(home, name):
    """The values by section and key; fails on any line that is neither section nor value."""
    with open(f"{home}/Documents/O/A/config/{name}", encoding="utf-8") as file:
        text = file.read()
    assert text.endswith("\n"), f"{name} is cut off"
    parser = configparser.RawConfigParser()
    parser.read_string(text)
    return {(group, key): value for group in parser.sections() for key, value in parser.items(group)}


def generation(home, name):
    """The one generation that the file holds, whole."""
    values = read(home, name)
    texts = set(values.values())
    assert len(values) == 40 and len(texts) == 1, f"{name} holds {len(values)} keys of {texts}"
    number, filling = texts.pop().split(" ")
    assert len(filling) == (400 if int(number) % 2 else 40), f"{name}: value cut off"
    return int(number)


def kill_often(home, mode):
    done = 0
    for _ in range(kills):
        process = start(home, mode, done + 1)
        for _ in range(2):  # one of the two generations can be saved even under the limit
            # A lock that nobody holds any more would cost half a minute.
            assert select.select([process.stdout], [], [], 20)[0], "stands still"
            process.stdout.readline()
        time.sleep(random.uniform(0, 0.03))
        process.kill()
        process.communicate()
        found = [generation(home, name) for name in ("layout.ini", "settings.ini")]
        assert min(found) >= done, f"fell back from {done} to {found}"
        assert mode == "forever" or not any(number % 2 for number in found), "larger than the disk"
        done = max(found)


def save_together(home, *links):
    """Two processes and one file; with links, each comes by its own."""
    homes = [f"{home}/{link}" for link in links] or [home, home]
    for link in links:
        os.makedirs(f"{home}/{link}/Documents/O/A/config")
        os.makedirs(f"{home}/Documents/O/A/config", exist_ok=True)
        os.symlink(f"{home}/Documents/O/A/config/settings.ini",
                   f"{home}/{link}/Documents/O/A/config/settings.ini")
    writers = [start(own, "keys", name, saves) for own, name in zip(homes, ("A", "B"))]
    assert [writer.wait() for writer in writers] == [0, 0]
    values = read(home, "settings.ini")
    for name in "A", "B":
        lost = [i for i in range(1, saves + 1) if values.get((name, f"k{i}")) != str(i)]
        assert not lost, f"lost of {name}: {lost}"


for task, *how in (kill_often, "forever"), (kill_often, "limited"), (save_together,), (save_together, "x", "y"):
    with tempfile.TemporaryDirectory() as directory:
        task(directory, *how)
