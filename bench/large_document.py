#!/usr/bin/env python3
"""Measures putting 1,000 fields into a document of about 10 MB with pictures, beside the work that no editing of
it can do without (rewrite_body.cpp, built with -DMERGELOOM_BENCH=ON)."""

import argparse
import pathlib
import subprocess
import sys
import tempfile
import zipfile

import measuring
from measuring import Contender, milliseconds, with_range

ROOT = pathlib.Path(__file__).resolve().parent.parent
FIELDS = 1_000


def make_inputs(folder):
    document, structure = folder / "large.docx", folder / "fields.xml"
    subprocess.run([sys.executable, ROOT / "bench" / "make_large_document.py", document], check=True)
    subprocess.run([sys.executable, ROOT / "tools" / "make_structure_document.py", str(FIELDS), structure],
                   check=True)
    return document, structure


def contenders(build, folder, document, structure):
    filled, copied = folder / "filled.docx", folder / "copied.docx"
    ours = Contender([f"{build}/mergeloom", "--exit-status", "-hidden", "-xmlfile", str(structure),
                      "-usedocument", str(document), "-template", str(filled)], filled)
    ours.require_bookmarks(FIELDS)
    baseline = Contender([f"{build}/rewrite_body", str(document), str(copied)], copied)
    baseline.require_bookmarks(0)
    return ours, baseline


def sizes(document):
    with zipfile.ZipFile(document) as archive:
        body = archive.getinfo("word/document.xml").file_size
    return f"archive {document.stat().st_size / 1e6:.1f} MB, body {body / 1e6:.1f} MB of XML"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", default=str(ROOT / "build" / "release"), help="the folder of the programs")
    parser.add_argument("--runs", type=int, default=15, help="rounds that are counted (15)")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        document, structure = make_inputs(folder)
        ours, baseline = contenders(arguments.build, folder, document, structure)
        our_timings, its_timings = measuring.take_turns([ours, baseline], arguments.runs)
        row = [milliseconds(our_timings), milliseconds(its_timings),
               with_range(measuring.ratios(our_timings, its_timings), 2),
               with_range(measuring.ratios(our_timings, its_timings, "processor"), 2),
               f"{ours.peak_memory():.1f}", f"{baseline.peak_memory():.1f}"]
        measuring.print_table(f"{FIELDS:,} fields into a document ({sizes(document)})",
                              ["mergeloom ms", "rewrite_body ms", "times as long", "by processor time",
                               "mergeloom MB", "rewrite_body MB"], [row])


if __name__ == "__main__":
    main()
