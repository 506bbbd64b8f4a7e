"""Ends the office and the window as a crash does, and looks for the unsaved work in the next ones."""
import os
import re
import signal
import tempfile
import unittest
import zipfile
from pathlib import Path

from designer_test import DESIGNER, SAMPLE, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import PATIENCE, Designer, find, key, type_text, wait_for

QUESTION = "was not saved when it was last open"


class KeptTest(DesignerTest):
    SECONDS = 1

    def setUp(self):
        super().setUp()
        self.home = Path(tempfile.mkdtemp(prefix="designer-"))
        settings = self.home / "config" / "mergeloom" / "designer.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text(f"[kept]\nseconds={self.SECONDS}\n")

    def begin(self, *switches):
        self.designer = Designer(DESIGNER, [*self.SWITCHES, *switches], home=self.home)
        self.addCleanup(self.designer.close)
        return self.designer

    def start_in_home(self):
        self.begin("-xmlfile", SAMPLE).wait_until_ready()
        return self.designer

    def copies(self):
        return [path for path in self.home.glob("state/mergeloom/kept/*.od?")]

    def wait_for_copy(self, *texts):
        """Waits for the copy that has the texts."""
        def has_them():
            for path in self.copies():
                if not path.stat().st_size:
                    continue
                with zipfile.ZipFile(path) as package:
                    content = package.read("content.xml").decode()
                # A copy that was made in the middle of a word divides it.
                content += re.sub("<[^>]*>", "", content)
                if all(text in content for text in texts):
                    return path
            return None
        return wait_for(f"the copy with {texts}", has_them)

    def answer(self, button):
        box = self.designer.dialog()
        self.assertIn(QUESTION, self.designer.texts_of(box))
        self.picture(f"kept-{button}")
        self.designer.press(button, box)

    def kill_window(self):
        os.kill(self.designer.process.pid, signal.SIGKILL)
        self.designer.process.wait()


class InWord(KeptTest):
    def test_what_a_dead_office_had_comes_back(self):
        designer = self.start_in_home()
        self.drop("Customer")
        letter = self.save_as("letter.docx")
        wait_for("the end of the copy", lambda: not self.copies())
        self.drop("Priority")
        self.wait_for_copy("Priority")
        os.kill(designer.office_process(), signal.SIGKILL)
        designer.press("Start again")
        self.assertEqual(self.names(letter), ["CustomerID"])
        box = designer.dialog()
        self.assertIn(f"“letter.docx” {QUESTION}", designer.texts_of(box))
        self.answer("Yes")
        designer.wait_until_ready()
        self.assertEqual(designer.title(), "letter.docx")
        self.cancel_closing()
        designer.wait_until_active()
        key("ctrl+s")
        wait_for("the saved letter", lambda: "“letter.docx” was saved" in designer.status())
        self.assertCountEqual(self.names(letter), ["CustomerID", "Priority"])
        self.assertEqual(self.copies(), [])

    def test_a_window_that_is_killed_leaves_its_work_to_the_next(self):
        self.start_in_home()
        self.enter_document()
        type_text("precious")
        self.wait_for_copy("precious")
        self.kill_window()

        self.begin()
        self.answer("Cancel")
        self.designer.wait_until_ready()
        self.assertEqual(self.designer.title(), "New Template")
        self.kill_window()

        self.begin()
        self.answer("Yes")
        self.designer.wait_until_ready()
        self.enter_document()
        type_text("more")
        self.wait_for_copy("precious", "more")
        self.assertEqual(len(self.copies()), 1)
        self.kill_window()

        self.begin()
        self.answer("No")
        self.designer.wait_until_ready()
        self.assertEqual(self.copies(), [])
        self.designer.wait_until_active()
        key("ctrl+q")
        self.assertEqual(self.designer.process.wait(PATIENCE), 0)

    def test_two_windows_keep_a_copy_each(self):
        first = self.start_in_home()
        self.drop("Customer")
        self.wait_for_copy("CustomerID")
        second = Designer(DESIGNER, [], home=self.home)
        self.addCleanup(second.close)
        second.wait_until_ready()
        self.assertEqual(find(second.application, "alert"), [], "the copy belongs to the other window")
        self.assertIsNone(first.process.poll())


class InExcel(KeptTest):
    SWITCHES = ["-excel"]
    SECONDS = 4

    def test_typing_goes_on_while_a_copy_is_made(self):
        designer = self.start_in_home()
        self.drop("Customer")
        left, top = designer.document()
        self.enter_document((left, top + 80))
        type_text("some")
        self.wait_for_copy("CustomerID")
        type_text("thing")
        key("Return")
        self.assertIn("something", self.export("book.csv").read_text())
        self.kill_window()
        self.begin()
        self.answer("Yes")
        self.designer.wait_until_ready()
        self.assertIn("CustomerID", self.export("again.csv").read_text())


if __name__ == "__main__":
    unittest.main()
