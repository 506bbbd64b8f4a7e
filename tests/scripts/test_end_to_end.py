"""Runs the program as its users do, and reads the results with other programs.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources. If MERGELOOM_VALIDATOR names a validator of
Office Open XML, it checks every document, too.
"""
import json
import os
import signal
import struct
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

import docx
from lxml import etree

import read_docx
from program_test import PROGRAM

VALIDATOR = os.environ.get("MERGELOOM_VALIDATOR")
ROOT = Path(os.environ["MERGELOOM_ROOT"])
SCRIPTS = ROOT / "tests" / "scripts"
SAMPLE = ROOT / "samples" / "orders.xml"

MAIN_TYPES = {
    ".docx": "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml",
    ".dotx": "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml",
    ".docm": "application/vnd.ms-word.document.macroEnabled.main+xml",
    ".dotm": "application/vnd.ms-word.template.macroEnabledTemplate.main+xml",
}

FORM = """<?xml version="1.0" encoding="UTF-8"?>
<Database>
  <Form Name="Letter" CurrentView="1" DefaultView="0" HasRecordset="1">
    <Controls>
      <Control Name="Customer" Caption="&amp;Customer" ControlType="Textbox" Section="0"/>
      <Control Name="Order Date" Caption="Order date:" ControlType="Textbox" Section="0"/>
      <Control Name="2nd Contact" ControlType="Combobox" Section="0"/>
      <Control Name="customer" Caption="Customer again" ControlType="Textbox" Section="0"/>
      <Control Name="Pages" ControlType="TabControl">
        <Control Name="Straße-Größe" Caption="R &amp;&amp; D" ControlType="Checkbox" Section="0"/>
      </Control>
    </Controls>
  </Form>
</Database>
"""

FORM_OF_ITS_OWN = '<Form Name="In/Out" CurrentView="1"><Control Name="Amount" ControlType="Textbox"/></Form>'

# Each line of the letter with the bookmark in it.
FORM_PLACES = [
    ("Customer: Customer", "Customer", "Customer"),
    ("Order date: OrderDate", "OrderDate", "OrderDate"),
    ("2nd Contact: x2ndContact", "x2ndContact", "x2ndContact"),
    ("Customer again: customer", "customer_ref1", "customer"),
    ("R & D: Straße-Größe", "StraßeGröße", "Straße-Größe"),
]

SAMPLE_PLACES = [
    ("Letterhead:", "Letterhead", ""),
    ("Order No.: OrderNumber", "OrderNumber", "OrderNumber"),
    ("Order date: OrderDate", "OrderDate", "OrderDate"),
    ("Customer: CustomerID", "CustomerID", "CustomerID"),
    ("Buyer's contact: Contact", "Contact", "Contact"),
    ("Taken by: EmployeeID", "EmployeeID", "EmployeeID"),
    ("Priority: Priority", "Priority", "Priority"),
    ("Confirmed: Confirmed", "Confirmed", "Confirmed"),
    ("Paid in advance: Paid", "Paid", "Paid"),
    ("Ship & bill to: ShipName", "ShipName", "ShipName"),
    ("Address: ShipAddress", "ShipAddress", "ShipAddress"),
    ("Postcode: ShipPostcode", "ShipPostcode", "ShipPostcode"),
    ("Town: ShipTown", "ShipTown", "ShipTown"),
    ("Carrier: CarrierID", "CarrierID", "CarrierID"),
    ("Required by: RequiredDate", "RequiredDate", "RequiredDate"),
    ("Remarks: Remarks", "Remarks", "Remarks"),
    ("Sketch or photo:", "Sketch", ""),
    ("Line", "OrderLines", "Line\rProduct\rQuantity\rUnit price\rTotal\r"
                           "LineNumber \rProductID \rQuantity \rUnitPrice \rLineTotal \r"),
    ("LineNumber", "OrderLinesLineNumber", "LineNumber"),
    ("ProductID", "OrderLinesProductID", "ProductID"),
    ("Quantity", "OrderLinesQuantity", "Quantity"),
    ("UnitPrice", "OrderLinesUnitPrice", "UnitPrice"),
    ("LineTotal", "OrderLinesLineTotal", "LineTotal"),
    ("Net total: NetTotal", "TotalsNetTotal", "NetTotal"),
    ("Freight: Freight", "TotalsFreight", "Freight"),
    ("To pay: GrossTotal", "TotalsGrossTotal", "GrossTotal"),
    ("Printed on: PrintedOn", "PrintedOn", "PrintedOn"),
]

