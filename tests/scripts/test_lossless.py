"""Maps into documents of other programs. Content outside of the mapping must not change.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources.
"""
import os
import re
import struct
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

from lxml import etree

import foreign_documents
import read_docx

PROGRAM = os.environ["MERGELOOM"]
PICTURE = Path(os.environ["MERGELOOM_ROOT"]) / "samples" / "pictures" / "letterhead.png"
MAIN = "word/document.xml"
W = "{http://schemas.openxmlformats.org/wordprocessingml/2006/main}"
MADE = {W + name for name in ("p", "pPr", "r", "rPr", "t", "bookmarkStart", "bookmarkEnd")}

FORM = """<Database><Form Name="Letter" CurrentView="1" DefaultView="0" HasRecordset="1"><Controls>
<Control Name="Customer" Caption="Client" ControlType="Textbox" Section="0"/>
<Control Name="Order Date" Caption="Ordered" ControlType="Textbox" Section="0"/>
</Controls></Form></Database>"""


def raw_entries(path):
    """Returns the entries of an archive in their order, each with its local header and compressed bytes."""
    data = path.read_bytes()
    entries = {}
    with zipfile.ZipFile(path) as archive:
        for info in archive.infolist():
            sizes = struct.unpack_from("<HH", data, info.header_offset + 26)
            end = info.header_offset + 30 + sum(sizes) + info.compress_size
            entries[info.filename] = data[info.header_offset:end]
    return entries


def events_of(path):
    """Returns the main part as a flat list of starts and ends of elements and of comments, each with the text after
    it."""
    with zipfile.ZipFile(path) as archive:
        root = etree.fromstring(archive.read(MAIN))
    events = []
    for event, node in etree.iterwalk(root, events=("start", "end", "comment")):
        if event == "start":
            events.append((node.tag, sorted(node.attrib.items()), node.text or ""))
        elif event == "comment":
            events.append(("comment", node.text, node.tail or ""))
        else:
            events.append(("/", node.tag, node.tail or ""))
    return events


def added_to(before, after):
    """Returns the events that have been added to a list. Fails if an event is missing."""
    added, rest = [], iter(before)
    wanted = next(rest, None)
    for event in after:
        if event == wanted:
            wanted = next(rest, None)
        else:
            added.append(event)
    assert wanted is None, f"lost: {wanted}"
    return added


def words_shown(document, folder):
    """Returns the words of a document as LibreOffice prints them."""
    copy = folder / f"shown-{document.name}"
    copy.write_bytes(document.read_bytes())
    pdf = copy.with_suffix(".pdf")
    foreign_documents.convert(copy, pdf, "pdf")
    text = subprocess.run(["pdftotext", "-raw", pdf, "-"], capture_output=True, text=True, check=True).stdout
    return re.findall(r"\w+", text)


class Lossless(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        (cls.folder / "form.xml").write_text(FORM, encoding="utf-8")
        cls.documents = dict(foreign_documents.make_all(cls.folder, PICTURE))

        cls.mapped = {name: cls.map(document) for name, document in cls.documents.items()}

    @classmethod
    def map(cls, document):
        target = document.with_name(f"mapped-{document.name}")
        done = subprocess.run(
            [PROGRAM, "--exit-status", "-hidden", "-usedocument", document, "-xmlfile", cls.folder / "form.xml",
             "-template", target], capture_output=True, text=True, timeout=60, check=False)
        if done.returncode:
            raise AssertionError(done.stdout + done.stderr)
        return target

    def test_the_documents_hold_what_is_hard(self):
        """LibreOffice has written the features of the sources, without which the other tests would prove little."""
        tags = {event[0] for event in events_of(self.documents["flat"])}
        for name in ("tbl", "ins", "del", "fldChar", "hyperlink", "commentRangeStart", "footnoteReference",
                     "bookmarkStart", "sectPr", "drawing", "txbxContent", "sdt"):
            self.assertIn(W + name, tags)

    def test_other_entries_are_the_same_bytes_in_place(self):
        for name, document in self.documents.items():
            before, after = raw_entries(document), raw_entries(self.mapped[name])
            self.assertEqual(list(after), list(before), name)
            self.assertEqual([entry for entry in before if before[entry] != after[entry]], [MAIN], name)

    def test_the_main_part_keeps_all_elements(self):
        for name, document in self.documents.items():
            added = added_to(events_of(document), events_of(self.mapped[name]))
            content = [event for event in added if event[0] != "/" and "Pr" not in event[0]]
            self.assertLessEqual({event[0] for event in content} - self.properties_in(document), MADE, name)
            self.assertEqual(sum(event[0] == W + "bookmarkStart" for event in content), 2, name)

    @staticmethod
    def properties_in(document):
        """Returns the elements that a new paragraph may take over from the first one's formatting."""
        with zipfile.ZipFile(document) as archive:
            root = etree.fromstring(archive.read(MAIN))
        paragraph = next(root.iter(W + "p"))
        return {node.tag for kind in ("pPr", "rPr") for each in paragraph.iter(W + kind) for node in each.iter()}

    def test_bookmarks_are_sound_and_ids_are_new(self):
        for name, document in self.documents.items():
            former, former_problems = read_docx.read_bookmarks(document)
            found, problems = read_docx.read_bookmarks(self.mapped[name])
            self.assertEqual(problems, former_problems, name)
            names = [place["name"] for place in former]
            new = [place for place in found if place["name"] not in names]
            self.assertEqual([place["text"] for place in new], ["Customer", "OrderDate"], name)
            with zipfile.ZipFile(document) as archive:
                ids = set(re.findall(r' w:id="(-?\d+)"', archive.read(MAIN).decode()))
            self.assertFalse({place["id"] for place in new} & ids, name)

    def test_a_name_that_is_taken_gets_a_counter(self):
        found, _ = read_docx.read_bookmarks(self.mapped["python"])
        self.assertEqual([place["name"] for place in found], ["Customer_ref1", "OrderDate", "_GoBack", "customer"])

    def test_other_programs_show_the_same_text(self):
        for name, document in self.documents.items():
            target = self.mapped[name]
            added = added_to(words_shown(document, self.folder), words_shown(target, self.folder))
            self.assertEqual(sorted(added), ["Client", "Customer", "OrderDate", "Ordered"], name)
            self.assertIn("Client: Customer", read_docx.read_paragraphs(target), name)


if __name__ == "__main__":
    unittest.main()
