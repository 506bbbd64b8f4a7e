#!/usr/bin/env python3
"""Puts the labelled fields of a structure document into a workbook with openpyxl, from the active cell on.

    openpyxl_edit.py STRUCTURE WORKBOOK TARGET
"""

import sys

from openpyxl import load_workbook
from openpyxl.utils.cell import coordinate_from_string, column_index_from_string

from openpyxl_names import put_fields


def main():
    structure_file, source, target = sys.argv[1:]
    workbook = load_workbook(source)
    letters, row = coordinate_from_string(workbook.active.sheet_view.selection[0].activeCell)
    put_fields(workbook, structure_file, row, column_index_from_string(letters))
    workbook.save(target)


if __name__ == "__main__":
    main()
