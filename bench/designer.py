#!/usr/bin/env python3
"""Measures what a user of the designer waits for, on a screen of its own: the window, the hosted document beside
LibreOffice's own start to the same document, the drop of a field and that of a form of 30 controls.
"""

import argparse
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

from inputs import ROOT, structure
from measuring import print_table, with_range

sys.path.insert(0, str(ROOT / "tests" / "scripts"))
from designer_window import Designer, Screen, click, find, key  # noqa: E402

CONTROLS = 30


def seconds_of(action):
    begin = time.perf_counter()
    action()
    return time.perf_counter() - begin


def is_seen(*search):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", *map(str, search)], check=False, capture_output=True)
    return found.returncode == 0


def wait_for_window(*search):
    """xdotool's own waiting looks twice a second only."""
    while not is_seen(*search):
        time.sleep(0.005)


def office_start(folder):
    """LibreOffice's own start with a fresh profile to an empty document in a window."""
    while is_seen("--name", "^Untitled 1"):
        time.sleep(0.1)  # the one before is not gone yet
    profile = tempfile.mkdtemp(dir=folder)
    command = ["soffice", f"-env:UserInstallation=file://{profile}", "--norestore", "--nologo",
               "--nofirststartwizard", "--writer"]
    begin = time.perf_counter()
    office = subprocess.Popen(command, env={**os.environ, "SAL_USE_VCLPLUGIN": "gen"}, start_new_session=True,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for_window("--name", "^Untitled 1")
    taken = time.perf_counter() - begin
    os.killpg(office.pid, signal.SIGKILL)
    office.wait()
    return taken


def insertion(designer, node):
    """The seconds from the key that inserts the selected node until the window says so; the key takes its own 30
    milliseconds. Looking for the line that says it would take as long as the drop, so it is found before."""
    click(designer.node(node))
    time.sleep(0.5)
    bar = find(designer.application, "status bar")[0]
    line = find(bar, "label")[0]

    def insert():
        key("Insert")
        while f"“{node}” was inserted" not in line.get_name():
            time.sleep(0.005)
    return seconds_of(insert)


def document_with_options(folder):
    """The window tells its user of a structure document that names no folders, which is none of this."""
    path = pathlib.Path(structure(folder, CONTROLS))
    options = '<Options><FileLocations DocumentsFolder="" TemplatesFolder=""/></Options>'
    path.write_text(path.read_text(encoding="utf-8").replace("<Structure>", options + "<Structure>"), encoding="utf-8")
    return path


def designer_run(program, document):
    """The seconds until the window and the document are there, and those that two drops take."""
    begin = time.perf_counter()
    designer = Designer(program, ["-xmlfile", document], wait=False)
    try:
        wait_for_window("--pid", designer.process.pid)
        window = time.perf_counter() - begin
        designer.wait_until_ready()
        ready = time.perf_counter() - begin
        field = insertion(designer, "Field 1")
        form = insertion(designer, 'Form "Fields"')
    finally:
        designer.close()
    return window, ready, field, form


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", default=str(ROOT / "build" / "release" / "mergeloom-designer"))
    parser.add_argument("--runs", type=int, default=5, help="rounds that are counted (5)")
    arguments = parser.parse_args()
    screen = Screen()
    try:
        with tempfile.TemporaryDirectory() as folder:
            document = document_with_options(folder)
            office_start(folder)
            rounds = [(office_start(folder), *designer_run(arguments.program, document))
                      for _ in range(arguments.runs)]
    finally:
        screen.close()
    office, window, ready, field, form = zip(*rounds)
    rows = [["LibreOffice's own start", office], ["the window is shown", window], ["the document is ready", ready],
            ["a field is dropped", field], [f"a form of {CONTROLS} controls is dropped", form]]
    print_table("What a user waits for", ["step", "ms"],
                [[name, with_range([1000 * value for value in values], 0)] for name, values in rows])
    print("\nReady beside LibreOffice's own start: " + with_range([a / b for a, b in zip(ready, office)], 2))


if __name__ == "__main__":
    main()
