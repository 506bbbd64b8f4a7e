#!/usr/bin/env python3
"""Measures saves in the designer of documents and workbooks that another program wrote, beside LibreOffice's own save
of the same file with the same kind of change: the save right after the first drop, and later ones. A document has 50,
500 and 5,000 paragraphs (about 20 are a page) with a content control and a header, the workbook is that of
make_large_workbook.py. Ends when a save asks about losses or changes more parts than a drop does.
"""

import argparse
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

import docx
import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls

import inputs
from designer import document_with_options, processor_time, seconds_of, wait_until_idle
from inputs import ROOT
from measuring import print_table, with_range

sys.path.insert(0, str(ROOT / "tests" / "scripts"))
from designer_window import Designer, Screen, click, find, key  # noqa: E402

FIELDS = 10
PARAGRAPHS = (50, 500, 5000)
SAVED = "Saved; "
PATIENCE = 60  # seconds until the window is asked what keeps it
IDLE = 0.05  # seconds of the processor in a second
CONTROL = """<w:sdt {ns}><w:sdtPr><w:tag w:val="terms"/><w:id w:val="4711"/></w:sdtPr><w:sdtContent>
<w:p><w:r><w:t>Our terms.</w:t></w:r></w:p></w:sdtContent></w:sdt>"""


