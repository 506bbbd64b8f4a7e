"""Tests the list of places beside the document, and the marks of places in the tree."""
import itertools
import unittest

import openpyxl
import read_xlsx
import xlsxwriter
from read_docx import read_paragraphs
from designer_test import DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import (
    click, document_has_keyboard, find, has_focus, key, middle, pixels, places_of, point_at, type_text, wait_for,
)


class PlacesTest(DesignerTest):
    def listed(self):
        return [item.get_name() for item in find(self.designer.application, "list item")]

    def wait_for_places(self, *names):
        wait_for(f"the places {names}", lambda: self.listed() == list(names))

    def place(self, name):
        return middle(self.designer.element("list item", name))

    def source(self, name):
        return self.designer.element("list item", name).get_description()

    def is_marked(self, node):
        cells = find(self.designer.application, "table cell", node)
        return bool(cells) and "place in the document" in cells[0].get_description()

    def rename(self, place, name):
        """Renames a place. The mouse is over the document, which must not get the keys."""
        click(self.place(place))
        self.designer.wait_until_active()
        point_at(self.designer.document())
        key("F2")
        type_text(name)
        key("Return")

    def end_message(self):
        key("Return")
        wait_for("the end of the message", lambda: not self.designer.has_dialog())
        self.designer.wait_until_active()

    def look_back(self):
        """Moves the mouse from the document to the tree, as a user does to look at the changes."""
        point_at(self.designer.document())
        point_at(self.designer.node("Letterhead"))


    def wait_for_tip(self, name):
        """Waits for the tip of a place under the resting mouse."""
        wait_for(f"the tip {name}", lambda: any(
            tip.get_name().startswith(name) for tip in find(self.designer.application, "tool tip")))

    def picture_of(self, role, name):
        """Returns the pixels of the picture before a node or a place."""
        box = self.designer.element(role, name).get_extents(0)  # on the screen
        left = box.x if role == "list item" else box.x + 2
        return pixels(left, box.y, 18, box.height)


BLACK = (0, 0, 0)
FRAME = (0x5b, 0x9b, 0xea)  # of a place in a workbook
WHEEL_UP, WHEEL_DOWN = 4, 5


