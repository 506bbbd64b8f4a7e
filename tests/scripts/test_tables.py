"""Maps tables and labels with the finished program and reads them back with python3-docx and LibreOffice.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources.
"""
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

import docx
from docx.oxml.ns import qn

import read_docx

PROGRAM = os.environ["MERGELOOM"]
SCRIPTS = Path(os.environ["MERGELOOM_ROOT"]) / "tests" / "scripts"

PRODUCTS = """<Database><Table Name="Products" CurrentView="2"><Controls>
  <Control Name="A" Caption="&amp;Article:" ControlType="Textbox" ControlSource="A"/>
  <Control Name="B" Caption="Größe" ControlType="Textbox" ControlSource="B"/>
  <Control Name="C" ControlType="Checkbox" ControlSource="C"/>
  <Control Name="Total" ControlType="Textbox" ControlSource="=Sum([B])*[C]"/>
</Controls></Table></Database>"""

ORDER = """<Database><Form Name="Order" CurrentView="1"><Controls>
  <Control Name="Customer" ControlType="Textbox" Section="0"/>
  <Control Name="Lines" Caption="Order lines" ControlType="Subform" Section="0">
    <Form Name="Sub" HasRecordset="1"><Controls>
      <Control Name="Item" ControlType="Textbox" Section="0"/>
      <Control Name="Unit Price" ControlType="Textbox" Section="0"/>
    </Controls></Form>
  </Control>
  <Control Name="Town" ControlType="Textbox" Section="0"/>
</Controls></Form></Database>"""


def wide(columns):
    """Returns a table with a number of fields."""
    controls = "".join(f'<Control Name="F{i}" ControlType="Textbox"/>' for i in range(columns))
    return f'<Database><Table Name="Wide" CurrentView="2">{controls}</Table></Database>'


