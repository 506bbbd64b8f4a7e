#!/usr/bin/env python3
"""Measures the mapping of forms by whole processes, beside python3-docx and beside itself.

Parts: beside (python3-docx, 100 to 10,000 fields), largest (the same with 100,000, for which python3-docx
takes minutes), growth, same-name, start. Without a part all but largest are measured.
"""

import argparse
import pathlib
import subprocess
import sys
import tempfile

import measuring
from measuring import Contender, milliseconds, with_range

ROOT = pathlib.Path(__file__).resolve().parent.parent
MAKE_STRUCTURE = ROOT / "tools" / "make_structure_document.py"
PYTHON_DOCX = ROOT / "bench" / "python_docx_fields.py"

BESIDE_SIZES = (100, 1_000, 10_000)
LARGEST = 100_000
GROWTH_SIZES = (1_000, 5_000, 10_000, 25_000, 50_000)


class Forms:
    """Makes structure documents of forms and the contenders that turn them into documents."""

    def __init__(self, program, folder):
        self.program = program
        self.folder = pathlib.Path(folder)

    def structure(self, count, *options):
        path = self.folder / ("fields" + str(count) + "".join(options) + ".xml")
        if not path.exists():
            command = [sys.executable, MAKE_STRUCTURE, str(count), path, *options]
            subprocess.run(command, check=True)
        return str(path)

    def mergeloom(self, count, *options):
        target = self.folder / f"mergeloom{count}.dotx"
        mapping = ["-hidden", "-xmlfile", self.structure(count, *options), "-template", str(target)]
        return self.checked([self.program, "--exit-status", *mapping], target, count)

    def python_docx(self, count):
        target = self.folder / f"python{count}.docx"
        return self.checked([sys.executable, str(PYTHON_DOCX), self.structure(count), str(target)], target, count)

    @staticmethod
    def checked(command, target, count):
        contender = Contender(command, target)
        contender.require_bookmarks(count)
        return contender


def measure_beside(forms, sizes, runs, memory_runs=3):
    times, memory = [], []
    for size in sizes:
        ours, theirs = forms.mergeloom(size), forms.python_docx(size)
        our_timings, their_timings = measuring.take_turns([ours, theirs], runs)
        times.append([f"{size:,}", milliseconds(our_timings), milliseconds(their_timings),
                      with_range(measuring.ratios(their_timings, our_timings)),
                      with_range(measuring.ratios(their_timings, our_timings, "processor"))])
        our_memory, their_memory = ours.peak_memory(memory_runs), theirs.peak_memory(memory_runs)
        memory.append([f"{size:,}", f"{our_memory:.1f}", f"{their_memory:.1f}", f"{our_memory / their_memory:.2f}"])
    measuring.print_table("Wall time of the whole process in ms, median (lowest–highest)",
                          ["fields", "mergeloom", "python3-docx", "times as fast", "by processor time"], times)
    measuring.print_table("Peak memory in MB", ["fields", "mergeloom", "python3-docx", "share"], memory)


def measure_growth(forms, sizes, runs, title, *options):
    rows = []
    for size in sizes:
        contenders = [forms.mergeloom(size, *options), forms.mergeloom(2 * size, *options)]
        once, twice = measuring.take_turns(contenders, runs)
        rows.append([f"{size:,} and {2 * size:,}", milliseconds(once), milliseconds(twice),
                     with_range(measuring.ratios(twice, once), 2),
                     with_range(measuring.ratios(twice, once, "processor"), 2)])
    measuring.print_table(title, ["n and 2n", "ms for n", "ms for 2n", "time(2n)/time(n)", "by processor time"],
                          rows)


def measure_start(forms, runs):
    ten = forms.mergeloom(10)
    nothing = Contender([forms.program, "--version"], forms.folder / "none")
    nothing.run()
    timings = measuring.take_turns([ten, nothing], 10 * runs)
    rows = [[name, milliseconds(own), milliseconds(own, "processor"), f"{contender.peak_memory():.1f}"]
            for name, own, contender in zip(("ten fields", "--version"), timings, (ten, nothing))]
    measuring.print_table("Small runs", ["run", "wall ms", "processor ms", "peak MB"], rows)


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
