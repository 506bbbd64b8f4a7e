"""Maps into new workbooks and into those of other programs, and reads the results with python3-openpyxl and
LibreOffice. Content outside of the mapping must not change.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources. If MERGELOOM_VALIDATOR names a validator of
Office Open XML, it checks the workbooks, too.
"""
import json
import os
import shutil
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

from lxml import etree

import foreign_workbooks
import read_xlsx
from test_lossless import raw_entries

PROGRAM = os.environ["MERGELOOM"]
VALIDATOR = os.environ.get("MERGELOOM_VALIDATOR")
ROOT = Path(os.environ["MERGELOOM_ROOT"])
SAMPLE = ROOT / "samples" / "orders.xml"
PICTURE = ROOT / "samples" / "pictures" / "letterhead.png"
S = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"

MAIN_TYPES = {
    ".xlsx": "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml",
    ".xltx": "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml",
    ".xlsm": "application/vnd.ms-excel.sheet.macroEnabled.main+xml",
    ".xltm": "application/vnd.ms-excel.template.macroEnabled.main+xml",
}

FORM = """<Database><Form Name="Letter" CurrentView="1" DefaultView="0" HasRecordset="1"><Controls>
  <Control Name="Customer" Caption="Client" ControlType="Textbox" Section="0"/>
  <Control Name="Order Date" Caption="=Ordered" ControlType="Textbox" Section="0"/>
  <Control Name="Logo" Caption="2024" ControlType="Image" Image="letterhead.png" Section="0"/>
  <Control Name="2nd Contact" ControlType="Textbox" Section="0"/>
  <Control Name="customer" ControlType="Textbox" Section="0"/>
  <Control Name="Lines" Caption="Order lines" ControlType="Subform" Section="0">
    <Form Name="Sub" HasRecordset="1"><Controls>
      <Control Name="Item" ControlType="Textbox" Section="0"/>
      <Control Name="Unit Price" Caption="Price of one unit with tax" ControlType="Textbox" Section="0"/>
    </Controls></Form>
  </Control>
  <Control Name="Straße-Größe" Caption="R &amp;&amp; D" ControlType="Textbox" Section="0"/>
</Controls></Form></Database>"""

FORM_CELLS = [
    ["Client", "[Customer]", None],
    ["=Ordered", "[OrderDate]", None],
    ["2024", None, None],
    ["2nd Contact", "[x2ndContact]", None],
    ["customer", "[customer]", None],
    ["Order lines", "Item", "Price of one unit with tax"],
    [None, "[LinesItem]", "[LinesUnitPrice]"],
    ["R & D", "[StraßeGröße]", None],
]

FORM_NAMES = {
    "ammCustomer": "$B$1", "ammOrderDate": "$B$2", "ammLogo": "$B$3", "ammx2ndContact": "$B$4",
    "ammcustomer_ref1": "$B$5", "ammLines": "$B$6:$C$7", "ammLinesItem": "$B$7", "ammLinesUnitPrice": "$C$7",
    "ammStraßeGröße": "$B$8",
}

PRODUCTS = """<Database><Table Name="Products" CurrentView="2"><Controls>
  <Control Name="A" Caption="&amp;Article:" ControlType="Textbox" ControlSource="A"/>
  <Control Name="B" Caption="Größe" ControlType="Textbox" ControlSource="B"/>
  <Control Name="Total" ControlType="Textbox" ControlSource="=Sum([B])*[C]"/>
  <Control Name="C" ControlType="Checkbox" ControlSource="C"/>
</Controls></Table></Database>"""


def root_of(path, entry):
    with zipfile.ZipFile(path) as archive:
        return etree.fromstring(archive.read(entry))


def canonical(element):
    """Returns an element as bytes that depend on its content alone, without the namespaces of elements around it."""
    return etree.tostring(element, method="c14n", exclusive=True)


