#!/usr/bin/env python3
"""Describes files of Access: those that the tests write, and those of the folder that MERGELOOM_ACCESS_FILES names.

MERGELOOM names the program, beside which mergeloom-describe lies; MERGELOOM_ROOT names the folder of the sources.
"""
import os
import random
import resource
import shutil
import signal
import subprocess
import time
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import docx

from access_file import (ACE14, BIG, BINARY, BOOLEAN, BYTE, COMPLEX, DATE, DOUBLE, JET3, JET4, LONG, MEMO, MONEY, NUMERIC,
                         OLE, REPLICATION_ID, SHORT, SINGLE, TEXT, AccessFile, Column, Deleted, Moved)
from program_test import PROGRAM, ProgramTest

DESCRIBE = Path(PROGRAM).with_name("mergeloom-describe")
FOLDER = Path(os.environ.get("MERGELOOM_ACCESS_FILES") or "no folder")
VERSIONS = (JET3, JET4, ACE14)
GIF = bytes.fromhex("47494638396101000100800000000000ffffff21f90401000000002c000000000100010000020144003b")


def run(*command, **more):
    return subprocess.run([*map(str, command)], capture_output=True, text=True, check=False, **more)


def records_of(document):
    """Returns the texts of each record's controls: the shown one, and also the stored value if it differs."""
    return [[tuple(part.text or "" for part in control) for control in record]
            for record in ElementTree.fromstring(document).findall("Data/Records/Record")]


