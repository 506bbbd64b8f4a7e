"""Runs the program for Windows with `--office=com` under Wine, where a double is registered in place of Word and Excel,
and compares the bytes of its files with those of the embedded office.

MERGELOOM_WINDOWS and MERGELOOM_LINUX name the folders of the programs, MERGELOOM_ROOT the folder of the sources.
"""
import subprocess
import time
import unittest
import uuid
import zipfile
from pathlib import Path

import test_windows
from test_windows import LINUX, WINDOWS, WINE, run, windows

SERVER = WINDOWS / "automation_server.exe"
CLASSES = r"HKLM\Software\Classes"
WORD = ("Word.Application", "{2F6B6C0A-5D0E-4D1B-8E77-419A602B3C11}")
EXCEL = ("Excel.Application", "{2F6B6C0A-5D0E-4D1B-8E77-419A602B3C12}")
LONGEST = 60  # seconds, after which a test has failed

# Each row has a title and the calls that are made one after the other in a folder of their own.
RUNS = [
    ("a document", [["-xmlfile", "orders.xml", "-template", "order.docx", "-hidden"]]),
    ("a form as a template", [["-xmlfile", "orders.xml", "-template", "form.dotx", "-hidden", "formview"]]),
    ("a table", [["-xmlfile", "orders.xml", "-template", "list.dotx", "-hidden", "-listing", "-fields",
                  "OrderDate;OrderNumber"]]),
    ("a document that is there",
     [["-xmlfile", "orders.xml", "-template", "order.docx", "-hidden"],
      ["--at", "end", "-xmlfile", "Größe 日本.xml", "-usedocument", "order.docx", "-hidden"]]),
    ("all objects", [["--all", "templates", "-xmlfile", "records.xml"]]),
    ("labels", [["-xmlfile", "orders.xml", "-template", "labels.docx", "-hidden", "-label", "sheet.docx"]]),
    ("merge fields", [["--convert-fields", "fields.docx", "--output", "places.docx"],
                      ["--places", "--json", "places.docx"]]),
    ("a workbook", [["-excel", "-xmlfile", "orders.xml", "-template", "order.xlsx", "-hidden"],
                    ["--places", "order.xlsx"]]),
    ("a workbook that is there",
     [["-excel", "-xmlfile", "orders.xml", "-template", "order.xltx", "-hidden"],
      ["-excel", "-xmlfile", "Größe 日本.xml", "-usedocument", "order.xltx", "-hidden"]]),
]

FIELD = """<w:p><w:r><w:t>Dear </w:t></w:r><w:r><w:fldChar w:fldCharType="begin"/></w:r>
<w:r><w:instrText> MERGEFIELD Name </w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r>
<w:r><w:t>Name</w:t></w:r><w:r><w:fldChar w:fldCharType="end"/></w:r></w:p>"""
CELL = "<w:tc><w:tcPr><w:tcW w:w='2000' w:type='dxa'/></w:tcPr><w:p/></w:tc>"
SHEET = ("<w:p><w:r><w:t>To: </w:t></w:r></w:p><w:tbl><w:tblPr/><w:tblGrid><w:gridCol w:w='2000'/><w:gridCol w:w='2000'/></w:tblGrid>" +
         2 * f"<w:tr>{2 * CELL}</w:tr>" + "</w:tbl><w:p/>")


def register(class_, options=""):
    name, identifier = class_
    for key, value in [(rf"{CLASSES}\{name}\CLSID", identifier),
                       (rf"{CLASSES}\CLSID\{identifier}\LocalServer32", f'"Z:{SERVER}" {options}')]:
        subprocess.run([WINE, "reg", "add", key, "/ve", "/d", value, "/f"], check=True, capture_output=True)


def unregister(class_):
    name, identifier = class_
    for key in (rf"{CLASSES}\{name}", rf"{CLASSES}\CLSID\{identifier}"):
        subprocess.run([WINE, "reg", "delete", key, "/f"], check=False, capture_output=True)


def servers():
    """Returns the processes of the double."""
    found = []
    for entry in Path("/proc").glob("[0-9]*/cmdline"):
        try:
            if SERVER.name.encode() in entry.read_bytes():
                found.append(entry.parent.name)
        except OSError:
            pass  # it has ended
    return found