class InWord(PlacesTest):
    def test_the_mouse_tells_the_names_of_places(self):
        designer = self.start()
        self.drop("Customer")
        self.wait_for_places("CustomerID")
        box = designer.element("filler", "Document").get_extents(0)  # on the screen
        word = wait_for("the word", lambda: places_of((box.x, box.y + 150, box.width // 2, 150), BLACK))
        place = max(x for x, _ in word) - 20, sorted(y for _, y in word)[len(word) // 2]
        title = designer.full_title()
        point_at(place)
        self.wait_for_tip("CustomerID: ")
        self.picture("tip")
        self.assertEqual(designer.full_title(), title)
        point_at(designer.corner())
        wait_for("the tip's end", lambda: not find(designer.application, "tool tip"))
        marked = pixels(*self.before(place))
        designer.choose("Fields", "Show Places")
        wait_for("the text without marks", lambda: pixels(*self.before(place)) != marked)
        designer.choose("Fields", "Show Places")
        wait_for("the marks", lambda: pixels(*self.before(place)) == marked)

    @staticmethod
    def before(place):
        """Returns a box around the beginning of the text that ends at the place. The caret after the text blinks."""
        return place[0] - 120, place[1] - 12, 120, 24

    def test_keys_lead_to_the_list_and_to_the_menu(self):
        designer = self.start()
        self.drop("Customer")
        self.wait_for_places("CustomerID")
        designer.select("Customer")
        key("alt+p")
        wait_for("the list with the focus", lambda: has_focus(designer.element("list", "Places of the document")))
        key("alt+r")
        wait_for("the menu of records", lambda: find(designer.application, "menu item", "Next Record"))

    def test_values_and_stored_values_differ(self):
        designer = self.start()
        designer.expand("Customer")
        self.assertTrue(self.picture_of("table cell", "Value") != self.picture_of("table cell", "Bound Value"))
        self.drop("Value")
        self.drop("Bound Value")
        self.wait_for_places("CustomerID", "CustomerID_bv")
        point_at(designer.document())  # away from the list, whose rows light up under the mouse
        self.picture("values")
        self.assertTrue(self.picture_of("list item", "CustomerID") != self.picture_of("list item", "CustomerID_bv"))
        self.assertIn("Bound Value", designer.element("list item", "CustomerID_bv").get_description())

    def test_the_source_of_a_place_is_told_if_it_is_certain(self):
        designer = self.start()
        self.drop("Customer")  # of the first object; its table and others have the field, too
        self.wait_for_places("CustomerID")
        self.assertEqual(self.source("CustomerID"), 'Form "Orders" › Customer › Value')
        path = self.save_as("letter.docx")
        self.assertEqual(self.source("CustomerID"), 'Form "Orders" › Customer › Value')
        designer.end()
        self.start("-template", path)
        self.wait_for_places("CustomerID")
        self.assertEqual(self.source("CustomerID"), "")
        self.drop("Printed on")  # no other object has that
        self.wait_for_places("CustomerID", "PrintedOn")
        self.assertEqual(self.source("CustomerID"), 'Form "Orders" › Customer › Value')

    def test_places_of_an_opened_document_are_listed_by_themselves(self):
        designer = self.start()
        self.drop("Priority")
        path = self.save_as("letter.docx")
        point_at(designer.document())
        key("ctrl+n")
        self.wait_for_places()
        key("ctrl+o")
        designer.answer_file_dialog(path)
        self.wait_for_places("Priority")
        wait_for("the mark", lambda: self.is_marked("Priority"))
        place = designer.document()
        designer.end()
        point_at(place)
        self.start("-template", path)
        self.wait_for_places("Priority")

    def test_what_is_placed_is_marked_and_listed(self):
        designer = self.start()
        self.assertEqual(self.listed(), [])
        self.assertFalse(self.is_marked("Customer"))
        self.drop("Customer")
        self.drop("Priority")
        self.wait_for_places("CustomerID", "Priority")
        wait_for("the mark", lambda: self.is_marked("Customer") and self.is_marked("Priority"))
        self.assertFalse(self.is_marked("Town"))
        designer.expand("Customer")
        self.drop("Bound Value")
        self.wait_for_places("CustomerID", "CustomerID_bv", "Priority")
        self.assertTrue(self.is_marked("Bound Value"))
        self.assertFalse(self.is_marked("Label and Value"))
        self.picture("places")
        self.enter_document()
        key("ctrl+z")
        self.look_back()
        self.wait_for_places("CustomerID", "Priority")
        wait_for("the mark to go", lambda: not self.is_marked("Bound Value"))

    def test_places_are_found_renamed_and_removed(self):
        designer = self.start()
        self.drop("Customer")
        key("ctrl+End")
        key("Return", "Return")
        self.drop("Priority")
        self.wait_for_places("CustomerID", "Priority")

        self.rename("CustomerID", "Buyer")
        self.wait_for_places("Buyer", "Priority")

        self.rename("Priority", "no name")
        box = designer.dialog()
        self.assertIn("'no name' cannot be the name of a place.", designer.texts_of(box))
        self.picture("bad-name")
        self.end_message()
        self.rename("Priority", "BUYER")
        self.assertIn("There is a place named 'BUYER' already.", designer.texts_of(designer.dialog()))
        self.end_message()
        self.wait_for_places("Buyer", "Priority")

        click(self.place("Buyer"))
        key("Return")
        wait_for("the keyboard in the document", document_has_keyboard)
        type_text("New text")
        self.look_back()

        click(self.place("Priority"))
        point_at(designer.document())
        key("Delete")
        wait_for("the removal", lambda: "Priority" not in self.listed())
        path = self.save_as("letter.docx")
        self.assertEqual([name for name in self.names(path) if name == "Priority"], [])
        texts = read_paragraphs(path)
        self.assertIn("New text", texts[0])
        self.assertIn("Priority", " ".join(texts))


class InExcel(PlacesTest):
    SWITCHES = ["-excel"]

    def test_the_mouse_tells_the_names_of_cells(self):
        designer = self.start()
        self.drop("Customer")
        self.drop("Priority")  # on the same cell
        self.wait_for_places("ammPriority")
        point_at(designer.document())
        self.wait_for_tip("ammPriority: ")
        self.picture("tip-cells")

    def frames(self):
        """Returns the left, top, right and bottom of all visible frames around places; none without a frame."""
        shown = places_of(self.designer.document_box(), FRAME)
        columns, rows = zip(*shown) if shown else ((), ())
        return (min(columns), min(rows), max(columns), max(rows)) if shown else None

    def boxes(self, count):
        """Returns the left, top, width and height of each frame, from the top down; none for another number of
        frames."""
        left, top, width, height = self.designer.document_box()
        lines = set(places_of((left, top, width, height), FRAME))
        corners = sorted(((x, y) for x, y in lines if (x - 1, y) not in lines and (x, y - 1) not in lines
                          and (x + 8, y) in lines and (x, y + 8) in lines), key=lambda place: place[::-1])
        return len(corners) == count and [
            (x, y, self.length(lines, (x, y), (1, 0)), self.length(lines, (x, y), (0, 1))) for x, y in corners]

    @staticmethod
    def length(lines, place, step):
        """Returns the length of a line from a place."""
        return next(length for length in itertools.count()
                    if (place[0] + length * step[0], place[1] + length * step[1]) not in lines)

    def wait_for_frames(self, *expected):
        wait_for(f"the frames {expected}", lambda: self.frames() == (expected or None))

    def test_the_cells_of_places_are_framed(self):
        designer = self.start()
        self.wait_for_frames()
        place = designer.document()
        self.drop("Customer", place)
        left, top, right, bottom = wait_for("the frame", self.frames)
        self.picture("frames")
        self.assertTrue(left < place[0] < right and top < place[1] < bottom)
        self.assertTrue(50 < right - left < 120 and 10 < bottom - top < 30)

        height = bottom - top
        point_at(place)
        click(place, WHEEL_DOWN)
        wait_for("the scrolled frame", lambda: (self.frames() or (0, top))[1] < top - 2 * height)
        click(place, WHEEL_UP)
        self.wait_for_frames(left, top, right, bottom)

        # Clicks reach the cell below the frame; "[" is its text.
        self.enter_document((left, (top + bottom) // 2))
        key("F2", "End")
        type_text("x")
        key("Return")
        self.assertIn("[CustomerID]x", self.export("book.csv").read_text())

        path = self.save_as("book.xlsx")
        designer.choose("Fields", "Show Places")
        self.wait_for_frames()
        designer.choose("Fields", "Show Places")
        self.wait_for_frames(left, top, right, bottom)
        self.assertFalse(designer.full_title().startswith("*"))
        self.assertEqual(list(read_xlsx.read_names(path)), ["ammCustomerID"])
        sheet = openpyxl.load_workbook(path).active
        self.assertFalse(sheet.conditional_formatting)
        self.assertEqual({(cell.fill.fill_type, cell.border.left.style) for row in sheet for cell in row},
                         {(None, None)})

        click(self.place("ammCustomerID"))
        key("Delete")
        self.wait_for_places()
        self.wait_for_frames()
        self.enter_document()
        key("ctrl+z")
        self.wait_for_frames(left, top, right, bottom)

    def test_frames_fit_merged_and_frozen_cells_of_the_sheet_that_is_shown(self):
        path = self.folder / "merged.xlsx"
        with xlsxwriter.Workbook(path) as book:
            sheet = book.add_worksheet("Sheet")
            book.add_worksheet("Other")
            sheet.freeze_panes(1, 1)
            sheet.merge_range("C3:D4", "")
            for name, content in {"Frozen": "Sheet!$A$1", "Merged": "Sheet!$C$3", "Several": "Sheet!$C$6:$E$8",
                                  "Far": "Sheet!$C$900", "Wide": "Sheet!$B$10:$XFD$10", "There": "Other!$B$2",
                                  "Number": "2"}.items():
                book.define_name(name, "=" + content)
        self.start("-template", path)
        frozen, merged, several, wide = wait_for("four frames", lambda: self.boxes(4))
        self.picture("frames-frozen")
        left, top, width, height = merged
        width, height = width // 2, height // 2
        self.assertEqual(frozen[2:], (width, height))
        self.assertEqual(several, (left, top + 3 * height, 3 * width, 3 * height))
        self.assertEqual(wide[:2], (left - width, top + 7 * height))
        self.assertGreater(wide[2], 7 * width)
        point_at(self.designer.document())
        click(self.designer.document(), WHEEL_DOWN)
        scrolled = wait_for("the others scrolled away", lambda: self.boxes(3))
        self.assertEqual(scrolled[0], frozen)
        self.enter_document()
        key("ctrl+Next")
        wait_for("the frame of the other sheet", lambda: self.boxes(1))
        self.assertEqual(self.boxes(1)[0][2:], (width, height))

    def test_names_of_cells_are_places_too(self):
        designer = self.start()
        left, top = designer.document()
        self.drop("Customer", (left, top))
        self.drop("Priority", (left, top + 80))
        self.wait_for_places("ammCustomerID", "ammPriority")
        wait_for("the mark", lambda: self.is_marked("Customer"))
        self.rename("ammCustomerID", "A1")
        self.assertIn("not the address of a cell", designer.texts_of(designer.dialog()))
        self.end_message()
        self.rename("ammCustomerID", "ammBuyer")
        self.wait_for_places("ammBuyer", "ammPriority")
        click(self.place("ammPriority"))
        key("Delete")
        self.wait_for_places("ammBuyer")
        click(self.place("ammBuyer"))
        key("Return")
        wait_for("the keyboard in the document", document_has_keyboard)
        # Types a single letter, since the office may reorder the first keys while the jump ends.
        type_text("x")
        key("Return")
        path = self.save_as("book.xlsx")
        self.assertEqual(list(read_xlsx.read_names(path)), ["ammBuyer"])
        self.assertIn(",x\n", self.export("book.csv").read_text())
        self.assertNotIn("[CustomerID]", self.export("again.csv").read_text())


if __name__ == "__main__":
    unittest.main()
