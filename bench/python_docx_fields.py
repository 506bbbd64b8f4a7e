#!/usr/bin/env python3
"""Writes the labelled fields of a structure document with python-docx, as its users write it.

Each control of the first form becomes a paragraph with the caption, and a bookmark around the name.
"""

import sys

from docx import Document
from docx.oxml import OxmlElement
from docx.oxml.ns import qn

from labelled_fields import labelled_fields


def add_bookmarked_text(paragraph, text, name, number):
    start = OxmlElement("w:bookmarkStart")
    start.set(qn("w:id"), str(number))
    start.set(qn("w:name"), name)
    paragraph._p.append(start)
    paragraph.add_run(text)
    end = OxmlElement("w:bookmarkEnd")
    end.set(qn("w:id"), str(number))
    paragraph._p.append(end)


def main():
    structure_file, target = sys.argv[1:]
    document = Document()
    for number, (caption, name) in enumerate(labelled_fields(structure_file)):
        paragraph = document.add_paragraph(caption + ": ")
        add_bookmarked_text(paragraph, name, name, number)
    document.save(target)


if __name__ == "__main__":
    main()