class Workbooks(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        shutil.copy(PICTURE, cls.folder)
        for name, text in (("form", FORM), ("products", PRODUCTS)):
            (cls.folder / f"{name}.xml").write_text(text, encoding="utf-8")
        made = cls.folder / "made"
        made.mkdir()
        cls.workbooks = foreign_workbooks.make_all(made, PICTURE)

    def run_mapping(self, structure, target, *more):
        arguments = ["-excel", "-hidden", "-xmlfile", self.folder / structure, "-template", target, *more]
        return subprocess.run(
            [PROGRAM, "--exit-status", *map(str, arguments)], capture_output=True, text=True, timeout=60, check=False)

    def map(self, structure, target, *more):
        target = self.folder / target
        target.unlink(missing_ok=True)
        done = self.run_mapping(structure, target, *more)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        source = more[more.index("-usedocument") + 1] if "-usedocument" in more else None
        self.assertEqual(self.faults(target), self.faults(source) if source else [])
        return target

    @staticmethod
    def faults(workbook):
        """Returns the violations of the standard's schemas. The programs that make the tests' workbooks have some,
        too."""
        if not VALIDATOR:
            return []
        judged = subprocess.run([VALIDATOR, workbook], capture_output=True, text=True, check=False)
        return [(error["path"], error["description"]) for error in json.loads(judged.stdout)["errors"]]

    def by_libreoffice(self, workbook, extension="xlsx"):
        """Returns the workbook after LibreOffice has read and written it."""
        written = self.folder / "office" / f"{workbook.stem}.{extension}"
        command = ROOT / "tests" / "scripts" / "convert.sh"
        subprocess.run([command, extension, workbook, written.parent], check=True, timeout=120)
        return written

    def check_form(self, workbook):
        names = {name: f"Sheet1!{cells}" for name, cells in FORM_NAMES.items()}
        found = {name: text.replace("'", "") for name, text in read_xlsx.read_names(workbook).items()}
        self.assertEqual(found, names)
        self.assertEqual([row[:3] for row in read_xlsx.read_texts(workbook)], FORM_CELLS)
        [picture] = read_xlsx.read_workbook(workbook).active._images
        self.assertEqual((picture.anchor._from.row, picture.anchor._from.col), (2, 1))

    def test_a_form_in_every_kind_of_target(self):
        for extension, main_type in MAIN_TYPES.items():
            with self.subTest(extension):
                target = self.map("form.xml", f"form{extension}")
                self.check_form(target)
                with zipfile.ZipFile(target) as package:
                    self.assertIsNone(package.testzip())
                    self.assertIn(main_type, package.read("[Content_Types].xml").decode())
        self.check_form(self.by_libreoffice(target))

    def test_a_table(self):
        cases = [
            ((), [["Article:", "Größe", "Total", "C"], ["[A]", "[B]", "[Total]", "[C]"]]),
            (("-fields", "B;A"), [["Größe", "Article:"], ["[B]", "[A]"]]),
            (("-fields", "Total"), [["Total"], ["[Total]"], ["[B]"], ["[C]"]]),
        ]
        for fields, expected in cases:
            with self.subTest(fields):
                target = self.map("products.xml", "table.xlsx", "-listing", *fields)
                places = read_xlsx.read_places(target)
                self.assertEqual(places.pop("ammProductsT"), expected)
                fields_placed = [text for row in expected[1:] for text in row]
                self.assertEqual({name: [[f"[{name[3:]}]"]] for name in places}, places)
                self.assertEqual([f"[{name[3:]}]" for name in places], fields_placed)

    def test_a_second_table_stands_below_the_first(self):
        first = self.map("products.xml", "first.xlsx", "-listing", "-fields", "A")
        second = self.map("products.xml", "second.xlsx", "-listing", "-fields", "B", "-usedocument", first)
        self.assertEqual(read_xlsx.read_texts(second), [["Article:"], ["[A]"], ["Größe"], ["[B]"]])

    def test_other_content_stays(self):
        for name, source in self.workbooks.items():
            with self.subTest(name):
                target = self.map("form.xml", f"mapped{source.suffix}", "-usedocument", source)
                before, after = raw_entries(source), raw_entries(target)
                self.assertEqual([entry for entry in after if entry in before], list(before))
                changed = {entry for entry in before if before[entry] != after[entry]}
                sheet = "xl/worksheets/sheet1.xml" if name == "pivot" else "xl/worksheets/sheet2.xml"
                drawing = {entry for entry in before if "drawings/" in entry and entry.endswith(("g1.xml", "g1.xml.rels"))}
                allowed = {sheet, "xl/workbook.xml", "[Content_Types].xml", *drawing,
                           sheet.replace("sheets/", "sheets/_rels/") + ".rels"}
                # LibreOffice forgets the active cell behind frozen panes, so the header of a table is overwritten.
                overwrites = name in ("pivot", "again")
                allowed |= {"xl/tables/table1.xml"} if name == "again" else set()
                self.assertLessEqual(changed, allowed)
                self.assertLessEqual({sheet, "xl/workbook.xml"}, changed)
                self.check_sheet(root_of(source, sheet), root_of(target, sheet), overwrites)
                self.check_workbook(source, target)
                self.by_libreoffice(target)

    def check_sheet(self, before, after, overwrites):
        """All elements except the new cells are unchanged."""
        edited = {S + tag for tag in ("sheetData", "dimension", "sheetViews", "cols", "drawing")}
        rest = [canonical(child) for child in before if child.tag not in edited]
        self.assertEqual([canonical(child) for child in after if child.tag not in edited], rest)
        if overwrites:
            return
        cells = {cell.get("r"): canonical(cell) for cell in after.iter(S + "c")}
        for cell in before.iter(S + "c"):
            self.assertEqual(cells[cell.get("r")], canonical(cell))
        heights = {row.get("r"): (row.get("ht"), row.get("hidden")) for row in after.iter(S + "row")}
        for row in before.iter(S + "row"):
            if row.get("r") != "5":
                self.assertEqual(heights[row.get("r")], (row.get("ht"), row.get("hidden")))

    def check_workbook(self, source, target):
        before, after = read_xlsx.read_names(source), read_xlsx.read_names(target)
        self.assertEqual({name: after.get(name) for name in before}, before)
        added = {name.replace("_ref1", "").casefold() for name in after.keys() - before.keys()}
        self.assertGreaterEqual(added, {"ammorderdate", "ammlogo", "ammlinesitem"})
        self.assertEqual(len(after) - len(before), len(FORM_NAMES))
        was, is_now = read_xlsx.read_workbook(source), read_xlsx.read_workbook(target)
        self.assertEqual(is_now.sheetnames, was.sheetnames)
        self.assertEqual(len(is_now.active._charts), len(was.active._charts))
        self.assertEqual(len(is_now.active._images), len(was.active._images) + 1)
        self.assertEqual(is_now.active.merged_cells.ranges, was.active.merged_cells.ranges)

    def test_macros_are_kept_or_the_target_is_refused(self):
        source = self.workbooks["xlsxwriter"]
        target = self.map("form.xml", "kept.xltm", "-usedocument", source)
        with zipfile.ZipFile(target) as package:
            self.assertEqual(package.read("xl/vbaProject.bin"), foreign_workbooks.MACROS)
        done = self.run_mapping("form.xml", self.folder / "lost.xlsx", "-usedocument", source)
        self.assertEqual(done.returncode, 1)
        self.assertIn("the workbook holds macros", done.stderr)
        self.assertFalse((self.folder / "lost.xlsx").exists())

    def test_places_tells_what_others_read(self):
        target = self.map("form.xml", "places.xltx")
        done = subprocess.run([PROGRAM, "--places", target, "--json"], capture_output=True, text=True, check=True)
        told = json.loads(done.stdout)
        names = {place["name"]: place["refersTo"] for place in told if place["kind"] == "name"}
        self.assertEqual(names, {name: f"=Sheet1!{cells}" for name, cells in FORM_NAMES.items()})
        self.assertEqual([place["name"] for place in told if place["kind"] == "picture"], ["ammLogo"])

    def test_the_sample(self):
        target = self.folder / "orders.xltx"
        done = self.run_mapping(SAMPLE, target)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(self.faults(target), [])
        places = read_xlsx.read_places(target)
        self.assertEqual(places["ammOrderNumber"], [["[OrderNumber]"]])
        pdf = self.by_libreoffice(target, "pdf")
        shown = subprocess.run(["pdftotext", pdf, "-"], capture_output=True, text=True, check=True).stdout
        for name, texts in places.items():
            for text in (text for row in texts for text in row if text):
                self.assertIn(text, shown, name)


if __name__ == "__main__":
    unittest.main()
