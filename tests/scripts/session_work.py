"""Provides the work of a long session in the designer's window, which tools/designer_session.py runs."""
import subprocess
import tempfile
import time
from pathlib import Path
from xml.sax.saxutils import quoteattr

import merge_fields
import read_xlsx
from designer_test import DESIGNER, PROGRAM, ROOT, DesignerTest
from designer_window import (
    PATIENCE, Designer, children, click, drag, find, has_focus, key, middle, type_text, wait_for,
)

KINDS = ("Textbox", "Combobox", "Checkbox", "OptionGroup", "Listbox", "ToggleButton")
FIELDS, SHORT_FORM, TABLES = 60, 20, 10
BOUND_VALUES, LABELS, SPACES = 40, 30, 5
QUESTION = "Do you want to save changes to "


def control(prefix, number):
    caption = quoteattr(f"{prefix} {number:02}:")
    name = quoteattr(f"{prefix}{number}")
    return f'<Control Name={name} Caption={caption} ControlType="{KINDS[number % len(KINDS)]}" ControlSource={name}/>'


def form(name, prefix, count):
    controls = "".join(control(prefix, number) for number in range(1, count + 1))
    if name == "Big":
        picture = ROOT / "samples" / "pictures" / "letterhead.png"
        controls += f'<Control Name="Letterhead" ControlType="BoundObjectFrame" Image={quoteattr(str(picture))}/>'
    return (f'<Form Name="{name}" CurrentView="1" DefaultView="0" HasRecordset="1"><Sections><Section Name="Detail" '
            f'Number="0"><Controls>{controls}</Controls></Section></Sections></Form>')


def table(number):
    controls = "".join(control(f"Column{number}-", column) for column in range(1, 5))
    return f'<Table Name="Table{number}" CurrentView="2"><Controls>{controls}</Controls></Table>'


def write_structure(path):
    objects = form("Big", "Field", FIELDS) + form("Short", "Entry", SHORT_FORM)
    objects += "".join(table(number) for number in range(1, TABLES + 1))
    folders = '<Options><FileLocations DocumentsFolder="" TemplatesFolder=""/></Options>'
    value = "<DisplayValue>Shown</DisplayValue><BoundValue>1</BoundValue>"
    values = "".join(f'<Control Name="Field{number}">{value}</Control>' for number in range(1, FIELDS + 1))
    data = f"<Data><Records><Record>{values}</Record></Records></Data>"
    path.write_text(f'<Database Name="Session">{folders}<Structure>{objects}</Structure>{data}</Database>')


