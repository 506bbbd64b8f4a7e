#!/usr/bin/env python3
"""Compares templates with structure documents through the finished program.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources.
"""
import json
import unittest

import docx
import openpyxl
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls

from program_test import SAMPLE, ProgramTest, map_sample, run


class Checking(ProgramTest):
    @classmethod
    def setUpClass(cls):
        folder = cls.shared_folder()
        cls.templates = [folder / "orders.docx", folder / "orders.xlsx"]
        for template in cls.templates:
            map_sample(template, *(["-excel"] if template.suffix == ".xlsx" else []))

    def check(self, template, *options, data=SAMPLE):
        done = run("--check", template, *options, "-xmlfile", data, "--json")
        self.assertEqual(done.stderr, "")
        findings = json.loads(done.stdout)
        self.assertEqual(done.returncode, 1 if findings else 0)
        for finding in findings:
            self.assertTrue(finding["sentence"].endswith("."), finding)
        return [(finding["kind"], finding["name"], finding["nearest"]) for finding in findings]

    def changed(self, *replacements):
        text = SAMPLE.read_text(encoding="utf-8")
        for old, new in replacements:
            self.assertIn(old, text)
            text = text.replace(old, new)
        path = self.folder / "changed.xml"
        path.write_text(text, encoding="utf-8")
        return path

    def test_templates_fit_the_object_that_they_were_made_of(self):
        for template in self.templates:
            with self.subTest(template=template.name):
                self.assertEqual(self.check(template), [])
                done = run("--check", template, "-xmlfile", SAMPLE)
                self.assertEqual(done.stdout, 'The template and Form "Orders" fit.\n')
                self.assertNotEqual(self.check(template, "--object", "Products"), [])

    def test_renamed_controls_and_subforms_are_found_with_the_nearest_name(self):
        data = self.changed(('"OrderNumber"', '"OrderNo"'), ('"OrderLines"', '"OrderLine"'))
        for template, start in zip(self.templates, ("", "amm")):
            with self.subTest(template=template.name):
                findings = self.check(template, data=data)
                self.assertIn(("place", start + "OrderNumber", start + "OrderNo"), findings)
                self.assertIn(("control", "OrderNo", None), findings)
                self.assertIn(("table", start + "OrderLines", start + "OrderLine"), findings)
                self.assertIn(("place", start + "OrderLinesQuantity", start + "OrderLineQuantity"), findings)
                self.assertIn(("control", "OrderLine.Quantity", None), findings)

    def test_fields_of_a_subform_without_their_table_are_found(self):
        for template, start in zip(self.templates, ("", "amm")):
            with self.subTest(template=template.name):
                path = self.folder / template.name
                if template.suffix == ".docx":
                    document = docx.Document(template)
                    for mark in document.element.xpath('//w:bookmarkStart[@w:name="OrderLines"]'):
                        mark.getparent().remove(mark)
                    document.save(path)
                else:
                    workbook = openpyxl.load_workbook(template)
                    names = workbook.defined_names
                    if isinstance(names, dict):
                        del names[start + "OrderLines"]
                    else:
                        names.delete(start + "OrderLines")
                    workbook.save(path)
                self.assertEqual(self.check(path), [("table", "OrderLines", None)])

    def test_optional_places_beside_no_field_are_found(self):
        def place(name, number, text):
            space = nsdecls("w")
            return (f'<w:bookmarkStart {space} w:id="{number}" w:name="{name}"/>',
                    f'<w:r {space}><w:t xml:space="preserve">{text}</w:t></w:r>',
                    f'<w:bookmarkEnd {space} w:id="{number}"/>')

        document = docx.Document(self.templates[0])
        run_of_text = '<w:r xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"><w:t>{}</w:t></w:r>'
        for pieces in ((*place("Contact_ref1", 901, "Contact"), *place("OptionalSpace0", 902, " ")),
                       (*place("Contact_ref2", 903, "Contact"), run_of_text.format("\u200d"),
                        *place("OptionalSpace1", 904, " ")),
                       (*place("Contact_ref3", 905, "Contact"), run_of_text.format(","),
                        *place("OptionalSpace2", 906, " "))):
            paragraph = document.add_paragraph()
            for piece in pieces:
                paragraph._p.append(parse_xml(piece))
        path = self.folder / "optional.docx"
        document.save(path)
        self.assertEqual(self.check(path), [("optional", "OptionalSpace2", None)])

    def test_what_cannot_be_compared_is_refused(self):
        template = self.templates[0]
        broken = self.folder / "broken.docx"
        broken.write_bytes(b"no document")
        for sentence, arguments in (
                ('has no object "Nothing"', ["--check", template, "--object", "Nothing", "-xmlfile", SAMPLE]),
                ("XML file is not defined", ["--check", template]),
                ("XML file does not exist", ["--check", template, "-xmlfile", self.folder / "none.xml"]),
                ("none.docx", ["--check", self.folder / "none.docx", "-xmlfile", SAMPLE]),
                ("broken.docx", ["--check", broken, "-xmlfile", SAMPLE]),
                ("cannot stand together", ["--check", template, "--places", template]),
                ("'--data' needs '--fill TEMPLATE'", ["--check", template, "--data", SAMPLE])):
            with self.subTest(sentence=sentence):
                done = run(*arguments)
                self.assertEqual((done.returncode, done.stdout), (1, ""))
                self.assertIn(sentence, done.stderr)


if __name__ == "__main__":
    unittest.main()
