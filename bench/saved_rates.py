#!/usr/bin/env python3
"""Measures how much of documents and workbooks of other programs a save in the designer keeps: made files with every
feature alone and with mixtures are opened, saved, given a word, eight fields and a table, and saved again, by the
designer's own code in a hidden LibreOffice. Prints the rates, and the files that would be asked about.

It needs build/dev/save_files and the packages of the group test.
"""

import argparse
import collections
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import zipfile

from lxml import etree

import npm_libraries
from inputs import ROOT
from measuring import print_table

sys.path.insert(0, str(ROOT / "tests" / "scripts"))
import varied_documents  # noqa: E402
import varied_workbooks  # noqa: E402

PICTURE = ROOT / "samples" / "pictures" / "letterhead.png"
W = "{http://schemas.openxmlformats.org/wordprocessingml/2006/main}"
STRICT = "{http://purl.oclc.org/ooxml/wordprocessingml/main}"
# The entries with edited content: the body of a document; the cells of a sheet and the workbook's names.
EDITED_ENTRIES = {"documents": 1, "workbooks": 2, "npm": 1}
STRUCTURE = ROOT / "tests" / "scripts" / "saved_fields.xml"
WORD = "added"
NPM_LIBRARIES = {"docx": "9.5.1"}


def paragraph_elements(path):
    """Returns the paragraphs of all parts of a document."""
    with zipfile.ZipFile(path) as archive:
        parts = [archive.read(name) for name in archive.namelist()
                 if name.startswith("word/") and name.endswith(".xml")]
    return [each for part in parts for tag in (W, STRICT) for each in etree.fromstring(part).iter(tag + "p")]


def paragraphs_of(path):
    """Counts the paragraphs of all parts by their XML."""
    return collections.Counter(etree.tostring(each, method="c14n", with_tail=False)
                               for each in paragraph_elements(path))


def is_edited(paragraph):
    """Returns True for a paragraph with the word or a field that save_files puts into documents."""
    return (any(text.endswith(WORD) for text in paragraph.itertext())
            or any(name.startswith("Field") for name in paragraph.xpath(".//@*[local-name() = 'name']")))


def copies_of(files, folder):
    """Yields copies of the given files, with True for documents with content controls, tracked changes or form
    fields."""
    for number, path in enumerate(files):
        copy = folder / f"{number:04}-{path.name}"
        shutil.copyfile(path, copy)
        hard = False
        if path.suffix.startswith(".doc") or path.suffix.startswith(".dot"):
            with zipfile.ZipFile(copy) as archive:
                text = b"".join(archive.read(name) for name in archive.namelist() if name.startswith("word/"))
            hard = any(tag in text for tag in (b"<w:sdt>", b"<w:ins ", b"<w:del ", b"<w:ffData"))
        yield copy, hard


def made_by_npm(folder):
    """Makes the documents of a library of npm, with True for those with content controls or tracked changes."""
    with tempfile.TemporaryDirectory() as name:
        libraries = pathlib.Path(name)
        if not npm_libraries.fetch(NPM_LIBRARIES, libraries):
            sys.exit("npm cannot fetch the library docx.")
        script = shutil.copy(ROOT / "bench" / "varied_documents.mjs", libraries)
        made = subprocess.run(["node", script, folder, PICTURE], capture_output=True, text=True, check=True).stdout
    for line in made.splitlines():
        hard, file = line.split(" ", 1)
        yield folder / file, hard == "1"


def files_of(kind, arguments, folder):
    """Yields the files of a kind, with True for documents with content controls, tracked changes or form fields."""
    if arguments.files:
        wanted = [path for path in arguments.files if path.suffix.startswith(".x") == (kind == "workbooks")]
        files = copies_of(wanted, folder)
    elif kind == "npm":
        files = made_by_npm(folder)
    else:
        made = varied_documents if kind == "documents" else varied_workbooks
        files = made.make_all(folder, PICTURE, arguments.mixtures, arguments.seed, not arguments.only)
    for each in files:
        path, hard = each if isinstance(each, tuple) else (each, None)
        if arguments.only in path.name:
            yield path, None if kind == "workbooks" else hard


