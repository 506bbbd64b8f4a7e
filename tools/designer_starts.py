#!/usr/bin/env python3
"""Starts the designer with a template again and again, and looks at the pixels of each start.

The template's text is shaded in a color of its own, which the pane has to show: after the start, and again after the
window was minimized and restored. Every other start has a home of its own, the others share one. Prints each start
that failed, keeps a picture of it, and returns 1 if there was one.
"""
import argparse
import shutil
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "scripts"))
from designer_window import (  # noqa: E402
    Designer, Screen, key, minimize, restore, screenshot, share_of_color, wait_for,
)
from shaded_letter import SHADE, write_shaded_letter  # noqa: E402

SMALLEST_SHARE = 0.2
PATIENCE = 30  # seconds after the program says that it is ready


def fault_of(designer):
    """Returns what is wrong with the pixels of a program that has just been started, or none."""
    designer.wait_until_ready()
    box = designer.document_box()

    def share():
        return share_of_color(box, SHADE)
    try:
        wait_for("the letter after the start", lambda: share() > SMALLEST_SHARE, PATIENCE)
        designer.wait_until_active()
        minimize()
        wait_for("the minimized window to go", lambda: share() == 0, PATIENCE)
        restore()
        wait_for("the letter in the restored window", lambda: share() > SMALLEST_SHARE, PATIENCE)
    except AssertionError as error:
        return f"{error} ({share():.0%} of the pane has its color)"
    return None


def start_once(number, arguments, folder, shared_home):
    template = folder / f"letter{number}.{arguments.format}"
    write_shaded_letter(template)
    home = shared_home if number % 2 else None
    designer = Designer(arguments.program, ["-xmlfile", ROOT / "samples" / "orders.xml", "-template", template],
                        home=home)
    begin = time.monotonic()
    try:
        fault = fault_of(designer)
        if fault:
            picture = arguments.pictures / f"start{number}.png"
            screenshot(picture)
            fault += f", see {picture}"
        else:
            designer.wait_until_active()
            key("ctrl+q")
            designer.process.wait(PATIENCE)
    except (AssertionError, OSError) as error:
        fault = str(error)
    finally:
        designer.end()
        if home is None:
            shutil.rmtree(designer.home, ignore_errors=True)
    print(f"{number}: {fault or 'ok'} ({time.monotonic() - begin:.1f} s)", flush=True)
    return fault is None


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("starts", nargs="?", type=int, default=200, help="how often (200)")
    parser.add_argument("--program", default=str(ROOT / "build" / "dev" / "mergeloom-designer"))
    parser.add_argument("--format", choices=["docx", "dotx"], default="docx")
    parser.add_argument("--pictures", type=Path, default=Path(tempfile.gettempdir()),
                        help="folder for pictures of faults")
    arguments = parser.parse_args()
    screen = Screen()
    try:
        with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as home:
            results = [start_once(number, arguments, Path(folder), Path(home))
                       for number in range(1, arguments.starts + 1)]
    finally:
        screen.close()
    print(f"{results.count(False)} of {len(results)} starts failed")
    return int(False in results)


if __name__ == "__main__":
    sys.exit(main())