def write_document(path, body):
    """Writes a Word document with this body."""
    space = "http://schemas.openxmlformats.org"
    word = "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"
    with zipfile.ZipFile(path, "w") as package:
        package.writestr("[Content_Types].xml", f"""<Types xmlns="{space}/package/2006/content-types">
<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
<Override PartName="/word/document.xml" ContentType="{word}"/></Types>""")
        package.writestr("_rels/.rels", f"""<Relationships xmlns="{space}/package/2006/relationships">
<Relationship Id="rId1" Type="{space}/officeDocument/2006/relationships/officeDocument"
 Target="word/document.xml"/></Relationships>""")
        package.writestr("word/document.xml", f"""<w:document xmlns:w="{space}/wordprocessingml/2006/main">
<w:body>{body}</w:body></w:document>""")


class InstalledOffice(test_windows.SameResults):
    test_of_both_systems = None

    @classmethod
    def setUpClass(cls):
        for class_ in (WORD, EXCEL):
            register(class_)
            cls.addClassCleanup(unregister, class_)

    def folder(self, name):
        folder = super().folder(name)
        write_document(folder / "fields.docx", FIELD)
        write_document(folder / "sheet.docx", SHEET)
        return folder

    def contents(self, folder):
        return {file.relative_to(folder): file.read_bytes() for file in folder.rglob("*") if file.is_file()}

    def assert_no_server_stays(self):
        deadline = time.monotonic() + LONGEST
        while servers() and time.monotonic() < deadline:
            time.sleep(0.05)
        self.assertEqual(servers(), [])

    def test_same_results_as_the_embedded_office(self):
        for number, (about, calls) in enumerate(RUNS):
            with self.subTest(about):
                own, others = self.folder(f"com {number}"), self.folder(f"linux {number}")
                for arguments in calls:
                    result = run(windows("mergeloom", "--office=com", *arguments), own)
                    expected = run([LINUX / "mergeloom", *arguments], others)
                    self.assertEqual(result[:2], expected[:2], (arguments, result[2], expected[2]))
                ours, theirs = self.contents(own), self.contents(others)
                self.assertEqual(sorted(ours), sorted(theirs))
                self.assertEqual([name for name in ours if ours[name] != theirs[name]], [])
                self.assertGreater(len(ours), len(self.contents(self.folder(f"before {number}"))), "nothing was written")
        self.assert_no_server_stays()

    def test_calls_are_traced(self):
        folder = self.folder("traced")
        run(windows("mergeloom", "--office=com", "--trace-calls", "calls.log", "-xmlfile", "orders.xml", "-template",
                    "order.docx", "-hidden"), folder)
        calls = (folder / "calls.log").read_text(encoding="utf-8").splitlines()
        self.assertEqual(calls[0], "start Word.Application")
        self.assertEqual(calls[-1], "Application.Quit(SaveChanges:=0) -> nothing")
        for start in ('Document.SaveAs(FileName:="Z:', 'Bookmarks.Add(Name:="OrderDate", Range:=object) -> object'):
            self.assertTrue(any(call.startswith(start) for call in calls), start)

    def test_an_office_ends_with_a_run_that_is_ended_by_force(self):
        folder = self.folder("killed")
        # The twelfth call of the double never returns. Wine does not start a class again after its program was killed.
        identifier = "{" + str(uuid.uuid4()).upper() + "}"
        register((WORD[0], identifier), f"--word {identifier} --fault 4 12 1")
        self.addCleanup(register, WORD)
        self.addCleanup(unregister, (WORD[0], identifier))
        log = folder / "calls.log"
        with subprocess.Popen([str(word) for word in windows("mergeloom", "--office=com", "--trace-calls", "calls.log",
                                                             *RUNS[0][1][0])],
                              cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL) as running:
            deadline = time.monotonic() + LONGEST
            while not (log.exists() and len(log.read_bytes().splitlines()) > 10) and time.monotonic() < deadline:
                time.sleep(0.05)
            self.assertEqual(len(servers()), 1)
            running.kill()
        self.assert_no_server_stays()

    def test_what_is_not_installed_is_said(self):
        folder = self.folder("missing")
        unregister(WORD)
        self.addCleanup(register, WORD)
        status, _, errors = run(windows("mergeloom", "--office=com", "--exit-status", "-xmlfile", "orders.xml",
                                        "-template", "order.docx", "-hidden"), folder)
        self.assertEqual(status, 1)
        self.assertIn("no Word is installed", errors)
        self.assertFalse((folder / "order.docx").exists())


if __name__ == "__main__":
    unittest.main()
