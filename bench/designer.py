#!/usr/bin/env python3
"""Measures the times for which a user of the designer waits, on a screen of its own: the start of the window, the
hosted document beside LibreOffice's own start with the same document, the drop of a field and that of a form of 30
controls, and the preview of the letter with them.

About 200 paragraphs are a letter of ten pages. Without a size the document is a new one; with one it is a template of
so many paragraphs and up to 1,000 bookmarks, and the nodes are dropped in its middle.
"""

import argparse
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from inputs import ROOT, structure, template
from measuring import print_table, with_range

sys.path.insert(0, str(ROOT / "tests" / "scripts"))
from designer_window import Designer, Screen, click, find, key, type_text  # noqa: E402

CONTROLS = 30
BOOKMARKS = 1000
PARAGRAPHS_PER_BOOKMARK = 5
MIDDLE = "halfway"
# LibreOffice begins to lay out the later pages as much as five seconds after it has shown a document.
SECONDS_UNTIL_LAYOUT = 7


def bookmarks_in(size):
    return min(BOOKMARKS, size // PARAGRAPHS_PER_BOOKMARK)


def seconds_of(action):
    begin = time.perf_counter()
    action()
    return time.perf_counter() - begin


def is_seen(*search):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", *map(str, search)], check=False, capture_output=True)
    return found.returncode == 0


def wait_for_window(*search):
    """Waits for a window that xdotool finds. xdotool itself would check only twice a second."""
    while not is_seen(*search):
        time.sleep(0.005)


def fresh_copy(opened, folder):
    """Returns a copy for one run: a killed office leaves a lock beside its file, and the designer makes a new document
    from a template."""
    return shutil.copy(opened, tempfile.mkdtemp(dir=folder)) if opened else None


def office_start(folder, opened):
    """Returns the seconds in which LibreOffice starts with a new profile and shows a document in a window."""
    title = f"^{opened.stem}" if opened else "^Untitled 1"
    while is_seen("--name", title):
        time.sleep(0.1)  # the one before is not gone yet
    profile = tempfile.mkdtemp(dir=folder)
    arguments = ["-o", fresh_copy(opened, folder)] if opened else []
    command = ["soffice", f"-env:UserInstallation=file://{profile}", "--norestore", "--nologo",
               "--nofirststartwizard", "--writer", *arguments]
    begin = time.perf_counter()
    office = subprocess.Popen(command, env={**os.environ, "SAL_USE_VCLPLUGIN": "gen"}, start_new_session=True,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for_window("--name", title)
    taken = time.perf_counter() - begin
    os.killpg(office.pid, signal.SIGKILL)
    office.wait()
    return taken


def processor_time(pid):
    """Returns the processor time of a process in ticks."""
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text(encoding="ascii").rsplit(")", 1)[1].split()
    return int(fields[11]) + int(fields[12])


def wait_until_idle(pid, seconds=1):
    """Returns after so many seconds in each of which the process used almost no processor time."""
    quiet = 0
    while quiet < seconds:
        before = processor_time(pid)
        time.sleep(1)
        quiet = 0 if processor_time(pid) - before > 5 else quiet + 1


def go_to_middle(designer):
    """Moves the caret after the text in the middle by the search of the office, after the layout of all pages."""
    office = designer.office_process()
    wait_until_idle(office, SECONDS_UNTIL_LAYOUT)
    click(designer.document())
    key("ctrl+f")
    time.sleep(1)
    type_text(MIDDLE)
    key("Return")
    wait_until_idle(office)
    key("Escape", "End")
    wait_until_idle(office)


def insertion(designer, node):
    """Returns the seconds from the key that inserts the selected node until the status line names the node. The key
    itself takes 30 milliseconds of them. The status line is found before, since the search for it takes as long as a
    drop."""
    click(designer.node(node))
    time.sleep(0.5)
    bar = find(designer.application, "status bar")[0]
    line = find(bar, "label")[0]

    def insert():
        key("Insert")
        while f"“{node}” was inserted" not in line.get_name():
            time.sleep(0.005)
    return seconds_of(insert)


def preview_step(designer, keys, status):
    """Returns the seconds from the key until the status line names the letter."""
    bar = find(designer.application, "status bar")[0]
    line = find(bar, "label")[0]

    def press():
        key(keys)
        while not line.get_name().startswith(status):
            time.sleep(0.005)
    return seconds_of(press)


def document_with_options(folder):
    """Returns a structure document with two records. It names folders, since the window shows a warning without
    them."""
    path = pathlib.Path(structure(folder, CONTROLS))
    options = '<Options><FileLocations DocumentsFolder="" TemplatesFolder=""/></Options>'
    text = path.read_text(encoding="utf-8").replace("<Structure>", options + "<Structure>")
    records = "".join(f'<Record><Control Name="Field1"><DisplayValue>{number}</DisplayValue></Control></Record>'
                      for number in (1, 2))
    data = f"<Data><Records>{records}</Records></Data>"
    path.write_text(text.replace("</Structure>", "</Structure>" + data), encoding="utf-8")
    return path


def designer_run(program, document, opened):
    """Returns the seconds until the window and the document are shown, and those of two drops."""
    begin = time.perf_counter()
    switches = ["-template", opened] if opened else []
    designer = Designer(program, ["-xmlfile", document, *switches], wait=False)
    try:
        wait_for_window("--pid", designer.process.pid)
        window = time.perf_counter() - begin
        designer.wait_until_ready()
        ready = time.perf_counter() - begin
        if opened:
            go_to_middle(designer)
        field = insertion(designer, "Field 1")
        form = insertion(designer, 'Form "Fields"')
        preview = preview_step(designer, "F5", "Record 1")
        record = preview_step(designer, "alt+Right", "Record 2")
        back = preview_step(designer, "F5", "Drag a field")
    finally:
        designer.close()
    return window, ready, field, form, preview, record, back


def measure(program, folder, size, runs):
    document = document_with_options(folder)
    opened = template(folder, size, bookmarks_in(size), MIDDLE) if size else None
    office_start(folder, opened)
    rounds = [(office_start(folder, opened), *designer_run(program, document, fresh_copy(opened, folder)))
              for _ in range(runs)]
    office, window, ready, field, form, preview, record, back = zip(*rounds)
    rows = [["LibreOffice's own start", office], ["the window is shown", window], ["the document is ready", ready],
            ["a field is dropped", field], [f"a form of {CONTROLS} controls is dropped", form],
            ["the preview is shown", preview], ["another record", record], ["the template is back", back]]
    what = f"{size:,} paragraphs and {bookmarks_in(size):,} bookmarks" if size else "a new document"
    print_table(f"What a user waits for, {what}", ["step", "ms"],
                [[name, with_range([1000 * value for value in values], 0)] for name, values in rows])
    print("\nReady beside LibreOffice's own start: " + with_range([a / b for a, b in zip(ready, office)], 2))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("sizes", nargs="*", type=int, default=[0], metavar="SIZE", help="paragraphs of a template")
    parser.add_argument("--program", default=str(ROOT / "build" / "release" / "mergeloom-designer"))
    parser.add_argument("--runs", type=int, default=5, help="rounds that are counted (5)")
    arguments = parser.parse_args()
    screen = Screen()
    try:
        for size in arguments.sizes:
            with tempfile.TemporaryDirectory() as folder:
                measure(arguments.program, folder, size, arguments.runs)
    finally:
        screen.close()


if __name__ == "__main__":
    main()
