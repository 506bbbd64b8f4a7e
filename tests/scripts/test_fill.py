#!/usr/bin/env python3
"""Fills templates with records and reads the letters with python3-docx.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources. Where MERGELOOM_VALIDATOR names a validator of
Office Open XML, it judges every letter, too.
"""
import json
import os
import re
import signal
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree
import zipfile

import docx
from docx.enum.section import WD_SECTION
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls, qn

import fill_data
import read_docx
from program_test import PROGRAM, SAMPLE, ProgramTest, map_sample, run

VALIDATOR = os.environ.get("MERGELOOM_VALIDATOR")

SAMPLE_LETTER = [
    "Letterhead: ",
    "Order No.: 2024-0187",
    "Order date: 14 May 2024",
    "Customer: Måns & Sons Boatyard",
    "Buyer's contact: Ingrid Måns",
    "Taken by: Tom Ashdown",
    "Priority: Urgent",
    "Confirmed: Yes",
    "Paid in advance: No",
    "Ship & bill to: Måns & Sons Boatyard",
    "Address: 7 Slipway Road",
    "Postcode: SO31 4QF",
    "Town: Hamble",
    "Carrier: Coastline Haulage",
    "Required by: 28 May 2024",
    "Remarks: Please pack the cleats apart from the planks.",
    "Sketch or photo: ",
    "Order lines: ",
    "Totals: ",
    "Net total: 1,179.30",
    "Freight: 64.00",
    "To pay: 1,243.30",
    "Printed on: ",
    "",
]
SAMPLE_LINES = [
    ["Line", "Product", "Quantity", "Unit price", "Total"],
    ["1 ", "Cleat, stainless, 200 mm ", "12 ", "18.40 ", "220.80 "],
    ["2 ", "Larch plank, 25 × 200 × 4000 mm ", "30 ", "31.95 ", "958.50 "],
]


def rows_of(table):
    return [[cell.text for cell in row.cells] for row in table.rows]


def place(name, number, properties=""):
    """Returns the elements of a place that shows its own name."""
    space = nsdecls("w")
    return [parse_xml(xml) for xml in (
        f'<w:bookmarkStart {space} w:id="{number}" w:name="{name}"/>',
        f"<w:r {space}>{properties}<w:t>{name}</w:t></w:r>",
        f'<w:bookmarkEnd {space} w:id="{number}"/>',
    )]


def bookmark_names(document):
    return [start.get(qn("w:name")) for start in document.element.iter(qn("w:bookmarkStart"))]


def parts_of(file):
    with zipfile.ZipFile(file) as package:
        return {name: package.read(name) for name in package.namelist()}


