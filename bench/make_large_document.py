#!/usr/bin/env python3
"""Writes a document of about 10 MB with python-docx: text of several megabytes of XML, and pictures that do not
compress. The same call writes the same document.

    make_large_document.py FILE
"""

import io
import random
import struct
import sys
import zlib

from docx import Document
from docx.shared import Cm

PARAGRAPHS = 10_000
PICTURES = 46
PICTURE_SIDE = 256  # pixels
WORDS = ("order", "customer", "delivery", "invoice", "address", "amount", "harbour", "article", "remark", "price",
         "store", "due", "of", "the", "and", "to")


def png_chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def noise_picture(chance):
    """A picture of random pixels as PNG."""
    rows = b"".join(b"\0" + chance.randbytes(3 * PICTURE_SIDE) for _ in range(PICTURE_SIDE))
    header = struct.pack(">IIBBBBB", PICTURE_SIDE, PICTURE_SIDE, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + png_chunk(b"IDAT", zlib.compress(rows, 1)) +
            png_chunk(b"IEND", b""))


def words(chance, count):
    return " ".join(chance.choices(WORDS, k=count)) + " "


def add_text(document, chance):
    paragraph = document.add_paragraph(words(chance, 20))
    paragraph.add_run(words(chance, 4)).bold = True
    paragraph.add_run(words(chance, 20))


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
