"""Tests the files that the window remembers, and the data that it shows about them."""
import io
import tempfile
import unittest
import zipfile
from pathlib import Path

import docx
import openpyxl
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls
from openpyxl.chart import BarChart, Reference
from openpyxl.formatting.rule import CellIsRule
from openpyxl.styles import Font

import read_xlsx
from designer_test import DESIGNER, SAMPLE, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import (
    PATIENCE, Atspi, Designer, click, document_has_keyboard, find, key, middle, pixels, type_text, wait_for,
)


CONTROL = """<w:sdt {ns}><w:sdtPr><w:tag w:val="terms"/><w:id w:val="4711"/></w:sdtPr><w:sdtContent>
<w:p><w:r><w:t>Our terms.</w:t></w:r></w:p></w:sdtContent></w:sdt>"""


def entries_of(archive):
    """Returns the contents of an archive's entries by their names."""
    with zipfile.ZipFile(io.BytesIO(archive)) as package:
        return {name: package.read(name) for name in package.namelist()}


class FilesTest(DesignerTest):
    def begin(self, *switches, home):
        self.designer = Designer(DESIGNER, [*self.SWITCHES, *switches], home=home)
        self.addCleanup(self.designer.close)
        self.designer.wait_until_ready()
        return self.designer

    def wait_for_title(self, title):
        wait_for(f"the title {title}", lambda: self.designer.full_title() == title)

    def proposed_name(self):
        """Returns the name in the open dialog."""
        box = self.designer.dialog()
        field = wait_for("the name", lambda: next(iter(find(box, "text")), None))
        return Atspi.Text.get_text(field, 0, -1)

    def listed(self, name):
        """Waits until the dialog lists a file."""
        box = self.designer.dialog()
        wait_for(f"the file {name}", lambda: any(find(box, role, name) for role in ("list item", "table cell")))

    def types(self):
        box = self.designer.dialog()
        return [entry.get_name() for entry in find(box, "combo box")]


