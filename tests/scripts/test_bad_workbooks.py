"""Maps into damaged, malicious and unknown workbooks, and onto cells that cannot be written. Each run has to end with a
sentence about the reason, and to write and lose nothing.

MERGELOOM names the program.
"""
import io
import os
import re
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

import docx
import openpyxl
from openpyxl.workbook.defined_name import DefinedName

import read_xlsx

PROGRAM = os.environ["MERGELOOM"]
SHEET = "xl/worksheets/sheet1.xml"
TYPES = "[Content_Types].xml"
FORM = """<Database><Form Name="F" CurrentView="1" DefaultView="0" HasRecordset="1"><Controls>
<Control Name="A" ControlType="Textbox" Section="0"/><Control Name="B" ControlType="Textbox" Section="0"/>
</Controls></Form></Database>"""
TABLE = """<Database><Table Name="T" CurrentView="2"><Controls><Control Name="A" ControlType="Textbox"/>
<Control Name="B" ControlType="Textbox"/></Controls></Table></Database>"""
PICTURE = """<Database><Form Name="F" CurrentView="1"><Controls><Control Name="A" ControlType="Textbox"/>
<Control Name="P" ControlType="Image" Image="no.png"/></Controls></Form></Database>"""
NO_TABLE = "It is impossible to insert the table into current selection."


def entries_of(workbook):
    file = io.BytesIO()
    workbook.save(file)
    with zipfile.ZipFile(file) as archive:
        return {info.filename: archive.read(info) for info in archive.infolist()}


def pack(entries):
    file = io.BytesIO()
    with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in entries.items():
            archive.writestr(name, content)
    return file.getvalue()


def book(change=lambda sheet: None, active="A1"):
    """Returns the entries of a workbook with texts, after a change of its sheet."""
    workbook = openpyxl.Workbook()
    sheet = workbook.active
    sheet["C5"] = "kept"
    selection = sheet.sheet_view.selection[0]
    selection.activeCell = selection.sqref = active
    change(sheet)
    return entries_of(workbook)


def replaced(entries, name, pattern, text):
    content = entries[name].decode()
    changed = re.sub(pattern, text, content, count=1)
    assert changed != content, pattern
    return entries | {name: changed.encode()}


def protect(sheet):
    sheet.protection.sheet = True


def word_document():
    file = io.BytesIO()
    docx.Document().save(file)
    return file.getvalue()


def chart_sheet():
    workbook = openpyxl.Workbook()
    workbook.create_chartsheet("Sales")
    workbook.active = 1
    return entries_of(workbook)


def unreadable():
    """Returns rows of a fault, the file, and words of the expected sentence."""
    sound = book()
    binary = replaced(sound, TYPES, r"application/vnd\.openxmlformats-officedocument\.spreadsheetml\.sheet\.main\+xml",
                      "application/vnd.ms-excel.sheet.binary.macroEnabled.main")
    return [
        ("truncated", pack(sound)[:-300], "truncated or damaged"),
        ("a Word document", word_document(), "Word"),
        ("a binary workbook", pack(binary), "binary"),
        ("signed", pack(sound | {"_xmlsignatures/sig1.xml": b"<a/>"}), "digitally signed"),
        ("no visible sheet", pack(replaced(sound, "xl/workbook.xml", 'state="visible"', 'state="hidden"')), "visible"),
        ("no sheet's part", pack({name: sound[name] for name in sound if name != SHEET}), "missing"),
        ("malformed", pack(sound | {SHEET: sound[SHEET][:-9]}), "not well-formed"),
        ("no worksheet", pack(sound | {SHEET: b"<a/>"}), "sheet1.xml"),
        ("a document type", pack(sound | {SHEET: b"<!DOCTYPE worksheet []>" + sound[SHEET]}), "document type"),
        ("rows out of order", pack(replaced(sound, SHEET, "<sheetData>", '<sheetData><row r="9"/>')), "order"),
        ("a cell beyond the sheet", pack(replaced(sound, SHEET, 'r="C5"', 'r="XFE5"')), "sheet1.xml"),
        ("too deep", pack(replaced(sound, SHEET, "<pageMargins", "<a>" * 5000 + "</a>" * 5000 + "<pageMargins")), "deep"),
    ]


