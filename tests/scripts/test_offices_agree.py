"""Maps with the embedded office and with LibreOffice, and compares the results as read by python3-docx and openpyxl.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources. Without the module for LibreOffice the tests are
skipped.
"""
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

import docx

import merge_fields
import read_docx
import read_xlsx
from merge_fields import code, complex_field, field, text

PROGRAM = Path(os.environ["MERGELOOM"])
ORDERS = Path(os.environ["MERGELOOM_ROOT"]) / "samples" / "orders.xml"
OFFICES = ("embedded", "libreoffice")

LINES = """<Database><Form Name="Order" CurrentView="1"><Controls>
  <Control Name="Customer" Caption="&amp;Customer:" ControlType="Textbox" Section="0"/>
  <Control Name="Größe" Caption="Größe 😀:" ControlType="Textbox" Section="0"/>
  <Control Name="Lines" Caption="Order lines" ControlType="Subform" Section="0">
    <Form Name="Sub" HasRecordset="1"><Controls>
      <Control Name="Item" ControlType="Textbox" Section="0"/>
      <Control Name="Unit Price" ControlType="Textbox" Section="0"/>
    </Controls></Form>
  </Control>
  <Control Name="Town" ControlType="Textbox" Section="0"/>
</Controls></Form></Database>"""

PRODUCTS = """<Database><Table Name="Products" CurrentView="2"><Controls>
  <Control Name="A" Caption="&amp;Article:" ControlType="Textbox" ControlSource="A"/>
  <Control Name="B" ControlType="Textbox" ControlSource="B"/>
  <Control Name="Total" ControlType="Textbox" ControlSource="=Sum([B])*[C]"/>
  <Control Name="C" ControlType="Checkbox" ControlSource="C"/>
</Controls></Table></Database>"""


def shape_of_word(path):
    """Returns the parts of a document that must be equal for the two offices."""
    found, problems = read_docx.read_bookmarks(path)
    return {
        "places": sorted((place["name"], place["text"].rstrip("\r"), len(place["pictures"])) for place in found),
        "order": [place["name"] for place in sorted(found, key=lambda place: (place["paragraph"], place["name"]))],
        "paragraphs": read_docx.read_paragraphs(path),
        "tables": read_docx.read_tables(path),
        "problems": problems,
    }


def shape_of_excel(path):
    names = {name: target.replace("'", "") for name, target in read_xlsx.read_names(path).items()}
    texts = [row for row in read_xlsx.read_texts(path) if any(cell is not None for cell in row)]
    width = max((len(row) for row in texts), default=0)
    return {"names": names, "places": read_xlsx.read_places(path),
            "texts": [list(row) + [None] * (width - len(row)) for row in texts]}


