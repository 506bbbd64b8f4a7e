"""Tests the preview of the finished letter, which is the template filled with the structure document's records."""
import unittest

import read_docx
import read_xlsx
from designer_test import SAMPLE, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import (
    Atspi, click, document_has_keyboard, drag, find, has_focus, key, middle, point_at, type_text, wait_for,
)

ORDER = '<Record><Control Name="CustomerID"><DisplayValue>{}</DisplayValue></Control></Record>'
COPIED = "copied"
REFUSED = "Nothing was inserted. Press F5 to return from the preview to the template first."


class PreviewTest(DesignerTest):
    def structure_with(self, *customers):
        """Returns the sample's structure with an order of each of these customers."""
        text = SAMPLE.read_text(encoding="utf-8")
        records = "".join(map(ORDER.format, customers))
        data = f"<Data><Records>{records}</Records></Data>" if customers else ""
        path = self.folder / "orders.xml"
        path.write_text(text[:text.index("<Data>")] + data + text[text.index("</Data>") + len("</Data>"):],
                        encoding="utf-8")
        return path

    def wait_for_status(self, text):
        wait_for(f"the status {text}", lambda: self.designer.status().startswith(text))

    def press(self, name, status):
        """Presses a key in the document and waits until the status line begins with the text."""
        wait_for("the keyboard in the document", document_has_keyboard)
        key(name)
        self.wait_for_status(status)

    def shown_text(self):
        """Returns the text that is selected in the document, which it copies into the search box. A blank follows
        a place at the end. Leaves a mark in the clipboard, since a busy office copies late."""
        key("ctrl+c")
        box = find(self.designer.application, "text")[0]
        click(middle(box))
        wait_for("the focus in the search", lambda: has_focus(box) and not document_has_keyboard())

        def pasted():
            key("ctrl+a", "ctrl+v")
            text = Atspi.Text.get_text(box, 0, -1)
            return text if text != COPIED else None
        text = wait_for("the text", pasted)
        key("ctrl+a")
        type_text(COPIED)
        key("ctrl+a", "ctrl+x")
        wait_for("the empty box", lambda: not Atspi.Text.get_text(box, 0, -1))
        self.enter_document()
        return text.strip()

    def texts_of_records(self, *keys):
        """Goes to records by the keys, and returns the text of each."""
        texts = []
        for name, status in keys:
            self.press(name, status)
            key("ctrl+a")
            texts.append(self.shown_text())
        return texts

    def undo_until(self, condition):
        """Undoes steps until the window is as expected. The lists are updated when the mouse returns."""
        def is_undone():
            wait_for("the keyboard in the document", document_has_keyboard)
            key("ctrl+z")
            point_at(self.designer.document())
            point_at(self.designer.node("Letterhead"))
            return condition()
        wait_for("the end of the steps", is_undone)

    def is_changed(self):
        return self.designer.full_title().startswith("*")


class InWord(PreviewTest):
    def test_the_records_are_shown_and_the_template_comes_back(self):
        designer = self.start(structure=self.structure_with("Ada", "Bert"))
        self.drop("Customer")
        path = self.save_as("letter.docx")
        saved = path.read_bytes()
        self.enter_document()
        key("ctrl+Home")
        type_text("Dear ")
        wait_for("the mark of changes", self.is_changed)

        self.press("F5", "Record 1 of 2")
        self.picture("preview")
        texts = self.texts_of_records(("alt+Left", "Record 1 of 2"), ("alt+Right", "Record 2 of 2"),
                                      ("alt+Right", "Record 2 of 2"), ("alt+Left", "Record 1 of 2"))
        self.assertEqual(texts, ["Dear Ada", "Dear Bert", "Dear Bert", "Dear Ada"])
        type_text("no change")
        self.assertEqual(self.texts_of_records(("alt+Left", "Record 1 of 2")), ["Dear Ada"])

        drag(designer.node("Priority"), designer.document())
        self.wait_for_status(REFUSED)
        designer.select("Priority")
        key("Insert")
        self.wait_for_status(REFUSED)
        self.enter_document()
        self.press("F5", "Drag a field")
        self.assertTrue(self.is_changed())
        self.assertEqual(path.read_bytes(), saved)
        self.assertEqual(self.texts_of_records(("ctrl+a", "Drag a field")), ["Dear CustomerID"])
        self.undo_until(lambda: not find(designer.application, "list item"))

    def test_a_command_ends_the_preview_first(self):
        designer = self.start(structure=self.structure_with("Ada"))
        self.drop("Customer")
        path = self.save_as("letter.docx")
        self.enter_document()
        key("ctrl+Home")
        type_text("Dear ")
        self.press("F5", "Record 1 of 1")
        key("ctrl+s")
        wait_for("the end of saving", lambda: "was saved" in designer.status())
        self.assertEqual(read_docx.read_paragraphs(path)[0].strip(), "Dear CustomerID")
        self.press("F5", "Record 1 of 1")
        key("ctrl+w")
        self.wait_for_status("Drag a field")
        self.press("F5", "Record 1 of 1")
        key("ctrl+q")
        self.wait_for_status("Drag a field")

    def test_without_records_the_captions_are_shown(self):
        self.start(structure=self.structure_with())
        self.enter_document()
        key("F5")
        box = self.designer.dialog()
        self.assertIn("The template has no place that a field of the structure document fills.",
                      self.designer.texts_of(box))
        key("Return")
        self.designer.wait_until_active()
        self.drop("Customer")
        self.enter_document()
        texts = self.texts_of_records(("F5", "Sample values: the structure document has no records"))
        self.assertEqual(texts, ["Customer"])


class InExcel(PreviewTest):
    SWITCHES = ["-excel"]

    def test_the_records_are_shown_and_the_template_comes_back(self):
        designer = self.start(structure=self.structure_with("Ada", "Bert"))
        left, top = designer.document()
        self.drop("Customer", (left, top))
        path = self.save_as("book.xlsx")
        saved = path.read_bytes()
        click((left, top + 60))
        type_text("more")
        self.press("F5", "Record 1 of 2")
        self.picture("preview-excel")
        texts = self.texts_of_records(("alt+Right", "Record 2 of 2"), ("alt+Left", "Record 1 of 2"))
        self.assertIn("Bert", texts[0])
        self.assertIn("Ada", texts[1])
        self.assertIn("more", texts[1])
        self.press("F5", "Drag a field")
        self.assertTrue(self.is_changed())
        self.assertEqual(path.read_bytes(), saved)
        self.assertEqual(list(read_xlsx.read_names(self.save_as("again.xlsx"))), ["ammCustomerID"])
        self.enter_document()
        self.undo_until(lambda: not find(designer.application, "list item"))


if __name__ == "__main__":
    unittest.main()
