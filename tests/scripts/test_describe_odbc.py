#!/usr/bin/env python3
"""Describes databases over ODBC: a file of SQLite through its driver, and the servers that can be started here.

MERGELOOM names the program, beside which mergeloom-describe lies; MERGELOOM_ROOT names the folder of the sources.
"""
import os
import pty
import sqlite3
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path
from unittest import mock

import docx

from database_servers import PASSWORD, MariaDb, NotThere, PostgreSql, need_driver
from program_test import PROGRAM, SAMPLE, ProgramTest

DESCRIBE = Path(PROGRAM).with_name("mergeloom-describe")
SAMPLES = SAMPLE.parent
HARBOUR = (SAMPLES / "harbour.sql").read_text(encoding="utf-8")
# A build with sanitizers would report the leaks of drivers.
os.environ.setdefault("ASAN_OPTIONS", "detect_leaks=0")
GIF = "47494638396101000100800000000000ffffff21f90401000000002c000000000100010000020144003b"
# Two keys of two columns refer to one table.
PIERS = """
CREATE TABLE Piers (Town VARCHAR(20) NOT NULL, Place VARCHAR(20) NOT NULL, PRIMARY KEY (Town, Place));
CREATE TABLE Moves (ID INTEGER PRIMARY KEY, Boat VARCHAR(20), FromTown VARCHAR(20), FromPlace VARCHAR(20),
    ToTown VARCHAR(20), ToPlace VARCHAR(20), FOREIGN KEY (FromTown, FromPlace) REFERENCES Piers (Town, Place),
    FOREIGN KEY (ToTown, ToPlace) REFERENCES Piers (Town, Place));
INSERT INTO Piers VALUES ('A', 'x'), ('A', 'y'), ('B', 'x'), ('B', 'y');
CREATE TABLE Flags (ID INTEGER PRIMARY KEY, Code VARCHAR(5) NOT NULL UNIQUE, Label VARCHAR(20));
CREATE TABLE Boats (ID INTEGER PRIMARY KEY, Flag VARCHAR(5), FOREIGN KEY (Flag) REFERENCES Flags (Code));
INSERT INTO Flags VALUES (1, 'N', 'Norway'), (2, 'S', 'Sweden');
INSERT INTO Boats VALUES (7, 'S'), (8, 'S');
INSERT INTO Moves VALUES (1, 'Ida', 'A', 'x', 'B', 'y'), (2, 'Per', 'A', 'y', 'B', 'x');
"""


def run(*command, password=None, **more):
    environment = {name: value for name, value in os.environ.items() if name != "MERGELOOM_ODBC_PASSWORD"}
    environment.update({"LC_ALL": "C.UTF-8"} | ({"MERGELOOM_ODBC_PASSWORD": password} if password else {}))
    return subprocess.run([*map(str, command)], capture_output=True, text=True, check=False, env=environment,
                          stdin=subprocess.DEVNULL, **more)


def contents(document):
    """Returns the structure and the records with equal spelling of stored numbers."""
    root = ElementTree.fromstring(document)
    for value in root.iter("BoundValue"):
        try:
            value.text = str(float(value.text))
        except (TypeError, ValueError):
            pass
    return [ElementTree.tostring(part, encoding="unicode") for part in root]


