#!/usr/bin/env python3
"""Measures putting names into large workbooks.

Parts: large (1,000 names into a workbook of about 13 MB with pictures, beside the work that no editing of it can
do without, which is rewrite_parts.cpp, built with -DMERGELOOM_BENCH=ON), million (ten names into a sheet of a
million cells, beside python3-openpyxl). Without a part both are measured.
"""

import argparse
import pathlib
import re
import sys
import tempfile
import zipfile

import comparisons
import inputs
import measuring
from inputs import ROOT
from measuring import Contender, milliseconds

WORKBOOK_PART = "xl/workbook.xml"


class LargeWorkbook:
    """A workbook that another script of this folder writes, and the contenders that add names to it."""

    def __init__(self, build, folder, script, fields):
        self.build = build
        self.folder = folder
        self.fields = fields
        self.path = folder / "large.xlsx"
        inputs.make(f"bench/{script}", self.path)
        self.structure = inputs.structure(folder, fields)

    def mergeloom(self):
        target = self.folder / "mergeloom.xlsx"
        mapping = ["-excel", "-hidden", "-xmlfile", self.structure, "-usedocument", str(self.path),
                   "-template", str(target)]
        return self.checked([f"{self.build}/mergeloom", "--exit-status", *mapping], target, self.fields)

    def openpyxl(self):
        target = self.folder / "openpyxl.xlsx"
        script = str(ROOT / "bench" / "openpyxl_edit.py")
        return self.checked([sys.executable, script, self.structure, str(self.path), str(target)], target,
                            self.fields)

    def rewrite_parts(self):
        """Copies the workbook and compresses its main part and the part of the active sheet again."""
        target = self.folder / "copied.xlsx"
        parts = ["/" + name for name in (WORKBOOK_PART, self.active_sheet())]
        return self.checked([f"{self.build}/rewrite_parts", str(self.path), str(target), *parts], target, 0)

    @staticmethod
    def checked(command, target, names):
        contender = Contender(command, target)
        contender.require_names(names)
        return contender

    def active_sheet(self):
        """Returns the entry of the active sheet. xlsxwriter numbers the entries in the order of the sheets."""
        with zipfile.ZipFile(self.path) as archive:
            active = re.search(rb'activeTab="(\d+)"', archive.read(WORKBOOK_PART))
        return f"xl/worksheets/sheet{int(active[1]) + 1 if active else 1}.xml"

    def sizes(self):
        with zipfile.ZipFile(self.path) as archive:
            sheet = archive.getinfo(self.active_sheet()).file_size
        return f"archive {self.path.stat().st_size / 1e6:.1f} MB, active sheet {sheet / 1e6:.1f} MB of XML"

    def differing_entries(self, contender):
        """Returns the entries that a contender changed or added."""
        with zipfile.ZipFile(self.path) as before, zipfile.ZipFile(contender.target) as after:
            checksums = {entry.filename: entry.CRC for entry in before.infolist()}
            return [entry.filename for entry in after.infolist() if checksums.get(entry.filename) != entry.CRC]


def measure_large(build, folder, runs):
    workbook = LargeWorkbook(build, folder, "make_large_workbook.py", 1_000)
    ours = workbook.mergeloom()
    comparisons.within(f"1,000 names into a workbook ({workbook.sizes()})", "rewrite_parts", ours,
                       workbook.rewrite_parts(), runs)
    print("\nEntries that differ: " + ", ".join(workbook.differing_entries(ours)))


def measure_million(build, folder, runs):
    workbook = LargeWorkbook(build, folder, "make_million_cells.py", 10)
    ours, theirs = workbook.mergeloom(), workbook.openpyxl()
    our_timings = [ours.run() for _ in range(runs)]
    # One round is enough, since the other program takes many times as long.
    their_timings = [theirs.run()]
    our_memory, their_memory = ours.peak_memory(), theirs.peak_memory(1)
    rows = [["mergeloom", milliseconds(our_timings), milliseconds(our_timings, "processor"), f"{our_memory:.1f}"],
            ["python3-openpyxl", milliseconds(their_timings), milliseconds(their_timings, "processor"),
             f"{their_memory:.1f}"]]
    measuring.print_table(f"Ten names into a million cells ({workbook.sizes()})",
                          ["program", "wall ms", "processor ms", "peak MB"], rows)
    print(f"\nShare of the peak memory: {our_memory / their_memory:.2f}")


def main():
    parts = {"large": measure_large, "million": measure_million}
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("parts", nargs="*", metavar="PART", default=list(parts))
    parser.add_argument("--build", default=str(ROOT / "build" / "release"), help="the folder of the programs")
    parser.add_argument("--runs", type=int, default=15, help="rounds that are counted (15)")
    arguments = parser.parse_args()
    for part in arguments.parts:
        if part not in parts:
            sys.exit(f"There is no part '{part}'; there are {', '.join(parts)}.")
        with tempfile.TemporaryDirectory() as folder:
            parts[part](arguments.build, pathlib.Path(folder), arguments.runs)


if __name__ == "__main__":
    main()