SAMPLE_PICTURES = {"Letterhead": "pictures/letterhead.png", "Sketch": "pictures/cleat.jpg"}


def run(*arguments):
    """Runs the program. Returns the finished process with its output as text."""
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=60, check=False)


def packed_entries(document):
    """Maps each entry of an archive, in its order, to its compressed bytes."""
    entries = {}
    with zipfile.ZipFile(document) as package, open(document, "rb") as archive:
        for entry in package.infolist():
            archive.seek(entry.header_offset)
            header = archive.read(30)
            archive.seek(sum(struct.unpack("<HH", header[26:])), os.SEEK_CUR)
            entries[entry.filename] = archive.read(entry.compress_size)
    return entries


class Mapping(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def map(self, structure, target, *more):
        """Maps unattended. Fails the test if there is no template."""
        done = run("--exit-status", "-xmlfile", structure, "-template", target, "-hidden", *more)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertTrue(target.exists(), done.stdout + done.stderr)
        self.validate(target)

    def validate(self, document):
        """Checks the document by the schemas of the standard."""
        if VALIDATOR:
            judged = subprocess.run([VALIDATOR, document], capture_output=True, text=True, check=False)
            self.assertEqual(json.loads(judged.stdout)["errors"], [])

    def write_form(self):
        structure = self.folder / "letter.xml"
        structure.write_text(FORM, encoding="utf-8")
        return structure

    def places(self, document):
        """Returns the bookmarks of a document. Fails for a document with errors."""
        found, problems = read_docx.read_bookmarks(document)
        self.assertEqual(problems, [])
        return found

    def places_in_lines(self, document):
        """Returns each bookmark's line, name and text."""
        paragraphs = read_docx.read_paragraphs(document)
        return [
            (paragraphs[place["paragraph"]].strip(), place["name"], place["text"])
            for place in self.places(document)
        ]

    def test_every_kind_of_target(self):
        structure = self.write_form()
        for extension, main_type in MAIN_TYPES.items():
            with self.subTest(extension):
                target = self.folder / f"letter{extension}"
                self.map(structure, target)
                self.assertEqual(self.places_in_lines(target), FORM_PLACES)
                with zipfile.ZipFile(target) as package:
                    self.assertIsNone(package.testzip())
                    self.assertIn(main_type, package.read("[Content_Types].xml").decode())

    def foreign_documents(self):
        """Returns documents by python3-docx and LibreOffice, with a header, a table, a picture and styles."""
        document = docx.Document()
        document.sections[0].header.paragraphs[0].text = "Harbour & Pine"
        document.add_heading("Old heading", 1)
        document.add_table(2, 2, style="Table Grid").cell(1, 1).text = "old cell"
        document.add_picture(str(SAMPLE.parent / "pictures/letterhead.png"))
        document.add_paragraph("Old end \u2013 \U0001f332")
        by_python = self.folder / "python.docx"
        document.save(by_python)
        subprocess.run([SCRIPTS / "convert.sh", "docx", by_python, self.folder / "office"], check=True, timeout=120)
        return [by_python, self.folder / "office" / "python.docx"]

    def test_documents_of_other_programs_survive(self):
        structure = self.write_form()
        for source in self.foreign_documents():
            with self.subTest(source):
                target = self.folder / f"mapped-{source.parent.name}.docx"
                self.map(structure, target, "-usedocument", source)
                self.assertEqual(self.places_in_lines(target), FORM_PLACES)
                before, after = packed_entries(source), packed_entries(target)
                self.assertEqual(list(after), list(before))
                changed = [name for name in before if after[name] != before[name]]
                self.assertEqual(changed, ["word/document.xml"])
                self.check_old_body(source, target)

    def check_old_body(self, source, target):
        """The former content of the body follows the new lines, with the same elements."""
        def children(document):
            body = read_docx.open_package(document).main_document_part.document.element.body
            return [etree.tostring(child, method="c14n") for child in body]

        old = children(source)
        self.assertEqual(children(target)[-len(old):], old)

    def test_places_tells_what_others_read(self):
        target = self.folder / "letter.dotx"
        self.map(self.write_form(), target)
        done = run("--places", target, "--json")
        self.assertEqual(done.returncode, 0, done.stderr)
        told = [(place["name"], place["text"]) for place in json.loads(done.stdout)]
        self.assertEqual(sorted(told), sorted((name, text) for _, name, text in FORM_PLACES))

    def test_an_existing_template_stays_as_it_is(self):
        target = self.folder / "letter.dotx"
        target.write_text("precious")
        done = run("--exit-status", "-xmlfile", self.write_form(), "-template", target, "-hidden")
        self.assertEqual(done.returncode, 1)
        self.assertIn("Template already exists.", done.stderr)
        self.assertEqual(target.read_text(), "precious")

    def test_all_objects(self):
        """Each template of a database equals that of a run for its object alone."""
        structure = self.folder / "database.xml"
        structure.write_text(FORM.replace("</Database>", FORM_OF_ITS_OWN + "</Database>"), encoding="utf-8")
        done = run("--list-objects", "--json", "-xmlfile", structure)
        self.assertEqual([one["name"] for one in json.loads(done.stdout)], ["Letter", "In/Out"])
        together = self.folder / "together"
        together.mkdir()
        done = run("--exit-status", "--all", together, "--format", "docx", "-xmlfile", structure)
        self.assertEqual((done.returncode, done.stdout), (0, ""))
        self.assertEqual({path.name for path in together.iterdir()}, {"Letter.docx", "In_Out.docx"})
        for name in ("Letter", "In/Out"):
            alone = self.folder / "alone" / f"{name.replace('/', '_')}.docx"
            alone.parent.mkdir(exist_ok=True)
            self.assertEqual(run("--object", name, "-hidden", "-xmlfile", structure, "-template", alone).stderr, "")
            self.validate(together / alone.name)
            self.assertEqual(packed_entries(together / alone.name), packed_entries(alone))

    def test_an_interruption_leaves_whole_templates(self):
        structure = self.folder / "database.xml"
        forms = (FORM_OF_ITS_OWN.replace("In/Out", f"Form{number}") for number in range(20_000))
        structure.write_text(f"<Database>{''.join(forms)}</Database>", encoding="utf-8")
        templates = self.folder / "templates"
        templates.mkdir()
        process = subprocess.Popen([PROGRAM, "--all", templates, "-xmlfile", structure], stderr=subprocess.PIPE,
                                   text=True)
        self.addCleanup(process.stderr.close)
        while not any(templates.glob("*.dotx")):
            self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        told = process.communicate(timeout=60)[1]
        self.assertEqual(process.returncode, 128 + signal.SIGINT, told)
        made = list(templates.iterdir())
        self.assertRegex(told, f"{len(made)} of 20000 templates were made")
        for template in made:
            self.assertEqual([place["name"] for place in self.places(template)], ["Amount"])

    def test_the_sample(self):
        target = self.folder / "orders.dotx"
        self.map(SAMPLE, target)
        self.assertEqual(self.places_in_lines(target), SAMPLE_PLACES)
        self.check_pictures(target)
        self.check_shown(target)

    def check_pictures(self, target):
        """Places of pictures have the sample's pictures byte for byte, and other places have none."""
        held = {place["name"]: place["pictures"] for place in self.places(target) if place["pictures"]}
        self.assertEqual(held.keys(), SAMPLE_PICTURES.keys())
        with zipfile.ZipFile(target) as package:
            for name, picture in SAMPLE_PICTURES.items():
                [part] = held[name]
                self.assertEqual(package.read(part[1:]), (SAMPLE.parent / picture).read_bytes())

    def check_shown(self, target):
        """LibreOffice reads the template and shows the line of every place on its page."""
        subprocess.run([SCRIPTS / "convert.sh", "pdf", target, self.folder / "shown"], check=True, timeout=120)
        pdf = self.folder / "shown" / f"{target.stem}.pdf"
        shown = subprocess.run(["pdftotext", pdf, "-"], capture_output=True, text=True, check=True).stdout
        for line, _, _ in SAMPLE_PLACES:
            self.assertIn(line, shown)


if __name__ == "__main__":
    unittest.main()