class SourceTest:
    """The tests of every driver. The derived classes provide the source."""

    source = password = None

    def describe(self, *arguments, password=None):
        return run(DESCRIBE, self.source, *arguments, password=password or self.password)

    def succeed(self, *arguments):
        ended = self.describe(*arguments)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        return ended.stdout

    def test_a_database_is_described_as_the_same_one_in_a_file(self):
        for name in ("Form Orders", "Form Customers", "Table Products"):
            with self.subTest(name=name):
                arguments = ("--object", name, "--records", "all")
                expected = run(DESCRIBE, SAMPLES / "harbour.db", *arguments).stdout
                self.assertEqual(contents(self.succeed(*arguments)), contents(expected))
        listed = run(DESCRIBE, SAMPLES / "harbour.db", "--list").stdout.splitlines()
        self.assertEqual(sorted(self.succeed("--list").splitlines()), sorted(
            [*listed, "Table Parts", "Form Piers", "Table Piers", "Table Moves", "Form Flags", "Table Flags", "Table Boats"]))

    def test_records_are_chosen(self):
        for choice, numbers in (("ordernumber=2024-0188", ["2024-0188"]), ("CustomerID=43", ["2024-0189"]),
                                ("2", ["2024-0187", "2024-0188"])):
            with self.subTest(choice=choice):
                root = ElementTree.fromstring(self.succeed("--object", "Form Orders", "--records", choice))
                self.assertEqual([record.findtext("Control[@Name='OrderNumber']/DisplayValue")
                                  for record in root.findall("Data/Records/Record")], numbers)

    def test_long_texts_and_pictures(self):
        target = self.folder / "parts.xml"
        ended = self.describe("--object", "Parts", "--records", "all", "--output", target)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        records = ElementTree.parse(target).findall("Data/Records/Record")
        self.assertEqual([record.findtext("Control[@Name='Note']/DisplayValue") for record in records],
                         ["é" * 5000, "a\U0001F600b", ""])
        picture, = (self.folder / "parts-pictures").iterdir()
        self.assertEqual(picture.read_bytes(), bytes.fromhex(GIF))

    def test_from_a_database_to_letters(self):
        data, template = self.folder / "orders.xml", self.folder / "order.docx"
        self.succeed("--object", "Form Orders", "--records", "all", "--output", data)
        for command in ((PROGRAM, "--exit-status", "-xmlfile", data, "-template", template, "-hidden"),
                        (PROGRAM, "--fill", template, "--data", data, "--strict", "--output",
                         self.folder / "{OrderNumber}.docx")):
            ended = run(*command)
            self.assertEqual((ended.returncode, ended.stderr), (0, ""), command)
        letter = docx.Document(self.folder / "2024-0187.docx")
        self.assertIn("CustomerID: Måns & Sons Boatyard", [paragraph.text.rstrip() for paragraph in letter.paragraphs])
        self.assertEqual(len(letter.tables[0].rows), 3)

    def test_records_are_chosen_by_a_decimal_number(self):
        for choice, count in (("UnitPrice=31.95", 1), ("UnitPrice=18.4", 1), ("UnitPrice=31.954", 0),
                              ("UnitPrice=32", 0)):
            with self.subTest(choice=choice):
                ended = self.describe("--object", "Table Products", "--records", choice)
                found = ElementTree.fromstring(ended.stdout).findall("Data/Records/Record") if ended.stdout else []
                self.assertEqual(len(found), count, ended.stderr)

    def test_two_keys_of_several_columns_to_one_table(self):
        root = ElementTree.fromstring(self.succeed("--object", "Form Piers", "--records", "all"))
        boats = [[[move.findtext("Control[@Name='Boat']/DisplayValue") for move in subform.findall("Records/Record")]
                  for subform in record if subform.get("Name").startswith("Moves")]
                 for record in root.findall("Data/Records/Record")]
        # The driver decides which of the two subforms is the first.
        self.assertEqual([sorted(both) for both in boats], [[[], ["Ida"]], [[], ["Per"]], [[], ["Per"]], [[], ["Ida"]]])

    def test_a_key_that_is_not_the_primary_one(self):
        boats = ElementTree.fromstring(self.succeed("--object", "Boats", "--records", "all"))
        self.assertEqual([record.findtext("Control[@Name='Flag']/DisplayValue")
                          for record in boats.findall("Data/Records/Record")], ["Sweden", "Sweden"])
        flags = ElementTree.fromstring(self.succeed("--object", "Form Flags", "--records", "all"))
        self.assertEqual([len(record.findall("Control/Records/Record")) for record in flags.findall("Data/Records/Record")],
                         [0, 2])

    def refused(self, ended, sentence):
        self.assertEqual((ended.returncode, ended.stdout), (1, ""))
        self.assertTrue(ended.stderr.startswith("mergeloom-describe: "), ended.stderr)
        self.assertEqual(ended.stderr.count("\n"), 1, ended.stderr)
        self.assertIn(sentence, ended.stderr)
        return ended.stderr


class ServerTest(SourceTest):
    """Tests with a server that requires a password. It is started once for all tests."""

    server_type = None
    listed = ()  # the arguments for the objects whose keys the driver lists, too

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        try:
            cls.server = cls.server_type()
        except NotThere as reason:
            raise unittest.SkipTest(str(reason)) from reason
        cls.addClassCleanup(cls.server.stop)
        cls.source, cls.password = cls.server.source, PASSWORD
        cls.server.load(HARBOUR)
        cls.server.load(cls.parts)
        cls.server.load(PIERS)

    @unittest.skipIf(os.environ.get("MERGELOOM_SANITIZE") == "1", "sanitizers have to be loaded first")
    def test_keys_of_single_tables_are_those_of_all(self):
        """Compares the keys of the driver's list with those of the database's own catalog."""
        refusing = Path(PROGRAM).with_name("test_refused_keys.so")
        self.assertTrue(refusing.exists())
        expected = self.describe(*self.listed)
        # Without the keys there would be no form.
        self.assertIn('<Form Name="Piers"', expected.stdout)
        for refused in ("all", "each"):
            with self.subTest(refused=refused), mock.patch.dict(os.environ, LD_PRELOAD=str(refusing),
                                                                MERGELOOM_REFUSED_KEYS=refused):
                ended = self.describe(*self.listed)
                self.assertEqual((ended.returncode, ended.stdout), (0, expected.stdout))

    def test_no_password_is_told(self):
        for ended in (run(DESCRIBE, self.source), self.describe(password="not this one")):
            told = self.refused(ended, "could not be read: ")
            self.assertNotIn("not this one", told)
        document = self.describe().stdout
        self.assertIn("<Structure>", document)
        self.assertNotIn("gull", document)
        self.refused(self.describe("--object", "Orders", "--records", "CustomerID=9"), "No record of 'Orders'")

    def test_the_password_is_asked_for_on_a_terminal(self):
        process, terminal = pty.fork()
        if process == 0:
            os.environ.pop("MERGELOOM_ODBC_PASSWORD", None)
            os.execv(DESCRIBE, [str(DESCRIBE), self.source, "--list"])
        told = b""
        while b"Password: " not in told:
            told += os.read(terminal, 1000)
        os.write(terminal, PASSWORD.encode() + b"\n")
        try:
            while piece := os.read(terminal, 1000):
                told += piece
        except OSError:
            # The terminal is closed at its other end.
            pass
        self.assertEqual(os.waitstatus_to_exitcode(os.waitpid(process, 0)[1]), 0, told)
        self.assertIn(b"Form Orders", told)
        self.assertNotIn(b"gull", told)


