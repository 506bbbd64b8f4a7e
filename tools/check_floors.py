#!/usr/bin/env python3
"""Checks that the sources keep to the floors of the house.

Complains about an include that goes to a floor that the file's own floor may not know, a library used
outside the floor that hides it, a header without "#pragma once" and a circle of includes.
Usage: check_floors.py [ROOT]
"""
import re
import sys
from pathlib import Path

# What each floor may include besides itself. The links of the CMake files say the same.
FLOORS = {
    "base": [],
    "xml": ["base"],
    "office/formats": ["base"],
    "office/model": ["base"],
    "office/opc": ["base"],
    "office/embedded/parts": ["office/opc", "office/formats", "base"],
    "office/embedded/text": ["office/embedded/parts", "office/opc", "base"],
    "office/embedded/word": [
        "office/embedded/text", "office/embedded/parts", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/embedded/sheet": ["office/embedded/parts", "office/opc", "base"],
    "office/embedded/excel": [
        "office/embedded/sheet", "office/embedded/parts", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/entry": ["office/model", "base"],
    "office/libreoffice/session": ["office/opc", "office/model", "office/formats", "base"],
    "office/libreoffice/readback": [
        "office/libreoffice/session", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/word": [
        "office/libreoffice/session", "office/libreoffice/readback", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/excel": [
        "office/libreoffice/session", "office/libreoffice/readback", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/host": [
        "office/libreoffice/session", "office/libreoffice/word", "office/libreoffice/excel", "office/model",
        "office/formats", "base",
    ],
    "office/libreoffice/module": [
        "office/libreoffice/session", "office/libreoffice/readback", "office/libreoffice/word",
        "office/libreoffice/excel", "office/libreoffice/host", "office/libreoffice/entry", "office/model", "base",
    ],
    "office/factory": [
        "office/embedded/word", "office/embedded/excel", "office/libreoffice/entry", "office/model", "base",
    ],
    "droppers": ["office/model", "xml", "base"],
    "app": ["droppers", "office/factory", "office/formats", "office/model", "xml", "base"],
    "ui/services": ["base"],
    "ui/dialogs": ["ui/services", "droppers", "base"],
    "ui/help": ["ui/services", "base"],
    "ui/designer": [
        "ui/services", "ui/dialogs", "ui/help", "app", "droppers", "office/factory", "office/formats", "office/model",
        "xml", "base",
    ],
}

# Where a library may be seen.
LIBRARIES = {
    "unicode/": ["base"],
    "libxml/": ["xml"],
    "libdeflate.h": ["office/opc"],
    "X11/": ["office/libreoffice/host"],
    "chm_lib.h": ["ui/help"],
    "Q": ["ui/services", "ui/dialogs", "ui/help", "ui/designer"],
    **{library: ["office/libreoffice/" + floor for floor in (
        "session", "readback", "word", "excel", "host", "module")]
       for library in ("com/sun/star/", "cppu/", "cppuhelper/", "osl/", "rtl/", "sal/", "uno/")},
    "pugixml.hpp": [
        "xml", "office/opc", "office/embedded/parts", "office/embedded/text",
        "office/embedded/word", "office/embedded/sheet", "office/embedded/excel",
    ],
}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def floor_of(path):
    """The floor that holds the path (relative to the root), or None."""
    return next((floor for floor in FLOORS if path.startswith(floor + "/")), None)


def read_sources(root):
    """Maps each source's path to its text; the tests stand outside the floors but keep to the other rules."""
    folders = {floor.split("/")[0] for floor in FLOORS} | {"tests"}
    files = [file for folder in sorted(folders) for file in sorted((root / folder).rglob("*"))]
    return {
        file.relative_to(root).as_posix(): file.read_text(encoding="utf-8")
        for file in files if file.suffix in (".h", ".cpp")
    }


def check_include(path, floor, included, sources):
    """What is wrong with an include in quotes, or None."""
    if included not in sources:
        return f"{path}: \"{included}\" is no source; paths start at the root"
    target = floor_of(included)
    if target != floor and target not in FLOORS[floor]:
        return f"{path}: {floor} may not include {included}"
    return None


def check_library(path, floor, included):
    """What is wrong with an include in angle brackets, or None."""
    for library, floors in LIBRARIES.items():
        if included.startswith(library) and floor not in floors:
            return f"{path}: <{included}> belongs to {', '.join(floors)}"
    return None


def check_file(path, text, sources):
    """The complaints about one source."""
    complaints = []
    if path.endswith(".h") and not re.search(r"^#pragma once$", text, re.MULTILINE):
        complaints.append(f"{path}: has no #pragma once")
    floor = floor_of(path)
    if floor is None:
        if not path.startswith("tests/"):
            complaints.append(f"{path}: stands on no floor")
        return complaints
    for quoted, angled in INCLUDE.findall(text):
        found = check_include(path, floor, quoted, sources) if quoted else check_library(path, floor, angled)
        if found:
            complaints.append(found)
    return complaints


def find_circle(sources):
    """The files of one circle of includes in order, or an empty list."""
    includes = {
        path: [quoted for quoted, _ in INCLUDE.findall(text) if quoted in sources]
        for path, text in sources.items()
    }
    done, trail = set(), []

    def visit(path):
        if path in trail:
            return trail[trail.index(path):] + [path]
        if path in done:
            return []
        trail.append(path)
        for included in includes[path]:
            circle = visit(included)
            if circle:
                return circle
        trail.pop()
        done.add(path)
        return []

    return next(filter(None, map(visit, includes)), [])


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent)
    sources = read_sources(root)
    complaints = [line for path, text in sources.items() for line in check_file(path, text, sources)]
    circle = find_circle(sources)
    if circle:
        complaints.append("circle: " + " -> ".join(circle))
    for complaint in complaints:
        print(complaint)
    if not sources:
        print(f"{root}: holds no sources")
    return 1 if complaints or not sources else 0


if __name__ == "__main__":
    sys.exit(main())