class Session(DesignerTest):
    EXTENSION = None

    def setUp(self):
        super().setUp()
        self.structure = self.folder / "structure.xml"
        write_structure(self.structure)
        self.home = Path(tempfile.mkdtemp(prefix="designer-"))
        self.dropped = 0

    def begin(self, *switches):
        self.designer = Designer(DESIGNER, [*self.SWITCHES, *switches], home=self.home)
        self.addCleanup(self.designer.close)
        self.addCleanup(self.picture, f"session-{self.EXTENSION}")
        self.designer.wait_until_ready()
        self.designer.wait_until_active()
        return self.designer

    def load(self):
        self.designer.press("Load XML…")
        self.designer.answer_file_dialog(self.structure)
        self.designer.node('Form "Big"')

    def search(self, text):
        box = self.designer.element("text", "Search:")
        click(middle(box))
        wait_for("the search", lambda: has_focus(box))
        key("ctrl+a")
        type_text(text)

    def wait_for_only_match(self, node):
        """Waits until a search has found one node only. The nodes move with each typed letter."""
        wait_for(f"{node} as the only match", lambda: find(self.designer.application, "label", "1 found")
                 and find(self.designer.application, "table cell", node))

    def places(self):
        """Returns the document's places in the order of the list, including those that are scrolled out of view."""
        def names():
            lists = find(self.designer.application, "list", "Places of the document")
            return [[item.get_name() for item in children(lists[0])] if lists else []]
        return wait_for("the list of places", names)[0]

    def check_no_question(self):
        wait_for("the window without a dialog", lambda: not self.designer.has_dialog(), 5)

    def drop_found(self, node, by_mouse, chooses_fields=False):
        """Drops the only node in the tree that has this text."""
        if by_mouse:
            drag(self.designer.node(node), self.next_place())
        else:
            self.designer.select(node)
            key("Insert")
        if chooses_fields:
            self.designer.press("Insert", self.designer.dialog("Select Fields"))
        self.wait_for_insertion(node)
        self.check_no_question()
        self.dropped += 1

    def drop_fields(self, prefix, numbers, part=None):
        """Drops fields, or the parts below them, every other one by the mouse."""
        for number in numbers:
            caption = f"{prefix} {number:02}"
            self.search(caption)
            self.wait_for_only_match(caption)
            if part:
                self.designer.expand(caption)
            before = self.places()
            # The mouse cannot drop after a value at the end of a line.
            by_mouse = number % 2 and part not in ("Label and Value", "Value")
            self.drop_found(part or caption, by_mouse)
            if number % 10 == 0:
                self.undo_and_redo(before)
            elif number % 10 == 5:
                self.move_on()

    def undo_and_redo(self, before):
        """Undoes the last drop and redoes it."""
        wait_for("the new place", lambda: self.places() != before)
        after = self.places()
        self.enter_document()
        key("ctrl+z")
        self.look_back()
        wait_for("the end of what was undone", lambda: self.places() == before)
        self.enter_document()
        key("ctrl+y")
        self.look_back()
        wait_for("what was done again", lambda: self.places() == after)
        self.move_on()

    def look_back(self):
        """Waits for the list of places, which is updated when the mouse comes back from the document."""
        click(middle(self.designer.element("text", "Search:")))

    def drop_objects(self, objects):
        for number, node in enumerate(objects):
            self.search(node.split('"')[1])
            self.move_on()
            self.drop_found(node, by_mouse=False, chooses_fields=node.startswith("Table"))

    def expect_question(self, command, answer):
        key(command)
        box = self.designer.dialog()
        self.assertIn(QUESTION, self.designer.texts_of(box))
        self.designer.press(answer, box)
        wait_for("the end of the question", lambda: self.designer.process.poll() is not None
                 or not self.designer.has_dialog())

    def open(self, path):
        key("ctrl+o")
        self.designer.answer_file_dialog(path)
        wait_for(f"the document {path}", lambda: self.designer.title() == path.name)
        self.wait_until_free()

    def wait_until_free(self):
        """Waits for the end of a command that has shown its result already. The window accepts no other before."""
        self.designer.wait_until_active()

        def is_taken():
            key("ctrl+shift+s")
            time.sleep(2)
            return self.designer.has_dialog()
        wait_for("the end of the command", is_taken)
        key("Escape")
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())
        self.designer.wait_until_active()

    def map(self, earlier, source, *switches):
        """Maps an object unattended onto the result of an earlier run, and returns the new one."""
        result = self.folder / f"mapped{len(list(self.folder.glob('mapped*')))}.{self.EXTENSION}"
        at, onto = (["--at", "end"], ["-usedocument", earlier]) if earlier else ([], [])
        subprocess.run([PROGRAM, "--exit-status", "--object", source, *at, *self.SWITCHES, *switches, "-hidden",
                        "-xmlfile", self.structure, *onto, "-template", result], check=True)
        return result

    def quit(self):
        key("ctrl+q")
        self.assertEqual(self.designer.process.wait(PATIENCE), 0)


