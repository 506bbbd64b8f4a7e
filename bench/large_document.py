#!/usr/bin/env python3
"""Measures the insertion of 1,000 fields into a document of about 10 MB with pictures. The comparison is a program that
does only the work that no editing of the document can avoid (rewrite_body.cpp, built with -DMERGELOOM_BENCH=ON)."""

import argparse
import pathlib
import tempfile
import zipfile

import comparisons
import inputs
from inputs import ROOT
from measuring import Contender

FIELDS = 1_000


def contenders(build, folder, document, structure):
    filled, copied = folder / "filled.docx", folder / "copied.docx"
    ours = Contender([f"{build}/mergeloom", "--exit-status", "-hidden", "-xmlfile", structure,
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
        document = folder / "large.docx"
        inputs.make("bench/make_large_document.py", document)
        structure = inputs.structure(folder, FIELDS)
        ours, baseline = contenders(arguments.build, folder, document, structure)
        comparisons.within(f"{FIELDS:,} fields into a document ({sizes(document)})", "rewrite_body", ours,
                           baseline, arguments.runs)


if __name__ == "__main__":
    main()
