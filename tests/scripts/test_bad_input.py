"""Maps into damaged, malicious and unknown documents, and to places that cannot be written. Each run has to end with a
sentence about the reason, and to write and lose nothing.

MERGELOOM names the program.
"""
import io
import os
import resource
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

import docx

PROGRAM = os.environ["MERGELOOM"]
WORD = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
MAIN = "word/document.xml"
TYPES = "[Content_Types].xml"
MACROS = os.urandom(5000)
FORM = """<Database><Form Name="F" CurrentView="1" DefaultView="0" HasRecordset="1"><Controls>
<Control Name="A" ControlType="Textbox" Section="0"/></Controls></Form></Database>"""


def good():
    """Returns the entries of a sound document."""
    file = io.BytesIO()
    docx.Document().save(file)
    with zipfile.ZipFile(file) as archive:
        return {info.filename: archive.read(info) for info in archive.infolist()}


def pack(entries):
    """Returns an archive of entries, which are pairs so that names may repeat."""
    file = io.BytesIO()
    with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in entries.items() if isinstance(entries, dict) else entries:
            archive.writestr(zipfile.ZipInfo(name), content, zipfile.ZIP_DEFLATED)
    return file.getvalue()


def body(xml):
    return f'<w:document xmlns:w="{WORD}"><w:body>{xml}</w:body></w:document>'.encode()


def flagged_as_encrypted():
    """Returns an archive whose entries are marked as encrypted (APPNOTE 4.4.4, bit 0)."""
    data = bytearray(pack(good()))
    for signature, offset in ((b"PK\x03\x04", 6), (b"PK\x01\x02", 8)):
        at = data.find(signature)
        while at >= 0:
            data[at + offset] |= 1
            at = data.find(signature, at + 4)
    return bytes(data)


def compound_file(stream):
    """Returns the head of a file of streams and the directory entry of one of them ([MS-CFB] 2.6.1)."""
    name = (stream + "\0").encode("utf-16-le")
    entry = name.ljust(64, b"\0") + len(name).to_bytes(2, "little") + b"\x02"
    return bytes.fromhex("d0cf11e0a1b11ae1").ljust(512, b"\0") + entry.ljust(128, b"\0")


def of_type(entries, content_type):
    """Returns a document whose main part has another content type."""
    word_type = b"application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"
    return entries | {TYPES: entries[TYPES].replace(word_type, content_type.encode())}


def with_macros():
    entries = of_type(good(), "application/vnd.ms-word.document.macroEnabled.main+xml")
    relationships = "word/_rels/document.xml.rels"
    entries[relationships] = entries[relationships].replace(
        b"</Relationships>",
        b'<Relationship Id="rIdM" Type="http://schemas.microsoft.com/office/2006/relationships/vbaProject"'
        b' Target="vbaProject.bin"/></Relationships>')
    entries[TYPES] = entries[TYPES].replace(
        b"</Types>", b'<Default Extension="bin" ContentType="application/vnd.ms-office.vbaProject"/></Types>')
    return entries | {"word/vbaProject.bin": MACROS}


def without(entries, name):
    return {key: value for key, value in entries.items() if key != name}