class InWord(Session):
    EXTENSION = "docx"

    def next_place(self):
        return self.designer.corner()

    def move_on(self):
        """Moves to a new paragraph at the end of the document. The key first goes to the ends of a cell and of its
        table."""
        self.enter_document()
        key("ctrl+End", "ctrl+End", "ctrl+End", "ctrl+End", "Return")
        type_text("Typed. ")

    def convert(self):
        merge_fields.write_every_kind(self.folder / "old.docx")
        self.open(self.folder / "old.docx")
        self.designer.choose("Fields", "Convert Merge Fields")
        self.close_report()
        self.expect_question("ctrl+n", "Cancel")
        self.designer.wait_until_active()
        converted = self.save_as("converted.docx", accepts_loss=True)
        self.assertEqual(merge_fields.wrong_paragraphs(converted), [])

    def close_report(self):
        box = self.designer.dialog()
        self.assertIn(merge_fields.REPORT.rstrip(), self.designer.texts_of(box))
        key("Return")
        wait_for("the end of the report", lambda: not self.designer.has_dialog())
        self.designer.wait_until_active()

    def expected(self):
        mapped = self.map(None, "Form Big")
        bound = [f"{name}_bv" for name in self.names(mapped)
                 if name in {f"Field{number}" for number in range(1, BOUND_VALUES + 1)}]
        for _ in range(3):
            mapped = self.map(mapped, "Form Short")
        for number in range(1, TABLES + 1):
            mapped = self.map(mapped, f"Table Table{number}", "-listing")
        return self.names(mapped) + bound + [f"OptionalSpace{number}" for number in range(SPACES)]

    def test_a_session(self):
        self.begin()
        self.load()
        self.convert()
        key("ctrl+n")
        wait_for("the new template", lambda: self.designer.title() == "New Template")
        self.wait_until_free()
        self.drop_fields("Field", range(1, FIELDS + 1))
        self.search("Letterhead")
        self.drop_found("Letterhead", by_mouse=False)
        letter = self.save_as("letter.docx")
        self.drop_fields("Field", range(1, BOUND_VALUES + 1), "Bound Value")
        self.expect_question("ctrl+o", "Cancel")
        self.designer.wait_until_active()
        key("ctrl+s")
        wait_for("the saved letter", lambda: "“letter.docx” was saved" in self.designer.status())
        self.check_no_question()
        self.drop_fields("Field", range(1, LABELS, 5), "Label")
        self.drop_fields("Entry", range(1, SHORT_FORM + 1), "Label and Value")
        self.save_as("letter.odt")
        self.drop_fields("Entry", range(1, SHORT_FORM + 1), "Value")
        self.save_as("again.docx")
        self.search("Optional")
        self.designer.expand("Special")
        for number in range(SPACES):
            self.drop_found("Optional Space", by_mouse=number % 2)
        self.drop_objects(['Form "Short"', *(f'Table "Table{number}"' for number in range(1, TABLES + 1))])
        self.expect_question("ctrl+q", "Cancel")
        self.designer.wait_until_active()
        self.export("letter.pdf")
        self.expect_question("ctrl+n", "Yes")
        wait_for("the new template", lambda: self.designer.title() == "New Template")
        self.wait_until_free()
        self.open(letter)
        self.open(self.folder / "again.docx")
        final = self.save_as("final.docx")
        self.quit()
        print(f"{self.dropped} nodes were dropped.")
        self.assertCountEqual(self.names(final), self.expected())


class InExcel(Session):
    EXTENSION = "xlsx"
    SWITCHES = ["-excel"]
    COLUMNS, COLUMN_WIDTH, ROW_HEIGHT = 5, 110, 34

    def next_place(self):
        left, top, _, _ = self.designer.document_box()
        row, column = divmod(self.dropped, self.COLUMNS)
        return left + 80 + column * self.COLUMN_WIDTH, top + 150 + row % 15 * self.ROW_HEIGHT

    def move_on(self):
        """Moves to the first free cell below the sheet's content."""
        self.enter_document()
        key("ctrl+End", "Home", "Down", "Down")

    def expected(self):
        mapped = self.map(None, "Form Big")
        mapped = self.map(mapped, "Form Short")
        for number in range(1, TABLES + 1):
            mapped = self.map(mapped, f"Table Table{number}", "-listing")
        return list(read_xlsx.read_names(mapped))

    def test_a_session(self):
        self.begin()
        self.load()
        tables = [f'Table "Table{number}"' for number in range(1, TABLES + 1)]
        self.drop_objects(['Form "Big"', 'Form "Short"', *tables])
        self.expect_question("ctrl+n", "Cancel")
        self.designer.wait_until_active()
        book = self.save_as("book.xlsx")
        self.save_as("book.ods")
        self.open(book)
        final = self.save_as("final.xlsx")
        self.quit()
        self.assertCountEqual(read_xlsx.read_names(final), self.expected())