def unwritable():
    """Returns rows of an obstacle to the drop, the workbook, the structure, and words of the expected sentence."""
    def formula(sheet):
        sheet["A1"] = "=C5:C7"

    def merged(sheet):
        sheet.merge_cells("B2:C2")

    return [
        ("protected", book(protect), FORM, "protected"),
        ("an array formula", replaced(book(formula), SHEET, "<f>", '<f t="array" ref="A1:A3">'), FORM,
         "array formula"),
        ("a chart sheet", chart_sheet(), FORM, "the sheet that it shows has no cells"),
        ("the last row", book(active="A1048576"), TABLE, NO_TABLE),
        ("the last column", book(active="XFD1"), TABLE, NO_TABLE),
        ("merged cells", book(merged), TABLE, NO_TABLE),
        ("no more rows", book(active="A1048576"), FORM, "no such cells"),
        ("no column for values", book(active="XFD1"), FORM, "no such cells"),
        ("no picture", book(), PICTURE, "no.png"),
    ]


class BadWorkbooks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        (self.folder / "no.png").write_text("this is no picture")

    def map(self, structure):
        (self.folder / "structure.xml").write_text(structure, encoding="utf-8")
        done = subprocess.run(
            [PROGRAM, "--exit-status", "-excel", "-hidden", "-usedocument", self.folder / "bad.xlsx", "-xmlfile",
             self.folder / "structure.xml", "-template", self.folder / "out.xlsx"],
            capture_output=True, text=True, timeout=60, check=False)
        return done.returncode, done.stdout + done.stderr

    def assert_refused(self, workbook, structure, words):
        (self.folder / "bad.xlsx").write_bytes(workbook)
        status, said = self.map(structure)
        self.assertEqual(status, 1, said)
        self.assertIn(words, said)
        self.assertRegex(said, r"(?m)\.$")
        self.assertEqual((self.folder / "bad.xlsx").read_bytes(), workbook)
        self.assertFalse((self.folder / "out.xlsx").exists())

    def test_what_cannot_be_read(self):
        for what, workbook, words in unreadable():
            with self.subTest(what):
                self.assert_refused(workbook, FORM, words)

    def test_what_cannot_be_written(self):
        for what, entries, structure, words in unwritable():
            with self.subTest(what, words=words):
                self.assert_refused(pack(entries), structure, words)

    def test_names_that_refer_to_nothing_stay(self):
        workbook = openpyxl.Workbook()
        for name, text in (("ammA", "#REF!"), ("Gone", "Nowhere!$A$1"), ("ammTT", "Sheet!#REF!")):
            read_xlsx.define_name(workbook, DefinedName(name, attr_text=text))
        (self.folder / "bad.xlsx").write_bytes(pack(entries_of(workbook)))
        status, said = self.map(FORM)
        self.assertEqual(status, 0, said)
        self.assertEqual(read_xlsx.read_names(self.folder / "out.xlsx"),
                         {"ammA": "#REF!", "Gone": "Nowhere!$A$1", "ammTT": "Sheet!#REF!",
                          "ammA_ref1": "Sheet!$B$1", "ammB": "Sheet!$B$2"})
        listed = subprocess.run([PROGRAM, "--places", self.folder / "out.xlsx"], capture_output=True, text=True,
                                check=True).stdout
        self.assertIn("=#REF!", listed)

    def test_a_shared_text_that_is_not_there(self):
        def name(sheet):
            read_xlsx.define_name(sheet.parent, DefinedName("Kept", attr_text="Sheet!$C$5"))

        entries = replaced(book(name), SHEET, r'<c r="C5".*?</c>', '<c r="C5" t="s"><v>7</v></c>')
        (self.folder / "bad.xlsx").write_bytes(pack(entries))
        self.assertEqual(self.map(FORM)[0], 0)
        with zipfile.ZipFile(self.folder / "out.xlsx") as archive:
            self.assertIn(b'<c r="C5" t="s"><v>7</v></c>', archive.read(SHEET))
        done = subprocess.run([PROGRAM, "--places", self.folder / "out.xlsx"], capture_output=True, text=True,
                              check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("out.xlsx", done.stderr)
        self.assertIn("shared", done.stderr)


if __name__ == "__main__":
    unittest.main()
