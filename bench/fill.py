#!/usr/bin/env python3
"""Measures the filling of templates by whole processes: letters of their own, with tables, and one document for all.

The processor time of 1,000 letters is compared with that of a loop over python3-docx, which replaces the text of the
same places, and with two libraries that npm fetches, over the same template with their own tags; that of workbooks with
a loop over python3-openpyxl, which inserts the same rows. Growth compares twice as many records with once as many.
Usage: fill.py PROGRAM [--records N] [--largest N] [--runs N]
"""
import argparse
import copy
import json
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

import docx
import npm_libraries
from docx.oxml.ns import qn

ROOT = pathlib.Path(__file__).resolve().parent.parent
SAMPLE = ROOT / "samples" / "orders.xml"

PYTHON_DOCX = """
import copy, sys
import docx
from docx.oxml.ns import qn
template, count, lines, folder = sys.argv[1], int(sys.argv[2]), int(sys.argv[3]), sys.argv[4]
for number in range(count):
    document = docx.Document(template)
    table = document.tables[0]
    for _ in range(lines - 1):
        table._tbl.append(copy.deepcopy(table.rows[1]._tr))
    for start in document.element.body.iter(qn("w:bookmarkStart")):
        run = start.getnext()
        text = run.find(qn("w:t")) if run is not None else None
        if text is not None:
            text.text = f"value {number}"
    document.save(f"{folder}/{number}.docx")
"""

NPM_LIBRARIES = {"docxtemplater": "3.71.0", "easy-template-x": "7.2.8", "pizzip": "3.2.0"}

PYTHON_OPENPYXL = """
import copy, sys
import openpyxl
template, count, lines, folder = sys.argv[1], int(sys.argv[2]), int(sys.argv[3]), sys.argv[4]
for number in range(count):
    workbook = openpyxl.load_workbook(template)
    sheet = workbook.active
    names = workbook.defined_names
    places = {name.name: name.attr_text.split("!")[1].replace("$", "")
              for name in (names.values() if isinstance(names, dict) else names.definedName)}
    pattern = sheet[places["ammOrderLinesProductID"]].row
    sheet.insert_rows(pattern + 1, lines - 1)
    for name, cell in places.items():
        if ":" in cell:
            continue
        for line in range(lines if sheet[cell].row == pattern else 1):
            target = sheet[cell].offset(row=line if sheet[cell].row <= pattern else lines - 1)
            target.value = number if line else f"value {number}"
            target._style = copy.copy(sheet[cell]._style)
    workbook.save(f"{folder}/{number}.xlsx")
"""


def write_records(folder, count, lines):
    """Writes a structure document with the given numbers of orders and of lines in each order."""
    text = SAMPLE.read_text(encoding="utf-8")
    record = ElementTree.parse(SAMPLE).getroot().find("Data/Records/Record")
    rows = record.find("Control[@Name='OrderLines']/Records")
    line = rows.find("Record")
    for old in list(rows):
        rows.remove(old)
    rows.extend(copy.deepcopy(line) for _ in range(lines))
    xml = ElementTree.tostring(record, encoding="unicode")
    path = folder / f"orders-{count}-{lines}.xml"
    with open(path, "w", encoding="utf-8") as file:
        file.write(text[:text.index("<Data>")] + "<Data><Records>")
        for number in range(count):
            file.write(xml.replace("2024-0187", f"N-{number:06}"))
        file.write("</Records></Data></Database>")
    return path


