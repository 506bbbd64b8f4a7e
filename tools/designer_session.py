#!/usr/bin/env python3
"""Works in the designer's window as its user does for an hour, and compares the result with the unattended run.

Opens templates, drops over 200 fields of all kinds with mouse and keys, types, undoes, redoes, saves in several formats,
converts merge fields, goes from Word to Excel and closes. Each question that has to come is answered, and any other
dialog is a fault. At the end the document has to have the same places as the one that mergeloom makes from the same
fields. With --minutes the work is repeated until so much time is over.
"""
import argparse
import os
import sys
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "scripts"))
os.environ.setdefault("MERGELOOM_ROOT", str(ROOT))
os.environ.setdefault("MERGELOOM", str(ROOT / "build" / "dev" / "mergeloom"))
from session_work import InExcel, InWord  # noqa: E402
from designer_test import setUpModule, tearDownModule  # noqa: E402


def run_once():
    suite = unittest.TestSuite(unittest.defaultTestLoader.loadTestsFromTestCase(case) for case in (InWord, InExcel))
    return unittest.TextTestRunner(verbosity=2).run(suite).wasSuccessful()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--minutes", type=float, default=0, help="how long the work is repeated (once)")
    arguments = parser.parse_args()
    end = time.monotonic() + 60 * arguments.minutes
    setUpModule()
    try:
        is_sound = run_once()
        while is_sound and time.monotonic() < end:
            is_sound = run_once()
    finally:
        tearDownModule()
    return int(not is_sound)


if __name__ == "__main__":
    sys.exit(main())