class OwnOffice:
    """A hidden LibreOffice, for its own saves."""

    FILTERS = {".docx": "MS Word 2007 XML", ".xlsx": "Calc MS Excel 2007 XML"}

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        pipe = f"mergeloom-bench-{os.getpid()}"
        self.process = subprocess.Popen(
            ["soffice", f"-env:UserInstallation=file://{self.folder}/profile", "--headless", "--norestore", "--nologo",
             f"--accept=pipe,name={pipe};urp"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.desktop = self.connect(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")

    @staticmethod
    def connect(address):
        local = uno.getComponentContext()
        resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
        while True:
            try:
                context = resolver.resolve(address)
            except NoConnectException:
                time.sleep(0.05)
            else:
                return context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)

    def save(self, path):
        """Returns the wall time and the processor time in seconds of a save after a change of the text."""
        copy = uno.systemPathToFileUrl(str(shutil.copy(path, self.folder / f"own{path.suffix}")))
        document = self.desktop.loadComponentFromURL(copy, "_blank", 0, (PropertyValue("Hidden", 0, True, 0),))
        if path.suffix == ".docx":
            document.Text.insertString(document.Text.End, "x", False)
        else:
            document.CurrentController.ActiveSheet.getCellByPosition(30, 1).String = "x"
        options = (PropertyValue("FilterName", 0, self.FILTERS[path.suffix], 0),)
        before = processor_seconds(self.process.pid)
        wall = seconds_of(lambda: document.storeToURL(copy, options))
        taken = processor_seconds(self.process.pid) - before
        document.close(True)
        return wall, taken

    def close(self):
        self.desktop.terminate()
        self.process.wait()


def document_of(folder, paragraphs):
    """Writes a letter by python3-docx. LibreOffice's own save changes nearly all of it."""
    document = docx.Document()
    document.sections[0].header.paragraphs[0].text = "Harbour Traders"
    chance = inputs.random.Random(1)
    for number in range(paragraphs):
        if number % 10 == 0:
            document.add_heading(inputs.words(chance, 3), level=2)
            continue
        paragraph = document.add_paragraph(inputs.words(chance, 20))
        paragraph.add_run(" " + inputs.words(chance, 3)).bold = True
    document.element.body.insert(1, parse_xml(CONTROL.format(ns=nsdecls("w"))))
    path = folder / f"paragraphs{paragraphs}.docx"
    document.save(path)
    return path


def workbook_of(folder):
    path = folder / "large.xlsx"
    inputs.make("bench/make_large_workbook.py", path)
    return path


def offices_of(pid):
    """Returns the numbers of a process and of the offices that it has started."""
    listing = subprocess.run(["ps", "-eo", "pid,ppid,comm"], capture_output=True, text=True, check=True).stdout
    rows = [line.split(None, 2) for line in listing.splitlines()[1:]]
    below = {str(pid)}
    for child, parent, _ in rows:
        if parent in below:
            below.add(child)
    return {pid, *(int(child) for child, _, name in rows if child in below and name.startswith("soffice.bin"))}


def processor_seconds(pid):
    """Returns the processor time in seconds of a process and of the offices that it has started."""
    ticks = 0
    for process in offices_of(pid):
        try:
            ticks += processor_time(process)
        except FileNotFoundError:
            pass  # an office starts by programs that end
    return ticks / os.sysconf("SC_CLK_TCK")


class Run:
    """A window with a file of another program."""

    def __init__(self, program, structure, opened):
        switches = ["-excel"] if str(opened).endswith(".xlsx") else []
        self.designer = Designer(program, ["-xmlfile", structure, "-template", opened, *switches], wait=False)
        self.designer.wait_until_ready()
        self.office = self.designer.office_process()
        wait_until_idle(self.office)
        bar = find(self.designer.application, "status bar")[0]
        self.line = find(bar, "label")[0]
        self.fields = iter(range(1, FIELDS + 1))

    def wait_for(self, text):
        """Waits for a text in the status line. Looks for a question only after the patience, since each look takes
        processor time of the window."""
        patience = time.monotonic() + PATIENCE
        while text not in self.line.get_name():
            time.sleep(0.005)
            if time.monotonic() > patience:
                sys.exit(f"The window says: {self.designer.texts_of(self.designer.dialog())}")

    def drop(self):
        name = f"Field {next(self.fields)}"
        click(self.designer.node(name))
        time.sleep(0.5)
        key("Insert")
        self.wait_for(f"“{name}” was inserted")

    def save(self):
        """Returns the seconds until the window reports the save, and the processor time in seconds."""
        def press():
            key("ctrl+s")
            self.wait_for(SAVED)
        before = processor_seconds(self.designer.process.pid)
        wall = seconds_of(press)
        return wall, processor_seconds(self.designer.process.pid) - before

    def rest(self):
        """Waits for the end of all work in the background."""
        before, now = -1.0, processor_seconds(self.designer.process.pid)
        while now - before > IDLE:
            time.sleep(1)
            before, now = now, processor_seconds(self.designer.process.pid)


def measure_run(program, structure, opened):
    run = Run(program, structure, opened)
    try:
        run.drop()
        at_once = run.save()
        run.drop()
        later = run.save()
    finally:
        run.designer.close()
    run = Run(program, structure, opened)
    try:
        run.drop()
        run.rest()
        first = run.save()
    finally:
        run.designer.close()
    return at_once, first, later


def measure(program, path, what, runs):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        structure = document_with_options(folder)
        rounds = []
        for _ in range(runs):
            own = OwnOffice(tempfile.mkdtemp(dir=folder))
            own.save(path)
            own_seconds = own.save(path)
            own.close()
            opened = shutil.copy(path, tempfile.mkdtemp(dir=folder))
            rounds.append((own_seconds, *measure_run(program, structure, opened)))
    own, *ours = zip(*rounds)
    steps = ("right after the first drop", "the first save", "a later save")
    rows = [["LibreOffice's own save", milliseconds(own, 0), milliseconds(own, 1), ""]]
    for step, values in zip(steps, ours):
        ratio = with_range([mine[0] / its[0] for mine, its in zip(values, own)])
        rows.append([step, milliseconds(values, 0), milliseconds(values, 1), ratio])
    print_table(f"Saves of {what}", ["save", "ms", "processor ms", "times LibreOffice's own"], rows)


def milliseconds(values, kind):
    return with_range([1000 * value[kind] for value in values], 0)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("parts", nargs="*", metavar="PART", default=[*map(str, PARAGRAPHS), "workbook"],
                        help="a number of paragraphs, or workbook")
    parser.add_argument("--program", default=str(ROOT / "build" / "release" / "mergeloom-designer"))
    parser.add_argument("--runs", type=int, default=3, help="rounds that are counted (3)")
    arguments = parser.parse_args()
    screen = Screen()
    try:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            for part in arguments.parts:
                path = workbook_of(folder) if part == "workbook" else document_of(folder, int(part))
                what = "the large workbook" if part == "workbook" else f"{int(part):,} paragraphs"
                measure(arguments.program, path, what, arguments.runs)
    finally:
        screen.close()


if __name__ == "__main__":
    main()