class InWord(FilesTest):
    def test_the_title_tells_document_changes_and_program(self):
        self.start()
        self.wait_for_title("New Template - Mergeloom")
        self.drop("Customer")
        self.wait_for_title("*New Template - Mergeloom")
        self.save_as("letter.docx")
        self.wait_for_title("letter.docx - Mergeloom")
        self.enter_document()
        type_text("x")
        self.wait_for_title("*letter.docx - Mergeloom")
        key("ctrl+s")
        self.wait_for_title("letter.docx - Mergeloom")

    def test_a_document_of_another_program_gets_the_field_and_nothing_else(self):
        letter = self.folder / "letter.docx"
        document = docx.Document()
        document.add_paragraph("Dear customer")
        document.element.body.insert(1, parse_xml(CONTROL.format(ns=nsdecls("w"))))
        document.add_paragraph("The last line.")
        document.save(letter)
        before = letter.read_bytes()
        self.start("-template", letter)
        self.wait_for_title("letter.docx - Mergeloom")
        self.drop("Customer")
        key("ctrl+s")
        wait_for("the saved letter", lambda: self.designer.status().startswith("Saved; "))
        self.picture("saved-without-loss")
        count = len(entries_of(before))
        self.assertEqual(self.designer.status(), f"Saved; {count - 1} of {count} parts unchanged")
        after = entries_of(letter.read_bytes())
        self.assertEqual([name for name, raw in entries_of(before).items() if after[name] != raw], ["word/document.xml"])
        self.assertIn("CustomerID", self.names(letter))
        self.assertIn(b'<w:tag w:val="terms"/>', zipfile.ZipFile(letter).read("word/document.xml"))

    def test_dialogs_begin_with_the_last_file(self):
        self.start()
        key("ctrl+shift+s")
        self.assertEqual(self.proposed_name(), "New Template.dotx")
        self.assertIn("(*.dotx)", " ".join(self.types()))
        self.picture("save-as")
        key("Escape")
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())
        self.drop("Customer")
        self.save_as("letter.docx")

        key("ctrl+shift+s")
        self.assertEqual(self.proposed_name(), "letter.docx")
        self.listed("letter.docx")
        self.assertIn("(*.docx)", " ".join(self.types()))
        key("Escape")
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())
        self.designer.wait_until_active()
        key("ctrl+o")
        self.listed("letter.docx")
        self.picture("open")
        key("Escape")

    def test_recent_files_are_offered_again(self):
        home = Path(tempfile.mkdtemp(prefix="designer-"))
        first = self.begin("-xmlfile", SAMPLE, home=home)
        self.drop("Customer")
        letter = self.save_as("letter.docx")
        key("ctrl+q")
        self.assertEqual(first.process.wait(PATIENCE), 0)

        second = self.begin(home=home)
        second.choose("Template", "Open Recent", f"1 letter.docx ({letter.parent})")
        self.wait_for_title("letter.docx - Mergeloom")
        # An opened document gets the keyboard at the end, which may be after a click on the menu.
        wait_for("the keyboard in the document", document_has_keyboard)
        second.wait_until_active()
        second.choose("Structure", "Load Recent", f"1 orders.xml ({SAMPLE.parent})")
        second.node("Customer")
        self.assertIn("orders.xml", [label.get_name() for label in find(second.application, "label")])
        key("ctrl+l")
        self.listed("orders.xml")
        self.picture("load")
        key("Escape")


    def settings(self, home, number=1):
        return home / "config" / "mergeloom" / "office" / str(number) / "user" / "registrymodifications.xcu"

    def has_ruler(self):
        """Returns True if there are several colors over the text, where the office has its ruler."""
        left, top, _, _ = self.designer.document_box()
        strip = pixels(left + 100, top + 76, 300, 12)
        return len({strip[start:start + 3] for start in range(0, len(strip), 3)}) > 1

    def wait_for_page(self):
        """Waits until the office has painted the page, which may be after it is ready."""
        wait_for("the white page", lambda: pixels(*self.designer.document(), 1, 1) == b"\xff\xff\xff")

    def quit(self):
        self.designer.wait_until_active()
        key("ctrl+q")
        self.assertEqual(self.designer.process.wait(PATIENCE), 0)

    def test_settings_of_the_office_last(self):
        home = Path(tempfile.mkdtemp(prefix="designer-"))
        self.begin(home=home)
        self.wait_for_page()
        wait_for("the page with a ruler", self.has_ruler)
        self.quit()
        item = ('<item oor:path="/org.openoffice.Office.Writer/Layout/Window"><prop oor:name="HorizontalRuler" '
                'oor:op="fuse"><value>false</value></prop></item>')
        settings = self.settings(home)
        settings.write_text(settings.read_text().replace("</oor:items>", f"{item}\n</oor:items>"))

        second = self.begin(home=home)
        self.wait_for_page()
        wait_for("the page without a ruler", lambda: not self.has_ruler())
        self.picture("no-ruler")
        self.begin(home=home)
        self.assertFalse(item in self.settings(home, 2).read_text(), "each window has a profile of its own")
        self.quit()
        self.designer = second
        self.quit()
        self.assertTrue(item in settings.read_text())


class InExcel(FilesTest):
    SWITCHES = ["-excel"]

    def test_a_workbook_of_another_program_gets_the_place_and_nothing_else(self):
        book = self.folder / "book.xlsx"
        workbook = openpyxl.Workbook()
        sheet = workbook.active
        for row in range(1, 6):
            sheet.append([f"Town {row}", row, f"=B{row}*2"])
        chart = BarChart()
        chart.add_data(Reference(sheet, min_col=2, min_row=1, max_row=5))
        sheet.add_chart(chart, "H2")
        sheet.conditional_formatting.add("B1:B5", CellIsRule("greaterThan", ["3"], font=Font(color="FF0000")))
        sheet.sheet_view.selection[0].activeCell = sheet.sheet_view.selection[0].sqref = "E3"
        workbook.save(book)
        before = book.read_bytes()
        self.start("-template", book)
        self.wait_for_title("book.xlsx - Mergeloom")
        self.drop("Customer")
        key("ctrl+s")
        wait_for("the saved workbook", lambda: self.designer.status().startswith("Saved; "))
        count = len(entries_of(before))
        self.assertEqual(self.designer.status(), f"Saved; {count - 2} of {count} parts unchanged")
        after = entries_of(book.read_bytes())
        self.assertEqual({name for name, raw in entries_of(before).items() if after[name] != raw},
                         {"xl/workbook.xml", "xl/worksheets/sheet1.xml"})
        self.assertIn("ammCustomerID", read_xlsx.read_names(book))

    def test_the_title_follows_what_is_undone(self):
        self.start()
        self.wait_for_title("New Excel Template - Mergeloom")
        self.enter_document()
        type_text("x")
        key("Return")
        self.wait_for_title("*New Excel Template - Mergeloom")
        self.save_as("book.xlsx")
        self.wait_for_title("book.xlsx - Mergeloom")


if __name__ == "__main__":
    unittest.main()
