#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""DATABASE_SAVER [KILLS] [RESTARTS]: kills programs that save into a database, and the server under
them, and looks at what they leave. The server is the one that KELO_POSTGRES names, if it does."""
import os
import random
import re
import subprocess
import sys
import tempfile
import time

saver, kills, restarts = sys.argv[1], *map(int, (sys.argv[2:] + [200, 20])[:2])
server = os.environ.get("KELO_POSTGRES")


class Place:
    """A database that is new."""

    def __init__(self, directory):
        self.where = [f"{directory}/new.sqlite", ""] if directory else [server, "postgres"]
        if not directory:
            assert self.run("ask").returncode == 0, "the server cannot be emptied"

    def start(self, task, *arguments):
        return subprocess.Popen([saver, task, *self.where, *map(str, arguments)], text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def run(self, task, *arguments):
        process = self.start(task, *arguments)
        process.output = process.communicate()[0].strip()
        assert process.returncode in (0, 1), f"{task} ended with {process.returncode}"
        return process

    def state(self):
        """Generation and steps; fails unless both are whole."""
        output = self.run("state").output
        found = re.fullmatch(r"generation (\d+); steps (\d+)", output)
        assert found, output
        return int(found[1]), int(found[2])


def kill_savers(place, task="save"):
    done = 0
    for _ in range(kills):
        process = place.start(task, done + 1)
        told = [process.stdout.readline() for _ in range(random.randint(0, 2))]
        time.sleep(random.uniform(0, 0.05))
        process.kill()
        told += process.communicate()[0].splitlines()
        saved = [int(line.split()[1]) for line in told if line.startswith("saved")]
        generation, _ = place.state()
        assert generation >= max(saved, default=done), f"{generation} fell behind {saved or done}"
        assert task == "save" or generation % 2 == 0, "larger than the disk"
        done = generation
    assert done > 0, "nothing was ever saved"


def kill_steps(make_place):
    seen = set()
    begin = time.monotonic()
    assert make_place().run("steps").output == "done"
    whole = time.monotonic() - begin  # as fast and as busy as the machine is
    place = make_place()
    for _ in range(kills):
        process = place.start("steps")
        time.sleep(random.uniform(0, whole))
        process.kill()
        process.communicate()
        seen.add(place.state()[1])
        if place.state()[1] == 6:
            place = make_place()
    assert place.run("steps").output == "done" and place.state()[1] == 6
    assert len(seen) > 1, f"only ever killed at {seen}"


def open_together(place):
    """A new database, and everyone wants to make the tables."""
    programs = [place.start("open") for _ in range(min(4 * kills, 80))]
    told = {program.communicate()[0].strip() for program in programs}
    assert told == {"done"}, told


def write_together(place, count):
    writers = [place.start("add", name, count) for name in (1, 2)]
    told = [writer.communicate()[0].strip() for writer in writers]
    assert told == ["done", "done"], told
    output = place.run("sum").output
    assert output == f"sum {2 * count} of {2 * count}", output


def restart_server(place):
    """The program goes on by itself, and what it called saved is there."""
    process = place.start("save", 1)
    for _ in range(restarts):
        while not process.stdout.readline().startswith("saved"):
            assert process.poll() is None, "the program died with the server"
        time.sleep(random.uniform(0, 0.1))
        subprocess.run([server + "/control", "kill"], check=True)
        time.sleep(random.uniform(0, 0.3))
        subprocess.run([server + "/control", "start"], check=True)
    while not (line := process.stdout.readline()).startswith("saved"):
        pass
    last = int(line.split()[1])
    process.kill()
    rest = process.communicate()[0]
    last = max([last] + [int(number) for number in re.findall(r"saved (\d+)", rest)])
    assert place.state()[0] >= last, f"{place.state()} is behind {last}"


with tempfile.TemporaryDirectory() as directory:
    def new_place(numbers=iter(range(1000))):
        return Place(f"{directory}/{next(numbers)}")

    kill_savers(new_place())
    kill_savers(new_place(), "limited")
    kill_steps(new_place)
    open_together(new_place())
    write_together(new_place(), kills)
if server:
    kill_savers(Place(None))
    kill_steps(lambda: Place(None))
    open_together(Place(None))
    write_together(Place(None), kills)
    restart_server(Place(None))
