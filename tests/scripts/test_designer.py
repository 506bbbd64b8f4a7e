"""Drives the designer's real window with mouse and keys and reads what it saved with programs of other makers.
"""
import itertools
import os
import re
import shlex
import shutil
import signal
import subprocess
import time
import unittest

import docx
from gi.repository import GLib

import designer_test
import merge_fields
import read_docx
import read_xlsx
from designer_test import DESIGNER, PROGRAM, ROOT, SAMPLE, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import (
    BUTTON, PATIENCE, SCREEN_HEIGHT, SCREEN_WIDTH, Designer, active_window, click, document_has_keyboard,
    double_click, drag, dragging, find, key, middle, pixels, places_of, point_at, resize_active_window, size_of,
    type_text, wait_for, xdotool,
)

# The color of the line that shows the place of a drop.
LINE_COLOR = (0x2f, 0x7d, 0xe1)
WHITE = (255, 255, 255)


class InWord(DesignerTest):
    def test_fields_labels_and_a_picture(self):
        designer = self.start()
        self.assertEqual(designer.title(), "New Template")
        self.drop("Customer")
        self.picture("field")
        designer.expand("Order date")
        self.drop("Label and Value")
        self.picture("label")
        self.drop("Letterhead")
        self.picture("picture")
        path = self.save_as("letter.docx")
        self.assertCountEqual(self.names(path), ["CustomerID", "OrderDate", "Letterhead"])
        self.assertIn("Order date", " ".join(read_docx.read_paragraphs(path)))

    def test_a_form_is_one_step_and_equals_the_unattended_one(self):
        designer = self.start()
        drag(designer.node('Form "Orders"'), designer.document())
        designer.press("Insert", designer.dialog("Select Fields"))
        self.wait_for_insertion('Form "Orders"')
        self.picture("form")
        dropped = self.save_as("form.docx")
        self.assertEqual(self.names(dropped), self.mapped_names())

        # The document ignores clicks while the office is still busy with the last save.
        names = (f"empty{number}.docx" for number in itertools.count())

        def is_undone():
            click(self.designer.document())
            key("ctrl+z")
            return self.names(self.save_as(next(names))) == []
        wait_for("the undone drop", is_undone)

    def test_a_table_has_the_chosen_fields(self):
        designer = self.start()
        drag(designer.node('Query "Open orders"'), designer.document())
        box = designer.dialog("Select Fields")
        self.picture("fields")
        items = find(box, "list item") + find(box, "check box") + find(box, "table cell")
        chosen = [items[0].get_name(), items[2].get_name()]
        designer.press("Unselect All", box)
        for item in (items[0], items[2]):
            click(middle(item))
            key("space")
        designer.press("Insert", box)
        self.wait_for_insertion('Query "Open orders"')
        self.picture("table")
        tables = read_docx.read_tables(self.save_as("table.docx"))
        self.assertEqual(tables[0][0], chosen)

    def test_too_many_columns_are_told_plainly(self):
        wide = self.folder / "wide.xml"
        fields = "".join(f'<Control Name="F{number}" ControlType="Textbox"/>' for number in range(64))
        wide.write_text(f'<Database><Table Name="Wide" CurrentView="2">{fields}</Table></Database>')
        designer = self.start(structure=wide)
        drag(designer.node('Table "Wide"'), designer.document())
        designer.press("Insert", designer.dialog("Select Fields"))
        box = wait_for("the message", lambda: next(iter(find(designer.application, "alert")), None))
        self.assertIn("A Word table has at most 63 columns; 64 were asked for.", designer.texts_of(box))
        self.assertEqual(find(box, BUTTON, "Problem report…"), [])
        self.picture("columns")

    def test_a_window_that_is_too_large_is_fitted_to_the_screen(self):
        first = self.start()
        self.designer.wait_until_active()
        resize_active_window(1500, 1200)
        wait_for("the large window", lambda: size_of(first.window())[0] == 1500)
        key("ctrl+q")
        first.process.wait(PATIENCE)
        again = Designer(DESIGNER, [], home=first.home)
        self.addCleanup(again.close)
        again.wait_until_ready()
        width, height = size_of(again.window())
        self.assertLess(width, SCREEN_WIDTH)
        self.assertLess(height, SCREEN_HEIGHT)

    def test_the_line_tells_the_next_step_and_what_was_done(self):
        designer = self.designer = self.start_another(structure=None)
        designer.wait_until_ready()
        step = "Load a structure document or open a database first."
        self.assertEqual(designer.status(), step)
        click(middle(designer.element("text", "Search:")))
        self.wait_for_focus("text", "Search:")
        key("ctrl+Return")
        wait_for("the reason", lambda: designer.status() == "Nothing was inserted. " + step)
        self.picture("next-step")
        key("ctrl+l")
        designer.answer_file_dialog(SAMPLE)
        wait_for("the next step", lambda: designer.status() == "Drag a field into the document, or press Insert.")
        self.drop("Customer")
        self.assertEqual(designer.status(), "“Customer” was inserted in the text, from Form \"Orders\".")

    def write_letter(self, lines, size=24):
        """Writes a letter with words under each point of its upper half."""
        path = self.folder / "letter.docx"
        letter = docx.Document()
        for _ in range(lines):
            run = letter.add_paragraph().add_run("WWWWWW " * 4)
            run.font.size = docx.shared.Pt(size)
        letter.save(path)
        return path

    def test_selected_text_becomes_the_places_text(self):
        designer = self.start("-usedocument", self.write_letter(20))
        left, top = designer.document()

        def is_selected():
            """Moves down until the point is inside a line instead of between two paragraphs."""
            nonlocal top
            top += 8
            double_click((left, top))
            time.sleep(1)  # a click that follows at once would select the sentence
            return not places_of((left - 10, top - 8, 20, 16), WHITE)
        wait_for("the selected word", is_selected)
        drag(designer.node("Customer"), (left, top))
        self.wait_for_insertion("Customer")
        self.picture("selected")
        places, _ = read_docx.read_bookmarks(self.save_as("selected.docx"))
        self.assertEqual([(place["name"], place["text"]) for place in places], [("CustomerID", "WWWWWW")])

    def test_a_line_shows_where_a_node_would_land(self):
        designer = self.start("-usedocument", self.write_letter(60))
        left, top = designer.document()

        def line_near(place):
            # A line of text may end to the left of the place.
            found = places_of((place[0] - 250, place[1] - 40, 290, 80), LINE_COLOR)
            return len({y for _, y in found}) > 8 and found
        with dragging(designer.node("Customer"), (left, top)):
            first = wait_for("the line", lambda: line_near((left, top)))
            self.picture("landing")
            point_at((left + 120, top + 80))
            second = wait_for("the line elsewhere", lambda: line_near((left + 120, top + 80)))
            self.assertFalse(set(first) & set(second))
            key("Escape")
            box = (left - 40, top - 40, 240, 240)
            wait_for("the line's end", lambda: not places_of(box, LINE_COLOR))
        self.assertEqual(self.names(self.save_as("unchanged.docx")), [])

    def test_below_the_text_a_node_lands_at_its_end(self):
        designer = self.start("-usedocument", self.write_letter(1))
        left, top, width, height = designer.document_box()
        text = wait_for("the text", lambda: places_of((left + 50, top + 120, width - 100, height // 2), (0, 0, 0)))
        start, end, below = min(x for x, _ in text), max(x for x, _ in text), max(y for _, y in text) + 80
        with dragging(designer.node("Customer"), (start + 5, below)):
            line = wait_for("the line", lambda: places_of((left, top, width, below - top), LINE_COLOR))
            self.assertGreater(min(x for x, _ in line), end - 5)
        self.wait_for_insertion("Customer")
        places, _ = read_docx.read_bookmarks(self.save_as("below.docx"))
        self.assertEqual([place["text"] for place in places], ["CustomerID"])

    def test_special_places_and_refused_drags(self):
        designer = self.start()
        drag(designer.node("Special"), designer.document())
        drag(designer.node("Customer"), designer.node("Priority"))
        designer.expand("Special")
        self.drop("Optional Space")
        self.picture("special")
        self.assertEqual(self.names(self.save_as("special.docx")), ["OptionalSpace0"])

    def test_unsaved_work_is_asked_about(self):
        designer = self.start()
        self.drop("Customer")
        self.cancel_closing()
        self.assertEqual(self.names(self.save_as("kept.docx")), ["CustomerID"])
        key("ctrl+q")
        self.assertEqual(designer.process.wait(PATIENCE), 0)

    def test_a_format_without_places_is_an_export(self):
        self.start()
        self.drop("Customer")
        letter = self.save_as("letter.docx")
        self.drop("Priority")
        self.assertEqual(self.export("letter.pdf").read_bytes()[:5], b"%PDF-")
        self.assertIn("Priority", self.export("letter.txt").read_text())
        self.picture("export")
        self.assertEqual(self.names(letter), ["CustomerID"])
        self.cancel_closing()
        self.designer.wait_until_active()
        key("ctrl+s")
        wait_for("the saved letter", lambda: "“letter.docx” was saved" in self.designer.status())
        self.assertCountEqual(self.names(letter), ["CustomerID", "Priority"])

    def close_with_message(self, sentence):
        box = self.designer.dialog()
        self.assertIn(sentence, self.designer.texts_of(box))
        self.designer.press("OK", box)
        wait_for("the message's end", lambda: not self.designer.has_dialog())

    def test_a_dialog_of_the_office_comes_first(self):
        designer = self.start()
        self.enter_document()
        type_text("typed")
        key("ctrl+F12")
        wait_for("the office's dialog", lambda: active_window() == "Insert Table")
        sentence = "Another Word Application has an open dialog, please close that and then retry"
        for command in ("ctrl+n", "ctrl+s", "ctrl+q"):
            click(designer.node("Customer"))
            designer.wait_until_active()
            key(command)
            designer.dialog()
            self.picture("office-dialog")
            self.close_with_message(sentence)
        drag(designer.node("Customer"), designer.corner())
        self.close_with_message(sentence)
        xdotool("search", "--name", "^Insert Table$", "windowactivate", "--sync")
        key("Escape")
        wait_for("the dialog's end", lambda: active_window() != "Insert Table")
        designer.wait_until_active()
        self.drop("Priority")
        self.assertEqual(self.names(self.save_as("closed.docx")), ["Priority"])

    def test_two_windows_do_not_write_one_file(self):
        letter, lock = self.folder / "letter.docx", self.folder / ".~lock.letter.docx#"
        docx.Document().save(letter)
        first = self.start("-usedocument", letter)
        self.assertRegex(lock.read_text(), r"^[^,]*,[^,]*,[^,]*,[^,]*,mergeloom:[0-9]+;$")

        second = self.start_another("-usedocument", letter)
        box = second.dialog()
        self.assertIn(f"Template '{letter}' is already opened.", second.texts_of(box))
        self.picture("locked")
        second.press("Yes", box)
        second.wait_until_ready()
        self.assertEqual(second.title(), "letter.docx (read-only)")
        drag(second.node("Customer"), second.document())
        box = second.dialog()
        self.assertIn("open for reading only", second.texts_of(box))
        time.sleep(1)  # longer than the window waits before it shows that it is busy
        self.assertEqual(find(second.application, "progress bar"), [])
        self.picture("read-only")
        second.press("OK", box)
        second.wait_until_active()
        key("ctrl+q")
        self.assertEqual(second.process.wait(PATIENCE), 0)
        self.assertTrue(lock.exists())

        os.kill(first.process.pid, signal.SIGKILL)
        first.process.wait()
        third = self.start_another("-usedocument", letter)
        third.wait_until_ready()
        self.assertEqual(third.title(), "letter.docx")
        third.wait_until_active()
        key("ctrl+q")
        self.assertEqual(third.process.wait(PATIENCE), 0)
        self.assertFalse(lock.exists())

    def test_a_file_that_an_office_has_open_is_copied(self):
        letter, lock = self.folder / "letter.docx", self.folder / ".~lock.letter.docx#"
        docx.Document().save(letter)
        before = letter.read_bytes()
        lock.write_text(",ada,engine,10.12.2026 08:15,file:///home/ada/profile;")
        designer = self.designer = self.start_another("-usedocument", letter)
        box = designer.dialog()
        self.assertIn("It is open for ada on engine since 10.12.2026 08:15.", designer.texts_of(box))
        designer.press("No", box)
        designer.wait_until_ready()
        self.assertEqual(designer.title(), "letter.docx (copy)")
        self.drop("Customer")
        self.assertEqual(self.names(self.save_as("mine.docx")), ["CustomerID"])
        self.assertEqual(letter.read_bytes(), before)
        self.assertTrue(lock.exists())

    def test_a_template_of_the_command_line(self):
        template = self.folder / "given.dotx"
        subprocess.run([PROGRAM, "-hidden", "-xmlfile", SAMPLE, "-template", template], check=True)
        before = template.read_bytes()
        designer = self.start("-template", template)
        self.assertEqual((self.folder / "given.dotx.bak").read_bytes(), before)
        self.assertTrue((self.folder / "given.docx").exists())
        key("ctrl+n")
        box = designer.dialog()
        self.assertIn("The operation is disabled in this context.", designer.texts_of(box))
        key("Escape")

    def test_merge_fields_become_places(self):
        merge_fields.write_every_kind(self.folder / "old.docx")
        designer = self.start("-usedocument", self.folder / "old.docx")
        designer.choose("Fields", "Convert Merge Fields")
        self.assertIn(merge_fields.REPORT.rstrip(), designer.texts_of(designer.dialog()))
        key("Return")
        saved = self.save_as("new.docx", accepts_loss=True)
        self.assertEqual(read_docx.read_bookmarks(saved)[1], [])
        self.assertEqual(merge_fields.wrong_paragraphs(saved), [])

    def test_a_conversion_is_one_step(self):
        """A field with the page's number as its text does not end the conversion."""
        old = self.folder / "old.docx"
        number = merge_fields.complex_field(merge_fields.code(" QUOTE ") + merge_fields.field(" PAGE "),
                                            merge_fields.text("1"))
        merge_fields.write(old, [merge_fields.field(" MERGEFIELD Town "), number,
                                 merge_fields.field(" MERGEFIELD Street ")])
        designer = self.start("-usedocument", old)
        designer.choose("Fields", "Convert Merge Fields")
        self.assertIn("2 fields became places", designer.texts_of(designer.dialog()))
        key("Return")
        saved = self.save_as("new.docx")
        self.assertEqual([line[:1] for line in merge_fields.read(saved)], ["[", "{", "["])
        names = (f"undone{number}.docx" for number in itertools.count())

        def is_undone():
            self.enter_document()
            key("ctrl+z")
            undone = merge_fields.read(self.save_as(next(names)))
            return [line.startswith("{MERGEFIELD") for line in undone] == [True, False, True]
        self.assertTrue(is_undone())

    def test_a_field_without_its_code_is_not_converted(self):
        old = self.folder / "old.docx"
        merge_fields.write(old, [merge_fields.field(' IF a = b "Home Town" "" ')])
        designer = self.start("-usedocument", old)
        designer.choose("Fields", "Convert Merge Fields")
        self.assertIn("LibreOffice does not keep the code of an IF field", designer.texts_of(designer.dialog()))
        key("Return")

    def test_an_office_that_dies_is_started_again(self):
        designer = self.start()
        self.drop("Customer")
        path = self.save_as("safe.docx")
        before = path.read_bytes()
        os.kill(designer.office_process(), signal.SIGKILL)
        designer.element(BUTTON, "Start again")
        self.picture("ended")
        self.assertEqual(path.read_bytes(), before)
        designer.press("Start again")
        designer.wait_until_ready()
        self.drop("Priority")
        self.assertCountEqual(self.names(self.save_as("again.docx")), ["CustomerID", "Priority"])

    def test_a_broken_structure_document(self):
        broken = self.folder / "broken.xml"
        broken.write_text("<Database><Form></Database>")
        self.designer = Designer(DESIGNER, ["-xmlfile", broken])
        self.addCleanup(self.designer.close)
        box = self.designer.dialog()
        self.assertIn("broken.xml", self.designer.texts_of(box))
        key("Return")
        self.designer.wait_until_ready()
        self.assertEqual(find(self.designer.application, "table cell", "Special"), [])


class InExcel(DesignerTest):
    SWITCHES = ["-excel"]

    def test_fields_fall_where_the_mouse_is(self):
        designer = self.start()
        self.assertEqual(designer.title(), "New Excel Template")
        self.assertEqual(find(designer.application, "table cell", "Special"), [])
        left, top = designer.document()
        self.drop("Customer", (left, top))
        self.drop("Priority", (left, top + 80))
        self.drop("Town", (left + 200, top + 80))
        self.picture("cells")
        names = read_xlsx.read_names(self.save_as("cells.xlsx"))
        columns, rows = zip(*(names[name].split("$")[1:] for name in ("ammCustomerID", "ammPriority", "ammShipTown")))
        self.assertEqual(columns[0], columns[1])
        self.assertLess(columns[1], columns[2])
        self.assertLess(int(rows[0]), int(rows[1]))
        self.assertEqual(rows[1], rows[2])

    def test_a_form_and_a_table_equal_the_unattended_ones(self):
        designer = self.start()
        key("ctrl+Home")
        drag(designer.node('Form "Orders"'), designer.document())
        designer.press("Insert", designer.dialog("Select Fields"))
        self.wait_for_insertion('Form "Orders"')
        self.picture("workbook")
        mapped = self.folder / "mapped.xlsx"
        subprocess.run([PROGRAM, "-excel", "-hidden", "-xmlfile", SAMPLE, "-template", mapped], check=True)
        begin = re.search(r"was inserted at Sheet1!([A-Z]+[0-9]+)", designer.status()).group(1)
        dropped = self.save_as("form.xlsx")
        self.assertIn("Letterhead", read_xlsx.read_workbook(dropped)["Sheet1"][begin].value)
        self.assertCountEqual(read_xlsx.read_names(dropped), read_xlsx.read_names(mapped))


    def test_an_undone_drop_leaves_the_input_line(self):
        designer = self.start()
        box = designer.element("filler", "Document").get_extents(0)  # on the screen
        place = designer.document()

        def has_input():
            # Letters are black, or nearly black at their smooth edges.
            return min(pixels(box.x + 250, box.y + 82, 400, 16)) < 32
        self.drop("Customer", place)
        click(place)
        wait_for("the input line", has_input)
        key("ctrl+z")
        wait_for("the empty input line", lambda: not has_input())
        self.picture("undone-cell")

    def test_a_list_of_cells_is_an_export(self):
        """The exported list contains the input of a cell that is still being edited."""
        self.start()
        self.drop("Customer")
        book = self.save_as("book.xlsx")
        before = book.read_bytes()
        left, top = self.designer.document()
        click((left, top + 80))
        wait_for("the keyboard in the cells", document_has_keyboard)
        type_text("typed")
        copy = self.export("book.csv").read_text()
        self.assertIn("CustomerID", copy)
        self.assertIn("typed", copy)
        self.assertEqual(book.read_bytes(), before)
        self.cancel_closing()


class MappingFirst(DesignerTest):
    def start_mapping(self, *options_and_switches):
        self.designer = Designer(PROGRAM, [*options_and_switches, "-listing", "-xmlfile", SAMPLE, "-template",
                                           self.folder / "list.docx"])
        self.addCleanup(self.designer.close)
        return self.designer

    def shows(self, sentence):
        """Returns the button of the message, which may disappear together with its program."""
        try:
            if not self.designer.has_dialog():
                return None
            box = self.designer.dialog()
            return sentence in self.designer.texts_of(box) and next(iter(find(box, BUTTON, "OK")), None)
        except GLib.Error:
            return None

    def closes(self, sentence):
        """Clicks until the message is closed, since a click before the window is in its place is lost."""
        button = self.shows(sentence)
        if button:
            click(middle(button))
            time.sleep(1)
        return not button

    def test_what_it_tells_comes_in_a_window(self):
        """The status of a failed mapping is 0 unless it is requested, and no designer is opened."""
        for options, status in (([], 0), (["--exit-status"], 1)):
            with self.subTest(options=options):
                designer = self.start_mapping(*options, "-fields", "Nothing")
                for sentence in ('The list of fields names "Nothing"', "FieldList is incorrect."):
                    wait_for(sentence, lambda: self.shows(sentence))
                    wait_for(f"the end of {sentence}", lambda: self.closes(sentence))
                self.assertEqual(designer.process.wait(PATIENCE), status)
                self.assertFalse((self.folder / "list.docx").exists())

    def test_the_example_of_the_help_does_what_it_says(self):
        page = (ROOT / "docs" / "help" / "starting.html").read_text()
        row = re.search(r"<td>a table of two fields.*?<code>(.*?)</code>", page, re.S)
        program, *arguments = shlex.split(row.group(1))
        self.assertEqual(program, "mergeloom")
        shutil.copytree(SAMPLE.parent, self.folder, dirs_exist_ok=True)
        folder = os.getcwd()
        self.addCleanup(os.chdir, folder)
        os.chdir(self.folder)
        self.designer = Designer(PROGRAM, arguments)
        self.addCleanup(self.designer.close)
        self.designer.wait_until_ready()
        names = [place["name"] for place in read_docx.read_bookmarks(self.folder / "list.docx")[0]]
        self.assertEqual(names, ["OrdersT", "OrderDate", "OrderNumber"])

    def test_the_designer_follows(self):
        designer = self.start_mapping("-fields", "OrderDate, OrderNumber")
        designer.wait_until_ready()
        names = [place["name"] for place in read_docx.read_bookmarks(self.folder / "list.docx")[0]]
        self.assertEqual(names, ["OrdersT", "OrderDate", "OrderNumber"])


class WithoutAScreen(unittest.TestCase):
    def test_is_told(self):
        environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        for platform in ("", "wayland", "offscreen"):
            with self.subTest(platform=platform):
                environment["QT_QPA_PLATFORM"] = platform
                run = subprocess.run([DESIGNER], env=environment, capture_output=True, text=True, timeout=30)
                self.assertEqual(run.returncode, 1)
                self.assertRegex(run.stderr, r"^The designer needs a display")


if __name__ == "__main__":
    unittest.main()
