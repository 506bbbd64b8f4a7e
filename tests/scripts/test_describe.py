#!/usr/bin/env python3
"""Describes databases of SQLite, maps and fills what comes of it, and reads the letters with python3-docx.

MERGELOOM names the program, beside which mergeloom-describe lies; MERGELOOM_ROOT names the folder of the sources.
"""
import signal
import sqlite3
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import docx

from program_test import PROGRAM, SAMPLE, ProgramTest

DESCRIBE = Path(PROGRAM).with_name("mergeloom-describe")
SAMPLES = SAMPLE.parent
DATABASE = SAMPLES / "harbour.db"


def run(*command, **more):
    return subprocess.run([*map(str, command)], capture_output=True, text=True, check=False, **more)


class Describe(ProgramTest):
    def succeed(self, *command):
        ended = run(*command)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""), command)
        return ended.stdout

    def make(self, statements):
        path = self.folder / "made.db"
        with sqlite3.connect(path) as connection:
            connection.executescript(statements)
        return path

    def test_from_a_database_to_letters(self):
        data, template = self.folder / "orders.xml", self.folder / "order.docx"
        self.succeed(DESCRIBE, DATABASE, "--object", "Orders", "--records", "all", "--output", data)
        self.succeed(PROGRAM, "--exit-status", "-xmlfile", data, "-template", template, "-hidden")
        self.succeed(PROGRAM, "--fill", template, "--data", data, "--strict", "--output",
                     self.folder / "{OrderNumber}.docx")
        with sqlite3.connect(DATABASE) as connection:
            orders = connection.execute("SELECT OrderNumber, CustomerName, Remarks FROM Orders JOIN Customers "
                                        "USING (CustomerID)").fetchall()
            self.assertEqual(len(orders), 3)
            for number, customer, remarks in orders:
                lines = connection.execute("SELECT LineNumber, ProductName, Quantity FROM OrderLines JOIN Products "
                                           "USING (ProductID) WHERE OrderNumber = ? ORDER BY LineNumber", (number,))
                letter = docx.Document(self.folder / f"{number}.docx")
                texts = [paragraph.text.rstrip() for paragraph in letter.paragraphs]
                self.assertIn(f"CustomerID: {customer}", texts)
                self.assertIn(f"Remarks: {remarks or ''}".rstrip(), texts)
                rows = [[cell.text.rstrip() for cell in row.cells][:3] for row in letter.tables[0].rows[1:]]
                self.assertEqual(rows, [[str(value) for value in line] for line in lines])

    def test_the_sample_holds_what_its_statements_say(self):
        with sqlite3.connect(":memory:") as made, sqlite3.connect(DATABASE) as sample:
            made.executescript((SAMPLES / "harbour.sql").read_text(encoding="utf-8"))
            self.assertEqual(list(sample.iterdump()), list(made.iterdump()))

    def test_twenty_tables(self):
        """Each table refers to the table before it, so each one except the last is a form with its successor in it."""
        tables = [f"CREATE TABLE t{number} (id INTEGER PRIMARY KEY, name TEXT, before INTEGER "
                  f"REFERENCES t{max(0, number - 1)});" for number in range(20)]
        rows = [f"INSERT INTO t{number} VALUES ({row}, 'row {row}', {row});" for number in range(20)
                for row in range(3)]
        document = self.folder / "made.xml"
        self.succeed(DESCRIBE, self.make("".join(tables + rows)), "--output", document)
        root = ElementTree.parse(document).getroot()
        forms = root.findall("Structure/Form")
        self.assertEqual([form.get("Name") for form in forms], [f"t{number}" for number in range(19)])
        for number, form in enumerate(forms):
            inner = [control.get("Name") for control in form.iter("Control") if control.get("ControlType") == "Subform"]
            self.assertEqual(inner, [f"t{number + 1}", f"t{number + 2}"][:19 - number])
        listed = run(PROGRAM, "--list-objects", "-xmlfile", document).stdout.splitlines()
        self.assertEqual(len(listed), 1 + 19 + 20)
        (self.folder / "templates").mkdir()
        # A form and a table of the same name get templates of different names, which the program reports.
        mapped = run(PROGRAM, "--exit-status", "--all", self.folder / "templates", "-xmlfile", document)
        self.assertEqual(mapped.returncode, 0, mapped.stderr)
        self.assertEqual(len(list((self.folder / "templates").iterdir())), 39)

    def test_values_are_shown_as_the_user_writes_them(self):
        path = self.make("CREATE TABLE t (price DECIMAL(9, 2)); INSERT INTO t VALUES (1234.5);")
        available = run("locale", "-a").stdout.split()
        for name in ("de_DE.utf8", "fr_FR.utf8"):
            if name in available:
                shown = run(DESCRIBE, path, "--records", "all", env={"LC_ALL": name}).stdout
                self.assertIn(",50</DisplayValue><BoundValue>1234.5<", shown)
        self.assertIn(">1234.50</DisplayValue>", run(DESCRIBE, path, "--records", "all", env={"LC_ALL": "C"}).stdout)

    def test_a_locked_database_is_refused(self):
        path = self.make("CREATE TABLE t (a);")
        with sqlite3.connect(path) as connection:
            connection.execute("BEGIN EXCLUSIVE")
            ended = run(DESCRIBE, path)
        self.assertEqual((ended.returncode, ended.stdout), (1, ""))
        self.assertIn("another program has locked it", ended.stderr)

    def test_damaged_files_end_with_a_document_or_a_sentence(self):
        whole = DATABASE.read_bytes()
        path = self.folder / "damaged.db"
        refused = 0
        for number in range(120):
            damaged = bytearray(whole)
            for place in range(100 + number * 37, len(whole), 4001):
                damaged[place] ^= 1 + number % 255
            path.write_bytes(damaged)
            ended = run(DESCRIBE, path, "--object", "Orders", "--records", "all", timeout=60)
            self.assertIn(ended.returncode, (0, 1))
            if ended.returncode == 0:
                ElementTree.fromstring(ended.stdout)
                continue
            refused += 1
            self.assertEqual(ended.stdout, "")
            self.assertTrue(ended.stderr.startswith("mergeloom-describe: "), ended.stderr)
        self.assertGreater(refused, 0)

    def test_progress_is_written_in_lines(self):
        path = self.folder / "many.db"
        with sqlite3.connect(path) as connection:
            connection.execute("CREATE TABLE numbers (id INTEGER PRIMARY KEY)")
            connection.executemany("INSERT INTO numbers VALUES (?)", [(number,) for number in range(5000)])
        connection.close()
        options = ("--records", "all", "--progress")
        ended = run(DESCRIBE, path, *options, "--output", self.folder / "many.xml")
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        counts = [int(line) for line in ended.stdout.splitlines()]
        self.assertEqual((counts, counts[-1]), (sorted(counts), 5000))
        # Without a file, the document would be printed between the lines.
        ended = run(DESCRIBE, path, *options)
        self.assertEqual((ended.returncode, ended.stdout), (1, ""))
        self.assertIn("needs '--output FILE'", ended.stderr)

    def test_an_interruption_leaves_no_document(self):
        path = self.make("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                         "SELECT i + 1 FROM n WHERE i < 400000) INSERT INTO t SELECT i, hex(zeroblob(200)) FROM n;")
        target = self.folder / "t.xml"
        target.write_text("whole")
        process = subprocess.Popen([DESCRIBE, path, "--records", "all", "--output", target])
        while process.poll() is None and len(list(self.folder.iterdir())) < 3:
            pass
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(), 128 + signal.SIGINT)
        self.assertEqual(target.read_text(), "whole")
        self.assertEqual({entry.name for entry in self.folder.iterdir()}, {"made.db", "t.xml"})


if __name__ == "__main__":
    unittest.main()
