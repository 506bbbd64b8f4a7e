"""Runs the program as its users do and reads what it wrote with programs of other makers.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources. Where MERGELOOM_VALIDATOR names a
validator of Office Open XML, it judges every document, too.
"""
import json
import os
import re
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

import read_docx

PROGRAM = os.environ["MERGELOOM"]
VALIDATOR = os.environ.get("MERGELOOM_VALIDATOR")
ROOT = Path(os.environ["MERGELOOM_ROOT"])
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

# Each line of the letter with the bookmark in it.
FORM_PLACES = [
    ("Customer: Customer", "Customer", "Customer"),
    ("Order date: OrderDate", "OrderDate", "OrderDate"),
    ("2nd Contact: x2ndContact", "x2ndContact", "x2ndContact"),
    ("Customer again: customer", "customer_ref1", "customer"),
    ("R & D: Straße-Größe", "StraßeGröße", "Straße-Größe"),
]


def run(*arguments):
    """Runs the program; gives the finished process with its output as text."""
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=60, check=False)


class Mapping(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def map(self, structure, target, *more):
        """Maps without a user and fails the test unless the template came to be."""
        done = run("--exit-status", "-xmlfile", structure, "-template", target, "-hidden", *more)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertTrue(target.exists(), done.stdout + done.stderr)
        self.validate(target)

    def validate(self, document):
        """The document keeps to the schemas of the standard."""
        if VALIDATOR:
            judged = subprocess.run([VALIDATOR, document], capture_output=True, text=True, check=False)
            self.assertEqual(json.loads(judged.stdout)["errors"], [])

    def write_form(self):
        structure = self.folder / "letter.xml"
        structure.write_text(FORM, encoding="utf-8")
        return structure

    def places(self, document):
        """The bookmarks of a document that is sound."""
        found, problems = read_docx.read_bookmarks(document)
        self.assertEqual(problems, [])
        return found

    def test_every_kind_of_target(self):
        structure = self.write_form()
        for extension, main_type in MAIN_TYPES.items():
            with self.subTest(extension):
                target = self.folder / f"letter{extension}"
                self.map(structure, target)
                paragraphs = read_docx.read_paragraphs(target)
                places = [
                    (paragraphs[place["paragraph"]].strip(), place["name"], place["text"])
                    for place in self.places(target)
                ]
                self.assertEqual(places, FORM_PLACES)
                with zipfile.ZipFile(target) as package:
                    self.assertIsNone(package.testzip())
                    self.assertIn(main_type, package.read("[Content_Types].xml").decode())

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

    def test_the_sample(self):
        target = self.folder / "orders.dotx"
        self.map(SAMPLE, target)
        places = self.places(target)
        self.assertGreater(len(places), 0)
        self.assertTrue(all(place["part"] == "/word/document.xml" for place in places))
        self.check_picture_of(target, places)

    def check_picture_of(self, target, places):
        """LibreOffice reads the template and shows the text of every place."""
        script = Path(__file__).parent / "to_png.sh"
        subprocess.run([script, target, self.folder / "shown"], check=True, timeout=120)
        pdf = self.folder / "shown" / f"{target.stem}.pdf"
        shown = subprocess.run(["pdftotext", pdf, "-"], capture_output=True, text=True, check=True).stdout
        words = re.sub(r"\s+", "", shown)
        for place in places:
            self.assertIn(re.sub(r"\s+", "", place["text"]), words)


if __name__ == "__main__":
    unittest.main()
