"""Makes the input of the benchmarks. The same call makes the same input."""

import pathlib
import random
import struct
import subprocess
import sys
import zipfile
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent

PICTURE_SIDE = 256  # pixels
WORDS = ("order", "customer", "delivery", "invoice", "address", "amount", "harbour", "article", "remark", "price",
         "store", "due", "of", "the", "and", "to")


def structure(folder, count, *options):
    """Returns the path of a structure document with a number of fields. It is made once per folder."""
    path = pathlib.Path(folder) / ("fields" + str(count) + "".join(options) + ".xml")
    if not path.exists():
        make("tools/make_structure_document.py", str(count), path, *options)
    return str(path)


def make(script, *arguments):
    """Runs one of the scripts that write inputs."""
    subprocess.run([sys.executable, ROOT / script, *arguments], check=True)


def words(chance, count):
    return " ".join(chance.choices(WORDS, k=count))


CONTENT_TYPES = """<?xml version="1.0" encoding="UTF-8"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"><Default Extension="rels"
 ContentType="application/vnd.openxmlformats-package.relationships+xml"/><Override PartName="/word/document.xml"
 ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml"/></Types>"""
RELATIONSHIPS = """<?xml version="1.0" encoding="UTF-8"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Id="rId1"
 Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument"
 Target="word/document.xml"/></Relationships>"""
WORDPROCESSING = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"


def marked_paragraph(chance, numbers):
    """Returns a paragraph of 20 words after a word with a bookmark for each number."""
    marked = "".join(f'<w:bookmarkStart w:id="{number}" w:name="place{number}"/><w:r><w:t>place{number}</w:t></w:r>'
                     f'<w:bookmarkEnd w:id="{number}"/><w:r><w:t xml:space="preserve"> </w:t></w:r>'
                     for number in numbers)
    return f"<w:p>{marked}<w:r><w:t>{words(chance, 20)}</w:t></w:r></w:p>"


def template(folder, paragraphs, bookmarks, middle):
    """Returns the path of a template with these numbers of paragraphs and bookmarks. The paragraph in the middle is
    "middle"."""
    chance = random.Random(1)
    body = [marked_paragraph(chance, range(index * bookmarks // paragraphs, (index + 1) * bookmarks // paragraphs))
            for index in range(paragraphs)]
    body.insert(paragraphs // 2, f"<w:p><w:r><w:t>{middle}</w:t></w:r></w:p>")
    path = pathlib.Path(folder) / f"paragraphs{paragraphs}.dotx"
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        archive.writestr("[Content_Types].xml", CONTENT_TYPES)
        archive.writestr("_rels/.rels", RELATIONSHIPS)
        archive.writestr("word/document.xml", f'<w:document xmlns:w="{WORDPROCESSING}"><w:body>{"".join(body)}'
                                              "</w:body></w:document>")
    return path


def png_chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def noise_picture(chance):
    """Returns a picture of random pixels as PNG, which cannot be compressed."""
    rows = b"".join(b"\0" + chance.randbytes(3 * PICTURE_SIDE) for _ in range(PICTURE_SIDE))
    header = struct.pack(">IIBBBBB", PICTURE_SIDE, PICTURE_SIDE, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + png_chunk(b"IDAT", zlib.compress(rows, 1)) +
            png_chunk(b"IEND", b""))
