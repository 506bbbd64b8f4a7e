#!/usr/bin/env python3
"""Writes the labelled fields of a structure document into a new workbook with openpyxl, as its users write it.

    openpyxl_names.py STRUCTURE TARGET

Each control of the first form becomes a row: the caption, and beside it the name in brackets in a named cell.
"""

import sys

from openpyxl import Workbook
from openpyxl.utils import absolute_coordinate, quote_sheetname
from openpyxl.workbook.defined_name import DefinedName

from labelled_fields import labelled_fields


def put_fields(workbook, structure_file, first_row, column):
    sheet = workbook.active
    for row, (caption, name) in enumerate(labelled_fields(structure_file), first_row):
        sheet.cell(row, column, caption + ":")
        place = sheet.cell(row, column + 1, f"[{name}]")
        reference = f"{quote_sheetname(sheet.title)}!{absolute_coordinate(place.coordinate)}"
        workbook.defined_names.append(DefinedName("amm" + name, attr_text=reference))


def main():
    structure_file, target = sys.argv[1:]
    workbook = Workbook()
    put_fields(workbook, structure_file, first_row=1, column=1)
    workbook.save(target)


if __name__ == "__main__":
    main()
