#!/usr/bin/env python3
"""Describes databases that are damaged, locked or out of reach, and those with odd tables: each as a file of SQLite, as
a file of Access, and over ODBC, there also with PostgreSQL if it can be started.

MERGELOOM names the program, beside which mergeloom-describe lies; MERGELOOM_ROOT names the folder of the sources.
"""
import os
import resource
import sqlite3
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from access_file import ACE14, LONG, TEXT, AccessFile, Column
from database_servers import PASSWORD, NotThere, PostgreSql, need_driver
from program_test import PROGRAM, ProgramTest

DESCRIBE = Path(PROGRAM).with_name("mergeloom-describe")
# A build with sanitizers would report the leaks of drivers.
os.environ.setdefault("ASAN_OPTIONS", "detect_leaks=0")
# Access allows no full stop, exclamation mark, grave accent or brackets in names.
SIGNS = " !\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~\t\né漢"
FORBIDDEN_IN_ACCESS = ".!`[]\t\n"


def run(*command, **more):
    environment = {**os.environ, "LC_ALL": "C.UTF-8"}
    if "DRIVER=PostgreSQL" in str(command[1]):
        environment["MERGELOOM_ODBC_PASSWORD"] = PASSWORD
    return subprocess.run([*map(str, command)], capture_output=True, text=True, check=False, timeout=120,
                          env=environment, **more)


def quoted(name):
    return '"' + name.replace('"', '""') + '"'


class Table:
    """A table of whole numbers and texts. The first column is the key, if there is one."""

    def __init__(self, name, columns, rows, references=(), has_key=True):
        self.name, self.columns, self.rows, self.references, self.has_key = name, columns, rows, references, has_key


def sqlite_file(path, tables):
    with sqlite3.connect(path) as connection:
        for table in tables:
            parts = [f"{quoted(name)} {kind}" for name, kind in table.columns]
            if table.has_key:
                parts[0] += " PRIMARY KEY"
            parts += [f"FOREIGN KEY ({quoted(column)}) REFERENCES {quoted(other)}"
                      for column, other in table.references]
            connection.execute(f"CREATE TABLE {quoted(table.name)} ({', '.join(parts)})")
            marks = ", ".join("?" * len(table.columns))
            connection.executemany(f"INSERT INTO {quoted(table.name)} VALUES ({marks})", table.rows)
    connection.close()
    return path


def statements_of(tables):
    """Returns statements for PostgreSQL, which knows a table only after it has been created."""
    def literal(value):
        return "NULL" if value is None else "'" + str(value).replace("'", "''") + "'"
    statements = ["DROP SCHEMA public CASCADE", "CREATE SCHEMA public"]
    for table in tables:
        columns = [f"{quoted(name)} {kind}" for name, kind in table.columns]
        columns[0] += " PRIMARY KEY" if table.has_key else ""
        statements.append(f"CREATE TABLE {quoted(table.name)} ({', '.join(columns)})")
        rows = ", ".join("(" + ", ".join(map(literal, row)) + ")" for row in table.rows)
        statements.append(f"INSERT INTO {quoted(table.name)} VALUES {rows}")
    for table in tables:
        statements += [f"ALTER TABLE {quoted(table.name)} ADD FOREIGN KEY ({quoted(column)}) REFERENCES {quoted(other)}"
                       for column, other in table.references]
    return "".join(statement + ";\n" for statement in statements)


def access_file(path, tables):
    file = AccessFile(ACE14)
    keys = {table.name: table.columns[0][0] for table in tables}
    for table in tables:
        columns = [Column(name, LONG if kind == "INTEGER" else TEXT) for name, kind in table.columns]
        file.add_table(table.name, columns, table.rows, keys=[[0]] if table.has_key else [])
        for number, (column, other) in enumerate(table.references):
            file.add_relation(f"{table.name}{number}", table.name, [column], other, [keys[other]])
    file.save(path)
    return path


