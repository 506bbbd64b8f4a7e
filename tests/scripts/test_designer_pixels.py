"""Looks at the pixels of the hosted document: after the start, and after the window was minimized."""
import os
import shutil
import tempfile
import unittest
from pathlib import Path
from unittest import mock

from designer_test import PROGRAM, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import minimize, pixels, restore, share_of_color, wait_for
from shaded_letter import SHADE, write_shaded_letter

SMALLEST_SHARE = 0.2
MISSED_MOVE = PROGRAM.parent / "test_missed_move.so"


# A desktop's palette, in the file from which the toolkit reads it.
DARK = (42, 46, 50)
PALETTE = """[Colors:Window]
BackgroundNormal={0},{1},{2}
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
ForegroundNormal=252,252,252
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
""".format(*DARK)
DESKTOP = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5", "KDE_FULL_SESSION": "true"}


class LookTest(DesignerTest):
    def start_on_desktop(self, **environment):
        home = Path(tempfile.mkdtemp(prefix="designer-"))
        (home / "config").mkdir()
        (home / "config" / "kdeglobals").write_text(PALETTE)
        with mock.patch.dict(os.environ, DESKTOP | environment):
            self.designer = self.start_another(home=home)
        self.designer.wait_until_ready()

    def edge(self, factor):
        """Returns the colors at the left edge of the pane, from the top down. The office's menu bar is at the top."""
        left, top, _, height = (factor * length for length in self.designer.document_box())
        column = pixels(left + 2, top, 1, height)
        return [tuple(column[index:index + 3]) for index in range(0, len(column), 3)]

    def menu_height(self, factor):
        """Returns the height above the first dark bar once most of the edge is dark."""
        colors = self.edge(factor)
        return colors.count(DARK) > 0.8 * len(colors) and colors.index(DARK)

    def test_colors_and_sizes_follow_the_desktop(self):
        heights = []
        for factor in (1, 2):
            self.start_on_desktop(QT_SCALE_FACTOR=str(factor))
            self.picture(f"dark-{factor}")
            heights.append(wait_for("the dark edge", lambda: self.menu_height(factor)))
            wait_for("the dark status bar", lambda: self.edge(factor)[-8 * factor] == DARK)
            self.designer.close()
        self.assertGreater(heights[1], 1.5 * heights[0])


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
