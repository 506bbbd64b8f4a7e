"""Interrupts saves of the window. Afterwards the file must be the former one or the new one, and complete.

A library that is preloaded into the program and its offices kills a process before one of its file operations, or makes
the operation fail as a full disk does.
"""
import io
import os
import signal
import unittest
import zipfile
from pathlib import Path

import docx
import openpyxl

import read_docx
import read_xlsx
from designer_test import DESIGNER, PROGRAM, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import PATIENCE, Designer, key, wait_for

LIBRARY = PROGRAM.parent / "test_interrupted_save.so"
SAVED = "Saved; "


def entries(package):
    """Returns the content of each entry of a package by its name."""
    with zipfile.ZipFile(io.BytesIO(package)) as archive:
        return {name: archive.read(name) for name in archive.namelist()}


class InterruptedTest(DesignerTest):
    FILE = ""

    def setUp(self):
        super().setUp()
        self.fault = self.folder / "fault"
        self.files = self.folder / "files"
        self.files.mkdir()
        self.path = self.files / self.FILE
        self.write_original()
        self.original = self.path.read_bytes()
        for name, value in {"LD_PRELOAD": LIBRARY, "MERGELOOM_TEST_FAULT": self.fault}.items():
            os.environ[name] = str(value)
            self.addCleanup(os.environ.pop, name)

    def let(self, who, call, effect):
        self.fault.write_text(f"{who} {call} {self.files} {effect}\n")

    def heal(self):
        self.fault.unlink()

    def open_and_change(self):
        """Opens the file and drops a field."""
        self.path.write_bytes(self.original)
        designer = self.start("-template", self.path)
        wait_for("the file", lambda: designer.title() == self.FILE)
        self.drop("Customer")
        return designer

    def press_save(self):
        self.designer.wait_until_active()
        key("ctrl+s")

    def wait_until_saved(self):
        wait_for("the end of the save", lambda: self.designer.status().startswith(SAVED))

    def saved_bytes(self):
        """Returns the bytes of the file after a save without an interruption."""
        self.open_and_change()
        self.press_save()
        self.wait_until_saved()
        self.designer.close()
        return self.path.read_bytes()

    def check_saved(self, saved):
        """Compares the entries first, since their difference is easier to read."""
        self.assertEqual(entries(self.path.read_bytes()), entries(saved))
        self.assertEqual(self.path.read_bytes(), saved)

    def leftovers(self):
        return sorted(name.name for name in self.files.iterdir() if name != self.path)

    def check_killed_program(self):
        saved = self.saved_bytes()
        for call in ("open", "write", "fsync", "rename"):
            designer = self.open_and_change()
            self.let("program", call, "kill")
            self.press_save()
            self.assertEqual(designer.process.wait(PATIENCE), -signal.SIGKILL, call)
            self.assertEqual(self.path.read_bytes(), self.original, call)
            self.heal()
            designer.close()
            self.check_opens_again(saved)

    def check_opens_again(self, saved):
        """Opens and saves the file again, which the remains of a killed program must not prevent."""
        self.open_and_change()
        self.press_save()
        self.wait_until_saved()
        self.designer.close()
        self.check_saved(saved)

    def check_killed_offices(self):
        saved = self.saved_bytes()
        designer = self.open_and_change()
        self.let("shown", "write", "kill")
        self.press_save()
        wait_for("the end of the office", lambda: "ended unexpectedly" in designer.texts_of(designer.window()))
        self.assertEqual(self.path.read_bytes(), self.original)
        self.heal()
        designer.close()

        designer = self.open_and_change()
        self.let("hidden", "write", "kill")
        self.press_save()
        self.wait_for_loss_question()
        self.assertEqual(self.path.read_bytes(), self.original)
        key("Escape")
        wait_for("the end of the question", lambda: not designer.has_dialog())
        self.heal()
        self.press_save()
        self.wait_until_saved()
        self.check_saved(saved)
        self.assertEqual(self.leftovers(), [f".~lock.{self.FILE}#"])

    def check_full_disk(self):
        saved = self.saved_bytes()
        designer = self.open_and_change()
        for who in ("program", "shown", "hidden"):
            for call in ("open", "write", "fsync") if who == "program" else ("write",):
                self.let(who, call, "full")
                self.press_save()
                box = designer.dialog()
                self.assertEqual(self.path.read_bytes(), self.original, call)
                self.assertIn(self.FILE, designer.texts_of(box))
                key("Escape")
                wait_for("the end of the message", lambda: not designer.has_dialog())
                self.assertEqual(self.leftovers(), [f".~lock.{self.FILE}#"])
        self.heal()
        self.press_save()
        self.wait_until_saved()
        self.check_saved(saved)


class KilledProcesses:
    """Tests that do not depend on the kind of document."""

    def test_a_killed_program_leaves_the_file_whole(self):
        self.check_killed_program()

    def test_a_killed_office_leaves_the_file_whole(self):
        self.check_killed_offices()


class InWord(KilledProcesses, InterruptedTest):
    FILE = "letter.docx"

    def write_original(self):
        document = docx.Document()
        document.add_paragraph("Dear customer")
        document.save(self.path)

    def test_a_full_disk_leaves_the_file_whole(self):
        self.check_full_disk()
        self.assertIn("CustomerID", [place["name"] for place in read_docx.read_bookmarks(self.path)[0]])


class InExcel(KilledProcesses, InterruptedTest):
    FILE = "book.xlsx"
    SWITCHES = ["-excel"]

    def write_original(self):
        workbook = openpyxl.Workbook()
        workbook.active["D9"] = "kept"
        workbook.save(self.path)

    def test_a_full_disk_leaves_the_file_whole(self):
        self.check_full_disk()
        self.assertIn("ammCustomerID", read_xlsx.read_names(self.path))


if __name__ == "__main__":
    unittest.main()
