"""Tests databases in the window: the choice of objects and records, progress, cancelling, and reading again."""
import shutil
import sqlite3
import subprocess
import unittest

from database_servers import PASSWORD, NotThere, PostgreSql
from designer_test import PROGRAM, ROOT, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import Atspi, children, click, find, has_focus, key, middle, type_text, wait_for

DESCRIBE = PROGRAM.with_name("mergeloom-describe")


def is_in_state(element, state):
    return element.get_state_set().contains(state)


def has_sqlite_driver():
    odbcinst = shutil.which("odbcinst")
    if not odbcinst:
        return False
    return subprocess.run([odbcinst, "-q", "-d", "-n", "SQLite3"], capture_output=True, check=False).returncode == 0


@unittest.skipUnless(DESCRIBE.exists(), "this build has no mergeloom-describe")
class DatabaseTest(DesignerTest):
    def begin(self, *switches, structure=None):
        """Opens a window, by default without a structure document."""
        self.designer = self.start_another(*switches, structure=structure)
        self.database = self.folder / "harbour.db"
        if not structure:
            self.designer.wait_until_ready()
            shutil.copy(ROOT / "samples/harbour.db", self.database)

    def box(self):
        return self.designer.dialog("Open Database")

    def message(self):
        return self.designer.texts_of(self.box())

    def open_box(self):
        self.designer.press("Open Database…")
        return self.box()

    def read(self, source):
        """Enters a source in the dialog and starts reading it."""
        box = self.open_box()
        field = wait_for("the line of the source", lambda: find(box, "text"))[0]
        wait_for("the focus", lambda: has_focus(field))
        key("ctrl+a")
        type_text(str(source))
        key("Return")
        return box

    def objects(self, box):
        """Returns the offered objects, and for each one if it is checked."""
        lists = find(box, "list")
        items = [item for each in lists if each.get_name() == "Objects of the database" for item in children(each)]
        return {item.get_name(): is_in_state(item, Atspi.StateType.CHECKED) for item in items if item is not None}

    def wait_for_objects(self, box):
        return wait_for("the objects", lambda: self.objects(box))

    def check_only(self, box, name):
        click(middle(wait_for("All objects", lambda: find(box, "check box", "All objects"))[0]))
        wait_for("no checked object", lambda: not any(self.objects(box).values()))
        rows = next(each for each in find(box, "list") if each.get_name() == "Objects of the database")
        item = next(item for item in children(rows) if item.get_name() == name)
        click(middle(item))
        key("space")
        wait_for(f"{name} alone", lambda: [other for other, isOn in self.objects(box).items() if isOn] == [name])

    def choose_records(self, box, downs, value=""):
        chooser = wait_for("the records", lambda: [each for each in find(box, "combo box")
                                                   if is_in_state(each, Atspi.StateType.ENABLED)])[0]
        key("alt+r")
        wait_for("the focus", lambda: has_focus(chooser))
        key(*["Down"] * downs)
        if value:
            key("Tab")
            type_text(value)

    def describing_programs(self):
        listing = subprocess.run(["ps", "-eo", "ppid,args"], capture_output=True, text=True, check=True).stdout
        return [line for line in listing.splitlines()
                if "mergeloom-describe" in line and line.split()[0] == str(self.designer.process.pid)]

    def test_a_database_becomes_a_letter_by_mouse(self):
        self.begin()
        box = self.read(self.database)
        self.assertEqual(self.wait_for_objects(box)["Form Orders"], True)
        self.picture("database")
        self.check_only(box, "Form Orders")
        self.choose_records(box, 1)
        self.picture("database-records")
        self.designer.press("Open", box)
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())
        self.designer.node('Form "Orders"')
        self.assertEqual(find(self.designer.application, "table cell", 'Table "Customers"'), [])
        self.designer.wait_until_active()
        self.drop("OrderNumber")
        self.designer.wait_until_active()
        key("F5")
        wait_for("the preview", lambda: "ecord 1 of" in self.designer.status())
        documents = list((self.designer.home / "state/mergeloom/databases").glob("harbour-*.xml"))
        self.assertEqual(len(documents), 1)
        self.assertEqual(documents[0].parent.stat().st_mode & 0o77, 0)

    def test_a_changed_database_is_read_anew(self):
        self.begin()
        box = self.read(self.database)
        self.wait_for_objects(box)
        self.designer.press("Open", box)
        self.designer.node('Form "Orders"')
        with sqlite3.connect(self.database) as connection:
            connection.execute("CREATE TABLE Piers (Name TEXT PRIMARY KEY)")
        connection.close()
        self.designer.wait_until_active()
        self.designer.choose("Structure", "Read Database Anew")
        self.designer.node('Table "Piers"')
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())

    def test_what_cannot_be_read_is_told_and_can_be_corrected(self):
        self.begin()
        broken = self.folder / "notes.db"
        broken.write_text("no database")
        box = self.read(broken)
        wait_for("the sentence", lambda: "is no database of SQLite or Access" in self.message())
        self.picture("database-refused")
        self.assertEqual(self.objects(box), {})
        field = find(box, "text")[0]
        field.grab_focus()
        key("ctrl+a")
        type_text(str(self.database))
        key("Return")
        self.wait_for_objects(box)
        self.assertNotIn("is no database", self.message())
        key("Escape")
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())

    def test_a_reading_without_end_can_be_cancelled(self):
        self.begin()
        with sqlite3.connect(self.database) as connection:
            connection.execute("CREATE VIEW Endless AS WITH RECURSIVE count(x) AS "
                               "(SELECT 1 UNION ALL SELECT x + 1 FROM count) SELECT x FROM count")
        connection.close()
        box = self.read(self.database)
        self.wait_for_objects(box)
        self.check_only(box, "Query Endless")
        self.choose_records(box, 1)
        self.designer.press("Open", box)
        wait_for("the number of records", lambda: " records" in self.message())
        self.picture("database-progress")
        self.assertEqual(len(self.describing_programs()), 1)
        self.designer.press("Cancel", box)
        wait_for("the sentence", lambda: "The reading was cancelled." in self.message())
        wait_for("the end of the program", lambda: not self.describing_programs())
        self.assertEqual(list((self.designer.home / "state/mergeloom/databases").iterdir()), [])
        # The choices have been kept.
        self.assertTrue(self.objects(box)["Query Endless"])
        self.choose_records(box, 1, "3")
        self.designer.press("Open", box)
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())
        self.designer.node('Query "Endless"')

    @unittest.skipUnless(has_sqlite_driver(), "there is no driver of ODBC for SQLite")
    def test_a_source_of_odbc_is_read_and_asks_for_a_password(self):
        self.begin()
        box = self.open_box()
        self.assertEqual(find(box, "password text"), [])
        key("Escape")
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())
        box = self.read(f"odbc:DRIVER=SQLite3;Database={self.database}")
        self.assertIn("Form Orders", self.wait_for_objects(box))
        self.assertEqual(len(find(box, "password text")), 1)
        self.designer.press("Open", box)
        self.designer.node('Form "Orders"')

    def test_a_password_in_the_source_never_becomes_an_argument(self):
        self.begin()
        box = self.read("odbc:DSN=shop;Pwd={gull}")
        wait_for("the sentence", lambda: "Leave the password out" in self.message())
        field, = find(box, "password text")
        wait_for("the focus", lambda: has_focus(field))
        self.assertEqual(self.describing_programs(), [])

    def test_a_server_is_read_after_its_password_was_entered(self):
        try:
            server = PostgreSql()
        except NotThere as reason:
            self.skipTest(str(reason))
        self.addCleanup(server.stop)
        server.load("CREATE TABLE Piers (ID INTEGER PRIMARY KEY, Town VARCHAR(20));"
                    "INSERT INTO Piers VALUES (1, 'Bosham');")
        self.begin()
        box = self.read(server.source)
        wait_for("the sentence", lambda: "could not be read: " in self.message())
        field, = find(box, "password text")
        for word, sentence in (("wrong", "could not be read: "), (PASSWORD, "")):
            wait_for("the focus", lambda: has_focus(field))
            key("ctrl+a")
            type_text(word)
            key("Return")
            if sentence:
                wait_for("the refusal", lambda: sentence in self.message() and has_focus(field))
                self.assertNotIn(word, self.message())
        self.wait_for_objects(box)
        self.check_only(box, "Table Piers")
        self.choose_records(box, 1)
        self.designer.press("Open", box)
        self.designer.node('Table "Piers"')
        self.designer.wait_until_active()
        self.designer.choose("Structure", "Read Database Anew")
        wait_for("the end of the dialog", lambda: not self.designer.has_dialog())
        for path in self.designer.home.rglob("*"):
            if path.is_file():
                self.assertNotIn(PASSWORD.encode(), path.read_bytes(), path)

    def test_a_file_of_the_command_line_that_is_a_database_is_offered(self):
        database = self.folder / "Shop.DB"
        shutil.copy(ROOT / "samples/harbour.db", database)
        self.begin(structure=database)
        box = self.box()
        self.wait_for_objects(box)
        self.designer.press("Open", box)
        self.designer.node('Form "Orders"')


if __name__ == "__main__":
    unittest.main()
