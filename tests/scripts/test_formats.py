"""Maps to and from every format, and reads the results with LibreOffice, with pdftotext and as texts.

The runs are chained: each one maps into the file of the former run and writes the next format, so one run tests the
reading of one format and the writing of another. MERGELOOM names the program.
"""
import os
import re
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

import docx
import lxml.html
import openpyxl

import read_docx
import read_xlsx

PROGRAM = os.environ["MERGELOOM"]

FORM = """<db><Form Name="Letter" CurrentView="1"><Control Name="Customer" Caption="Client" ControlType="Textbox"/>
<Control Name="Größe" Caption="Size" ControlType="Textbox"/></Form></db>"""
LINES = ["Client: Customer", "Size: Größe"]
CELLS = [["Client", "[Customer]"], ["Size", "[Größe]"]]

# The encodings and separators of text formats.
TEXTS = {".csv": ("utf-8", ","), ".txt": ("utf-16", "\t"), ".prn": ("utf-8", None)}

NOT_WRITTEN = {
    "": {".xps": "XPS Document", ".mht": "Single File Web Page", ".mhtml": "Single File Web Page"},
    "-excel": {".xlsb": "Excel Binary Workbook", ".mht": "Single File Web Page", ".xml": "XML Spreadsheet 2003"},
}
CHOICE = {"": "docx, docm, dotx or dotm", "-excel": "xlsx, xlsm, xltx or xltm"}

SPREADSHEET_2003 = """<?xml version="1.0"?><?mso-application progid="Excel.Sheet"?>
<Workbook xmlns="urn:schemas-microsoft-com:office:spreadsheet"
    xmlns:ss="urn:schemas-microsoft-com:office:spreadsheet"><Worksheet ss:Name="Data"><Table><Row ss:Index="5"><Cell>
<Data ss:Type="String">Dear</Data></Cell></Row></Table></Worksheet></Workbook>"""


def lotus_worksheet(text):
    """Returns a worksheet of Lotus 1-2-3 (WK1) with a text in its fifth row: the records begin, label and end."""
    label = struct.pack("<BHH", 0xFF, 0, 4) + b"'" + text.encode("ascii") + b"\0"
    return struct.pack("<HHH", 0, 2, 0x0406) + struct.pack("<HH", 15, len(label)) + label + struct.pack("<HH", 1, 0)


def without_office():
    """Returns the environment of a run that finds no LibreOffice."""
    return {**os.environ, "MERGELOOM_SOFFICE": "/nowhere/soffice"}


