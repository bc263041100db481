# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs of programs, and what they took."""
import json
import os
import pathlib
import subprocess
import sys
from typing import NamedTuple

STARTER = pathlib.Path(__file__).resolve().with_name("starter.py")


class Figures(NamedTuple):
    wall: float  # seconds
    user: float
    system: float
    memory: float  # peak, MiB
    files: int  # most that were open at a time; 0 where nobody counted

    @property
    def cpu(self):
        return self.user + self.system

    def busy(self):
        """The share of all processors' time that was used."""
        return self.cpu / (self.wall * os.cpu_count())


def run(command, environment=None, count_files=False):
    """Figures of one run of a program; the benchmark ends where that fails."""
    read, write = os.pipe()
    starter = [sys.executable, "-I", "-S", str(STARTER), str(write), str(int(count_files)), *command]
    with subprocess.Popen(starter, env=environment, pass_fds=[write], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.PIPE) as process:
        os.close(write)
        error = process.stderr.read()
    with os.fdopen(read) as pipe:
        told = json.loads(pipe.read() or '{"status": "nothing"}')
    status = told.pop("status")
    if status != 0:
        sys.exit(f"{' '.join(command)}\nended with {status}: {error.decode(errors='replace')}")
    return Figures(**told)


def run_all(commands, environment=None, count_files=False):
    """One after the other: their seconds together, the highest peaks."""
    runs = [run(command, environment, count_files) for command in commands]
    return Figures(*(sum(one[figure] for one in runs) for figure in range(3)), max(one.memory for one in runs),
                   max(one.files for one in runs))
