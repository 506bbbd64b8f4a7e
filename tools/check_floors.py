#!/usr/bin/env python3
"""Checks that the sources keep to the floors of the house.

Complains about an include that goes to a floor that the file's own floor may not know, a name of such a floor that is
used through other headers, a library used outside the floor that hides it (by its headers or by its names), a system's
header outside of its folder, a header without "#pragma once" and a circle of includes.
Usage: check_floors.py [ROOT]
"""
import re
import sys
from pathlib import Path

# The floors that each floor may include besides itself. The links of the CMake files are the same.
FLOORS = {
    "base": [],
    "xml": ["base"],
    "office/formats": ["base"],
    "office/model": ["base"],
    "office/opc": ["base"],
    "office/embedded/parts": ["office/opc", "office/formats", "base"],
    "office/embedded/text": ["office/opc", "office/model", "base"],
    "office/embedded/word": [
        "office/embedded/text", "office/embedded/parts", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/embedded/letters": [
        "office/embedded/word", "office/embedded/text", "office/embedded/parts", "office/opc", "office/model",
        "office/formats", "base",
    ],
    "office/embedded/sheet": ["office/embedded/parts", "office/opc", "office/model", "base"],
    "office/embedded/excel": [
        "office/embedded/sheet", "office/embedded/parts", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/embedded/books": [
        "office/embedded/excel", "office/embedded/sheet", "office/embedded/parts", "office/opc", "office/model",
        "office/formats", "base",
    ],
    "office/graft": [
        "office/embedded/word", "office/embedded/text", "office/embedded/excel", "office/embedded/sheet",
        "office/embedded/parts", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/entry": ["office/model", "base"],
    "office/libreoffice/calls": ["office/opc", "office/model", "base"],
    "office/libreoffice/session": [
        "office/libreoffice/calls", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/readback": [
        "office/libreoffice/session", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/word": [
        "office/libreoffice/session", "office/libreoffice/calls", "office/opc", "office/model", "base",
    ],
    "office/libreoffice/job": ["office/libreoffice/session", "office/libreoffice/calls", "base"],
    "office/libreoffice/inside": [
        "office/libreoffice/job", "office/libreoffice/word", "office/libreoffice/session", "office/libreoffice/calls",
        "office/model", "base",
    ],
    "office/libreoffice/remote": [
        "office/libreoffice/session", "office/libreoffice/readback", "office/libreoffice/calls", "office/opc",
        "office/model", "office/formats", "base",
    ],
    "office/libreoffice/excel": [
        "office/libreoffice/session", "office/libreoffice/readback", "office/opc", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/host": [
        "office/libreoffice/session", "office/libreoffice/readback", "office/libreoffice/remote",
        "office/libreoffice/excel", "office/model", "office/formats", "base",
    ],
    "office/libreoffice/module": [
        "office/libreoffice/session", "office/libreoffice/readback", "office/libreoffice/remote",
        "office/libreoffice/excel", "office/libreoffice/host", "office/libreoffice/entry", "office/model", "base",
    ],
    "office/com/automation": ["office/model", "base"],
    "office/com/word": ["office/com/automation", "office/model", "office/formats", "base"],
    "office/com/excel": ["office/com/automation", "office/model", "office/formats", "base"],
    "office/factory": [
        "office/embedded/word", "office/embedded/letters", "office/embedded/excel", "office/embedded/books",
        "office/graft", "office/libreoffice/entry", "office/com/word", "office/com/excel",
        "office/com/automation", "office/model", "base",
    ],
    "droppers": ["office/model", "xml", "base"],
    "app": ["droppers", "office/factory", "office/formats", "office/model", "xml", "base"],
    "describe/access": ["describe", "xml", "base"],
    "describe": ["office/opc", "xml", "base"],
    "ui/services": ["base"],
    "ui/dialogs": ["ui/services", "droppers", "base"],
    "ui/help": ["ui/services", "base"],
    "ui/designer": [
        "ui/services", "ui/dialogs", "ui/help", "app", "droppers", "office/factory", "office/formats", "office/model",
        "xml", "base",
    ],
}

# The floors that may use a library.
LIBRARIES = {
    "unicode/": ["base"],
    "libxml/": ["xml"],
    "libdeflate.h": ["office/opc"],
    "X11/": ["office/libreoffice/host", "ui/designer"],
    "chm_lib.h": ["ui/help"],
    "sqlite3.h": ["describe"],
    "mdbtools.h": ["describe/access"],
    "sql.h": ["describe"],
    "sqlext.h": ["describe"],
    "Q": ["ui/services", "ui/dialogs", "ui/help", "ui/designer"],
    **{library: ["office/libreoffice/" + floor for floor in (
        "session", "readback", "word", "job", "inside", "remote", "excel", "host",
        "module")]
       for library in ("com/sun/star/", "cppu/", "cppuhelper/", "osl/", "rtl/", "sal/", "uno/")},
    # The XML of one part is a tree of pugixml's, so every reader of parts uses it.
    "pugixml.hpp": [
        "xml", "office/opc", "office/embedded/parts", "office/embedded/text", "office/embedded/word",
        "office/embedded/letters", "office/embedded/sheet", "office/embedded/excel", "office/embedded/books",
        "office/graft", "office/libreoffice/readback", "office/libreoffice/remote",
    ],
}

# The headers of one system. Where a floor is built for both, they are included only in its folder for that system.
SYSTEMS = {
    "posix": re.compile(r"(?:dlfcn|langinfo|netdb|poll|pwd|spawn|termios|unistd)\.h$|sys/(?!stat\.h|types\.h)"),
    "windows": re.compile(r"(?:aclapi|io|oaidl|objbase|oleauto|shellapi|windows)\.h$"),
}
# The folders that are built for one system only.
ONE_SYSTEM = ("office/libreoffice/", "describe/access/", "ui/", "office/com/automation/")

# The patterns of the names of a library, for uses that include its headers through other headers.
LIBRARY_NAMES = {
    "unicode/": r"icu::|u_[a-z]\w*\(|UChar32|UErrorCode",
    "libxml/": r"xml(?:Doc|Node|Attr|Ns)(?:Ptr)?\b|xml(?:Parser|XPath|Free|Read|Error)[A-Z]?\w*",
    "libdeflate.h": r"libdeflate_\w+",
    "X11/": r"xcb_\w+",
    "sqlite3.h": r"sqlite3_\w+",
    "sql.h": r"SQL[A-Z]\w+|SQL_\w+",
    "mdbtools.h": r"mdb_\w+|Mdb[A-Z]\w+|MDB_\w+",
    "chm_lib.h": r"chm_\w+|chmFile|chmUnitInfo",
    "Q": r"Q[A-Z][a-z]\w+",
    "com/sun/star/": r"css::|com::sun::star",
    "cppu/": r"cppu::",
    "osl/": r"osl::|osl_\w+",
    "rtl/": r"rtl::|rtl_\w+|OUString",
    "sal/": r"sal_(?:Int|uInt|Unicode|Bool)\w*",
    "pugixml.hpp": r"pugi::",
}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)