def measure(command, runs, folder):
    """Returns the medians of the processor time of a command in seconds and of its peak memory in MB."""
    seconds, memory = [], []
    for _ in range(runs):
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        process = subprocess.Popen(["/usr/bin/time", "-q", "-f", "%U %S %M", *map(str, command)],
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        told = process.communicate()[1].split("\n")[-2].split()
        if process.returncode != 0:
            sys.exit(f"failed: {' '.join(map(str, command))}")
        seconds.append(float(told[0]) + float(told[1]))
        memory.append(int(told[2]) / 1024)
    return statistics.median(seconds), statistics.median(memory)


def fetch_peers(folder):
    """Fetches the libraries of npm; returns the script that fills with them, or none if they cannot be fetched."""
    if not npm_libraries.fetch(NPM_LIBRARIES, folder):
        return None
    return shutil.copy(ROOT / "bench" / "fill_peers.mjs", folder)


class TaggedTemplate:
    """Returns the mapped template with tags in the places and a loop over the records around them."""

    def __init__(self, template, folder):
        self.each = folder / "tagged.docx"
        self.all = folder / "tagged_all.docx"
        self.values = folder / "names.json"
        document = docx.Document(template)
        rows = document.tables[0].rows[1]._tr
        lines = self.tag(rows)
        cells = [cell.paragraphs[0] for cell in document.tables[0].rows[1].cells]
        first, last = cells[0].runs[0], cells[-1].runs[-1]
        first.text, last.text = "{#lines}" + first.text, last.text + "{/lines}"
        places = self.tag(document.element.body)
        self.values.write_text(json.dumps({"places": places, "lines": lines}), encoding="utf-8")
        document.save(self.each)
        document.paragraphs[0].insert_paragraph_before("{#records}")
        document.add_paragraph("{/records}")
        document.save(self.all)

    @staticmethod
    def tag(element):
        """Replaces the text of the places by their tags; returns the names."""
        names = []
        for start in element.iter(qn("w:bookmarkStart")):
            run = start.getnext()
            text = run.find(qn("w:t")) if run is not None else None
            if text is not None and "{" not in text.text:
                names.append(start.get(qn("w:name")))
                text.text = "{" + names[-1] + "}"
        return names


class Benchmark:
    """Runs of one call, with the program, a folder for all files that they write, and the number of records."""

    def __init__(self, options, folder):
        self.program = str(pathlib.Path(options.program).resolve())
        self.options = options
        self.folder = folder
        self.letters = folder / "letters"
        self.template = self.mapped("orders.docx")
        self.workbook = self.mapped("orders.xlsx", "-excel")
        self.tagged = TaggedTemplate(self.template, folder)
        self.peers = fetch_peers(folder)

    def mapped(self, name, *switches):
        template = self.folder / name
        subprocess.run([self.program, "--exit-status", *switches, "-xmlfile", SAMPLE, "-template", template, "-hidden"],
                       check=True)
        return template

    def filling(self, template, count, lines, name):
        more = ["--one-document"] if "{" not in name else []
        return [self.program, "--fill", template, "--data", write_records(self.folder, count, lines), "--output",
                self.letters / name, *more]

    def show(self, title, contender, command, runs=1):
        seconds, memory = measure(command, runs, self.letters)
        print(f"  {title:26} {contender:16} {seconds:7.2f} s {memory:7.0f} MB")

    def compare_letters(self):
        count, runs = self.options.records, self.options.runs
        print(f"processor seconds for {count} letters (mergeloom: median of {runs} runs), peak memory")
        for title, lines in (("one file each", 1), ("with a table of 10 rows", 10)):
            self.show(title, "mergeloom", self.filling(self.template, count, lines, "{OrderNumber}.docx"), runs)
            self.show("", "python3-docx", [sys.executable, "-c", PYTHON_DOCX, self.template, count, lines, self.letters])
            self.show_peers(("docxtemplater", "easy-template-x"), self.tagged.each, lines, self.letters)
        self.show("all in one document", "mergeloom", self.filling(self.template, count, 1, "all.docx"), runs)
        self.show_peers(("docxtemplater",), self.tagged.all, 1, self.letters / "all.docx")

    def show_peers(self, libraries, template, lines, output):
        if self.peers is None:
            print("  npm fetches no libraries here")
            return
        for library in libraries:
            self.show("", library, ["node", self.peers, library, template, self.tagged.values, self.options.records,
                                    lines, output])

    def compare_workbooks(self):
        count = self.options.records
        for title, lines in (("one workbook each", 1), ("with a table of 10 rows", 10)):
            self.show(title, "mergeloom", self.filling(self.workbook, count, lines, "{OrderNumber}.xlsx"),
                      self.options.runs)
            self.show("", "openpyxl", [sys.executable, "-c", PYTHON_OPENPYXL, self.workbook, count, lines, self.letters])

    def growth(self):
        print("growth: the time of twice as many records by that of once as many, memory of both")
        size = self.options.records
        while size <= self.options.largest:
            once, small = measure(self.filling(self.template, size, 2, "{OrderNumber}.docx"), self.options.runs,
                                  self.letters)
            twice, large = measure(self.filling(self.template, 2 * size, 2, "{OrderNumber}.docx"), self.options.runs,
                                   self.letters)
            print(f"  {size:7} and {2 * size:7} {twice / once:5.2f} {small:5.0f} MB {large:5.0f} MB")
            size *= 4


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--records", type=int, default=1000)
    parser.add_argument("--largest", type=int, default=20000)
    parser.add_argument("--runs", type=int, default=5)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        benchmark = Benchmark(options, pathlib.Path(name))
        benchmark.compare_letters()
        benchmark.compare_workbooks()
        benchmark.growth()


if __name__ == "__main__":
    main()
