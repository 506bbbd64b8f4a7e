#!/usr/bin/env python3
"""Reads the bookmarks of a Word document or template through python3-docx, a reader that knows nothing of ours.

Usage: read_docx.py FILE
Prints the bookmarks in document order as JSON and ends with 1, telling why, when they are not sound: a start
without an end or the other way round, an id or a name (ignoring case) that occurs twice.
"""
import json
import sys
from collections import Counter

import docx
from docx.opc.part import PartFactory
from docx.oxml.ns import qn
from docx.parts.document import DocumentPart
from docx.text.paragraph import Paragraph
from lxml import etree

# python-docx opens only .docx by itself, but the main parts of the other kinds have the same structure.
for kind in (
    "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml",
    "application/vnd.ms-word.document.macroEnabled.main+xml",
    "application/vnd.ms-word.template.macroEnabledTemplate.main+xml",
):
    PartFactory.part_type_for[kind] = DocumentPart

STORY_ROOTS = {qn(f"w:{name}") for name in ("document", "hdr", "ftr", "footnotes", "endnotes", "comments")}
CHARACTERS = {qn("w:tab"): "\t", qn("w:br"): "\n", qn("w:cr"): "\n", qn("w:noBreakHyphen"): "\u2011"}


def open_package(path):
    """Returns the package of a Word document or template."""
    return docx.package.Package.open(str(path))


def stories(package):
    """Yields each part that holds text with its root element, the main part first."""
    main = package.main_document_part
    others = sorted((part for part in package.iter_parts() if part is not main), key=lambda part: part.partname)
    for part in [main, *others]:
        if not part.partname.endswith(".xml"):
            continue
        root = etree.fromstring(part.blob)
        if root.tag in STORY_ROOTS:
            yield part, root


def text_of(element):
    """Returns the characters that an element itself adds to its paragraph."""
    if element.tag == qn("w:t"):
        return element.text or ""
    inside_run = element.getparent() is not None and element.getparent().tag == qn("w:r")
    return CHARACTERS.get(element.tag, "") if inside_run else ""


def pictures_of(element, part):
    """Returns a list of the name of the part with an element's picture; an empty list without one."""
    embedded = element.get(qn("r:embed")) if element.tag == qn("a:blip") else None
    return [part.related_parts[embedded].partname] if embedded else []


def read_story(part, root, problems):
    """Returns the bookmarks of one story in the order of their starts."""
    name, found, open_by_id = str(part.partname), [], {}
    paragraph = -1
    for event, element in etree.iterwalk(root, events=("start", "end")):
        if event == "end":
            if element.tag == qn("w:p"):
                for bookmark in open_by_id.values():
                    bookmark["text"] += "\r"
            continue
        if element.tag == qn("w:p"):
            paragraph += 1
        elif element.tag == qn("w:bookmarkStart"):
            bookmark = {
                "name": element.get(qn("w:name")), "id": element.get(qn("w:id")), "text": "",
                "pictures": [], "paragraph": paragraph, "part": name,
            }
            found.append(bookmark)
            open_by_id[bookmark["id"]] = bookmark
        elif element.tag == qn("w:bookmarkEnd"):
            if open_by_id.pop(element.get(qn("w:id")), None) is None:
                problems.append(f"{name}: the end of id {element.get(qn('w:id'))} has no start before it")
        else:
            text = text_of(element)
            pictures = [str(picture) for picture in pictures_of(element, part)]
            for bookmark in open_by_id.values():
                bookmark["text"] += text
                bookmark["pictures"] += pictures
    problems.extend(f"{name}: bookmark {bookmark['name']} has no end" for bookmark in open_by_id.values())
    return found


def read_bookmarks(path):
    """Returns the bookmarks of all stories, and sentences about the errors in them."""
    problems = []
    found = [
        bookmark for part, root in stories(open_package(path)) for bookmark in read_story(part, root, problems)
    ]
    for key in ("id", "name"):
        counts = Counter((bookmark[key] or "").casefold() for bookmark in found)
        problems.extend(f"{key} {value!r} occurs {n} times" for value, n in counts.items() if n > 1)
    return found, problems


def read_paragraphs(path):
    """Returns the texts of the body's paragraphs, including those in tables, as read by python3-docx."""
    body = open_package(path).main_document_part.document.element.body
    return [Paragraph(paragraph, None).text for paragraph in body.iter(qn("w:p"))]


def read_tables(path):
    """Returns the texts of the cells of the body's tables row by row, as read by python3-docx."""
    tables = open_package(path).main_document_part.document.tables
    return [[[cell.text.strip() for cell in row.cells] for row in table.rows] for table in tables]


def main():
    found, problems = read_bookmarks(sys.argv[1])
    json.dump(found, sys.stdout, indent=1, ensure_ascii=False)
    print()
    for problem in problems:
        print(problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
