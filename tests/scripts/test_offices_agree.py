"""Maps with the embedded office and with LibreOffice and compares what python3-docx and openpyxl read.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources. Without the module for LibreOffice there is
nothing to compare.
"""
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

import docx
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls, qn

import read_docx
import read_xlsx

PROGRAM = Path(os.environ["MERGELOOM"])
ORDERS = Path(os.environ["MERGELOOM_ROOT"]) / "samples" / "orders.xml"
OFFICES = ("embedded", "libreoffice")

LINES = """<Database><Form Name="Order" CurrentView="1"><Controls>
  <Control Name="Customer" Caption="&amp;Customer:" ControlType="Textbox" Section="0"/>
  <Control Name="Größe" Caption="Größe 😀:" ControlType="Textbox" Section="0"/>
  <Control Name="Lines" Caption="Order lines" ControlType="Subform" Section="0">
    <Form Name="Sub" HasRecordset="1"><Controls>
      <Control Name="Item" ControlType="Textbox" Section="0"/>
      <Control Name="Unit Price" ControlType="Textbox" Section="0"/>
    </Controls></Form>
  </Control>
  <Control Name="Town" ControlType="Textbox" Section="0"/>
</Controls></Form></Database>"""

PRODUCTS = """<Database><Table Name="Products" CurrentView="2"><Controls>
  <Control Name="A" Caption="&amp;Article:" ControlType="Textbox" ControlSource="A"/>
  <Control Name="B" ControlType="Textbox" ControlSource="B"/>
  <Control Name="Total" ControlType="Textbox" ControlSource="=Sum([B])*[C]"/>
  <Control Name="C" ControlType="Checkbox" ControlSource="C"/>
</Controls></Table></Database>"""


def shape_of_word(path):
    """Everything that the two offices have to agree on in a document."""
    found, problems = read_docx.read_bookmarks(path)
    return {
        "places": sorted((place["name"], place["text"].rstrip("\r"), len(place["pictures"])) for place in found),
        "order": [place["name"] for place in sorted(found, key=lambda place: (place["paragraph"], place["name"]))],
        "paragraphs": read_docx.read_paragraphs(path),
        "tables": read_docx.read_tables(path),
        "problems": problems,
    }


def shape_of_excel(path):
    names = {name: target.replace("'", "") for name, target in read_xlsx.read_names(path).items()}
    texts = [row for row in read_xlsx.read_texts(path) if any(cell is not None for cell in row)]
    width = max((len(row) for row in texts), default=0)
    return {"names": names, "places": read_xlsx.read_places(path),
            "texts": [list(row) + [None] * (width - len(row)) for row in texts]}


def text(content):
    return f'<w:r><w:t xml:space="preserve">{content}</w:t></w:r>'


def code(content):
    return f'<w:r><w:instrText xml:space="preserve">{content}</w:instrText></w:r>'


def complex_field(code_runs, result):
    """A field of runs with its code that shows a result; without one it has no separator either."""
    mark = '<w:r><w:fldChar w:fldCharType="{}"/></w:r>'.format
    return mark("begin") + code_runs + (mark("separate") + result if result else "") + mark("end")


def field(content, result=text("shown")):
    return complex_field(code(content), result)


def simple(content):
    return f'<w:fldSimple w:instr="{content}">{text("shown")}</w:fldSimple>'


def shown_fields(paragraph):
    """The text of a paragraph: a bookmark as [name:text], a field as {code|result}."""
    marks = {"begin": "{", "separate": "|", "end": "}"}
    shown = ""
    for element in paragraph.iter():
        if element.tag in (qn("w:t"), qn("w:instrText")):
            shown += (element.text or "").strip() if element.tag == qn("w:instrText") else element.text or ""
        elif element.tag == qn("w:fldChar"):
            shown += marks[element.get(qn("w:fldCharType"))]
        elif element.tag == qn("w:bookmarkStart"):
            shown += f"[{element.get(qn('w:name'))}:"
        elif element.tag == qn("w:bookmarkEnd"):
            shown += "]"
    return shown