@unittest.skipUnless((PROGRAM.parent / "mergeloom_libreoffice.so").exists(), "no module for LibreOffice")
class OfficesAgree(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        for name, text in (("lines.xml", LINES), ("products.xml", PRODUCTS)):
            (self.folder / name).write_text(text, encoding="utf-8")

    def map(self, office, structure, target, *more):
        command = [PROGRAM, "--exit-status", "--office=" + office, "-hidden", "-xmlfile", structure, "-template", target]
        done = subprocess.run([str(part) for part in (*command, *more)],
                              capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(done.returncode, 0, f"{office}: {done.stderr}")

    def agree(self, read, structure, suffix, *more):
        shapes = []
        for office in OFFICES:
            target = self.folder / f"{office}{len(list(self.folder.iterdir()))}.{suffix}"
            self.map(office, structure, target, *more)
            shapes.append(read(target))
        self.assertEqual(*shapes)
        return shapes[0]

    def test_documents(self):
        label = self.folder / "label.docx"
        document = docx.Document()
        document.add_paragraph("Deliver to")
        document.save(label)
        cases = [
            (ORDERS, "dotx", "-directory"),
            (ORDERS, "docx", "-listing"),
            (ORDERS, "dotx", "-listing", "-fields", "OrderDate;OrderNumber"),
            (ORDERS, "docx", "-label", label),
            (self.folder / "lines.xml", "docx"),
            (self.folder / "products.xml", "docx", "-listing"),
        ]
        for structure, suffix, *more in cases:
            with self.subTest([structure.name, suffix, *map(str, more)]):
                shape = self.agree(shape_of_word, structure, suffix, *more)
                self.assertEqual(shape["problems"], [])
                self.assertTrue(shape["places"])

    def test_documents_that_hold_tables(self):
        """The caret is before the tables, and a drop must leave them and their bookmarks unchanged."""
        given = self.folder / "given.docx"
        document = docx.Document()
        document.add_paragraph("first")
        table = document.add_table(2, 2)
        table.cell(0, 0).text = "cell"
        table.cell(1, 1).add_table(1, 2).cell(0, 1).text = "inner"
        document.add_paragraph("between")
        document.add_table(1, 1).cell(0, 0).merge(document.tables[-1].cell(0, 0))
        document.add_paragraph("last")
        document.save(given)
        for structure in ("lines.xml", "products.xml"):
            with self.subTest(structure):
                shape = self.agree(shape_of_word, self.folder / structure, "docx", "-usedocument", given)
                self.assertIn("between", shape["paragraphs"])

    def test_mapped_twice(self):
        """A table replaces the former one of either office."""
        shapes = []
        for first, second in (OFFICES, OFFICES[::-1]):
            target = self.folder / f"{first}.docx"
            self.map(first, self.folder / "products.xml", target)
            self.map(second, self.folder / "products.xml", self.folder / f"{first}-{second}.docx",
                     "-listing", "-fields", "C;A", "-usedocument", target)
            shapes.append(shape_of_word(self.folder / f"{first}-{second}.docx"))
        self.assertEqual(*shapes)
        self.assertEqual(len(shapes[0]["tables"]), 1)

    def convert(self, office, source, status=0):
        """Returns the converted document, if there is one, and the program's report or complaint."""
        target = self.folder / f"{office}.docx"
        done = subprocess.run([PROGRAM, "--office=" + office, "--convert-fields", source, "--output", target],
                              capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(done.returncode, status, done.stderr)
        self.assertEqual(target.exists(), status == 0)
        if status == 0:
            self.assertEqual(read_docx.read_bookmarks(target)[1], [])
        return target, done.stderr if status else done.stdout

    def test_converted_fields(self):
        source = self.folder / "old.docx"
        merge_fields.write_every_kind(source)
        for office in OFFICES:
            with self.subTest(office):
                target, report = self.convert(office, source)
                self.assertEqual(merge_fields.wrong_paragraphs(target), [])
                self.assertEqual(report, merge_fields.REPORT)

    def test_converted_conditions(self):
        """LibreOffice does not read the code of IF fields, so it must not write one without it."""
        source = self.folder / "conditions.docx"
        nested = complex_field(code(" IF ") + field(" MERGEFIELD X ") + code(' = "M" "Mr" "Ms" '), text("Ms"))
        merge_fields.write(source, [text("a ") + runs + text(" b")
                                    for runs in (field(' IF a = b "Home Town" "" '), nested)])
        target, report = self.convert("embedded", source)
        self.assertEqual(merge_fields.read(target), ["a [HomeTown:HomeTown] b", "a [X:X] b"])
        self.assertEqual(report, "2 fields became places, 0 were removed.\n")
        _, complaint = self.convert("libreoffice", source, status=1)
        self.assertIn("is not converted: LibreOffice does not keep the code of an IF field", complaint)

    def test_workbooks(self):
        cases = [
            (ORDERS, "xltx", "-directory"),
            (ORDERS, "xlsx", "-listing"),
            (self.folder / "lines.xml", "xlsx"),
            (self.folder / "products.xml", "xltx"),
        ]
        for structure, suffix, *more in cases:
            with self.subTest([structure.name, suffix, *more]):
                shape = self.agree(shape_of_excel, structure, suffix, "-excel", *more)
                self.assertTrue(shape["names"])


if __name__ == "__main__":
    unittest.main()