def save_all(arguments, files):
    """Yields the program's result for each file. Starts the program again after a file at which it ended."""
    left = list(files)
    while left:
        with subprocess.Popen([arguments.program, STRUCTURE, str(arguments.faults), *left], stdout=subprocess.PIPE,
                              text=True) as process:
            for line in process.stdout:
                left.pop(0)
                try:
                    yield json.loads(line)
                except ValueError:
                    yield {"file": line, "outcome": "error", "reason": "the program ended"}
        if left and process.returncode:
            print("the program ended at", left[0], file=sys.stderr)
            yield {"file": pathlib.Path(left.pop(0)).name, "outcome": "error", "reason": "the program ended"}


def rate(part, whole):
    return f"{part} of {whole} ({100 * part / whole:.1f} %)" if whole else "none"


def report(title, results):
    proved = [each for each in results if each.get("outcome") == "proved"]
    rows = [["opened and saved: the same bytes", rate(sum(each.get("same", False) for each in results), len(results))],
            ["proved", rate(len(proved), len(results))]]
    if any("hard" in each for each in results):
        easy = [each for each in results if not each["hard"]]
        rows.append(["proved without controls, changes, form fields",
                     rate(sum(each in proved for each in easy), len(easy))])
        rows.append(["paragraphs that were not edited unchanged where proved",
                     rate(sum(each["same paragraphs"] for each in proved),
                          sum(each["paragraphs"] - each["edited paragraphs"] for each in proved))])
    rows.append(["entries unchanged where proved",
                 rate(sum(each["kept"] for each in proved), sum(each["entries"] for each in proved))])
    edited = EDITED_ENTRIES[title] * len(proved)
    rows.append(["entries unchanged where proved, of those that hold nothing edited",
                 rate(sum(each["kept"] for each in proved), sum(each["entries"] for each in proved) - edited)])
    planted = sum(each.get("planted", 0) for each in proved)
    missed = [(each["file"], fault) for each in proved for fault in each.get("missed", ())]
    if planted:
        rows.append(["planted faults seen", rate(planted - len(missed), planted)])
    print_table(title, ["", "files"], rows)
    for each in results:
        if each.get("outcome") != "proved" or not each.get("same"):
            print(f"  {each['file']}: {each.get('outcome')} {each.get('why', '')} {each.get('reason', '')}")
    for file, fault in missed:
        print(f"  {file}: missed: {fault}")


def measure(arguments, folder, files):
    former = {path.name: paragraphs_of(path) for path, hard in files if hard is not None}
    results = []
    for result in save_all(arguments, [path for path, _ in files]):
        print(result["file"], result.get("outcome"), result.get("reason", "")[:300], file=sys.stderr, flush=True)
        if result["file"] in former:
            result["hard"] = dict((path.name, hard) for path, hard in files)[result["file"]]
            paragraphs = former[result["file"]]
            result["paragraphs"] = paragraphs.total()
            now = paragraphs_of(folder / result["file"])
            result["edited paragraphs"] = sum(map(is_edited, paragraph_elements(folder / result["file"])))
            result["same paragraphs"] = sum(min(count, now[each]) for each, count in paragraphs.items())
        results.append(result)
    return results


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="*", type=pathlib.Path, help="files instead of made ones; copies are saved")
    parser.add_argument("--kinds", nargs="+", choices=["documents", "workbooks", "npm"],
                        default=["documents", "workbooks"], help="npm: documents of a library that npm fetches")
    parser.add_argument("--mixtures", type=int, default=60, help="files with several features, of each kind (60)")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--faults", type=int, default=0, help="faults of each kind that are planted into a result")
    parser.add_argument("--only", default="", help="files with this in their name")
    parser.add_argument("--keep", type=pathlib.Path, help="a folder that keeps the files, with those as they were")
    parser.add_argument("--program", default=str(ROOT / "build" / "dev" / "save_files"))
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        for kind in arguments.kinds:
            folder = (arguments.keep or pathlib.Path(name)) / kind
            folder.mkdir(parents=True)
            files = list(files_of(kind, arguments, folder))
            if arguments.keep:
                (folder / "before").mkdir()
                for path, _ in files:
                    shutil.copyfile(path, folder / "before" / path.name)
            report(kind, measure(arguments, folder, files))


if __name__ == "__main__":
    main()