# The texts that contain no used name: comments, preprocessor lines and literals.
IGNORED = re.compile(
    r'//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:[^"\\\n]|\\.)*"'
    r"|(?<!\w)'(?:[^'\\\n]|\\.)+'", re.MULTILINE | re.DOTALL)

# A name with its qualifiers, unless it is a member of an object. Names in small letters count only if they are called
# or qualified.
USE = re.compile(r"(?<![\w.:])(?<!->)(?:\w+(?:::\w+)+|[A-Z]\w*|k[A-Z]\w*|\w+\s*(?=\())")


def floor_of(path):
    """Returns the floor of the path, which is relative to the root, or None."""
    return next((floor for floor in FLOORS if path.startswith(floor + "/")), None)


def read_sources(root):
    """Maps each source's path to its text. Tests belong to no floor, but the other rules apply to them."""
    folders = {floor.split("/")[0] for floor in FLOORS} | {"tests"}
    files = [file for folder in sorted(folders) for file in sorted((root / folder).rglob("*"))]
    return {
        file.relative_to(root).as_posix(): file.read_text(encoding="utf-8")
        for file in files if file.suffix in (".h", ".cpp")
    }


def check_include(path, floor, included, sources):
    """Returns a complaint about an include in quotes, or None."""
    if included not in sources:
        return f"{path}: \"{included}\" is no source; paths start at the root"
    target = floor_of(included)
    if target != floor and target not in FLOORS[floor]:
        return f"{path}: {floor} may not include {included}"
    return None


def check_library(path, floor, included):
    """Returns a complaint about an include in angle brackets, or None."""
    for library, floors in LIBRARIES.items():
        if included.startswith(library) and floor not in floors:
            return f"{path}: <{included}> belongs to {', '.join(floors)}"
    return None


def check_system(path, included):
    """Returns a complaint about an include of a system's own header, or None."""
    if path.startswith(ONE_SYSTEM):
        return None
    for system, headers in SYSTEMS.items():
        if headers.match(included) and f"/{system}/" not in path:
            return f"{path}: <{included}> belongs into a folder '{system}'"
    return None


