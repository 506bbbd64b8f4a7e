"""Converts merge fields in documents of other programs, and reads the places with these programs.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources.
"""
import os
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

import docx
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls, qn
from lxml import etree

import read_docx

PROGRAM = os.environ["MERGELOOM"]
SCRIPTS = Path(os.environ["MERGELOOM_ROOT"]) / "tests" / "scripts"

OASIS = "urn:oasis:names:tc:opendocument:xmlns:"
FLAT_TEXT = f"""<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="{OASIS}office:1.0" xmlns:text="{OASIS}text:1.0" xmlns:table="{OASIS}table:1.0"
    xmlns:style="{OASIS}style:1.0" xmlns:fo="{OASIS}xsl-fo-compatible:1.0" xmlns:draw="{OASIS}drawing:1.0"
    xmlns:svg="{OASIS}svg-compatible:1.0" office:version="1.3"
    office:mimetype="application/vnd.oasis.opendocument.text">
 <office:automatic-styles>
  <style:style style:name="Strong" style:family="text">
   <style:text-properties fo:font-weight="bold" fo:color="#c00000"/>
  </style:style>
  <style:page-layout style:name="Page">
   <style:page-layout-properties fo:page-width="21cm" fo:page-height="29.7cm" fo:margin="2cm"/>
   <style:header-style/><style:footer-style/>
  </style:page-layout>
 </office:automatic-styles>
 <office:master-styles><style:master-page style:name="Standard" style:page-layout-name="Page">
  <style:header><text:p>Head of %Company%</text:p></style:header>
  <style:footer><text:p>Foot <text:page-number>1</text:page-number></text:p></style:footer>
 </style:master-page></office:master-styles>
 <office:body><office:text>
  <text:p>Dear <text:span text:style-name="Strong">%FirstName%</text:span> %LastName%,</text:p>
  <table:table><table:table-column table:number-columns-repeated="2"/><table:table-row>
   <table:table-cell><text:p>Place of birth</text:p></table:table-cell>
   <table:table-cell><text:p>%Town%</text:p></table:table-cell>
  </table:table-row></table:table>
  <text:p>Noted<text:note text:note-class="footnote"><text:note-citation>1</text:note-citation>
   <text:note-body><text:p>See %Remark%</text:p></text:note-body></text:note>.</text:p>
  <text:p><draw:frame text:anchor-type="paragraph" svg:width="5cm" svg:height="2cm" svg:x="1cm" svg:y="1cm">
   <draw:text-box><text:p>Boxed %Street%</text:p></draw:text-box></draw:frame>With a frame</text:p>
 </office:text></office:body>
</office:document>
"""
FLAT_NAMES = ["Company", "FirstName", "LastName", "Town", "Remark", "Street"]


def flat_text():
    """Returns a document with LibreOffice's own mail-merge fields."""
    text = FLAT_TEXT
    for name in FLAT_NAMES:
        field = (
            '<text:database-display text:database-name="Addresses" text:table-name="People" '
            f'text:table-type="table" text:column-name="{name}">&lt;{name}&gt;</text:database-display>'
        )
        text = text.replace(f"%{name}%", field)
    return text


def field_runs(code, result):
    """Returns the runs of a field with its code in two runs and its result in bold."""
    half = len(code) // 2
    pieces = "".join(
        f'<w:r><w:instrText xml:space="preserve">{part}</w:instrText></w:r>' for part in (code[:half], code[half:])
    )
    return parse_xml(
        f'<w:p {nsdecls("w")}><w:r><w:fldChar w:fldCharType="begin"/></w:r>{pieces}'
        f'<w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:rPr><w:b/></w:rPr><w:t>{result}</w:t></w:r>'
        '<w:r><w:fldChar w:fldCharType="end"/></w:r></w:p>'
    )


def add_field(paragraph, code, result="\u00abold\u00bb"):
    for run in list(field_runs(code, result)):
        paragraph._p.append(run)


def texts_of(package_file):
    """Returns the text of each part with text, without the codes of fields."""
    return {
        str(part.partname): "".join(element.text or "" for element in root.iter(qn("w:t")))
        for part, root in read_docx.stories(read_docx.open_package(package_file))
    }