class Formats(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        (self.folder / "form.xml").write_text(FORM, encoding="utf-8")
        self.addCleanup(self.check_nothing_passing_stays)

    def check_nothing_passing_stays(self):
        self.assertEqual([path.name for path in self.folder.iterdir() if path.name.startswith(".")], [])

    def run_program(self, *arguments, environment=None):
        return subprocess.run([PROGRAM, "--exit-status", *map(str, arguments)], cwd=self.folder, env=environment,
                              capture_output=True, text=True, timeout=120, check=False)

    def map(self, *arguments, **options):
        return self.run_program("-hidden", "-xmlfile", "form.xml", *arguments, **options)

    def chain(self, excel, extensions, source):
        """Maps into a file of each extension, each time from the former one, and returns the files."""
        made = []
        for number, extension in enumerate(extensions):
            target = source.with_name(f"{source.stem}{number}{extension}")
            done = self.map(*excel, "-usedocument", made[-1] if made else source, "-template", target)
            self.assertEqual((done.returncode, done.stderr), (0, ""), target)
            made.append(target)
        return made

    def by_libreoffice(self, paths, extension):
        """Converts the files by LibreOffice in one run. Returns the results by the extensions of the files."""
        written = self.folder / "office"
        profile = f"-env:UserInstallation={(self.folder / 'profile').as_uri()}"
        command = ["soffice", profile, "--headless", "--norestore", "--convert-to", extension, "--outdir", written]
        subprocess.run([*command, *paths], check=True, timeout=240, capture_output=True)
        return {path.suffix: written / f"{path.stem}.{extension}" for path in paths}

    def names_in(self, document):
        """Returns the bookmarks of a document without their counters."""
        found, problems = read_docx.read_bookmarks(document)
        self.assertEqual(problems, [])
        return sorted(re.sub(r"_ref\d+$", "", bookmark["name"]) for bookmark in found)

    def test_documents(self):
        given = docx.Document()
        given.add_paragraph("Dear")
        given.save(self.folder / "given.docx")
        (self.folder / "page.htm").write_text("<html><body><p>Dear</p></body></html>", encoding="utf-8")
        holding = [".doc", ".dot", ".rtf", ".odt", ".xml"]
        made = self.chain([], [*holding, ".docx", ".htm"], self.folder / "given.docx")
        # The caret of this page is at its first place, so nothing more is inserted into it.
        pages = self.chain([], [".txt", ".pdf"], self.folder / "page.htm")
        pages += self.chain([], [".html"], pages[0])
        documents = self.by_libreoffice(made[:len(holding)], "docx")
        for places, path in [*enumerate(made, start=1), (1, pages[0]), (2, pages[1]), (2, pages[2])]:
            with self.subTest(path.suffix):
                document = documents.get(path.suffix, path)
                text = self.text_of(document)
                for line in [*LINES, "Dear"]:
                    self.assertEqual(text.count(line), 1 if line == "Dear" else places, text)
                if document.suffix == ".docx":
                    self.assertEqual(self.names_in(document), sorted(["Customer", "Größe"] * places))
                if path.suffix.startswith(".htm"):
                    self.assertIn('name="Customer', path.read_text(encoding="utf-8"))
        starts = {".doc": b"\xd0\xcf\x11\xe0", ".dot": b"\xd0\xcf\x11\xe0", ".rtf": b"{\\rtf", ".pdf": b"%PDF"}
        for path in [*made, *pages]:
            self.assertTrue(path.read_bytes().startswith(starts.get(path.suffix, b"")), path)
        self.assertIn(b"Word.Document", made[4].read_bytes())

    @staticmethod
    def text_of(path):
        """Returns the text of a document, as read by other programs."""
        if path.suffix == ".txt":
            return path.read_text(encoding="utf-8-sig")
        if path.suffix == ".docx":
            return "\n".join(read_docx.read_paragraphs(path))
        if path.suffix == ".pdf":
            return subprocess.run(["pdftotext", path, "-"], capture_output=True, text=True, check=True).stdout
        return " ".join(lxml.html.parse(str(path)).getroot().text_content().split())

    def test_workbooks(self):
        given = openpyxl.Workbook()
        given.active.title = "Data"
        given.active["A5"] = "Dear"
        given.save(self.folder / "given.xlsx")
        holding = [".xls", ".xlt", ".ods"]
        of_cells = [".slk", ".dif"]
        of_texts = [".htm", ".html", ".csv", ".txt", ".prn"]
        made = self.chain(["-excel"], [*holding, *of_cells, *of_texts], self.folder / "given.xlsx")
        workbooks = self.by_libreoffice(made[:len([*holding, *of_cells])], "xlsx")
        for path in made:
            with self.subTest(path.suffix):
                rows = self.rows_of(workbooks.get(path.suffix, path))
                self.assertEqual((rows[:2], rows[4][0]), (CELLS, "Dear"))
        for extension in holding:
            named = read_xlsx.read_names(workbooks[extension]).items()
            names = {name: cells.replace("'", "") for name, cells in named}
            self.assertEqual((names["ammCustomer"], names["ammGröße"]), ("Data!$B$1", "Data!$B$2"))

    def rows_of(self, path):
        """Returns the texts of the cells, as read by other programs."""
        if path.suffix == ".xlsx":
            return [row[:2] for row in read_xlsx.read_texts(path)]
        if path.suffix.startswith(".htm"):
            rows = lxml.html.parse(str(path)).getroot().iter("tr")
            return [[cell.text_content().strip() for cell in row.iter("td")] for row in rows]
        encoding, separator = TEXTS[path.suffix]
        return [line.split(separator) for line in path.read_text(encoding=encoding).splitlines()]

    def test_templates_of_others_are_built_on_and_not_changed_in_place(self):
        (self.folder / "given.txt").write_text("Dear", encoding="utf-8")
        (self.folder / "book.csv").write_text("\n\n\n\nDear\n", encoding="utf-8")
        (self.folder / "book.xml").write_text(SPREADSHEET_2003, encoding="utf-8")
        (self.folder / "old.wk1").write_bytes(lotus_worksheet("Dear"))
        [ott] = self.by_libreoffice([self.folder / "given.txt"], "ott").values()
        [ots] = self.by_libreoffice([self.folder / "book.csv"], "ots").values()
        [made] = self.chain([], [".docx"], ott)
        self.assertEqual(read_docx.read_paragraphs(made)[:3], [*LINES, "Dear"])
        for source in (ots, self.folder / "book.xml", self.folder / "old.wk1"):
            [made] = self.chain(["-excel"], [".xlsx"], source)
            rows = read_xlsx.read_texts(made)
            self.assertEqual((rows[:2], rows[4][0]), (CELLS, "Dear"), source)
            made.unlink()
        for excel, source, office in (([], ott, "Word"), (["-excel"], ots, "Excel")):
            before = source.read_bytes()
            done = self.map(*excel, "-usedocument", source)
            self.assertEqual((done.returncode, done.stderr), (1, (
                f"mergeloom: The document '{source}' cannot be changed in place: {office} does not save in its format. "
                "Let -template name the file to write.\n")))
            self.assertEqual(source.read_bytes(), before)

    def test_what_is_changed_in_place_keeps_its_format_and_its_links(self):
        page = self.folder / "page.htm"
        page.write_text('<html><body><p>Dear <a href="other.docx">friend</a></p></body></html>', encoding="utf-8")
        self.assertEqual(self.map("-usedocument", page).stderr, "")
        text = page.read_text(encoding="utf-8")
        self.assertIn('href="other.docx"', text)
        self.assertIn('name="Customer"', text)
        (self.folder / "plain.txt").write_text("Dear", encoding="utf-8")
        [odt] = self.chain([], [".odt"], self.folder / "plain.txt")
        self.assertEqual(self.map("-usedocument", odt).stderr, "")
        listed = self.run_program("--places", odt)
        self.assertEqual((listed.returncode, listed.stderr), (0, ""))
        names = [line.split()[0] for line in listed.stdout.splitlines()[1:]]
        self.assertEqual(sorted(names), ["Customer", "Customer_ref1", "Größe", "Größe_ref1"])

    def test_labels_and_merge_fields_of_other_formats(self):
        rtf = self.folder / "labels.rtf"
        rtf.write_text(r"{\rtf1\ansi Label {\field{\*\fldinst MERGEFIELD Town}{\fldrslt Town}}\par}", encoding="ascii")
        original = rtf.read_bytes()
        done = self.map("-label", rtf, "-template", "labels.docx")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("Customer", read_docx.read_paragraphs(self.folder / "labels.docx")[0])
        self.assertEqual(rtf.read_bytes(), original)
        for output, kept in (("out.odt", None), ("labels.rtf", "labels.rtf.bak")):
            done = self.run_program("--convert-fields", rtf, "--output", output)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertIn("1 field became a place", done.stdout)
            document = self.folder / output
            self.assertEqual(self.names_in(self.by_libreoffice([document], "docx")[document.suffix]), ["Town"])
            if kept:
                self.assertEqual((self.folder / kept).read_bytes(), original)

    def test_what_nobody_writes_is_refused(self):
        for excel, formats in NOT_WRITTEN.items():
            for extension, name in formats.items():
                target = self.folder / f"new{extension}"
                done = self.map(*excel.split(), "-template", target)
                self.assertEqual((done.returncode, done.stderr), (1, (
                    f"mergeloom: The template '{target}' cannot be written: saving as \"{name}\" is not available. "
                    f"LibreOffice does not write this format. Choose {CHOICE[excel]} otherwise.\n")))
        self.assertEqual([path.name for path in self.folder.iterdir()], ["form.xml"])

    def test_without_libreoffice_nothing_changes(self):
        (self.folder / "kept.odt").write_bytes(b"precious")
        (self.folder / "kept.ods").write_bytes(b"precious")
        missing = "The environment variable MERGELOOM_SOFFICE names '/nowhere/soffice', which is no program."
        choices = {name: f"{missing} Choose {choice} otherwise.\n" for name, choice in CHOICE.items()}
        unavailable = "cannot be written: saving as \"{}\" is not available. "
        kept = self.folder / "kept.odt"
        cases = [
            (["-template", "new.pdf"], unavailable.format("PDF") + choices[""]),
            (["-excel", "-template", "new.xls"], unavailable.format("Excel 97-2003 Workbook") + choices["-excel"]),
            (["-usedocument", kept], f"The document '{kept}' cannot be changed in place: saving as \"OpenDocument "
             f"Text\" is not available. {choices['']}"),
            (["-excel", "-usedocument", "kept.ods", "-template", "new.xlsx"],
             f"cannot be opened without being converted. {missing} Choose xlsx otherwise.\n"),
        ]
        for arguments, sentence in cases:
            done = self.map(*arguments, environment=without_office())
            self.assertEqual(done.returncode, 1)
            self.assertTrue(done.stderr.endswith(sentence), done.stderr)
        for option in ("--places", "--convert-fields"):
            done = self.run_program(option, "kept.odt", environment=without_office())
            self.assertEqual(done.returncode, 1)
            self.assertIn(missing, done.stderr)
        self.assertEqual(self.map("-template", "new.docx", environment=without_office()).stderr, "")
        self.check_kept(["form.xml", "kept.ods", "kept.odt", "new.docx"])

    def test_a_conversion_that_fails_leaves_its_target_whole(self):
        (self.folder / "kept.odt").write_bytes(b"precious")
        for office in ("/bin/false", None):
            environment = {**os.environ, "MERGELOOM_SOFFICE": office} if office else None
            done = self.map("-usedocument", "kept.odt", environment=environment)
            self.assertEqual(done.returncode, 1)
            self.assertIn("LibreOffice could not be started" if office else "kept.odt' could not be read", done.stderr)
        self.check_kept(["form.xml", "kept.odt"])

    def check_kept(self, names):
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), names)
        for path in self.folder.glob("kept.*"):
            self.assertEqual(path.read_bytes(), b"precious")


if __name__ == "__main__":
    unittest.main()
