"""Runs programs and measures their time and memory."""

import os
import pathlib
import re
import statistics
import subprocess
import sys
import time
import zipfile
from dataclasses import dataclass

# Discards the output of programs, which is not part of the tables.
SILENT = [(os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0)]


@dataclass
class Contender:
    """A measured program, with its command and the file that it writes."""

    command: list
    target: pathlib.Path

    def run(self):
        """Returns the times of one run that starts without the target. Ends the benchmark if the run fails."""
        self.target.unlink(missing_ok=True)
        begin = time.perf_counter()
        process = os.posix_spawn(self.command[0], self.command, os.environ, file_actions=SILENT)
        _, status, usage = os.wait4(process, 0)
        wall = time.perf_counter() - begin
        if status != 0:
            sys.exit(f"failed with status {status}: {' '.join(self.command)}")
        return Timing(wall, usage.ru_utime + usage.ru_stime)

    def peak_memory(self, runs=3):
        """Returns the median of the peak resident memory of several runs in MB.

        A process inherits the peak of its parent, so a small program starts it instead of this one.
        """
        def run():
            self.target.unlink(missing_ok=True)
            command = ["/usr/bin/time", "-q", "-f", "%M", *self.command]
            told = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=True)
            return int(told.stderr.split()[-1]) / 1024
        return statistics.median(run() for _ in range(runs))

    def require_bookmarks(self, expected):
        """Ends the benchmark when a run does not write what it is measured for."""
        self.run()
        self.require(expected, "bookmarks", "word/document.xml", b"<w:bookmarkStart")

    def require_names(self, expected):
        """Does the same for named cells. Counts the names, and the texts in brackets in the cells."""
        self.run()
        self.require(expected, "names", "xl/workbook.xml", b"<definedName ")
        self.require(expected, "texts in brackets", "xl/(sharedStrings|worksheets/.*).xml", b">[Field")

    def require(self, expected, what, parts, mark):
        with zipfile.ZipFile(self.target) as archive:
            found = sum(archive.read(name).count(mark) for name in archive.namelist() if re.fullmatch(parts, name))
        if found != expected:
            sys.exit(f"{self.target.name} holds {found} {what} where {expected} were expected")


@dataclass
class Timing:
    wall: float  # seconds
    processor: float  # seconds of user and system time together


def take_turns(contenders, runs):
    """Returns the times of each contender, all of which have run once before. The contenders take turns, so that other
    load of the machine affects all of them."""
    rounds = [[contender.run() for contender in contenders] for _ in range(runs)]
    return [list(timings) for timings in zip(*rounds)]


def ratios(timings, others, kind="wall"):
    """Returns the ratio of the first contender's time to that of the second one in each round."""
    return [getattr(a, kind) / getattr(b, kind) for a, b in zip(timings, others)]


def with_range(values, digits=1):
    """Returns the median, the lowest and the highest value."""
    return f"{statistics.median(values):.{digits}f} ({min(values):.{digits}f}–{max(values):.{digits}f})"


def milliseconds(timings, kind="wall"):
    return with_range([1000 * getattr(timing, kind) for timing in timings])


def print_table(title, head, rows):
    print(f"\n{title}\n\n| " + " | ".join(head) + " |")
    print("|---|" + "--:|" * (len(head) - 1))
    for row in rows:
        print("| " + " | ".join(str(cell) for cell in row) + " |")
    sys.stdout.flush()
