#!/usr/bin/env python3
"""Writes a document of about 10 MB with python-docx: text of several megabytes of XML, and pictures that do not
compress. The same call writes the same document.

    make_large_document.py FILE
"""

import io
import random
import sys

from docx import Document
from docx.shared import Cm

from inputs import noise_picture, words

PARAGRAPHS = 10_000
PICTURES = 46


def add_text(document, chance):
    paragraph = document.add_paragraph(words(chance, 20) + " ")
    paragraph.add_run(words(chance, 4) + " ").bold = True
    paragraph.add_run(words(chance, 20) + " ")


def main():
    chance = random.Random(1)
    document = Document()
    for number in range(PARAGRAPHS):
        add_text(document, chance)
        if number % (PARAGRAPHS // PICTURES) == 0:
            document.add_picture(io.BytesIO(noise_picture(chance)), width=Cm(5))
    document.save(sys.argv[1])


if __name__ == "__main__":
    main()
