"""Tests the window's guidance: at the first start, in the status line, and in the list of fields."""
import unittest

import read_xlsx
from designer_test import DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import (
    BUTTON, SCREEN_HEIGHT, SCREEN_WIDTH, Atspi, click, drag, find, key, point_at, wait_for,
)


class GuidesTest(DesignerTest):
    def wait_for_status(self, sentence):
        wait_for(f"the line “{sentence}”", lambda: self.designer.status() == sentence)


class InWord(GuidesTest):
    def test_the_first_start_offers_the_sample(self):
        designer = self.designer = self.start_another(structure=None)
        designer.wait_until_ready()
        self.assertIn("Mergeloom puts named places", designer.texts_of(designer.window()))
        designer.element(BUTTON, "Load XML…")
        self.picture("first-start")
        designer.press("The sample: orders of a shop")
        designer.node("Customer")
        self.wait_for_status("Drag a field into the document, or press Insert.")
        key("ctrl+q")
        designer.process.wait()

        again = self.designer = self.start_another(structure=None, home=designer.home)
        again.wait_until_ready()
        self.assertEqual(find(again.application, BUTTON, "The sample: orders of a shop"), [])
        self.picture("later-start")
        again.press("orders.xml")
        again.node("Customer")

    def test_the_line_tells_why_nothing_was_inserted_until_the_next_action(self):
        designer = self.start()
        designer.select("Special")
        point_at(designer.document())
        key("ctrl+Return")
        self.wait_for_status("Nothing was inserted. “Special” only holds other nodes; insert one of them.")
        click(designer.node("Customer"))
        self.wait_for_status("Drag a field into the document, or press Insert.")
        drag(designer.node("Customer"), designer.node("Priority"))
        self.wait_for_status("Nothing was inserted. Let the mouse go over the text of the document.")
        self.picture("beside")
        point_at(designer.document())
        key("Insert")
        self.wait_for_status("“Customer” was inserted in the text, from Form \"Orders\".")
        click(designer.node("Priority"))
        self.wait_for_status("Drag a field into the document, or press Insert.")

    def test_the_list_of_fields_names_its_table_and_leaves_the_place_visible(self):
        designer = self.start()
        place = designer.document()
        for shift in (0, 250):
            point = (place[0] + shift, place[1] + shift // 2)
            drag(designer.node("Query \"Open orders\""), point)
            box = designer.dialog("Select Fields")
            self.assertEqual(box.get_name(), "Select Fields - Query \"Open orders\"")
            area = box.get_extents(Atspi.CoordType.SCREEN)
            covers = (area.x <= point[0] < area.x + area.width) and (area.y <= point[1] < area.y + area.height)
            self.assertFalse(covers, (area.x, area.y, area.width, area.height, point))
            self.assertGreaterEqual(area.x, 0)
            self.assertGreaterEqual(area.y, 0)
            self.assertLessEqual(area.x + area.width, SCREEN_WIDTH)
            self.assertLessEqual(area.y + area.height, SCREEN_HEIGHT)
            self.picture(f"fields-{shift}")
            point_at(place)
            key("Escape")
            self.wait_for_status("Nothing was inserted. No field was chosen.")
            designer.wait_until_active()
        self.assertEqual(self.names(self.save_as("empty.docx")), [])


class InExcel(GuidesTest):
    SWITCHES = ["-excel"]

    def test_the_line_tells_the_cell(self):
        designer = self.start()
        left, top = designer.document()
        self.drop("Customer", (left + 150, top + 60))
        sentence = designer.status()
        self.picture("cell")
        sheet, cell = read_xlsx.read_names(self.save_as("book.xlsx"))["ammCustomerID"].replace("$", "").split("!")
        self.assertEqual(sentence, f"“Customer” was inserted at {sheet}!{cell}, from Form \"Orders\".")


if __name__ == "__main__":
    unittest.main()
