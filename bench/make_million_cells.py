#!/usr/bin/env python3
"""Writes a workbook of one sheet with a million cells, every other one a number or a shared string, with
xlsxwriter. The active cell stands beside them. The same call writes the same workbook.

    make_million_cells.py FILE
"""

import random
import sys

from inputs import words
from make_large_workbook import new_workbook

ROWS, COLUMNS = 50_000, 20
TEXTS = 20_000


def main():
    chance = random.Random(1)
    texts = [f"{words(chance, 4)} {number}" for number in range(TEXTS)]
    workbook = new_workbook(sys.argv[1])
    sheet = workbook.add_worksheet("Cells")
    for row in range(ROWS):
        for column in range(0, COLUMNS, 2):
            sheet.write_number(row, column, chance.randrange(10_000_000) / 100)
            sheet.write_string(row, column + 1, chance.choice(texts))
    sheet.set_selection(0, COLUMNS + 1, 0, COLUMNS + 1)
    workbook.close()


if __name__ == "__main__":
    main()
