"""Runs the programs for Windows under Wine and those for Linux with the same arguments, and compares the bytes of their
files.

MERGELOOM_WINDOWS and MERGELOOM_LINUX name the folders of the programs, MERGELOOM_ROOT the folder of the sources.
"""
import contextlib
import os
import sqlite3
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(os.environ["MERGELOOM_ROOT"])
WINE = ROOT / "tools" / "wine"
WINDOWS = Path(os.environ["MERGELOOM_WINDOWS"])
LINUX = Path(os.environ["MERGELOOM_LINUX"])
SAMPLES = ROOT / "samples"

FORM = """<?xml version="1.0" encoding="UTF-8"?>
<Form Name="Brief" CurrentView="1" DefaultView="0">
  <Control Name="Straße-Größe" Caption="R &amp;&amp; D" ControlType="Textbox"/>
  <Control Name="straße-größe" ControlType="Textbox"/>
  <Control Name="Ταξινόμησης" Caption="日本語" ControlType="Textbox"/>
  <Control Name="ΤΑΞΙΝΌΜΗΣΗΣ" ControlType="Textbox"/>
  <Control Name="Ĳsselmeer 𝒳 Łódź" ControlType="Textbox"/>
</Form>
"""

MAPPED = ["-xmlfile", "orders.xml", "-template", "order.docx", "-hidden"]
BOOK = ["-excel", "-xmlfile", "orders.xml", "-template", "order.xlsx", "-hidden"]
RECORDS = ["harbour.db", "--object", "Orders", "--records", "all", "--output", "records.xml"]
OF_RECORDS = ["-xmlfile", "records.xml", "-template", "letter.docx", "-hidden"]

# Each row has a title and the calls that are made one after the other in a folder of their own.
RUNS = [
    ("a document", [("mergeloom", MAPPED)]),
    ("a form as a template",
     [("mergeloom", ["-xmlfile", "orders.xml", "-template", "form.dotx", "-hidden", "formview"])]),
    ("a table", [("mergeloom", ["-xmlfile", "orders.xml", "-template", "list.dotx", "-hidden", "-listing", "-fields",
                                "OrderDate;OrderNumber"])]),
    ("a workbook", [("mergeloom", BOOK)]),
    ("names of many letters",
     [("mergeloom", ["-xmlfile", "Größe 日本.xml", "-template", "Straße Łódź.dotx", "-hidden"]),
      ("mergeloom", ["-excel", "-xmlfile", "Größe 日本.xml", "-template", "Straße Łódź.xltx", "-hidden"])]),
    ("all objects", [("mergeloom", ["--all", "templates", "-xmlfile", "records.xml"])]),
    ("a document that is there",
     [("mergeloom", MAPPED),
      ("mergeloom", ["--at", "end", "-xmlfile", "Größe 日本.xml", "-usedocument", "order.docx", "-hidden"])]),
    ("a workbook that is there",
     [("mergeloom", BOOK),
      ("mergeloom", ["-excel", "-xmlfile", "Größe 日本.xml", "-usedocument", "order.xlsx", "-hidden"])]),
    ("the lists", [("mergeloom", MAPPED), ("mergeloom", BOOK),
                   ("mergeloom", ["--list-objects", "--json", "-xmlfile", "orders.xml"]),
                   ("mergeloom", ["--places", "--json", "order.docx"]), ("mergeloom", ["--places", "order.xlsx"]),
                   ("mergeloom", ["--check", "order.docx", "-xmlfile", "Größe 日本.xml"])]),
    ("records and their letters",
     [("mergeloom", OF_RECORDS),
      ("mergeloom", ["--fill", "letter.docx", "--data", "records.xml", "--output", "{OrderNumber}.docx"]),
      ("mergeloom", ["--fill", "letter.docx", "--data", "records.xml", "--one-document", "--output", "all.docx"])]),
    ("records and their workbooks",
     [("mergeloom", ["-excel", "-xmlfile", "records.xml", "-template", "book.xlsx", "-hidden"]),
      ("mergeloom", ["--fill", "book.xlsx", "--data", "records.xml", "--output", "{OrderNumber}.xlsx"])]),
    # There are no records, since dates and numbers in them depend on the conventions of each system.
    ("a database", [("mergeloom-describe", ["harbour.db", "--output", "harbour.xml"]),
                    ("mergeloom-describe", ["harbour.db"]), ("mergeloom-describe", ["harbour.db", "--list"])]),
    ("errors", [("mergeloom", ["--exit-status", "-xmlfile", "none.xml", "-template", "a.docx", "-hidden"]),
                ("mergeloom", ["--fill", "none.docx", "--data", "orders.xml", "--output", "a.docx"]),
                ("mergeloom", ["--nonsense"]), ("mergeloom-describe", ["orders.xml"])]),
]


def run(command, folder, **more):
    """Runs the command in the folder. Returns its status, its output and its errors."""
    environment = dict(os.environ, LC_ALL="C.UTF-8", WINEDEBUG="-all")
    done = subprocess.run([str(word) for word in command], cwd=folder, stdin=subprocess.DEVNULL, capture_output=True,
                          env=environment, timeout=300, check=False, **more)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


def windows(program, *arguments):
    return [WINE, WINDOWS / f"{program}.exe", *arguments]


