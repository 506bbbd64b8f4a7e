#!/usr/bin/env python3
"""Measures the mapping of forms into new workbooks by whole processes, beside python3-openpyxl and beside itself.

Parts: beside (python3-openpyxl, 1,000 and 10,000 names), growth, same-name, start. Without a part all are
measured.
"""

import argparse
import pathlib
import sys
import tempfile

import comparisons
from inputs import ROOT, structure
from measuring import Contender

BESIDE_SIZES = (1_000, 10_000)
GROWTH_SIZES = (1_000, 5_000, 10_000, 25_000, 50_000)
SAME_NAME_SIZE = 10_000


class Workbooks:
    """Makes the contenders that turn a form into a new workbook."""

    def __init__(self, program, folder):
        self.program = program
        self.folder = pathlib.Path(folder)

    def mergeloom(self, count, *options):
        target = self.folder / f"mergeloom{count}.xlsx"
        mapping = ["-excel", "-hidden", "-xmlfile", structure(self.folder, count, *options),
                   "-template", str(target)]
        return self.checked([self.program, "--exit-status", *mapping], target, count)

    def openpyxl(self, count):
        target = self.folder / f"openpyxl{count}.xlsx"
        script = str(ROOT / "bench" / "openpyxl_names.py")
        return self.checked([sys.executable, script, structure(self.folder, count), str(target)], target, count)

    @staticmethod
    def checked(command, target, count):
        contender = Contender(command, target)
        contender.require_names(count)
        return contender


def measure_beside(workbooks, runs):
    rows = ((size, workbooks.mergeloom(size), workbooks.openpyxl(size)) for size in BESIDE_SIZES)
    comparisons.beside("python3-openpyxl", rows, runs, memory_runs=1)


def measure_growth(workbooks, sizes, runs, title, *options):
    rows = ((f"{size:,} and {2 * size:,}", workbooks.mergeloom(size, *options),
             workbooks.mergeloom(2 * size, *options)) for size in sizes)
    comparisons.growth(title, rows, runs)


def measure_start(workbooks, runs):
    nothing = Contender([workbooks.program, "--version"], workbooks.folder / "none")
    nothing.run()
    comparisons.small_runs([("ten names", workbooks.mergeloom(10)), ("--version", nothing)], runs)


def read_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("parts", nargs="*", metavar="PART", default=["beside", "growth", "same-name", "start"])
    parser.add_argument("--program", default=str(ROOT / "build" / "release" / "mergeloom"))
    parser.add_argument("--runs", type=int, default=7, help="rounds that are counted (7)")
    return parser.parse_args()


def main():
    arguments = read_arguments()
    runs = arguments.runs
    with tempfile.TemporaryDirectory() as folder:
        workbooks = Workbooks(arguments.program, folder)
        parts = {
            "beside": lambda: measure_beside(workbooks, runs),
            "growth": lambda: measure_growth(workbooks, GROWTH_SIZES, runs, "Doubling the names"),
            "same-name": lambda: measure_growth(workbooks, [SAME_NAME_SIZE], runs, "Doubling the names of one field",
                                                "--same-name"),
            "start": lambda: measure_start(workbooks, runs),
        }
        for part in arguments.parts:
            if part not in parts:
                sys.exit(f"There is no part '{part}'; there are {', '.join(parts)}.")
            parts[part]()


if __name__ == "__main__":
    main()
