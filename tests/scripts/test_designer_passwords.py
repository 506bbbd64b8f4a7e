"""Tests files with a password in the window: the dialog, saved files, and copies."""
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import openpyxl

from designer_test import DESIGNER, SAMPLE, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import Atspi, Designer, document_has_keyboard, find, key, type_text, wait_for

HELPER = Path(__file__).with_name("protected_files.py")
PASSWORD = "Geheim-1"
TEXT = "Dear customer"


def files(*arguments):
    return subprocess.run([sys.executable, str(HELPER), *map(str, arguments)], check=False).returncode


class PasswordTest(DesignerTest):
    def make(self, *names):
        paths = [self.folder / name for name in names]
        self.assertEqual(files("write", PASSWORD, TEXT, *paths), 0)
        return paths

    def opened(self, path, password=PASSWORD):
        """Returns the path of a decrypted copy of the file, or none if the password does not open it."""
        copy = self.folder / f"plain-{path.name}"
        ended = files("read", password, path, copy)
        self.assertIn(ended, (0, 3))
        return copy if ended == 0 else None

    def begin_opening(self, path):
        self.designer.wait_until_active()
        key("ctrl+o")
        self.designer.answer_file_dialog(path)

    def password_box(self, sentence):
        """Waits for the question with the sentence."""
        def asked():
            for box in find(self.designer.application, "dialog"):
                if box.get_name() == "Password" and sentence in self.designer.texts_of(box):
                    return box
            return None
        return wait_for(f"the question: {sentence}", asked)

    def enter(self, password, sentence):
        box = self.password_box(sentence)
        field = wait_for("the password's field", lambda: next(iter(find(box, "password text")), None))
        wait_for("the focus", lambda: field.get_state_set().contains(Atspi.StateType.FOCUSED))
        type_text(password)
        self.assertNotIn(password, Atspi.Text.get_text(field, 0, -1))
        self.picture(f"password-{password}")
        key("Return")

    def open_with_password(self, path):
        self.begin_opening(path)
        self.enter("wrong", f"“{path.name}” is protected by a password.")
        self.enter(PASSWORD, f"This is not the password of “{path.name}”.")
        wait_for("the document", lambda: self.designer.title() == path.name and not self.designer.has_dialog())
        # The document gets the keyboard at the end of the command.
        wait_for("the keyboard in the document", document_has_keyboard)

    def save(self):
        self.designer.wait_until_active()
        key("ctrl+s")
        wait_for("the saved file", lambda: re.search("^Saved|was saved", self.designer.status()))


class InWord(PasswordTest):
    def test_a_letter_stays_protected_and_keeps_what_was_dropped(self):
        [letter] = self.make("letter.docx")
        self.start()
        self.open_with_password(letter)
        self.drop("Customer")
        self.save()
        self.assertIn("parts unchanged", self.designer.status())
        self.assertIsNone(self.opened(letter, ""))
        self.assertIsNone(self.opened(letter, "wrong"))
        self.assertEqual(self.names(self.opened(letter)), ["CustomerID"])
        self.drop("Priority")
        other = self.save_as("other.odt")
        self.assertIsNone(self.opened(other, ""))
        self.assertIsNotNone(self.opened(other))

    def test_cancel_leaves_the_former_document(self):
        [letter] = self.make("letter.docx")
        self.start()
        former = self.save_as("former.docx")
        self.begin_opening(letter)
        self.password_box("“letter.docx” is protected by a password.")
        key("Escape")
        wait_for("the end of the question", lambda: not self.designer.has_dialog())
        self.assertEqual(self.designer.title(), "former.docx")
        self.drop("Customer")
        self.save()
        self.assertEqual(self.names(former), ["CustomerID"])


class InExcel(PasswordTest):
    SWITCHES = ["-Excel"]

    def test_workbooks_stay_protected(self):
        for book in self.make("book.xlsx", "book.xls"):
            with self.subTest(book.name):
                self.start()
                self.open_with_password(book)
                self.drop("Customer")
                self.save()
                self.assertIsNone(self.opened(book, ""))
                copy = self.opened(book)
                self.assertIsNotNone(copy)
                if book.suffix == ".xlsx":
                    self.assertIn("ammCustomerID", openpyxl.load_workbook(copy).defined_names)
                self.designer.close()


class Kept(PasswordTest):
    def test_no_file_beside_the_letter_shows_its_content(self):
        """A copy of a protected letter is protected, and its password is requested when it is opened again."""
        home = Path(tempfile.mkdtemp(prefix="designer-"))
        settings = home / "config" / "mergeloom" / "designer.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text("[kept]\nseconds=1\n")
        [letter] = self.make("letter.odt")
        self.designer = Designer(DESIGNER, ["-xmlfile", SAMPLE], home=home)
        self.addCleanup(self.designer.close)
        self.designer.wait_until_ready()
        self.open_with_password(letter)
        self.drop("Customer")

        def kept():
            return next((path for path in home.glob("state/mergeloom/kept/*.odt") if path.stat().st_size), None)
        copy = wait_for("the kept copy", kept)
        self.assertIsNone(self.opened(copy, ""))
        for path in home.rglob("*"):
            if path.is_file() and not path.is_symlink():
                self.assertNotIn(PASSWORD.encode(), path.read_bytes(), path)
        self.designer.process.kill()
        self.designer.process.wait()
        self.designer = Designer(DESIGNER, ["-xmlfile", SAMPLE], home=home)
        self.addCleanup(self.designer.close)
        self.designer.press("Yes", self.designer.dialog())
        self.enter(PASSWORD, "“letter.odt” is protected by a password.")
        self.designer.wait_until_ready()
        self.assertEqual(self.designer.title(), "letter.odt")
        self.save()
        self.assertIsNone(self.opened(letter, ""))
        self.assertIsNotNone(self.opened(letter))


class Modify(PasswordTest):
    def test_a_letter_that_needs_a_password_to_change_is_only_read(self):
        letter = self.folder / "form.odt"
        self.assertEqual(files("modify", TEXT, letter), 0)
        self.start()
        self.begin_opening(letter)
        def told():
            boxes = find(self.designer.application, "alert") + find(self.designer.application, "dialog")
            return next((box for box in boxes if "protected against changes" in self.designer.texts_of(box)), None)
        wait_for("the message", told)
        key("Return")
        wait_for("the letter", lambda: self.designer.title() == "form.odt (read-only)")


if __name__ == "__main__":
    unittest.main()
