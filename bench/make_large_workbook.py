#!/usr/bin/env python3
"""Writes a workbook of about 13 MB with xlsxwriter: sheets of numbers, dates and shared strings, a sheet of
formulas, and pictures that do not compress. The active cell stands beside the cells of the middling sheet. The
same call writes the same workbook.

    make_large_workbook.py FILE
"""

import datetime
import io
import random
import sys

import xlsxwriter

from inputs import noise_picture, words

LARGEST, MIDDLING, SMALLEST = ("Orders", 20_000), ("Deliveries", 10_000), ("Articles", 4_000)
GROUPS = 3  # of four columns in each sheet
TEXTS = 15_000
FORMULA_ROWS = 5_000
PICTURES = 50
FIRST_DAY = datetime.date(2020, 1, 1).toordinal() - datetime.date(1899, 12, 30).toordinal()


def new_workbook(path):
    """Returns a workbook with shared strings. xlsxwriter's mode of constant memory does not write these. In memory, the
    entries get a fixed date."""
    workbook = xlsxwriter.Workbook(path, {"in_memory": True})
    workbook.set_properties({"created": datetime.datetime(2020, 1, 1)})
    return workbook


class Filler:
    """Fills the sheets of a workbook."""

    def __init__(self, workbook, chance):
        self.workbook = workbook
        self.chance = chance
        self.texts = [f"{words(chance, 5)} {number}" for number in range(TEXTS)]
        self.bold = workbook.add_format({"bold": True})
        self.date = workbook.add_format({"num_format": "dd.mm.yyyy"})
        self.price = workbook.add_format({"num_format": "#,##0.00"})

    def add_cells(self, name, rows):
        sheet = self.workbook.add_worksheet(name)
        sheet.set_column(0, 4 * GROUPS - 1, 14)
        sheet.write_row(0, 0, ("Number", "Remark", "Day", "Price") * GROUPS, self.bold)
        for row in range(1, rows):
            for column in range(0, 4 * GROUPS, 4):
                self.add_group(sheet, row, column)
        return sheet

    def add_group(self, sheet, row, column):
        sheet.write_number(row, column, self.chance.randrange(1_000_000))
        sheet.write_string(row, column + 1, self.chance.choice(self.texts))
        sheet.write_number(row, column + 2, FIRST_DAY + self.chance.randrange(1_000), self.date)
        sheet.write_number(row, column + 3, self.chance.randrange(1_000_000) / 100, self.price)

    def add_formulas(self, cells):
        sheet = self.workbook.add_worksheet("Sums")
        for row in range(FORMULA_ROWS):
            sheet.write_formula(row, 0, f"={cells}!D{row + 2}+{cells}!H{row + 2}", None, row)
            sheet.write_formula(row, 1, f"=IF(A{row + 1}>100,SUM({cells}!D2:D{row + 2}),0)", None, row)

    def add_pictures(self):
        sheet = self.workbook.add_worksheet("Pictures")
        for number in range(PICTURES):
            picture = io.BytesIO(noise_picture(self.chance))
            sheet.insert_image(15 * number, 0, f"picture{number}.png", {"image_data": picture})


def main():
    workbook = new_workbook(sys.argv[1])
    filler = Filler(workbook, random.Random(1))
    filler.add_cells(*LARGEST)
    active = filler.add_cells(*MIDDLING)
    active.activate()
    active.set_selection(1, 4 * GROUPS + 1, 1, 4 * GROUPS + 1)
    filler.add_cells(*SMALLEST)
    filler.add_formulas(LARGEST[0])
    filler.add_pictures()
    workbook.close()


if __name__ == "__main__":
    main()
