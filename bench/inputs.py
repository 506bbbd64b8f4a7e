"""What the benchmarks feed the programs with. The same call makes the same input."""

import pathlib
import struct
import subprocess
import sys
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent

PICTURE_SIDE = 256  # pixels
WORDS = ("order", "customer", "delivery", "invoice", "address", "amount", "harbour", "article", "remark", "price",
         "store", "due", "of", "the", "and", "to")


def structure(folder, count, *options):
    """The path of a structure document with so many fields; it is made once in a folder."""
    path = pathlib.Path(folder) / ("fields" + str(count) + "".join(options) + ".xml")
    if not path.exists():
        make("tools/make_structure_document.py", str(count), path, *options)
    return str(path)


def make(script, *arguments):
    """Runs one of the scripts that write inputs."""
    subprocess.run([sys.executable, ROOT / script, *arguments], check=True)


def words(chance, count):
    return " ".join(chance.choices(WORDS, k=count))


def png_chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def noise_picture(chance):
    """A picture of random pixels as PNG, which does not compress."""
    rows = b"".join(b"\0" + chance.randbytes(3 * PICTURE_SIDE) for _ in range(PICTURE_SIDE))
    header = struct.pack(">IIBBBBB", PICTURE_SIDE, PICTURE_SIDE, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + png_chunk(b"IDAT", zlib.compress(rows, 1)) +
            png_chunk(b"IEND", b""))
