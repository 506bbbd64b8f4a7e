#!/usr/bin/env python3
"""Fills workbooks with records and reads them with python3-openpyxl.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources.
"""
import datetime
import subprocess
import unittest

import openpyxl
from openpyxl.styles import Font

import fill_data
import read_xlsx
from program_test import PROGRAM, SAMPLE, ProgramTest, map_sample

SAMPLE_FORM = {
    "ammOrderNumber": "2024-0187",
    "ammOrderDate": datetime.datetime(2024, 5, 14),
    "ammCustomerID": "Måns & Sons Boatyard",
    "ammContact": "Ingrid Måns",
    "ammEmployeeID": "Tom Ashdown",
    "ammPriority": "Urgent",
    "ammConfirmed": "Yes",
    "ammPaid": "No",
    "ammShipPostcode": "SO31 4QF",
    "ammRequiredDate": datetime.datetime(2024, 5, 28),
    "ammRemarks": "Please pack the cleats apart from the planks.",
    "ammTotalsNetTotal": "1,179.30",
    "ammPrintedOn": None,
}
SAMPLE_LINES = [
    ["Line", "Product", "Quantity", "Unit price", "Total"],
    [1, "Cleat, stainless, 200 mm", 12, 18.4, 220.8],
    [2, "Larch plank, 25 × 200 × 4000 mm", 30, 31.95, 958.5],
]


class FillingWorkbooks(ProgramTest):
    @classmethod
    def setUpClass(cls):
        cls.template = cls.shared_folder() / "orders.xlsx"
        map_sample(cls.template, "-excel")
        workbook = openpyxl.load_workbook(cls.template)
        sheet = workbook.active
        for column in "BCDEF":
            sheet[column + "19"].font = Font(bold=True)
        for column in "BDEF":
            sheet[column + "19"].number_format = "0.00"
        sheet["G19"] = "=D19*E19"
        sheet["A24"] = "Sum"
        sheet["F24"] = "=SUM(F19)"
        sheet["G24"] = "=SUM(G19:G19)"
        sheet.merge_cells("A25:F25")
        workbook.create_sheet("Other")["A1"] = "=Sheet1!F24"
        workbook.save(cls.template)

    def test_every_value_of_the_sample_is_in_its_cell(self):
        book = self.folder / "book.xlsx"
        told = self.fill("--output", book)
        self.assertEqual(told, "mergeloom: Places without data: PrintedOn.\n")
        places = read_xlsx.read_places(book)
        for name, value in SAMPLE_FORM.items():
            self.assertEqual(places[name], [[value]], name)
        self.assertEqual(places["ammOrderLines"], SAMPLE_LINES)

    def test_rows_below_the_lines_and_their_formulas_move(self):
        book = self.folder / "book.xlsx"
        self.fill("--output", book)
        workbook = read_xlsx.read_workbook(book)
        sheet = workbook["Sheet1"]
        self.assertEqual([sheet["G19"].value, sheet["G20"].value], ["=D19*E19", "=D20*E20"])
        self.assertEqual([sheet[cell].value for cell in ("A25", "F25", "G25")],
                         ["Sum", "=SUM(F19:F20)", "=SUM(G19:G20)"])
        self.assertEqual(workbook["Other"]["A1"].value, "=Sheet1!F25")
        self.assertEqual([str(area) for area in sheet.merged_cells.ranges], ["A26:F26"])
        for cell in ("B20", "C20", "F20"):
            self.assertTrue(sheet[cell].font.b, cell)
        self.assertEqual(sheet["F20"].number_format, "0.00")

    def test_each_record_gets_a_workbook_and_the_object_one_for_all(self):
        data = fill_data.write_orders(SAMPLE, self.folder / "data.xml", 3, lines=3)
        self.fill("--output", self.folder / "{OrderNumber}.xlsm", data=data)
        for number in range(1, 4):
            places = read_xlsx.read_places(self.folder / f"N-{number:05}.xlsm")
            self.assertEqual(places["ammOrderNumber"], [[f"N-{number:05}"]])
            self.assertEqual(len(places["ammOrderLines"]), 4)
        listing, book = self.folder / "listing.xlsx", self.folder / "all.xlsx"
        map_sample(listing, "-excel", "-listing")
        self.fill("--output", book, template=listing, data=data)
        rows = read_xlsx.read_places(book)["ammOrdersT"]
        self.assertEqual([row[0] for row in rows], ["Order No.:", "N-00001", "N-00002", "N-00003"])

    def test_parts_of_a_batch_write_the_same_files(self):
        data = fill_data.write_orders(SAMPLE, self.folder / "data.xml", 9, lines=2)
        runs = {}
        for name, parts in (("one", ["1-9"]), ("three", ["1-3", "4-8", "9-9"])):
            folder = self.folder / name
            folder.mkdir()
            running = [subprocess.Popen(
                [PROGRAM, "--fill", self.template, "--data", data, "--records", part, "--output",
                 folder / "{OrderNumber}.xlsx"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                for part in parts]
            self.assertEqual([process.wait(300) for process in running], [0] * len(parts))
            runs[name] = {path.name: path.read_bytes() for path in folder.iterdir()}
        self.assertEqual(len(runs["one"]), 9)
        self.assertEqual(runs["one"], runs["three"])

    def test_what_cannot_be_filled_is_refused_before_anything_is_written(self):
        two = fill_data.write_orders(SAMPLE, self.folder / "two.xml", 2)
        plain = self.folder / "plain.xlsx"
        openpyxl.Workbook().save(plain)
        old = self.folder / "old.xls"
        old.write_bytes(b"")
        output = self.folder / "out"
        for sentence, options, template, data in (
                ("Option '--one-document' is for documents.", ["--one-document", "--output", output / "a.xlsx"],
                 self.template, SAMPLE),
                ("its format is not available. Choose xlsx or xlsm.", ["--output", output / "a.docx"], self.template,
                 SAMPLE),
                ("Name a control in it, such as letter-{Letterhead}.xlsx, or choose --record N.",
                 ["--output", output / "a.xlsx"], self.template, two),
                ("names the control {Nothing}", ["--output", output / "{Nothing}.xlsx"], self.template, SAMPLE),
                ("has no place that a control of", ["--output", output / "a.xlsx"], plain, SAMPLE),
                ("save it as xlsx, xlsm, xltx or xltm first", ["--output", output / "a.xlsx"], old, SAMPLE)):
            with self.subTest(sentence=sentence):
                self.assertIn(sentence, self.refused(*options, template=template, data=data))
                self.assertFalse(output.exists())

    def test_strictness_refuses_names_that_no_control_makes(self):
        template, book = self.folder / "t.xlsx", self.folder / "book.xlsx"
        workbook = openpyxl.load_workbook(self.template)
        workbook.active["H1"] = "[Unknown]"
        read_xlsx.define_name(workbook, openpyxl.workbook.defined_name.DefinedName("ammUnknown",
                                                                                   attr_text="Sheet1!$H$1"))
        workbook.save(template)
        told = self.refused("--strict", "--output", book, template=template)
        self.assertIn("ammUnknown", told)
        self.assertFalse(book.exists())


if __name__ == "__main__":
    unittest.main()
