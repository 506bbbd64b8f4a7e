"""Looks at the pixels of the hosted document: after the start, and after the window was minimized."""
import os
import shutil
import unittest
from unittest import mock

from designer_test import PROGRAM, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import minimize, restore, share_of_color, wait_for
from shaded_letter import SHADE, write_shaded_letter

SMALLEST_SHARE = 0.2
MISSED_MOVE = PROGRAM.parent / "test_missed_move.so"


class PixelsTest(DesignerTest):
    def start_with_letter(self):
        letter = self.folder / "letter.docx"
        write_shaded_letter(letter)
        self.start("-template", letter)
        self.box = self.designer.document_box()

    def share(self):
        return share_of_color(self.box, SHADE)

    def wait_for_letter(self):
        wait_for("the letter's color", lambda: self.share() > SMALLEST_SHARE)

    def test_a_minimized_document_is_painted_again(self):
        self.start_with_letter()
        self.wait_for_letter()
        self.designer.wait_until_active()
        minimize()
        wait_for("the minimized window to go", lambda: self.share() == 0)
        restore()
        self.wait_for_letter()

    def test_an_office_that_missed_its_move_paints_all_the_same(self):
        office = os.environ.get("MERGELOOM_SOFFICE") or shutil.which("soffice")
        program = self.folder / "soffice"
        program.write_text(f'#!/bin/sh\nLD_PRELOAD="{MISSED_MOVE}" exec "{office}" "$@"\n')
        program.chmod(0o755)
        with mock.patch.dict(os.environ, MERGELOOM_SOFFICE=str(program)):
            self.start_with_letter()
        self.wait_for_letter()


if __name__ == "__main__":
    unittest.main()
