#!/usr/bin/env python3
"""Measures the filling of templates by whole processes: letters of their own, with tables, and one document for all.

The processor time of 1,000 letters stands beside that of a loop over python3-docx, which replaces the text of the same
places, that of workbooks beside a loop over python3-openpyxl, which inserts the same rows. Growth compares twice as many records with once as many.
Usage: fill.py PROGRAM [--records N] [--largest N] [--runs N]
"""
import argparse
import copy
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

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
    """A structure document with so many orders of so many lines."""
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
    """The processor seconds of a command and its peak memory in MB: the medians of its runs."""
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


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--records", type=int, default=1000)
    parser.add_argument("--largest", type=int, default=20000)
    parser.add_argument("--runs", type=int, default=5)
    options = parser.parse_args()
    program = str(pathlib.Path(options.program).resolve())
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        letters = folder / "letters"
        template = folder / "orders.docx"
        subprocess.run([program, "--exit-status", "-xmlfile", SAMPLE, "-template", template, "-hidden"], check=True)

        def filling(count, lines, *more):
            output = letters / ("all.docx" if more else "{OrderNumber}.docx")
            return [program, "--fill", template, "--data", write_records(folder, count, lines), "--output", output,
                    *more]

        count = options.records
        print(f"processor seconds for {count} letters (median of {options.runs} runs), peak memory")
        for title, lines, more in (("one file each", 1, ()), ("with a table of 10 rows", 10, ()),
                                   ("all in one document", 1, ("--one-document",))):
            seconds, memory = measure(filling(count, lines, *more), options.runs, letters)
            print(f"  {title:26} mergeloom    {seconds:7.2f} s {memory:7.0f} MB")
            if not more:
                peer = [sys.executable, "-c", PYTHON_DOCX, template, count, lines, letters]
                seconds, memory = measure(peer, 1, letters)
                print(f"  {'':26} python3-docx {seconds:7.2f} s {memory:7.0f} MB")
        template = folder / "orders.xlsx"
        subprocess.run([program, "--exit-status", "-excel", "-xmlfile", SAMPLE, "-template", template, "-hidden"],
                       check=True)
        for title, lines in (("one workbook each", 1), ("with a table of 10 rows", 10)):
            data = write_records(folder, count, lines)
            seconds, memory = measure([program, "--fill", template, "--data", data, "--output",
                                       letters / "{OrderNumber}.xlsx"], options.runs, letters)
            print(f"  {title:26} mergeloom    {seconds:7.2f} s {memory:7.0f} MB")
            peer = [sys.executable, "-c", PYTHON_OPENPYXL, template, count, lines, letters]
            seconds, memory = measure(peer, 1, letters)
            print(f"  {'':26} openpyxl     {seconds:7.2f} s {memory:7.0f} MB")
        template = folder / "orders.docx"
        print("growth: the time of twice as many records by that of once as many, memory of both")
        size = count
        while size <= options.largest:
            once, small = measure(filling(size, 2), options.runs, letters)
            twice, large = measure(filling(2 * size, 2), options.runs, letters)
            print(f"  {size:7} and {2 * size:7} {twice / once:5.2f} {small:5.0f} MB {large:5.0f} MB")
            size *= 4


if __name__ == "__main__":
    main()
