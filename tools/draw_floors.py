#!/usr/bin/env python3
"""Draws the picture of the floors in docs/architecture.md from the links of the CMake files.

Usage: draw_floors.py [--check] [ROOT]
With --check the file stays as it is, and a picture that differs from the links is a complaint.
"""
import re
import sys
from pathlib import Path

PAGE = "docs/architecture.md"
BEGIN = "<!-- Drawn by tools/draw_floors.py -->\n"
END = "<!-- End of the drawing -->\n"

COMMENT = re.compile(r"#.*")
FLOOR = re.compile(r"\bmergeloom_floor\(\s*(\w+)\s+([\w/]+)")
MODULE = re.compile(r"\badd_library\(\s*mergeloom_(\w+)\s+MODULE\b")
LINKS = re.compile(r"\btarget_link_libraries\(\s*mergeloom_(\w+)\s+([^)]*)\)")


def read_links(root):
    """Maps the folder of each floor to the folders of the floors that its library links to."""
    folders, libraries = {}, {}
    for file in sorted(root.rglob("CMakeLists.txt")):
        path = file.relative_to(root)
        if path.parts[0] in ("build", "tests", "bench"):
            continue
        text = COMMENT.sub("", file.read_text(encoding="utf-8"))
        folders.update(FLOOR.findall(text))
        folders.update((name, path.parent.as_posix()) for name in MODULE.findall(text))
        for name, linked in LINKS.findall(text):
            libraries.setdefault(name, set()).update(re.findall(r"\bmergeloom_(\w+)", linked))
    return {
        folder: {folders[linked] for linked in libraries.get(name, ()) if linked in folders}
        for name, folder in folders.items()
    }


def reached(links, floor, seen=()):
    """Returns every floor that the floor links to, directly or through others; raises ValueError for a circle."""
    if floor in seen:
        raise ValueError("circle of links: " + " -> ".join([*seen[seen.index(floor):], floor]))
    found = set(links[floor])
    for linked in links[floor]:
        found |= reached(links, linked, (*seen, floor))
    return found


def without_implied(links):
    """Leaves out each link that follows from the others, so that the picture stays readable."""
    below = {floor: reached(links, floor) for floor in links}
    return {
        floor: {one for one in linked if not any(one in below[other] for other in linked)}
        for floor, linked in links.items()
    }


def house_of(floor):
    """Returns the folder that holds the floor and its siblings."""
    return floor.rpartition("/")[0]


def draw(links):
    """Returns the picture: a box for each folder of floors, an arrow from each floor to those it may include."""
    drawn = without_implied(links)
    height = {floor: len(reached(links, floor)) for floor in links}
    lines = ["```mermaid", "flowchart TB"]
    for house in sorted({house_of(floor) for floor in links}):
        members = [f'{floor.replace("/", "_")}["{floor}"]' for floor in sorted(links) if house_of(floor) == house]
        if house:
            lines += [f'  subgraph {house.replace("/", "_")}["{house}/"]', *("    " + one for one in members), "  end"]
        else:
            lines += ["  " + one for one in members]
    for floor in sorted(links, key=lambda one: (-height[one], one)):
        lines += [f'  {floor.replace("/", "_")} --> {one.replace("/", "_")}' for one in sorted(drawn[floor])]
    return "\n".join([*lines, "```", ""])


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--check"]
    root = Path(arguments[0] if arguments else Path(__file__).parent.parent)
    page = root / PAGE
    text = page.read_text(encoding="utf-8")
    before, begin, rest = text.partition(BEGIN)
    _, end, after = rest.partition(END)
    if not begin or not end:
        print(f"{PAGE}: has no lines {BEGIN.strip()} and {END.strip()} to draw between")
        return 1
    links = read_links(root)
    if not links:
        print(f"{root}: no CMakeLists.txt there has a floor")
        return 1
    try:
        drawn = before + begin + draw(links) + end + after
    except ValueError as error:
        print(error)
        return 1
    if "--check" not in sys.argv:
        page.write_text(drawn, encoding="utf-8")
    elif drawn != text:
        print(f"{PAGE}: the picture of the floors differs from the links of the CMake files; run tools/draw_floors.py")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
