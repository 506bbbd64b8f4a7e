"""Shares a screen per test program and a window per test between the tests of the designer.

MERGELOOM names the unattended program, in whose folder the designer is; MERGELOOM_ROOT the folder of the sources. With
MERGELOOM_PICTURES, that folder gets a picture of each scene.
"""
import os
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

import read_docx
from designer_window import (
    Designer, Screen, click, document_has_keyboard, drag, find, has_focus, key, screenshot, wait_for,
)

PROGRAM = Path(os.environ["MERGELOOM"])
DESIGNER = str(PROGRAM.parent / "mergeloom-designer")
ROOT = Path(os.environ["MERGELOOM_ROOT"])
SAMPLE = ROOT / "samples" / "orders.xml"
PICTURES = os.environ.get("MERGELOOM_PICTURES")

SCREEN = None


def setUpModule():
    global SCREEN
    SCREEN = Screen()


def tearDownModule():
    SCREEN.close()


class DesignerTest(unittest.TestCase):
    """A test with one window and a folder of its own for saved files."""

    SWITCHES = []

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="designed-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.designer = None

    def start(self, *switches, structure=SAMPLE):
        self.designer = Designer(DESIGNER, ["-xmlfile", structure, *self.SWITCHES, *switches])
        self.addCleanup(self.designer.close)
        self.designer.wait_until_ready()
        return self.designer

    def start_another(self, *switches, structure=SAMPLE, home=None):
        """Starts a further window, which may begin with a question."""
        other = Designer(DESIGNER, [*(["-xmlfile", structure] if structure else []), *switches], home=home)
        self.addCleanup(other.close)
        return other

    def enter_document(self, place=None):
        """Clicks until the document has the keyboard: a click may be lost while the window is being activated."""
        def is_entered():
            click(place or self.designer.document())
            time.sleep(0.5)
            return document_has_keyboard()
        self.designer.wait_until_active()
        wait_for("the focus in the document", is_entered)

    def picture(self, name):
        if PICTURES:
            time.sleep(0.5)
            screenshot(Path(PICTURES) / f"{name}.png")

    def drop(self, node, place=None):
        """Drags a node into the document and waits until it is inserted."""
        drag(self.designer.node(node), place or self.designer.document())
        self.wait_for_insertion(node)

    def wait_for_insertion(self, node):
        try:
            wait_for(f"the insertion of {node}", lambda: f"“{node}” was inserted" in self.designer.status())
        except AssertionError as error:
            raise AssertionError(f"{error}; the status line says: {self.designer.status()}") from None

    def wait_for_loss_question(self):
        def is_asked():
            boxes = find(self.designer.application, "alert") + find(self.designer.application, "dialog")
            return any("cannot be repeated" in self.designer.texts_of(box) for box in boxes)
        wait_for("the question about losses", is_asked)

    def save_as(self, name, accepts_loss=False):
        """Saves under a name. Answers the question about losses if they are accepted."""
        path = self.folder / name
        self.designer.wait_until_active()
        key("ctrl+shift+s")
        self.designer.answer_file_dialog(path)
        if accepts_loss:
            self.wait_for_loss_question()
            self.assertFalse(path.exists())
            key("alt+y")
        wait_for(f"the file {path}", path.exists)
        wait_for("the end of saving", lambda: self.designer.title() == name and not self.designer.has_dialog())
        self.designer.wait_until_active()
        return path

    def export(self, name):
        """Saves under a name whose format is an export and returns the path."""
        path = self.folder / name
        title = self.designer.title()
        self.designer.wait_until_active()
        key("ctrl+shift+s")
        self.designer.answer_file_dialog(path)
        wait_for(f"the copy {path}", lambda: f"“{name}” was written as a copy" in self.designer.status())
        self.assertEqual(self.designer.title(), title)
        self.designer.wait_until_active()
        return path

    def wait_for_focus(self, role, name):
        wait_for(f"the focus in {name}", lambda: has_focus(self.designer.element(role, name)))

    def cancel_closing(self):
        """Asks the window to close, which has unsaved changes."""
        key("ctrl+q")
        box = self.designer.dialog()
        self.assertIn("Do you want to save changes to ", self.designer.texts_of(box))
        self.designer.press("Cancel", box)

    def names(self, path):
        """Returns the bookmarks of a Word document. Fails for a document with errors."""
        found, problems = read_docx.read_bookmarks(path)
        self.assertEqual(problems, [])
        return [place["name"] for place in found]

    def mapped_names(self):
        """Returns the bookmarks of an unattended run."""
        mapped = self.folder / "mapped.docx"
        subprocess.run([PROGRAM, "-hidden", "-xmlfile", SAMPLE, "-template", mapped], check=True)
        return self.names(mapped)