class ConvertingFields(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def convert(self, *arguments, status=0):
        """Runs the conversion and returns its report or its complaint."""
        done = subprocess.run(
            [PROGRAM, "--convert-fields", *map(str, arguments)], capture_output=True, text=True, timeout=60, check=False
        )
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done.stderr if status else done.stdout

    def office(self, wanted, source):
        """Returns LibreOffice's copy of a document in another format."""
        subprocess.run([SCRIPTS / "convert.sh", wanted, source, self.folder / "office"], check=True, timeout=120)
        return self.folder / "office" / f"{source.stem}.{wanted}"

    def places(self, document):
        """Maps the name of each place of a sound document to its text."""
        found, problems = read_docx.read_bookmarks(document)
        self.assertEqual(problems, [])
        return {place["name"]: place["text"] for place in found}

    def shown(self, document):
        pdf = self.office("pdf", document)
        return subprocess.run(["pdftotext", "-layout", pdf, "-"], capture_output=True, text=True, check=True).stdout

    def python_document(self):
        document = docx.Document()
        add_field(document.sections[0].header.paragraphs[0], " MERGEFIELD Company ")
        add_field(document.sections[0].footer.paragraphs[0], "QUOTE \"Footer\"")
        line = document.add_paragraph("Dear ")
        add_field(line, ' MERGEFIELD  "Two Blanks" ')
        add_field(line, ' MERGEFIELD Name \\* MERGEFORMAT ')
        line.add_run(", page ")
        add_field(line, " PAGE ", "1")
        add_field(line, " IF a = b \"Code2 Name\" ")
        add_field(line, " NEXT ")
        add_field(document.add_table(1, 1).cell(0, 0).paragraphs[0], "MERGEFIELD Cell")
        document.add_paragraph("The end")
        path = self.folder / "python.docx"
        document.save(path)
        return path

    def test_fields_that_libreoffice_wrote(self):
        source = self.folder / "letter.fodt"
        source.write_text(flat_text(), encoding="utf-8")
        written = self.office("docx", source)
        target = self.folder / "letter.dotx"
        self.assertEqual(self.convert(written, "--output", target), "6 fields became places, 0 were removed.\n")
        self.assertEqual(self.places(target), {name: name for name in FLAT_NAMES})
        with zipfile.ZipFile(target) as package:
            for name in package.namelist():
                self.assertNotIn(b"MERGEFIELD", package.read(name), name)
        expected = {
            part: text.replace("<", "").replace(">", "") for part, text in texts_of(written).items()
        }
        self.assertEqual(texts_of(target), expected)
        shown = self.shown(target)
        for line in ("Head of Company", "Dear FirstName LastName,", "Town", "See Remark", "Boxed Street", "Foot 1"):
            self.assertIn(line, shown)

    def test_fields_that_python_docx_wrote(self):
        source = self.python_document()
        target = self.folder / "converted.docx"
        self.assertEqual(
            self.convert(source, "--output", target),
            "6 fields became places, 1 was removed.\nRemoved: NEXT\n",
        )
        names = {name: name for name in ("Company", "Footer", "TwoBlanks", "Name", "Code2Name", "Cell")}
        self.assertEqual(self.places(target), names)
        paragraph = docx.Document(target).paragraphs[0]
        self.assertEqual(paragraph.text, "Dear TwoBlanksName, page 1Code2Name")
        self.assertEqual([run.text for run in paragraph.runs if run.bold], ["TwoBlanks", "Name", "1", "Code2Name"])
        self.assertIn("Dear", self.shown(target))
        self.check_untouched(source, target)

    def check_untouched(self, source, target):
        """Parts without fields keep their bytes."""
        with zipfile.ZipFile(source) as before, zipfile.ZipFile(target) as after:
            self.assertEqual(after.namelist(), before.namelist())
            changed = [name for name in before.namelist() if before.read(name) != after.read(name)]
        self.assertEqual(sorted(changed), ["word/document.xml", "word/footer1.xml", "word/header1.xml"])

    def test_in_place_with_backups(self):
        source = self.python_document()
        source.chmod(0o600)
        before = source.read_bytes()
        kept = source.with_name("python.docx.bak")
        kept.write_text("an older backup")
        self.assertIn(f"kept in '{kept}1'.", self.convert(source))
        self.assertEqual(kept.read_text(), "an older backup")
        self.assertEqual(Path(f"{kept}1").read_bytes(), before)
        self.assertEqual(Path(f"{kept}1").stat().st_mode & 0o777, 0o600)
        self.assertIn("Name", self.places(source))

        converted = source.read_bytes()
        self.assertIn("0 fields became places", self.convert(source))
        self.assertEqual(source.read_bytes(), converted)
        self.assertEqual(len(list(self.folder.iterdir())), 3)

    def test_an_output_that_is_there_is_kept(self):
        source, target = self.python_document(), self.folder / "target.docx"
        target.write_text("precious")
        self.convert(source, "--output", target)
        self.assertEqual(self.places(target)["Name"], "Name")
        self.assertEqual((self.folder / "target.docx.bak").read_text(), "precious")

    def test_a_code_of_too_few_words(self):
        document = docx.Document()
        add_field(document.add_paragraph(), "IF a = b")
        add_field(document.add_paragraph(), "MERGEFIELD Name")
        source = self.folder / "short.docx"
        document.save(source)
        self.assertIn("The field 'IF a = b' has too few words.", self.convert(source, status=1))
        self.assertEqual(self.places(source), {"Name": "Name"})

    def test_what_cannot_be_read_or_written(self):
        source = self.python_document()
        damaged = self.folder / "damaged.docx"
        damaged.write_bytes(source.read_bytes()[:-200])
        cases = [
            ([self.folder / "missing.docx"], "missing.docx"),
            ([damaged], "damaged.docx"),
            ([source, "--output", self.folder / "none" / "target.docx"], "none"),
            ([source, "--output", self.folder / "target.xps"], "Choose docx, docm, dotx or dotm otherwise."),
            ([self.folder], str(self.folder)),
        ]
        before = {path: path.read_bytes() for path in self.folder.iterdir()}
        for arguments, sentence in cases:
            with self.subTest(sentence):
                self.assertIn(sentence, self.convert(*arguments, status=1))
                self.assertEqual({path: path.read_bytes() for path in self.folder.iterdir()}, before)

    def test_the_rest_of_the_body_stays(self):
        source, target = self.python_document(), self.folder / "target.docx"
        self.convert(source, "--output", target)

        def rest(path):
            body = docx.Document(path).element.body
            for field in list(body.iter(qn("w:r"), qn("w:bookmarkStart"), qn("w:bookmarkEnd"))):
                field.getparent().remove(field)
            return etree.tostring(body, method="c14n")

        self.assertEqual(rest(target), rest(source))


if __name__ == "__main__":
    unittest.main()
