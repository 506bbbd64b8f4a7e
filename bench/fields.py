#!/usr/bin/env python3
"""Measures the mapping of forms by whole processes, beside python3-docx and beside itself.

Parts: beside (python3-docx, 100 to 10,000 fields), largest (the same with 100,000, for which python3-docx
takes minutes), growth, same-name, start. Without a part all but largest are measured.
"""

import argparse
import pathlib
import sys
import tempfile

import comparisons
from inputs import ROOT, structure
from measuring import Contender

BESIDE_SIZES = (100, 1_000, 10_000)
LARGEST = 100_000
GROWTH_SIZES = (1_000, 5_000, 10_000, 25_000, 50_000)


class Forms:
    """Makes structure documents of forms and the contenders that turn them into documents."""

    def __init__(self, program, folder):
        self.program = program
        self.folder = pathlib.Path(folder)

    def mergeloom(self, count, *options):
        target = self.folder / f"mergeloom{count}.dotx"
        mapping = ["-hidden", "-xmlfile", structure(self.folder, count, *options), "-template", str(target)]
        return self.checked([self.program, "--exit-status", *mapping], target, count)

    def python_docx(self, count):
        target = self.folder / f"python{count}.docx"
        script = str(ROOT / "bench" / "python_docx_fields.py")
        return self.checked([sys.executable, script, structure(self.folder, count), str(target)], target, count)

    @staticmethod
    def checked(command, target, count):
        contender = Contender(command, target)
        contender.require_bookmarks(count)
        return contender


def measure_beside(forms, sizes, runs, memory_runs=3):
    rows = ((size, forms.mergeloom(size), forms.python_docx(size)) for size in sizes)
    comparisons.beside("python3-docx", rows, runs, memory_runs)


def measure_growth(forms, sizes, runs, title, *options):
    rows = ((f"{size:,} and {2 * size:,}", forms.mergeloom(size, *options), forms.mergeloom(2 * size, *options))
            for size in sizes)
    comparisons.growth(title, rows, runs)


def measure_start(forms, runs):
    nothing = Contender([forms.program, "--version"], forms.folder / "none")
    nothing.run()
    comparisons.small_runs([("ten fields", forms.mergeloom(10)), ("--version", nothing)], runs)


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
        forms = Forms(arguments.program, folder)
        parts = {
            "beside": lambda: measure_beside(forms, BESIDE_SIZES, runs),
            "largest": lambda: measure_beside(forms, [LARGEST], 1, 1),
            "growth": lambda: (
                measure_growth(forms, GROWTH_SIZES, runs, "Doubling the fields"),
                measure_growth(forms, GROWTH_SIZES[2:], runs, "Doubling the fields, with a value for each",
                               "--data")),
            "same-name": lambda: measure_growth(forms, [10_000], runs, "Doubling the fields of one name",
                                                "--same-name"),
            "start": lambda: measure_start(forms, runs),
        }
        for part in arguments.parts:
            if part not in parts:
                sys.exit(f"There is no part '{part}'; there are {', '.join(parts)}.")
            parts[part]()


if __name__ == "__main__":
    main()