class OverSqlite(SourceTest, ProgramTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        try:
            need_driver("SQLite3")
        except NotThere as reason:
            raise unittest.SkipTest(str(reason)) from reason
        path = cls.shared_folder() / "harbour.db"
        with sqlite3.connect(path) as connection:
            connection.executescript(HARBOUR + PIERS)
            connection.executescript(f"CREATE TABLE Parts (ID INTEGER PRIMARY KEY, Note TEXT, Photo BLOB);"
                                     f"INSERT INTO Parts VALUES (1, '{'é' * 5000}', x'{GIF}'), "
                                     f"(2, 'a\U0001F600b', NULL), (3, NULL, NULL);")
        cls.source = f"odbc:DRIVER=SQLite3;Database={path}"

    def test_a_password_in_the_source_is_refused(self):
        for source in ("odbc:DSN=shop;PWD=gull", "odbc:DSN=shop; password = {gu;ll}", "odbc:pwd=gull"):
            told = self.refused(run(DESCRIBE, source), "The source has a password in it")
            self.assertNotIn("gull", told)
            self.assertNotIn("gu;ll", told)

    def test_sources_that_are_not_there(self):
        self.refused(run(DESCRIBE, "odbc:"), "The source names no data source, as 'odbc:DSN=shop' does.")
        self.refused(run(DESCRIBE, "odbc:DSN=not there"), "The database 'odbc:DSN=not there' could not be read: ")

    def test_a_data_source_is_named_by_its_file(self):
        (self.folder / "odbc.ini").write_text(f"[harbour]\nDriver=SQLite3\nDatabase={self.source.rpartition('=')[2]}\n")
        for source in ("odbc:DSN=harbour", "odbc:harbour"):
            done = subprocess.run([DESCRIBE, source, "--object", "Orders"], capture_output=True, text=True, check=False,
                                  env={**os.environ, "ODBCINI": str(self.folder / "odbc.ini")})
            self.assertEqual(done.stderr, "")
            self.assertEqual(ElementTree.fromstring(done.stdout).get("Name"), "harbour")


class OverPostgreSql(ServerTest, ProgramTest):
    server_type = PostgreSql
    parts = (f"CREATE TABLE Parts (ID INTEGER PRIMARY KEY, Note TEXT, Photo BYTEA);"
             f"INSERT INTO Parts VALUES (1, '{'é' * 5000}', decode('{GIF}', 'hex')), "
             f"(2, 'a\U0001F600b', NULL), (3, NULL, NULL);")

    def test_tables_of_one_name_are_told_apart_by_their_schemas(self):
        self.server.execute('CREATE SCHEMA store; CREATE TABLE store.pier (a INTEGER PRIMARY KEY); INSERT INTO store.pier '
                            'VALUES (7); CREATE TABLE public.pier (b INTEGER);')
        self.addCleanup(self.server.execute, "DROP SCHEMA store CASCADE; DROP TABLE public.pier;")
        listed = self.succeed("--list").splitlines()
        self.assertIn("Table public.pier", listed)
        self.assertIn('<Control Name="a"><DisplayValue>7<',
                      self.succeed("--object", "store.pier", "--records", "all"))


class OverMariaDb(ServerTest, ProgramTest):
    server_type = MariaDb
    # The driver leaves out the key of the boats, since it does not refer to a primary key.
    listed = ("--object", "Form Orders", "--object", "Form Customers", "--object", "Form Piers")
    parts = (f"CREATE TABLE Parts (ID INTEGER PRIMARY KEY, Note TEXT, Photo BLOB);"
             f"INSERT INTO Parts VALUES (1, '{'é' * 5000}', x'{GIF}'), (2, 'a\U0001F600b', NULL), (3, NULL, NULL);")


if __name__ == "__main__":
    unittest.main()