@unittest.skipUnless((PROGRAM.parent / "mergeloom_libreoffice.so").exists(), "no module for LibreOffice")
class OfficesAgree(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        for name, text in (("lines.xml", LINES), ("products.xml", PRODUCTS)):
            (self.folder / name).write_text(text, encoding="utf-8")

    def map(self, office, structure, target, *more):
        command = [PROGRAM, "--exit-status", "--office=" + office, "-hidden", "-xmlfile", structure, "-template", target]
        done = subprocess.run([str(part) for part in (*command, *more)],
                              capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(done.returncode, 0, f"{office}: {done.stderr}")

    def agree(self, read, structure, suffix, *more):
        shapes = []
        for office in OFFICES:
            target = self.folder / f"{office}{len(list(self.folder.iterdir()))}.{suffix}"
            self.map(office, structure, target, *more)
            shapes.append(read(target))
        self.assertEqual(*shapes)
        return shapes[0]

    def test_documents(self):
        label = self.folder / "label.docx"
        document = docx.Document()
        document.add_paragraph("Deliver to")
        document.save(label)
        cases = [
            (ORDERS, "dotx", "-directory"),
            (ORDERS, "docx", "-listing"),
            (ORDERS, "dotx", "-listing", "-fields", "OrderDate;OrderNumber"),
            (ORDERS, "docx", "-label", label),
            (self.folder / "lines.xml", "docx"),
            (self.folder / "products.xml", "docx", "-listing"),
        ]
        for structure, suffix, *more in cases:
            with self.subTest([structure.name, suffix, *map(str, more)]):
                shape = self.agree(shape_of_word, structure, suffix, *more)
                self.assertEqual(shape["problems"], [])
                self.assertTrue(shape["places"])

    def test_documents_that_hold_tables(self):
        """The caret stands before the tables; what is dropped must leave them and their bookmarks as they are."""
        given = self.folder / "given.docx"
        document = docx.Document()
        document.add_paragraph("first")
        table = document.add_table(2, 2)
        table.cell(0, 0).text = "cell"
        table.cell(1, 1).add_table(1, 2).cell(0, 1).text = "inner"
        document.add_paragraph("between")
        document.add_table(1, 1).cell(0, 0).merge(document.tables[-1].cell(0, 0))
        document.add_paragraph("last")
        document.save(given)
        for structure in ("lines.xml", "products.xml"):
            with self.subTest(structure):
                shape = self.agree(shape_of_word, self.folder / structure, "docx", "-usedocument", given)
                self.assertIn("between", shape["paragraphs"])

    def test_mapped_twice(self):
        """A table takes the place of the earlier one, whichever office wrote that."""
        shapes = []
        for first, second in (OFFICES, OFFICES[::-1]):
            target = self.folder / f"{first}.docx"
            self.map(first, self.folder / "products.xml", target)
            self.map(second, self.folder / "products.xml", self.folder / f"{first}-{second}.docx",
                     "-listing", "-fields", "C;A", "-usedocument", target)
            shapes.append(shape_of_word(self.folder / f"{first}-{second}.docx"))
        self.assertEqual(*shapes)
        self.assertEqual(len(shapes[0]["tables"]), 1)

    def converted(self, office, paragraphs, status=0):
        """The program's report on paragraphs with fields, and each of them as `shown_fields` gives it."""
        source, target = self.folder / "old.docx", self.folder / f"{office}.docx"
        document = docx.Document()
        for runs in paragraphs:
            document.add_paragraph()._p.extend(parse_xml(f"<w:p {nsdecls('w')}>{runs}</w:p>"))
        document.save(source)
        done = subprocess.run([PROGRAM, "--office=" + office, "--convert-fields", source, "--output", target],
                              capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(done.returncode, status, done.stderr)
        self.assertEqual(target.exists(), status == 0)
        if status:
            return done.stderr
        self.assertEqual(read_docx.read_bookmarks(target)[1], [])
        return done.stdout, [shown_fields(paragraph._p) for paragraph in docx.Document(target).paragraphs]

    def test_converted_fields(self):
        """Every kind of field before another one, so that a shift of positions shows. A # is the paragraph's number."""
        nested = complex_field(code(" QUOTE ") + field(" MERGEFIELD X# ", text("inner")) + code(" "), text("both"))
        split = complex_field(code(" MERGE") + '<w:proofErr w:type="spellStart"/>' + code("FIELD  ") + code("Split# ")
                              + '<w:proofErr w:type="spellEnd"/>' + code("\\* MERGEFORMAT "), text("shown"))
        places = {runs: f"[{name}:{name}]" for runs, name in (
            (field(" MERGEFIELD Town# "), "Town#"), (field(" MERGEFIELD  Name#  \\* MERGEFORMAT "), "Name#"),
            (field(' MERGEFIELD "First Name#" '), "FirstName#"), (field("MERGEFIELD\tStreet#"), "Street#"),
            (simple(" MERGEFIELD  Town# \\b &quot;x &quot;"), "Town#"), (field(" MERGEFIELD Empty# ", ""), "Empty#"),
            (split, "Split#"), (field(' QUOTE "word#" '), "word#"), (field(" QUOTE word# ", ""), "word#"),
            (simple(" QUOTE &quot;two words#&quot; "), "twowords#"), (field('QUOTE"Land#"'), "Land#"),
            (field(" quote  word# ", text("\U0001f600 shown")), "word#"), (nested, "X#"),
            (field(" SKIPIF Count# = 2 "), "Count#"), (field(" SKIPIF None# = 2 ", ""), "None#"),
        )}
        removed = {field(f" {keyword} ", result): "" for keyword in ("NEXT", "MERGEREC", "MERGESEQ")
                   for result in (text("1"), "")}
        left = ['ADDRESSBLOCK \\f "x"', "GREETINGLINE", 'ASK One "Who is it?"', 'FILLIN "Who is it?"', 'SET Two "a"']
        cases = places | removed | {field(content): "{" + content.split()[0] for content in left}
        paragraphs = [f"{text('a ')}{runs}{text(' b ')}{field(' MERGEFIELD Last# ', text('last name'))}{text(' c')}"
                      .replace("#", str(number)) for number, runs in enumerate(cases)]
        for office in OFFICES:
            report, shown = self.converted(office, paragraphs)
            for number, (expected, found) in enumerate(zip(cases.values(), shown, strict=True)):
                start = f"a {expected}".replace("#", str(number))
                end = f" b [Last{number}:Last{number}] c"
                with self.subTest(office=office, start=start):
                    self.assertTrue(found.startswith(start) and found.endswith(end), found)
                    self.assertTrue(expected.startswith("{") or len(found) == len(start + end), found)
            self.assertEqual(report, f"{len(places) + len(cases)} fields became places, 6 were removed.\n"
                             "Removed: NEXT (2 times)\nRemoved: MERGEREC (2 times)\nRemoved: MERGESEQ (2 times)\n"
                             "5 fields stayed.\n" + "".join(f"Stayed: {content}\n" for content in left))

    def test_converted_conditions(self):
        """LibreOffice reads no IF field with its code, so it must not write one without."""
        nested = complex_field(code(" IF ") + field(" MERGEFIELD X ") + code(' = "M" "Mr" "Ms" '), text("Ms"))
        paragraphs = [text("a ") + runs + text(" b") for runs in (field(' IF a = b "Home Town" "" '), nested)]
        report, shown = self.converted("embedded", paragraphs)
        self.assertEqual(shown, ["a [HomeTown:HomeTown] b", "a [X:X] b"])
        self.assertEqual(report, "2 fields became places, 0 were removed.\n")
        complaint = self.converted("libreoffice", paragraphs, status=1)
        self.assertIn("is not converted: LibreOffice does not keep the code of an IF field", complaint)

    def test_workbooks(self):
        cases = [
            (ORDERS, "xltx", "-directory"),
            (ORDERS, "xlsx", "-listing"),
            (self.folder / "lines.xml", "xlsx"),
            (self.folder / "products.xml", "xltx"),
        ]
        for structure, suffix, *more in cases:
            with self.subTest([structure.name, suffix, *more]):
                shape = self.agree(shape_of_excel, structure, suffix, "-excel", *more)
                self.assertTrue(shape["names"])


if __name__ == "__main__":
    unittest.main()
