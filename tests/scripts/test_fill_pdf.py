#!/usr/bin/env python3
"""Fills templates into PDF files, many records at a time and alone, and reads the files with poppler's tools.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources.
"""
import re
import subprocess
import unittest

import docx
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls

import fill_data
from program_test import SAMPLE, ProgramTest, map_sample

# The parts in which two conversions of one document differ.
TIMES = re.compile(rb"/CreationDate\(D:[^)]*\)|/DocChecksum /[0-9A-F]{32}|<[0-9A-F]{32}>")


def pages_of(file):
    """Returns the text of each page."""
    done = subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=True)
    return done.stdout.split("\f")[:-1]


def without_times(file):
    return TIMES.sub(b"", file.read_bytes())


def output_of(*command):
    return subprocess.run(command, capture_output=True, check=True).stdout


def seen_in(file):
    """Returns the properties, the fonts, the drawn pages and the text in reading order of a file.

    LibreOffice 25.2 has one element for a whole document in the order of reading, and one for each page when the file
    has other pages than the first ones; they are equal for a reader.
    """
    properties = [line for line in output_of("pdfinfo", file).splitlines()
                  if not line.startswith((b"CreationDate:", b"File size:"))]
    fonts = [line.split()[:-2] for line in output_of("pdffonts", file).splitlines()]  # without the object's number
    structure = [line for line in output_of("pdfinfo", "-struct-text", file).splitlines() if line != b"Document"]
    return properties, fonts, output_of("pdftoppm", "-r", "60", file), pages_of(file), structure


def page_number(paragraph, field="PAGE"):
    paragraph._p.append(parse_xml(f'<w:fldSimple {nsdecls("w")} w:instr=" {field} "><w:r><w:t>9</w:t></w:r>'
                                  '</w:fldSimple>'))


class FillingPdf(ProgramTest):
    LINES = {1: 2, 2: 60, 3: 1, 4: 2}
    PAGES = {1: 2, 2: 4, 3: 1, 4: 2}

    @classmethod
    def setUpClass(cls):
        cls.template = cls.shared_folder() / "orders.docx"
        map_sample(cls.template)

    def orders(self):
        def give_lines(number, order):
            rows = order.find("Control[@Name='OrderLines']/Records")
            for row in list(rows)[self.LINES[number]:]:
                rows.remove(row)

        return fill_data.write_orders(SAMPLE, self.folder / "data.xml", len(self.LINES), 60, give_lines)

    def designed(self, change=lambda document: None):
        """Returns the template with the numbers of the order and of the page in its header, one page per file."""
        document = docx.Document(self.template)
        header = document.sections[0].header.paragraphs[0]
        header.text = "Order "
        for xml in ('<w:bookmarkStart {0} w:id="900" w:name="OrderNumber_ref1"/>',
                    "<w:r {0}><w:t>OrderNumber_ref1</w:t></w:r>", '<w:bookmarkEnd {0} w:id="900"/>'):
            header._p.append(parse_xml(xml.format(nsdecls("w"))))
        header.add_run(", page ")
        page_number(header)
        change(document)
        target = self.folder / "designed.docx"
        document.save(target)
        return target

    def fill_both_ways(self, template):
        """Fills all records at once and one of them alone. Returns the folder of all and the file of the one."""
        data = self.orders()
        together, alone = self.folder / "together", self.folder / "alone.pdf"
        together.mkdir()
        self.fill("--output", together / "{OrderNumber}.pdf", template=template, data=data)
        self.fill("--output", alone, "--record", "2", template=template, data=data)
        return together, alone

    def test_files_are_those_of_records_alone(self):
        together, alone = self.fill_both_ways(self.designed())
        files = sorted(together.iterdir())
        self.assertEqual([file.name for file in files], [f"N-{number:05}.pdf" for number in self.LINES])
        for number, file in enumerate(files, 1):
            pages = pages_of(file)
            self.assertEqual(len(pages), self.PAGES[number])
            for page, text in enumerate(pages, 1):
                self.assertEqual(re.findall(r"N-\d{5}.*", text)[0], f"N-{number:05}, page {page}")
                self.assertEqual(set(re.findall(r"N-\d{5}", text)), {f"N-{number:05}"})
        for ours, theirs in zip(seen_in(files[1]), seen_in(alone), strict=True):
            self.assertEqual(ours, theirs)

    def test_records_that_depend_on_their_document(self):
        """The number of pages is that of the record instead of all converted records."""
        def add_total(document):
            footer = document.sections[0].footer.paragraphs[0]
            footer.add_run("Pages: ")
            page_number(footer, "NUMPAGES")

        together, alone = self.fill_both_ways(self.designed(add_total))
        totals = [re.findall(r"Pages: (\d)", page) for page in pages_of(together / "N-00002.pdf")]
        self.assertEqual(totals, [["4"]] * 4)
        self.assertEqual(without_times(together / "N-00002.pdf"), without_times(alone))

    def listed(self, *styles):
        """Returns a template of the order's number and a paragraph of each style, which may number it."""
        document = docx.Document()
        number = document.add_paragraph()
        for xml in ('<w:bookmarkStart {0} w:id="900" w:name="OrderNumber"/>',
                    "<w:r {0}><w:t>OrderNumber</w:t></w:r>", '<w:bookmarkEnd {0} w:id="900"/>'):
            number._p.append(parse_xml(xml.format(nsdecls("w"))))
        for style in styles:
            document.add_paragraph("item", style=style)
        template = self.folder / "list.docx"
        document.save(template)
        return template

    def test_lists_begin_again(self):
        """Styles may number paragraphs."""
        template = self.listed("List Number")
        together, alone = self.fill_both_ways(template)
        for file in together.iterdir():
            self.assertEqual(re.findall(r"(\d+)\. +item", "".join(pages_of(file))), ["1"])
        self.assertEqual(without_times(together / "N-00002.pdf"), without_times(alone))
        # The same holds for one document of all records.
        book = self.folder / "book.pdf"
        self.fill("--one-document", "--output", book, template=template, data=self.orders())
        self.assertEqual(re.findall(r"(\d+)\. +item", "".join(pages_of(book))), ["1"] * len(self.LINES))

    def test_bullets_are_those_of_records_alone(self):
        together, alone = self.fill_both_ways(self.listed("List Bullet", "List Bullet"))
        self.assertEqual(without_times(together / "N-00002.pdf"), without_times(alone))

    def test_records_that_begin_with_a_table(self):
        def begin_with_table(document):
            body = document.element.body
            body.insert(0, document.tables[0]._tbl)
            body.remove(body[1])

        together, alone = self.fill_both_ways(self.designed(begin_with_table))
        self.assertEqual(len(pages_of(together / "N-00002.pdf")), 4)
        self.assertEqual(without_times(together / "N-00002.pdf"), without_times(alone))


if __name__ == "__main__":
    unittest.main()