class Tables(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def run_mapping(self, structure, target, *more):
        (self.folder / "structure.xml").write_text(structure, encoding="utf-8")
        arguments = ["-xmlfile", self.folder / "structure.xml", "-template", target, *more]
        return subprocess.run(
            [PROGRAM, "--exit-status", *map(str, arguments)], capture_output=True, text=True, timeout=60, check=False)

    def map(self, structure, *more):
        """Maps to a new document and returns its bookmarks. Fails for a document with errors."""
        target = self.folder / f"mapped{len(list(self.folder.iterdir()))}.docx"
        done = self.run_mapping(structure, target, "-hidden", *more)
        self.assertEqual(done.returncode, 0, done.stderr)
        found, problems = read_docx.read_bookmarks(target)
        self.assertEqual(problems, [])
        return target, [place["name"] for place in found]

    def refuse(self, structure, sentence, *more):
        target = self.folder / "refused.docx"
        done = self.run_mapping(structure, target, "-hidden", *more)
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertIn(sentence, done.stderr)
        self.assertFalse(target.exists())

    def tables_in_office(self, document):
        """Returns the document's tables after LibreOffice has read and written it."""
        written = self.folder / "office"
        subprocess.run([SCRIPTS / "convert.sh", "docx", document, written], check=True, timeout=120)
        return read_docx.read_tables(written / document.name)

    def test_columns_follow_the_field_list(self):
        cases = [
            ((), [["Article:", "Größe", "C", "Total"], ["A", "B", "C", "Total"]]),
            (("-fields", "B;A"), [["Größe", "Article:"], ["B", "A"]]),
            (("-fields", "c,none,a"), [["C", "Article:"], ["C", "A"]]),
            (("-fields", "Total"), [["Total"], ["Total"], ["B"], ["C"]]),
        ]
        for fields, expected in cases:
            with self.subTest(fields):
                target, names = self.map(PRODUCTS, "-listing", *fields)
                self.assertEqual(read_docx.read_tables(target), [expected])
                places = [text for row in expected[1:] for text in row]
                self.assertEqual(names, ["ProductsT", *places])
        self.assertEqual(self.tables_in_office(target), [expected])

    def test_field_lists_that_name_nothing(self):
        self.refuse(PRODUCTS, "FieldList is incorrect.", "-listing", "-fields", "None;Nothing")
        self.refuse(PRODUCTS, "FieldList is not defined.", "-listing", "-fields", ";")

    def test_many_columns(self):
        for columns, points in ((10, None), (12, 10), (20, 8), (40, 7), (63, 7)):
            with self.subTest(columns):
                target, names = self.map(wide(columns))
                self.assertEqual(len(names), columns + 1)
                table = docx.Document(target).tables[0]
                sizes = {run.font.size.pt if run.font.size else None
                         for run in (docx.text.run.Run(r, None) for r in table._tbl.iter(qn("w:r")))}
                self.assertEqual(sizes, {points})
        self.refuse(wide(64), "A Word table has at most 63 columns; 64 were asked for.")

    def test_a_table_takes_the_place_of_the_earlier_one(self):
        first, _ = self.map(PRODUCTS)
        second, names = self.map(PRODUCTS, "-listing", "-fields", "C", "-usedocument", first)
        self.assertEqual(read_docx.read_tables(second), [[["C"], ["C"]]])
        self.assertEqual(names, ["ProductsT", "C"])

    def test_a_subform_becomes_a_table_in_the_form(self):
        for view in ((), ("formview",)):
            with self.subTest(view):
                target = self.folder / f"order{len(view)}.docx"
                done = self.run_mapping(ORDER, target, "-hidden", *view)
                self.assertEqual(done.returncode, 0, done.stderr)
                lines = ["Customer: Customer", "Order lines: ", "Item", "Unit Price", "Item ", "UnitPrice ",
                         "Town: Town", ""]
                self.assertEqual(read_docx.read_paragraphs(target), lines)
                names = [place["name"] for place in read_docx.read_bookmarks(target)[0]]
                self.assertEqual(names, ["Customer", "Lines", "LinesItem", "LinesUnitPrice", "Town"])
        self.assertEqual(self.tables_in_office(target), [[["Item", "Unit Price"], ["Item", "UnitPrice"]]])

    def test_two_subforms_of_one_name_stay(self):
        start, end = ORDER.index('<Control Name="Lines"'), ORDER.index('<Control Name="Town"')
        target = self.folder / "twice.docx"
        done = self.run_mapping(ORDER[:end] + ORDER[start:], target, "-hidden")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn('the further one is named "Lines_ref1"', done.stderr)
        names = [place["name"] for place in read_docx.read_bookmarks(target)[0]]
        self.assertEqual(names, ["Customer", "Lines", "LinesItem", "LinesUnitPrice", "Lines_ref1", "LinesItem_ref1",
                                 "LinesUnitPrice_ref1", "Town"])
        lines = [["Item", "Unit Price"], ["Item", "UnitPrice"]]
        self.assertEqual(self.tables_in_office(target), [lines, lines])

    def test_labels_go_into_the_label_document(self):
        sheet = self.folder / "sheet.docx"
        document = docx.Document()
        document.add_paragraph("Deliver to")
        document.save(sheet)
        before = sheet.read_bytes()
        target, names = self.map(ORDER, "-label", sheet)
        self.assertEqual(names, ["Customer", "Town"])
        self.assertEqual(read_docx.read_paragraphs(target), ["Customer Town Deliver to"])
        self.assertEqual(sheet.read_bytes(), before)

    def test_a_selection_in_a_table_is_refused(self):
        sheet = self.folder / "sheet.docx"
        document = docx.Document()
        document.add_table(2, 2)
        document.save(sheet)
        before = sheet.read_bytes()
        sentence = "It is impossible to insert the {} into current selection."
        self.refuse(ORDER, sentence.format("form"), "-label", sheet)
        self.refuse(PRODUCTS, sentence.format("table"), "-usedocument", sheet)
        self.assertEqual(sheet.read_bytes(), before)


if __name__ == "__main__":
    unittest.main()