class DescribeAccess(ProgramTest):
    def describe(self, file, *arguments):
        path = self.folder / "made.mdb"
        if isinstance(file, AccessFile):
            file.save(path)
        else:
            path = file
        return run(DESCRIBE, path, *arguments)

    def succeed(self, file, *arguments):
        ended = self.describe(file, *arguments)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        return ended.stdout

    def harbour(self, version=JET4):
        file = AccessFile(version)
        file.add_table("Towns", [Column("Id", LONG), Column("Name", TEXT), Column("Note", MEMO)],
                       [(1, "Bosham", "short"), (2, "Malmö", "m" * 1500), (3, None, "long " * 2000)], keys=[[0]],
                       captions={"Name": "Town & port"})
        file.add_table("Trips", [Column("Id", LONG), Column("Town", LONG), Column("Boat", TEXT)],
                       [(8, 2, "Ida"), (7, 1, "Per"), (9, 2, "Ash"), (10, None, "Elm")], keys=[[0], [2]])
        file.add_relation("TownsTrips", "TRIPS", ["town"], "Towns", ["Id"])
        file.add_query("Boats", [(5, None, "Trips", "t", None), (5, None, "Towns", None, None),
                                 (6, 0, None, None, "[t].[Boat]"), (6, 0, "Port", None, "Towns.Name"),
                                 (6, 0, "Next", None, "[t].[Id]+1")])
        file.add_query("All boats", [(3, 1, None, None, None), (5, None, "Boats", None, None)])
        file.add_query("Change", [(1, 4, None, None, None)], flags=0x30)
        return file

    def test_tables_relations_captions_and_queries(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                file = self.harbour(version)
                self.assertEqual(self.succeed(file, "--list").splitlines(),
                                 ["Form Towns", "Table Towns", "Table Trips", "Query Boats", "Query All boats"])
                structure = ElementTree.fromstring(self.succeed(self.folder / "made.mdb")).find("Structure")
                towns = structure.find("Form[@Name='Towns']/Sections/Section/Controls")
                self.assertEqual([(control.get("Name"), control.get("Caption")) for control in towns],
                                 [("Id", "Id"), ("Name", "Town && port"), ("Note", "Note"), ("Trips", "Trips")])
                self.assertEqual(structure.find("Table[@Name='Trips']/Controls/Control[@Name='Town']").get("ControlType"),
                                 "Combobox")
                for query in ("Boats", "All boats"):
                    controls = structure.find(f"Query[@Name='{query}']/Controls")
                    self.assertEqual([(control.get("Name"), control.get("Caption")) for control in controls],
                                     [("Boat", "Boat"), ("Port", "Town && port"), ("Next", "Next")])

    def test_records_are_nested_and_looked_up(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                root = ElementTree.fromstring(self.succeed(self.harbour(version), "--object", "Towns", "--records", "all"))
                towns = root.findall("Data/Records/Record")
                self.assertEqual([record.findtext("Control[@Name='Note']/DisplayValue") for record in towns],
                                 ["short", "m" * 1500, "long " * 2000])
                self.assertEqual([[trip.findtext("Control[@Name='Boat']/DisplayValue") for trip in
                                   record.findall("Control[@Name='Trips']/Records/Record")] for record in towns],
                                 [["Per"], ["Ida", "Ash"], []])
                trips = self.succeed(self.folder / "made.mdb", "--object", "Trips", "--records", "TOWN=2")
                self.assertEqual(records_of(trips), [[("8",), ("Malmö", "2"), ("Ida",)], [("9",), ("Malmö", "2"), ("Ash",)]])

    def test_values_of_all_types(self):
        cases = (
            (BOOLEAN, [(True, ("Yes", "true")), (False, ("No", "false"))]),
            (BYTE, [(255, ("255",)), (None, ("",))]),
            (SHORT, [(-32768, ("-32768",))]),
            (LONG, [(-2147483648, ("-2147483648",))]),
            (MONEY, [(9223372036854775807, ("922337203685477.58", "922337203685477.5807")), (-5, ("0.00", "-0.0005")),
                     (-123450000, ("-12345.00", "-12345"))]),
            (SINGLE, [(0.1, ("0.1",)), (1.5e10, ("15000000000",))]),
            (DOUBLE, [(0.1, ("0.1",)), (-1e-5, ("-0.00001",))]),
            (DATE, [(36526.25, ("2000-01-01 06:00:00", "2000-01-01T06:00:00")), (36526.0, ("2000-01-01",) * 2),
                    (0.5, ("12:00:00",) * 2), (-1.25, ("1899-12-29 06:00:00", "1899-12-29T06:00:00")),
                    (36525.9999999, ("2000-01-01",) * 2), (-657434.0, ("0100-01-01",) * 2)]),
            (REPLICATION_ID, [(bytes(range(16)), ("{03020100-0504-0706-0809-0A0B0C0D0E0F}",))]),
            (NUMERIC, [(b"\x01" + bytes(12) + b"\x39\x30\0\0", ("-12.345", "-12.345")),
                       (b"\0" + bytes(4) + b"\x01\0\0\0" + bytes(8), ("18446744073709551.616",) * 2)]),
            (TEXT, [("Måns & Søn", ("Måns & Søn",)), ("", ("",)), (b"\xff\xfeAb\0\xac\x20\0c", ("Ab\u20acc",)),
                    (b"a\0\x3d\xd8\0\xdeb\0", ("a\U0001F600b",))]),
        )
        for kind, values in cases:
            with self.subTest(kind=kind):
                file = AccessFile(ACE14)
                file.add_table("t", [Column("id", LONG), Column("v", kind, scale=3)],
                               [(number, value) for number, (value, _) in enumerate(values)])
                ended = self.describe(file, "--object", "t", "--records", "all")
                self.assertEqual(ended.stderr, "")
                self.assertEqual([record[1] for record in records_of(ended.stdout)], [shown for _, shown in values])

    def test_pictures(self):
        file = AccessFile()
        file.add_table("parts", [Column("id", LONG), Column("photo", OLE), Column("code", BINARY)],
                       [(1, None, b"12"), (2, GIF, None)], keys=[[0]])
        ended = self.describe(file, "--object", "parts", "--records", "all", "--output", self.folder / "parts.xml")
        self.assertIn("The column 'code' of 'parts' is left out: it holds bytes that are no pictures.", ended.stderr)
        picture, = (self.folder / "parts-pictures").iterdir()
        self.assertEqual(picture.read_bytes(), GIF)

    def test_what_cannot_be_read_is_left_out(self):
        file = AccessFile(ACE14)
        file.add_table("t", [Column("id", LONG), Column("sum", LONG, calculated=True), Column("big", BIG),
                             Column("files", COMPLEX), Column("name", TEXT)], [(1, 2, 3, 4, "kept")])
        file.add_table("~TMPCLP1", [Column("id", LONG)], [])
        file.add_query("Total", [], flags=0x80)
        ended = self.describe(file, "--records", "all")
        for sentence in ("The column 'sum' of 't' is left out: calculated columns cannot be read.",
                         "The column 'big' of 't' is left out: big integers cannot be read.",
                         "The column 'files' of 't' is left out: attachments and columns of several values cannot be read.",
                         "The query 'Total' is left out: it is no select query."):
            self.assertIn(sentence, ended.stderr)
        self.assertEqual(records_of(ended.stdout), [[("1",), ("kept",)]])

    def test_deleted_rows_are_gone_and_moved_rows_are_there_once(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                file = AccessFile(version)
                file.add_table("t", [Column("id", LONG), Column("name", TEXT)],
                               [(1, "a"), Deleted((2, "b")), Moved((3, "c")), (4, "d")], keys=[[0]])
                shown = records_of(self.succeed(file, "--records", "all"))
                self.assertEqual(shown, [[("1",), ("a",)], [("3",), ("c",)], [("4",), ("d",)]])

    def test_rows_on_many_pages(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                file = AccessFile(version)
                file.add_table("t", [Column("id", LONG), Column("name", TEXT)],
                               [(number, f"row {number}") for number in range(3000, 0, -1)], keys=[[0]])
                shown = records_of(self.succeed(file, "--records", "all"))
                self.assertEqual(shown, [[(str(number),), (f"row {number}",)] for number in range(1, 3001)])

    def test_from_a_database_to_letters(self):
        self.harbour().save(self.folder / "harbour.mdb")
        data, template = self.folder / "towns.xml", self.folder / "town.docx"
        for command in ((DESCRIBE, self.folder / "harbour.mdb", "--object", "Towns", "--records", "all", "--output", data),
                        (PROGRAM, "--exit-status", "-xmlfile", data, "-template", template, "-hidden"),
                        (PROGRAM, "--fill", template, "--data", data, "--strict", "--output", self.folder / "{Id}.docx")):
            ended = run(*command)
            self.assertEqual((ended.returncode, ended.stderr), (0, ""), command)
        letter = docx.Document(self.folder / "2.docx")
        self.assertIn("Town & port: Malmö", [paragraph.text.rstrip() for paragraph in letter.paragraphs])
        self.assertEqual([[cell.text.rstrip() for cell in row.cells] for row in letter.tables[0].rows],
                         [["Id", "Boat"], ["8", "Ida"], ["9", "Ash"]])

    def test_refusals(self):
        file = self.harbour()
        file.save(self.folder / "whole.mdb")
        whole = (self.folder / "whole.mdb").read_bytes()
        cases = ((whole[:30], "is damaged"), (whole[:len(whole) // 2], "could not be read: "),
                 (whole[:4096 * 2] + bytes(4096) + whole[4096 * 3:], "it is damaged or encrypted."))
        for content, sentence in cases:
            path = self.folder / "broken.mdb"
            path.write_bytes(content)
            self.assert_refused(run(DESCRIBE, path), sentence)
        self.assert_refused(self.describe(file, "--object", "Boats", "--records", "all"),
                            f"The records of the query 'Boats' in '{self.folder}/made.mdb' can be read by Access only; "
                            "choose a table or form.")

    def test_a_disk_that_is_full(self):
        """The limit for the size of files has the effect of a full disk. The copies of tables exceed it."""
        file = AccessFile()
        file.add_table("Notes", [Column("Id", LONG), Column("Note", MEMO)],
                       [(number, "n" * 1500) for number in range(3000)], keys=[[0]])
        file.save(self.folder / "made.mdb")
        ended = run(DESCRIBE, self.folder / "made.mdb", "--object", "Notes", "--records", "all", restore_signals=False,
                    preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (65536, 65536)))
        self.assertEqual((ended.returncode, ended.stdout), (1, ""))
        self.assertTrue(ended.stderr.startswith("mergeloom-describe: The records could not be kept in a temporary file: "),
                        ended.stderr)

    def test_a_signal_ends_the_wait_for_the_reader(self):
        """A program that sends nothing replaces the one that reads the file."""
        shutil.copy(DESCRIBE, self.folder)
        reader = self.folder / "mergeloom-read-access"
        reader.write_text('#!/bin/sh\necho > "$1.begun"\nexec sleep 1000\n')
        reader.chmod(0o755)
        self.harbour().save(self.folder / "made.mdb")
        with subprocess.Popen([self.folder / DESCRIBE.name, self.folder / "made.mdb"], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True) as process:
            while not (self.folder / "made.mdb.begun").exists():
                self.assertIsNone(process.poll())
                time.sleep(0.01)
            process.terminate()
            output, errors = process.communicate()
        self.assertEqual((process.returncode, output), (128 + signal.SIGTERM, ""))
        self.assertEqual(errors, "mergeloom-describe: It was stopped; no structure document was written.\n")

    def assert_refused(self, ended, sentence):
        self.assertEqual((ended.returncode, ended.stdout), (1, ""))
        self.assertTrue(ended.stderr.startswith("mergeloom-describe: "), ended.stderr)
        self.assertIn(sentence, ended.stderr)

    def damage(self, whole, chance):
        """Returns a shortened copy, or one with other bytes or pages."""
        damaged = bytearray(whole)
        way = chance.randrange(3)
        if way == 0:
            return damaged[:chance.randrange(64, len(damaged))]
        if way == 1:
            for _ in range(chance.choice((1, 20, 400))):
                damaged[chance.randrange(64, len(damaged))] = chance.randrange(256)
            return damaged
        for _ in range(3):
            source, target = (chance.randrange(1, len(damaged) // 2048) * 2048 for _ in range(2))
            damaged[target:target + 2048] = damaged[source:source + 2048]
        return damaged

    def test_damaged_files_end_with_a_document_or_a_sentence(self):
        chance = random.Random(16)
        wholes = []
        for version in VERSIONS:
            self.harbour(version).save(self.folder / "whole.mdb")
            wholes.append(((self.folder / "whole.mdb").read_bytes(), "Towns"))
        wholes += [(path.read_bytes(), "Table1") for path in FOLDER.glob("*.*db")]
        path, refused = self.folder / "damaged.mdb", 0
        for number in range(210):
            whole, name = wholes[number % len(wholes)]
            path.write_bytes(self.damage(whole, chance))
            ended = run(DESCRIBE, path, *(("--object", name, "--records", "all") if number % 2 else ()), timeout=120)
            with self.subTest(number=number):
                if ended.returncode == 0:
                    ElementTree.fromstring(ended.stdout)
                else:
                    refused += 1
                    self.assert_refused(ended, "'")
        self.assertGreater(refused, 20)


@unittest.skipUnless(os.environ.get("MERGELOOM_ACCESS_FILES"), "MERGELOOM_ACCESS_FILES names no folder")
class FilesOfAccess(ProgramTest):
    """Tests with files that Access itself has written."""

    def test_the_folder_has_files(self):
        """A wrong name of the folder would let the other tests pass without any file."""
        self.assertNotEqual(list(FOLDER.glob("*.accdb")), [])
        self.assertNotEqual(list(FOLDER.glob("*.mdb")), [])

    def test_every_file_is_described_or_refused(self):
        for path in sorted(FOLDER.glob("*.*db")):
            with self.subTest(path=path.name):
                ended = run(DESCRIBE, path)
                if path.name == "encrypted.accdb":
                    self.assertEqual((ended.returncode, ended.stdout), (1, ""))
                    self.assertIn("it is encrypted.", ended.stderr)
                else:
                    self.assertEqual(ended.returncode, 0, ended.stderr)
                    ElementTree.fromstring(ended.stdout)

    def test_known_records(self):
        cases = (
            ("testV2010.accdb", "Table1",
             [["a", "b", "0", "0", "0", "0", "1981-12-12", "$0.00", "No"],
              ["abcdefg", "hijklmnop", "2", "222", "333333333", "444.555", "1974-09-21", "$3.50", "Yes"]]),
            ("calcFieldTestV2010.accdb", "Table1",
             [["1", "Bruce", "Wayne", "Gotham", "$1,000,000.00", "50.325000"],
              ["2", "Bart", "Simpson", "Springfield", "($1.00)", "-36.222200"],
              ["3", "John", "Doe", "Nowhere", "$0.00", "0.012300"],
              ["4", "Test", "User", "Hockessin", "$100.00", "102030405060.654321"]]),
            ("attachments2016.accdb", "Table1",
             [["1", "0 Attachments"], ["2", "1 Attachment"], ["3", "3 Attachments"]]),
        )
        for name, table, rows in cases:
            with self.subTest(name=name):
                ended = run(DESCRIBE, FOLDER / name, "--object", table, "--records", "all", env={"LC_ALL": "C"})
                self.assertEqual([[control[0] for control in record] for record in records_of(ended.stdout)], rows)

    def test_queries_by_their_definitions(self):
        for name in ("queryTestV2003.mdb", "queryTestV2007.accdb"):
            ended = run(DESCRIBE, FOLDER / name, "--object", "SelectQuery")
            controls = ElementTree.fromstring(ended.stdout).findall("Structure/Query/Controls/Control")
            self.assertEqual([control.get("Name") for control in controls],
                             ["Table1.col1", "Table1.col2", "Table1.col3", "Table2.col1", "Table2.col2", "Table3.col3"])


if __name__ == "__main__":
    unittest.main()