def code_of(text):
    """Returns the source without comments, the contents of its literals and its preprocessor lines."""
    return IGNORED.sub(lambda ignored: "" if ignored[0][0] in "/#" else '""', text)


class Declarations:
    """Returns the names that a source declares in namespaces, each with its namespaces, and those namespaces."""

    TOKEN = re.compile(
        r"namespace(?:\s+(?P<namespace>[\w:]+))?\s*(?P<opens>\{)|(?P<brace>[{}])"
        r"|(?:class|struct|enum|enum\s+class|concept)\s+(?P<type>\w+)(?P<forward>\s*;)?"
        r"|using\s+(?P<alias>\w+)\s*=|\b(?P<function>\w+)\s*\(|\b(?P<constant>k[A-Z]\w*)\b")

    def __init__(self, text):
        self.names, self.namespaces = set(), set()
        braces = []  # the namespace that each open brace opens; None for any other
        for token in self.TOKEN.finditer(code_of(text)):
            if token["opens"]:
                braces.append(token["namespace"] or "")
                self.namespaces.add("::".join(filter(None, braces)) if None not in braces else "")
            elif token["brace"] == "{":
                braces.append(None)
            elif token["brace"]:
                del braces[-1:]
            elif None not in braces and not token["forward"]:
                name = token["type"] or token["alias"] or token["function"] or token["constant"]
                self.names.add("::".join([*filter(None, braces), name]))


def scopes_of(namespaces):
    """Returns the scopes in which a name is looked up: the given namespaces and all that contain them."""
    return {""} | {"::".join(parts[:length]) for parts in (name.split("::") for name in namespaces)
                   for length in range(len(parts) + 1)}


def reached_from(path, sources, reached):
    """Adds to a set all sources that the source includes, also through others."""
    for quoted, _ in INCLUDE.findall(sources[path]):
        if quoted in sources and quoted not in reached:
            reached.add(quoted)
            reached_from(quoted, sources, reached)
    return reached


def check_names(path, floor, sources, declarations):
    """Returns the complaints about names that the source uses and that its floor may not know."""
    complaints = []
    known, foreign = set(), {}
    for header in [path, *reached_from(path, sources, set())]:
        declared = declarations[header]
        if floor_of(header) in (floor, *FLOORS[floor]):
            known |= declared.names | declared.namespaces
        else:
            foreign |= dict.fromkeys(declared.names | declared.namespaces, header)
    foreign = {name: header for name, header in foreign.items() if name not in known}
    if not foreign:
        return complaints
    scopes = scopes_of(declarations[path].namespaces)
    for used in USE.findall(code_of(sources[path])):
        parts = used.rstrip("( ").split("::")
        candidates = ("::".join(filter(None, [scope, *parts[:length]]))
                      for length in range(len(parts), 0, -1) for scope in scopes)
        found = next((name for name in candidates if name in foreign), None)
        if found:
            complaints.append(f"{path}: {floor} may not use {found} of {foreign[found]}")
    return sorted(set(complaints))


def check_library_names(path, floor, text):
    """Returns the complaints about libraries that the source uses and that its floor may not use."""
    code = code_of(text)
    uses = ((library, re.search(r"(?<![\w:])(?:" + names + ")", code)) for library, names in LIBRARY_NAMES.items()
            if floor not in LIBRARIES[library])
    return [f"{path}: {found[0]} of <{library}> belongs to {', '.join(LIBRARIES[library])}"
            for library, found in uses if found]


def check_file(path, text, sources, declarations):
    """Returns the complaints about one source."""
    complaints = []
    if path.endswith(".h") and not re.search(r"^#pragma once$", text, re.MULTILINE):
        complaints.append(f"{path}: has no #pragma once")
    floor = floor_of(path)
    if floor is None:
        if not path.startswith("tests/"):
            complaints.append(f"{path}: stands on no floor")
        return complaints
    for quoted, angled in INCLUDE.findall(text):
        found = (check_include(path, floor, quoted, sources) if quoted
                 else check_library(path, floor, angled) or check_system(path, angled))
        if found:
            complaints.append(found)
    if complaints:
        return complaints
    return check_names(path, floor, sources, declarations) + check_library_names(path, floor, text)


def find_circle(sources):
    """Returns the files of one circle of includes in their order; an empty list without a circle."""
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
    declarations = {path: Declarations(text) for path, text in sources.items()}
    complaints = [line for path, text in sources.items() for line in check_file(path, text, sources, declarations)]
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