class BadInput(ProgramTest):
    server = None

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        try:
            cls.server = PostgreSql()
            cls.addClassCleanup(cls.server.stop)
        except NotThere as reason:
            print(f"PostgreSQL is left out: {reason}")

    def sources(self, tables, access_tables=None):
        """Yields each kind of database with a source that has the tables."""
        yield "SQLite", sqlite_file(self.folder / "made.db", tables)
        yield "Access", access_file(self.folder / "made.accdb", access_tables or tables)
        if self.has_driver("SQLite3"):
            yield "ODBC", f"odbc:DRIVER=SQLite3;Database={self.folder / 'made.db'}"
        if self.server:
            self.server.execute(statements_of(tables))
            yield "PostgreSQL", self.server.source

    @staticmethod
    def has_driver(name):
        try:
            need_driver(name)
            return True
        except NotThere:
            return False

    def describe(self, source, *arguments, told=""):
        ended = run(DESCRIBE, source, *arguments)
        self.assertEqual((ended.returncode, ended.stderr), (0, told), arguments)
        return ElementTree.fromstring(ended.stdout)

    def assert_refused(self, source, sentence, **more):
        ended = run(DESCRIBE, source, **more)
        self.assertEqual((ended.returncode, ended.stdout), (1, ""), ended.stderr)
        self.assertTrue(ended.stderr.startswith("mergeloom-describe: "), ended.stderr)
        self.assertEqual(ended.stderr.count("\n"), 1, ended.stderr)
        self.assertIn(sentence, ended.stderr)

    def records(self, root):
        return [[(control.get("Name"), control.findtext("DisplayValue")) for control in record]
                for record in root.findall("Data/Records/Record")]

    def test_tables_without_a_key_and_relations_in_circles(self):
        number, name = ("id", "INTEGER"), ("name", "TEXT")
        tables = [
            Table("Loose", [name, ("size", "INTEGER")], [("b", 1), ("a", 2), ("b", 1)], has_key=False),
            Table("Staff", [number, name, ("chief", "INTEGER")], [(1, "Ida", None), (2, "Per", 1)],
                  [("chief", "Staff")]),
            Table("A", [number, name, ("b", "INTEGER")], [(1, "one", 7), (2, "two", 7)], [("b", "B")]),
            Table("B", [number, name, ("a", "INTEGER")], [(7, "seven", 1)], [("a", "A")]),
        ]
        for kind, source in self.sources(tables):
            with self.subTest(kind=kind):
                self.assertEqual(len(self.records(self.describe(source, "--object", "Loose", "--records", "all"))), 3)
                staff = self.records(self.describe(source, "--object", "Table Staff", "--records", "all"))
                self.assertEqual([record[2] for record in staff], [("chief", ""), ("chief", "Ida")])
                seven, = self.describe(source, "--object", "Form B", "--records", "all").findall("Data/Records/Record")
                subform = seven.find("Control/Records/..")
                inner = [control.findtext("DisplayValue") for control in subform.iter("Control")
                         if control.get("Name") == "name"]
                self.assertEqual(inner, ["one", "two"])

    def test_a_thousand_columns(self):
        def wide(count):
            columns = [("id", "INTEGER"), *((f"c{number}", "TEXT") for number in range(1, count))]
            return [Table("Wide", columns, [(row, *("x" for _ in columns[1:])) for row in (1, 2)])]
        # Access allows 255.
        for kind, source in self.sources(wide(1000), wide(255)):
            with self.subTest(kind=kind):
                root = self.describe(source, "--records", "all")
                count = 255 if kind == "Access" else 1000
                self.assertEqual(len(root.findall("Structure/Table/Controls/Control")), count)
                self.assertEqual([len(record) for record in self.records(root)], [count, count])

    def test_names_with_every_sign(self):
        def named(signs):
            columns = [("id", "INTEGER"), *((f"{sign}a{sign}", "TEXT") for sign in signs)]
            table = Table(signs, columns, [(1, *signs)])
            return [table, Table(f"In {signs}", [("n", "INTEGER"), (f"t{signs}", "INTEGER")], [(5, 1)],
                                 [(f"t{signs}", table.name)])]
        allowed = "".join(sign for sign in SIGNS if sign not in FORBIDDEN_IN_ACCESS)
        for kind, source in self.sources(named(SIGNS), named(allowed)):
            signs = allowed if kind == "Access" else SIGNS
            with self.subTest(kind=kind):
                document = self.folder / "named.xml"
                ended = run(DESCRIBE, source, "--object", "Form " + signs, "--records", "all", "--output", document)
                self.assertEqual((ended.returncode, ended.stderr), (0, ""))
                root = ElementTree.parse(document).getroot()
                record, = root.findall("Data/Records/Record")
                shown = {control.get("Name"): control.findtext("DisplayValue") for control in record}
                for sign in signs:
                    self.assertEqual(shown[f"{sign}a{sign}"], sign)
                self.assertEqual(record.findtext("Control/Records/Record/Control/DisplayValue"), "5")
                control = root.find("Structure/Form").find(".//Control[@Name='&a&']")
                self.assertEqual(control.get("Caption"), "&&a&&")
                mapped = run(PROGRAM, "--exit-status", "-xmlfile", document, "-template",
                             self.folder / f"{kind}.docx", "-hidden")
                self.assertEqual(mapped.returncode, 0, mapped.stderr)

    def test_text_that_xml_cannot_hold_is_told_once(self):
        texts = ["a\x01b", "\x1f", "\uffff", "fine\ttab"]
        tables = [Table("T", [("id", "INTEGER"), ("v", "TEXT")], list(enumerate(texts)))]
        for kind, source in self.sources(tables):
            with self.subTest(kind=kind):
                root = self.describe(source, "--records", "all", told="mergeloom-describe: Characters that XML cannot "
                                                                      "hold were replaced by U+FFFD.\n")
                self.assertEqual([record[1][1] for record in self.records(root)],
                                 ["a\ufffdb", "\ufffd", "\ufffd", "fine\ttab"])

    def test_files_that_are_no_database(self):
        sqlite_file(self.folder / "whole.db", [Table("T", [("id", "INTEGER"), ("v", "TEXT")],
                                                     [(number, "v" * 100) for number in range(500)])])
        access_file(self.folder / "whole.accdb", [Table("T", [("id", "INTEGER")], [(1,)])])
        whole = (self.folder / "whole.db").read_bytes()
        access = (self.folder / "whole.accdb").read_bytes()
        cases = {"empty": (b"", "is empty"), "unknown": (b"PK\x03\x04 no database", "is no database"),
                 "encrypted": (os.urandom(8192), "is encrypted"),
                 "damaged": (whole[:100] + bytes(4000) + whole[4100:], "it is damaged"),
                 "encrypted.accdb": (access[:0x3E] + bytes([access[0x3E] ^ 1]) + access[0x3F:], "it is encrypted."),
                 "damaged.accdb": (access[:4096 * 3] + b"\xff" * (len(access) - 4096 * 3), "damaged")}
        for name, (content, sentence) in cases.items():
            with self.subTest(name=name):
                (self.folder / name).write_bytes(content)
                self.assert_refused(self.folder / name, sentence)
        if not self.has_driver("SQLite3"):
            self.skipTest("there is no driver of ODBC for SQLite")
        for name in ("empty", "unknown", "encrypted", "damaged"):
            sentence = "has no tables" if name == "empty" else "could not be read: "
            with self.subTest(name=name, kind="ODBC"):
                self.assert_refused(f"odbc:DRIVER=SQLite3;Database={self.folder / name}", sentence)

    def test_a_file_that_is_not_there_is_not_made(self):
        missing = self.folder / "missing.db"
        self.assert_refused(missing, "does not exist")
        if self.has_driver("SQLite3"):
            (self.folder / "odbc.ini").write_text(f"[Gone shop]\nDriver=SQLite3\nDatabase={missing}\n")
            self.assert_refused(f"odbc:DRIVER=SQLite3;Database={missing}", "could not be read: ")
            os.environ["ODBCINI"] = str(self.folder / "odbc.ini")
            self.addCleanup(os.environ.pop, "ODBCINI")
            self.assert_refused("odbc:gone shop", "could not be read: ")
        self.assertFalse(missing.exists())

    def test_a_table_whose_name_cannot_be_read(self):
        path = access_file(self.folder / "made.accdb", [Table("A \U0001F600", [("id", "INTEGER")], []),
                                                        Table("B", [("id", "INTEGER")], [])])
        ended = run(DESCRIBE, path, "--list")
        self.assertEqual((ended.returncode, ended.stdout), (0, "Table B\n"))
        self.assertEqual(ended.stderr, "mergeloom-describe: The table 'A \U0001F600' is left out: its name cannot be "
                                       "read.\n")

    def test_a_locked_database_over_odbc(self):
        if not self.has_driver("SQLite3"):
            self.skipTest("there is no driver of ODBC for SQLite")
        path = sqlite_file(self.folder / "made.db", [Table("T", [("id", "INTEGER")], [(1,)])])
        with sqlite3.connect(path) as connection:
            connection.execute("BEGIN EXCLUSIVE")
            self.assert_refused(f"odbc:DRIVER=SQLite3;Timeout=100;Database={path}", "could not be read: ")
        connection.close()

    def test_a_file_that_may_not_be_read(self):
        """Root may read every file, so the path leads through a file instead of a folder."""
        blocked = self.folder / "file"
        blocked.write_text("")
        self.assert_refused(blocked / "shop.db", "does not exist")
        os.mkfifo(self.folder / "pipe.db")
        self.assert_refused(self.folder / "pipe.db", "is a pipe or a device.")

    def test_servers_that_are_out_of_reach(self):
        sources = {"PostgreSQL Unicode": ("Servername={folder};Port=5432;Database=shop;UID=clerk",
                                          "Servername=127.0.0.1;Port=1;Database=shop;UID=clerk"),
                   "MariaDB Unicode": ("SOCKET={folder}/none;DATABASE=shop;UID=clerk",
                                       "SERVER=127.0.0.1;PORT=1;DATABASE=shop;UID=clerk")}
        for driver, connections in sources.items():
            if not self.has_driver(driver):
                continue
            for connection in connections:
                with self.subTest(driver=driver, connection=connection):
                    self.assert_refused(f"odbc:DRIVER={driver};" + connection.format(folder=self.folder),
                                        "could not be read: ")

    @unittest.skipIf(os.environ.get("MERGELOOM_SANITIZE") == "1", "sanitizers reserve more than any limit allows")
    def test_two_gigabytes_of_attachments(self):
        """A generated column returns forty rows of fifty megabytes."""
        path = self.folder / "made.db"
        with sqlite3.connect(path) as connection:
            connection.execute("CREATE TABLE T (id INTEGER PRIMARY KEY, made BLOB AS (zeroblob(50000000)))")
            connection.executemany("INSERT INTO T VALUES (?)", [(number,) for number in range(40)])
            connection.execute("CREATE VIEW Attached AS SELECT id, made AS Attachment FROM T")
            # This column has no type, so only its values have types.
            connection.execute("CREATE VIEW Untyped AS SELECT id, zeroblob(50000000) AS Attachment FROM T")
        connection.close()

        def limit(size):
            return lambda: resource.setrlimit(resource.RLIMIT_DATA, (size, size))
        no_pictures = "is left out: it holds bytes that are no pictures."
        sources = [(path, "Attached", no_pictures), (path, "Untyped", "has values that are left out: they are bytes.")]
        if self.has_driver("SQLite3"):
            sources.append((f"odbc:DRIVER=SQLite3;Database={path}", "Attached", no_pictures))
        for source, name, sentence in sources:
            with self.subTest(source=source, name=name):
                ended = run(DESCRIBE, source, "--object", name, "--records", "all", preexec_fn=limit(500_000_000))
                self.assertEqual((ended.returncode, ended.stderr),
                                 (0, f"mergeloom-describe: The column 'Attachment' of '{name}' {sentence}\n"))
                self.assertEqual(len(self.records(ElementTree.fromstring(ended.stdout))), 40)
        # The limit is too low for one of the values. The sentence depends on the driver.
        for (source, name, _), size in zip(sources[1:], (40_000_000, 120_000_000)):
            with self.subTest(source=source, size=size):
                ended = run(DESCRIBE, source, "--object", name, "--records", "all", preexec_fn=limit(size))
                self.assertEqual((ended.returncode, ended.stdout, ended.stderr.count("\n")), (1, "", 1))


if __name__ == "__main__":
    unittest.main()