class SameResults(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.scratch = Path(scratch.name)

    def folder(self, name):
        folder = self.scratch / name
        folder.mkdir()
        for sample in ("orders.xml", "harbour.db"):
            (folder / sample).write_bytes((SAMPLES / sample).read_bytes())
        (folder / "Größe 日本.xml").write_text(FORM, encoding="utf-8")
        (folder / "templates").mkdir()
        run([LINUX / "mergeloom-describe", *RECORDS], folder)
        return folder

    def test_of_both_systems(self):
        for number, (about, calls) in enumerate(RUNS):
            with self.subTest(about):
                here, there = self.folder(f"linux{number}"), self.folder(f"windows{number}")
                for program, arguments in calls:
                    native = run([LINUX / program, *arguments], here)
                    foreign = run(windows(program, *arguments), there)
                    self.assertEqual(native[:2], foreign[:2], (arguments, native[2], foreign[2]))
                    # Sentences contain the names of files in the notation of each system.
                    self.assertEqual(len(native[2].splitlines()), len(foreign[2].splitlines()),
                                     (native[2], foreign[2]))
                ours = {file.relative_to(here): file.read_bytes() for file in here.rglob("*") if file.is_file()}
                theirs = {file.relative_to(there): file.read_bytes() for file in there.rglob("*") if file.is_file()}
                self.assertEqual(sorted(ours), sorted(theirs))
                self.assertEqual([name for name in ours if ours[name] != theirs[name]], [])
                if about != "errors":
                    self.assertGreater(len(ours), 4, "nothing was written")


class Windows(SameResults):
    """Tests of features that only Windows has."""

    test_of_both_systems = None

    def test_paths(self):
        folder = self.folder("paths")
        long = folder / ("n" * 120) / ("m" * 120) / "Straße"
        long.mkdir(parents=True)
        drive = "Z:" + str(folder).replace("/", "\\")
        deep = "Z:" + str(long).replace("/", "\\")
        expected = folder / "expected.docx"
        run([LINUX / "mergeloom", "-xmlfile", "orders.xml", "-template", expected, "-hidden"], folder)
        for target, file in [
            (f"{drive}\\drive.docx", folder / "drive.docx"),
            (f"{drive}\\a folder.docx", folder / "a folder.docx"),
            ("slash/../slash.docx", folder / "slash.docx"),
            (f"{deep}\\letter.docx", long / "letter.docx"),
        ]:
            with self.subTest(target):
                (folder / "slash").mkdir(exist_ok=True)
                status, _, errors = run(
                    windows("mergeloom", "--exit-status", "-xmlfile", f"{drive}\\orders.xml", "-template", target,
                            "-hidden"), folder)
                self.assertEqual((status, errors), (0, ""))
                self.assertEqual(file.read_bytes(), expected.read_bytes())

    def test_values_with_blanks_need_no_quotes(self):
        folder = self.folder("blanks")
        status, _, errors = run(
            windows("mergeloom", "--exit-status", "-template", "my", "first", "letter.docx", "-hidden", "/xmlfile",
                    "orders.xml"), folder)
        self.assertEqual((status, errors), (0, ""))
        self.assertTrue((folder / "my first letter.docx").is_file())

    def test_dates_are_shown_by_the_users_settings(self):
        key = r"HKCU\Control Panel\International"
        query = [WINE, "reg", "query", key, "/v"]
        folder = self.folder("settings")
        for name, value in (("sShortDate", "d' de 'MMM yyyy"), ("sTimeFormat", "HH' h 'mm")):
            former = run([*query, name], folder)[1].split("REG_SZ")[-1].strip()
            self.addCleanup(run, [WINE, "reg", "add", key, "/v", name, "/d", former, "/f"], folder)
            run([WINE, "reg", "add", key, "/v", name, "/d", value, "/f"], folder)
        with contextlib.closing(sqlite3.connect(folder / "days.db")) as database:
            database.execute("CREATE TABLE Days (Day DATETIME)")
            database.execute("INSERT INTO Days VALUES ('2024-05-04 09:07:03')")
            database.commit()
        status, output, errors = run(windows("mergeloom-describe", "days.db", "--object", "Days", "--records", "all"),
                                     folder)
        self.assertEqual((status, errors), (0, ""))
        self.assertIn("<DisplayValue>4 de May 2024 09 h 07</DisplayValue>", output)

    def test_what_there_is_not_is_said(self):
        folder = self.folder("missing")
        for arguments, sentence in [
            (["-xmlfile", "orders.xml"], "There is no window on Windows yet."),
            (["--office=libreoffice", "-xmlfile", "orders.xml", "-template", "a.docx", "-hidden"],
             "On Windows no file is converted"),
            (["-xmlfile", "orders.xml", "-template", "a.odt", "-hidden"], "LibreOffice"),
        ]:
            with self.subTest(arguments=arguments):
                self.assertIn(sentence, run(windows("mergeloom", *arguments), folder)[2])
        for source in ("odbc:DSN=shop", "shop.accdb"):
            (folder / "shop.accdb").write_bytes(b"\0\1\0\0Standard ACE DB\0" + bytes(4096))
            status, _, errors = run(windows("mergeloom-describe", source), folder)
            self.assertEqual(status, 1)
            self.assertIn("only files of SQLite", errors)


if __name__ == "__main__":
    unittest.main()
