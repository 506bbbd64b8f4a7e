#!/usr/bin/env python3
"""Measures mappings by an installed LibreOffice as whole runs, including its start and end. Parts: word, excel (forms
of one to 2,000 labelled fields).
"""

import argparse
import pathlib
import sys
import tempfile

import measuring
from inputs import ROOT, structure
from measuring import Contender, milliseconds, with_range

SIZES = (100, 1_000, 2_000)


class Mappings:
    """Makes the contenders of one part."""

    def __init__(self, program, folder, part):
        self.program = program
        self.folder = pathlib.Path(folder)
        self.part = part

    def of(self, count):
        is_excel = self.part == "excel"
        target = self.folder / f"mapped{count}.{'xltx' if is_excel else 'dotx'}"
        switches = ["-hidden", "-xmlfile", structure(self.folder, count), "-template", str(target)]
        contender = Contender([self.program, "--office=libreoffice", "--exit-status",
                               *(["-excel"] if is_excel else []), *switches], target)
        contender.run()
        mark = ("xl/workbook.xml", b"<definedName ") if is_excel else ("word/document.xml", b"<w:bookmarkStart")
        contender.require(count, "places", *mark)
        return contender


def measure(program, part, runs):
    """Prints the times, and the number of further fields per second, which is the cost of a field without the start."""
    with tempfile.TemporaryDirectory() as folder:
        mappings = Mappings(program, folder, part)
        sizes = (1, *SIZES)
        timings = measuring.take_turns([mappings.of(size) for size in sizes], runs)
        cells = []
        for size, own in zip(sizes, timings):
            costs = [(size - 1) / (whole.wall - first.wall) for whole, first in zip(own, timings[0]) if size > 1]
            cells.append([f"{size:,}", milliseconds(own), with_range(costs, 0) if costs else "–"])
    measuring.print_table(f"LibreOffice in the part of {part.capitalize()}, whole runs",
                          ["fields", "wall ms", "fields a second beyond the start"], cells)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("parts", nargs="*", metavar="PART", default=["word", "excel"])
    parser.add_argument("--program", default=str(ROOT / "build" / "release" / "mergeloom"))
    parser.add_argument("--runs", type=int, default=5, help="rounds that are counted (5)")
    arguments = parser.parse_args()
    for part in arguments.parts:
        if part not in ("word", "excel"):
            sys.exit(f"There is no part '{part}'; there are word, excel.")
        measure(arguments.program, part, arguments.runs)


if __name__ == "__main__":
    main()
