"""Looks at the pixels of the hosted document: after the start, and after the window was minimized."""
import os
import shutil
import tempfile
import unittest
from pathlib import Path
from unittest import mock

from gi.repository import Gio, GLib

from designer_test import PROGRAM, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import (
    document_has_keyboard, key, minimize, pixels, restore, share_of_color, type_text, wait_for,
)
from shaded_letter import SHADE, write_shaded_letter

SMALLEST_SHARE = 0.2
MISSED_MOVE = PROGRAM.parent / "test_missed_move.so"


# A desktop's palette, in the file from which the toolkit reads it.
DARK = (42, 46, 50)
LIGHT = (239, 240, 241)
# The color of a sheet's row headings, which LibreOffice 25.2 sets off from its bars: on each color of windows 20 steps
# towards grey. Earlier versions have the headings in the color of windows.
HEADINGS = {DARK: (62, 66, 70), LIGHT: (219, 220, 221)}
PALETTE = """[Colors:Window]
BackgroundNormal={window}
ForegroundNormal={text}
[Colors:View]
BackgroundNormal={base}
ForegroundNormal={text}
[Colors:Button]
BackgroundNormal={button}
ForegroundNormal={text}
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
"""


def palette(color):
    """Returns the desktop's palette with this color of windows."""
    window = ",".join(map(str, color))
    if color == DARK:
        return PALETTE.format(window=window, text="252,252,252", base="27,30,32", button="49,54,59")
    return PALETTE.format(window=window, text="35,38,41", base="252,252,252", button="252,252,252")


DESKTOP = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5", "KDE_FULL_SESSION": "true"}


class LookTest(DesignerTest):
    def start_on_desktop(self, *switches, color=DARK, **environment):
        home = Path(tempfile.mkdtemp(prefix="designer-"))
        (home / "config").mkdir()
        (home / "config" / "kdeglobals").write_text(palette(color))
        with mock.patch.dict(os.environ, DESKTOP | environment):
            self.designer = self.start_another(*switches, home=home)
        self.designer.wait_until_ready()

    def change_palette(self, color):
        """Changes the desktop's palette as its settings do, which tell programs by a signal."""
        (self.designer.home / "config" / "kdeglobals").write_text(palette(color))
        setting = GLib.Variant("(ssv)", ("org.kde.kdeglobals.General", "ColorScheme", GLib.Variant("s", str(color))))
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        bus.emit_signal(None, "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged",
                        setting)
        bus.flush_sync()

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

    def share_of_edge(self, color):
        """Returns the share of the edge in the color of windows, or of headings beside this color."""
        colors = self.edge(1)
        return (colors.count(color) + colors.count(HEADINGS[color])) / len(colors)

    def tree_color(self):
        """Returns the color beside the buttons over the tree."""
        x, y, width, height = self.designer.document_box()
        return tuple(pixels(x - 6, y + height // 2, 1, 1))

    def test_colors_change_with_the_desktop_while_the_document_is_edited(self):
        # An unfinished entry is in the cell afterwards.
        for switches, between, result in (((), "space", "Typed on"), (("-excel",), "Return", "Typed,,,\non,,,\n")):
            with self.subTest(switches=switches):
                self.start_on_desktop(*switches, color=LIGHT)
                self.drop("Customer")
                self.enter_document()
                key("ctrl+Home")
                type_text("Typed")
                self.change_palette(DARK)
                wait_for("the dark window", lambda: self.tree_color() == DARK)
                wait_for("the dark office", lambda: self.share_of_edge(DARK) > 0.8 and self.edge(1)[-8] == DARK)
                self.picture("changed-to-dark")
                # The keyboard, the text and the steps of Undo are still there.
                wait_for("the keyboard in the document", document_has_keyboard)
                key(between)
                type_text("on")
                key("Return")
                self.drop("Priority")
                self.enter_document()
                key("ctrl+z")
                self.change_palette(LIGHT)
                wait_for("the light office", lambda: self.share_of_edge(LIGHT) > 0.8)
                texts = self.export("texts.txt" if not switches else "texts.csv").read_text()
                self.assertIn(result, texts)
                self.assertNotIn("Priority", texts)
                self.assertIn("CustomerID", texts)
                self.designer.close()


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