def cases():
    """Returns rows of a fault, the file, and words of the expected sentence."""
    sound = good()
    bomb = b" " * (40 << 20)
    entities = b'<!DOCTYPE w:document [<!ENTITY e SYSTEM "file:///etc/hostname">]>' + body("<w:p/>&e;")
    sheet = "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"
    return [
        ("empty", b"", "is empty"),
        ("no archive", b"hello", "no zip archive"),
        ("truncated", pack(sound)[:-300], "truncated or damaged"),
        ("cut in the middle", pack(sound)[: len(pack(sound)) // 2], "truncated or damaged"),
        ("a bomb", pack(sound | {MAIN: body("<w:p/>") + bomb}), "too large when unpacked"),
        ("no main part", pack(without(sound, MAIN)), "is missing"),
        ("no content types", pack(without(sound, TYPES)), TYPES),
        ("no relationships", pack(without(sound, "_rels/.rels")), "no main part"),
        ("malformed", pack(sound | {MAIN: body("<w:p>")}), "not well-formed"),
        ("not a word of XML", pack(sound | {MAIN: b"\x00\x01\x02"}), "not well-formed"),
        ("a malformed header", pack(sound | {"word/_rels/document.xml.rels": b"<a"}), "malformed"),
        ("a document type", pack(sound | {MAIN: entities}), "document type"),
        ("too deep", pack(sound | {MAIN: body("<w:p>" * 5000 + "</w:p>" * 5000)}), "too deep"),
        ("no body", pack(sound | {MAIN: f'<w:document xmlns:w="{WORD}"/>'.encode()}), "no body"),
        ("a name twice", pack([*sound.items(), ("WORD/Document.xml", b"")]), "two entries of the name"),
        ("a climbing name", pack(sound | {"../../evil.xml": b"x"}), '".."'),
        ("an absolute name", pack(sound | {"/etc/evil": b"x"}), "absolute"),
        ("encrypted by Word", compound_file("EncryptedPackage"), "encrypted"),
        ("of an older Word", compound_file("WordDocument"), "old binary document"),
        ("encrypted entries", flagged_as_encrypted(), "encrypted"),
        ("signed", pack(sound | {"_xmlsignatures/sig1.xml": b"<a/>"}), "digitally signed"),
        ("a workbook", pack(of_type(sound, sheet)), "not a Word document"),
    ]


class BadInput(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        (self.folder / "form.xml").write_text(FORM, encoding="utf-8")

    def map(self, document, target, **how):
        """Maps the form into a document. Returns the status and the messages."""
        done = subprocess.run(
            [PROGRAM, "--exit-status", "-hidden", "-usedocument", document, "-xmlfile", self.folder / "form.xml",
             "-template", target], capture_output=True, text=True, timeout=60, check=False, **how)
        return done.returncode, done.stdout + done.stderr

    def assert_refused(self, document, target, words, **how):
        before = {path: path.read_bytes() for path in self.folder.iterdir()}
        status, said = self.map(document, target, **how)
        self.assertEqual(status, 1, said)
        self.assertIn(words, said)
        self.assertRegex(said, r"(?m)\.$")
        self.assertEqual({path: path.read_bytes() for path in self.folder.iterdir()}, before)

    def test_what_cannot_be_read(self):
        document = self.folder / "bad.docx"
        for what, content, words in cases():
            with self.subTest(what):
                document.write_bytes(content)
                self.assert_refused(document, self.folder / "out.docx", words)

    def test_macros_go_nowhere_unasked(self):
        document = self.folder / "macros.docm"
        document.write_bytes(pack(with_macros()))
        for extension in ("dotx", "docx"):
            self.assert_refused(document, self.folder / f"out.{extension}", "macros")
        target = self.folder / "out.dotm"
        status, said = self.map(document, target)
        self.assertEqual(status, 0, said)
        with zipfile.ZipFile(target) as archive, zipfile.ZipFile(document) as former:
            self.assertEqual(archive.read("word/vbaProject.bin"), MACROS)
            self.assertIn(b"template.macroEnabledTemplate", archive.read(TYPES))
            self.assertEqual(archive.namelist(), former.namelist())

    def test_what_cannot_be_written(self):
        document = self.folder / "good.docx"
        document.write_bytes(pack(good()))
        # Nobody can create files in this folder, not even the superuser.
        self.assert_refused(document, Path("/proc/out.docx"), "/proc/out.docx")
        # No file may exceed this size, which has the effect of a full disk.
        small = {"restore_signals": False,
                 "preexec_fn": lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))}
        target = self.folder / "large.docx"
        self.assert_refused(document, target, str(target), **small)


if __name__ == "__main__":
    unittest.main()
