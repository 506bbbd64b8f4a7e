"""Tests the designer's own menus, which are separate from the office's."""
import unittest

from designer_test import DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import Atspi, click, find, key, middle, point_at, wait_for

MENUS = ['Template', 'Structure', 'Fields', 'Records', 'Mergeloom']
OFFICE_MENUS = {"File", "Edit", "View", "Insert", "Format", "Styles", "Table", "Form", "Tools", "Window", "Help"}


class Menus(DesignerTest):
    def box_of(self, role, name):
        return self.designer.element(role, name).get_extents(Atspi.CoordType.SCREEN)

    def test_they_are_over_the_tree_and_none_is_the_offices(self):
        designer = self.start()
        bar = wait_for("the menus", lambda: next(iter(find(designer.window(), "menu bar")), None))
        names = [entry.get_name() for entry in find(bar, "menu item")]
        self.picture("menus")
        self.assertEqual(names, MENUS)
        self.assertFalse(OFFICE_MENUS.intersection(names))
        document = self.box_of("filler", "Document")
        for name in names:
            entry = self.box_of("menu item", name)
            self.assertLessEqual(entry.x + entry.width, document.x, name)
            self.assertLess(abs(entry.y - document.y), entry.height, name)

    def test_they_open_by_key_wherever_the_mouse_rests(self):
        designer = self.start()
        click(designer.node("Customer"))
        point_at(designer.document())
        for keys, entry in (("alt+m", "Save As…"), ("alt+t", "Load XML…"), ("alt+f", "Insert Node"),
                            ("alt+g", "Help Index"), ("F10", "Save As…")):
            with self.subTest(keys=keys):
                designer.wait_until_active()
                key(keys)
                place = middle(designer.element("menu item", entry))
                self.assertGreater(place[0], 0)
                key("Escape")
                wait_for("the closed menu", lambda: not find(designer.application, "menu item", entry))
                key("Escape")


if __name__ == "__main__":
    unittest.main()