class Filling(ProgramTest):
    @classmethod
    def setUpClass(cls):
        cls.template = cls.shared_folder() / "orders.docx"
        map_sample(cls.template)

    def validate(self, document):
        if VALIDATOR:
            judged = subprocess.run([VALIDATOR, document], capture_output=True, text=True, check=False)
            self.assertEqual(json.loads(judged.stdout)["errors"], [])

    def read(self, document):
        self.validate(document)
        _, problems = read_docx.read_bookmarks(document)
        self.assertEqual(problems, [])
        return docx.Document(document)

    def orders(self, count, lines=2, change=lambda number, record: None):
        """Writes a structure document with the given numbers of orders and of lines. Returns its path."""
        return fill_data.write_orders(SAMPLE, self.folder / "data.xml", count, lines, change)

    @staticmethod
    def joined(path):
        """Returns the text of a document without the white space between its elements."""
        return re.sub(r">\s+<", "><", path.read_text(encoding="utf-8"))

    def designed(self):
        """Returns the template after changes by its user: a place in the header, a row of totals, bold text in the
        pattern."""
        document = docx.Document(self.template)
        header = document.sections[0].header.paragraphs[0]
        header.text = "Order "
        for element in place("OrderNumber_ref1", 900, "<w:rPr><w:i/></w:rPr>"):
            header._p.append(element)
        table = document.tables[0]
        table.rows[1].cells[1].paragraphs[0].runs[0].bold = True
        total = table.add_row()
        total.cells[0].text = "Sum"
        for element in place("TotalsNetTotal_ref1", 901):
            total.cells[4].paragraphs[0]._p.append(element)
        target = self.folder / "designed.docx"
        document.save(target)
        return target

    def test_sample(self):
        letter = self.folder / "letter.docx"
        told = self.fill("--output", letter)
        self.assertEqual(told, "mergeloom: Places without data: PrintedOn.\n")
        document = self.read(letter)
        self.assertEqual([paragraph.text for paragraph in document.paragraphs], SAMPLE_LETTER)
        self.assertEqual(rows_of(document.tables[0]), SAMPLE_LINES)
        remarks = next(paragraph for paragraph in document.paragraphs if paragraph.text.startswith("Remarks"))
        self.assertEqual([part.text for part in remarks.runs if part.bold], ["cleats"])

    def test_untouched_parts_stay(self):
        letter = self.folder / "letter.docx"
        self.fill("--output", letter)
        before, after = parts_of(self.template), parts_of(letter)
        self.assertEqual(list(before), list(after))
        self.assertEqual([name for name in before if before[name] != after[name]], ["word/document.xml"])

    def test_filled_letter_is_a_template(self):
        template = self.designed()
        empty = lambda number, record: record.remove(record.find("Control[@Name='Contact']"))
        first, second, direct = (self.folder / name for name in ("first.docx", "second.docx", "direct.docx"))
        self.fill("--output", first, template=template, data=self.orders(1, 4, empty))
        data = self.orders(1, 3)
        self.fill("--output", second, template=first, data=data)
        self.fill("--output", direct, template=template, data=data)
        self.assertEqual(parts_of(second), parts_of(direct))

    def test_rows_keep_their_formatting_above_the_total(self):
        letter = self.folder / "letter.docx"
        self.fill("--output", letter, template=self.designed(), data=self.orders(1, 5))
        table = self.read(letter).tables[0]
        self.assertEqual([row[0] for row in rows_of(table)], ["Line", "1 ", "2 ", "3 ", "4 ", "5 ", "Sum"])
        self.assertEqual(rows_of(table)[-1][4], "1,179.30")
        bold = [[part.bold for part in row.cells[1].paragraphs[0].runs][:1] for row in table.rows]
        self.assertEqual(bold, [[None], [True], [True], [True], [True], [True], []])

    def test_one_file_for_each_record(self):
        data = self.orders(300)
        whole, parts = self.folder / "whole", self.folder / "parts"
        whole.mkdir()
        parts.mkdir()
        self.fill("--output", whole / "{OrderNumber}.docx", data=data)
        # Several simultaneous runs write the same files as one run.
        runs = [subprocess.Popen([PROGRAM, "--fill", self.template, "--data", data, "--output",
                                  parts / "{OrderNumber}.docx", "--records", numbers],
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                for numbers in ("1-100", "101-250", "251-300")]
        self.assertEqual([process.wait(timeout=300) for process in runs], [0, 0, 0])
        made = {path.name: path.read_bytes() for path in whole.iterdir()}
        self.assertEqual(sorted(made), [f"N-{number:05}.docx" for number in range(1, 301)])
        self.assertEqual({path.name: path.read_bytes() for path in parts.iterdir()}, made)
        self.assertEqual(self.read(whole / "N-00004.docx").paragraphs[1].text, "Order No.: N-00004")

    def test_one_document(self):
        target = self.folder / "all.docx"
        self.fill("--output", target, "--one-document", template=self.designed(), data=self.orders(50))
        document = self.read(target)
        self.assertEqual(len(document.sections), 50)
        self.assertEqual({section.start_type for section in document.sections}, {WD_SECTION.NEW_PAGE})
        starts = {section._sectPr.find(qn("w:pgNumType")).get(qn("w:start")) for section in document.sections}
        self.assertEqual(starts, {"1"})
        numbers = [f"N-{number:05}" for number in range(1, 51)]
        headers = [section.header.paragraphs[0].text for section in document.sections]
        self.assertEqual(headers, ["Order " + number for number in numbers])
        orders = [paragraph.text for paragraph in document.paragraphs if paragraph.text.startswith("Order No.")]
        self.assertEqual(orders, ["Order No.: " + number for number in numbers])
        self.assertEqual(bookmark_names(document), [])
        drawings = re.findall(rb'docPr id="(\d+)"', parts_of(target)["word/document.xml"])
        self.assertEqual(len(drawings), 100)
        self.assertEqual(len(set(drawings)), 100)

    def test_pictures_of_records(self):
        pictures = SAMPLE.parent / "pictures"

        def show(number, record):
            record.append(ElementTree.Element("Control", Name="Sketch", Image=str(pictures / "letterhead.png")))

        letter = self.folder / "letter.docx"
        self.fill("--output", letter, data=self.orders(1, 1, show))
        before = docx.Document(self.template).inline_shapes[1]
        after = self.read(letter).inline_shapes[1]
        self.assertEqual(after.width, before.width)
        picture = docx.image.image.Image.from_file(str(pictures / "letterhead.png"))
        self.assertAlmostEqual(after.height, after.width * picture.px_height / picture.px_width, delta=2)
        self.assertIn((pictures / "letterhead.png").read_bytes(), parts_of(letter).values())

    def test_pictures_at_places_of_text(self):
        """A wide picture is reduced to the width of its cell, and does not affect the next record."""
        document = docx.Document()
        cell = document.add_table(1, 2).rows[0].cells[0]
        for element in place("Sketch", 900):
            cell.paragraphs[0]._p.append(element)
        template = self.folder / "sketch.docx"
        document.save(template)
        image = SAMPLE.parent / "pictures" / "letterhead.png"

        def show(number, record):
            if number == 1:
                record.append(ElementTree.Element("Control", Name="Sketch", Image=str(image)))

        data = self.orders(2, 1, show)
        first, second, again = (self.folder / f"{name}.docx" for name in ("first", "second", "again"))
        self.fill("--record", "1", "--output", first, template=template, data=data)
        picture = self.read(first).inline_shapes[0]
        size = docx.image.image.Image.from_file(str(image))
        self.assertLess(picture.width, cell.width)
        self.assertAlmostEqual(picture.height, picture.width * size.px_height / size.px_width, delta=2)
        self.assertIn(image.read_bytes(), parts_of(first).values())
        self.fill("--record", "2", "--output", second, template=template, data=data)
        self.fill("--record", "2", "--output", again, template=first, data=data)
        self.assertEqual(len(self.read(again).inline_shapes), 0)
        self.assertEqual(parts_of(again)["word/document.xml"], parts_of(second)["word/document.xml"])

    def test_empty_tables(self):
        data = self.orders(1, 0)
        kept, dropped = self.folder / "kept.docx", self.folder / "dropped.docx"
        self.fill("--output", kept, data=data)
        self.assertEqual(rows_of(self.read(kept).tables[0]), SAMPLE_LINES[:1])
        self.fill("--output", dropped, "--drop-empty-tables", data=data)
        self.assertEqual(self.read(dropped).tables, [])

    def test_interrupted_batch_leaves_whole_letters(self):
        out = self.folder / "out"
        out.mkdir()
        data = self.orders(1)
        start, record, end = re.split("(<Record><Control Name=\"OrderNumber\">.*</Record>)", self.joined(data))
        data.write_text(start + "".join(record.replace("N-00001", f"N-{number}") for number in range(20000)) + end,
                        encoding="utf-8")
        arguments = [PROGRAM, "--fill", self.template, "--data", data, "--output", out / "{OrderNumber}.docx"]
        with subprocess.Popen(arguments, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as process:
            while process.poll() is None and not any(out.glob("*.docx")):
                pass
            process.send_signal(signal.SIGINT)
            told, _ = process.communicate(timeout=300)
        written = list(out.iterdir())
        self.assertEqual(process.returncode, 128 + signal.SIGINT)
        self.assertIn(f"into {len(written)} file", told)
        self.assertLess(len(written), 20000)
        for letter in written:
            with zipfile.ZipFile(letter) as package:
                self.assertIsNone(package.testzip())

    def test_names_of_places(self):
        """Bookmarks have 40 characters of a name, and a place may be repeated more than nine times."""
        name = "AVeryLongNameOfAControlThatHas45CharactersIn1"
        data, template, letter = (self.folder / file for file in ("data.xml", "long.docx", "letter.docx"))
        value = "x" * 1_000_000
        data.write_text(
            f'<db><Form Name="F" CurrentView="1"><Control Name="{name}"/></Form><Data><Record><Control Name="{name}">'
            f"<DisplayValue>{value}</DisplayValue><BoundValue>7</BoundValue></Control></Record></Data></db>",
            encoding="utf-8")
        document = docx.Document()
        for number, bookmark in enumerate((name[-40:], name[-34:] + "_ref12", name[-37:] + "_bv"), 900):
            for element in place(bookmark, number):
                document.add_paragraph()._p.append(element)
        document.save(template)
        self.assertEqual(self.fill("--output", letter, template=template, data=data), "")
        texts = [paragraph.text for paragraph in self.read(letter).paragraphs if paragraph.text]
        self.assertEqual(texts, [value, value, "7"])

    def test_refusals_write_nothing(self):
        twice = self.orders(3, 1, lambda number, record: number == 3 and setattr(
            record.find("Control[@Name='OrderNumber']/DisplayValue"), "text", "n-00001"))
        same = self.folder / "same.xml"
        twice.rename(same)
        slash = self.folder / "slash.xml"
        self.orders(1, 1, lambda number, record: setattr(
            record.find("Control[@Name='OrderNumber']/DisplayValue"), "text", "a/b")).rename(slash)
        up = self.folder / "up.xml"
        self.orders(1, 1, lambda number, record: setattr(
            record.find("Control[@Name='OrderNumber']/DisplayValue"), "text", "..")).rename(up)
        none = self.folder / "none.xml"
        self.orders(0).rename(none)
        structure = self.folder / "structure.xml"
        structure.write_text("<db><Form Name='F'><Control Name='X'/></Form></db>", encoding="utf-8")
        broken = self.folder / "broken.xml"
        broken.write_text(SAMPLE.read_text(encoding="utf-8")[:-20], encoding="utf-8")
        bare = self.folder / "bare.docx"
        docx.Document().save(bare)
        three = self.orders(3)
        out = self.folder / "out"
        out.mkdir()
        number, plain = out / "{OrderNumber}.docx", out / "letter.docx"
        cases = [
            (none, [plain], "holds no records"),
            (structure, [plain], "holds no records"),
            (broken, [plain], "line "),
            (self.folder / "absent.xml", [plain], "absent.xml"),
            (three, [plain], "There are 3 records for the one file"),
            (three, [plain, "--record", "4"], "There is no record 4"),
            (three, [plain, "--records", "2-5"], "There is no record 5"),
            (three, [out / "{Nobody}.docx"], "names the control {Nobody}"),
            (up, [out / "{OrderNumber}" / "letter.docx"], 'The folder name ".."'),
            (three, [self.template, "--one-document"], "it is the template"),
            (three, [out / "{OrderNumber.docx"], "brace"),
            (three, [number, "--one-document"], "without braces"),
            (three, [out / "letter.xyz"], "cannot be written"),
            (three, [number, "--object", "Nothing"], 'no object "Nothing"'),
            (three, [number, "--strict"], "Nothing was written."),
            (same, [number], "two records, 1 and 3"),
            (slash, [number], '"a/b"'),
        ]
        for data, (output, *options), sentence in cases:
            with self.subTest(sentence=sentence, data=data.name):
                done = run("--fill", self.template, "--data", data, "--output", output, *options)
                self.assertEqual(done.returncode, 1, done.stderr)
                self.assertIn(sentence, done.stderr)
                self.assertEqual(list(out.iterdir()), [])
        marked = self.folder / "marked.docx"
        document = docx.Document()
        document.add_paragraph("a \ufdd0V7\ufdd1 b")
        document.save(marked)
        for template, sentence in ((bare, "has no place"), (marked, "characters that no text has")):
            done = run("--fill", template, "--data", SAMPLE, "--output", plain)
            self.assertEqual(done.returncode, 1)
            self.assertIn(sentence, done.stderr)
            self.assertEqual(list(out.iterdir()), [])
        copy = out / "data.docx"
        copy.write_bytes(SAMPLE.read_bytes())
        self.assertIn("it holds the data", run("--fill", self.template, "--data", copy, "--output", copy).stderr)
        self.assertEqual(copy.read_bytes(), SAMPLE.read_bytes())

    def test_targets_are_checked_before_the_first_is_written(self):
        data = self.orders(2)
        out = self.folder / "out"
        out.mkdir()
        done = run("--fill", self.template, "--data", data, "--output", self.folder / "absent" / "{OrderNumber}.docx")
        self.assertIn("N-00001.docx' could not be saved", done.stderr)
        second = out / "N-00002.docx"
        second.write_bytes(b"old")
        lock = out / ".~lock.N-00002.docx#"
        lock.write_text(",somebody,elsewhere,01.01.2024 10:00,file:///x;", encoding="utf-8")
        done = run("--fill", self.template, "--data", data, "--output", out / "{OrderNumber}.docx")
        self.assertEqual(done.returncode, 1)
        self.assertIn("N-00002.docx' cannot be saved: it is open elsewhere.", done.stderr)
        self.assertEqual(sorted(out.iterdir()), sorted([second, lock]))


if __name__ == "__main__":
    unittest.main()
