"""Shares the program, folders and runs between the tests that use the finished program with the sample.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources.
"""
import os
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.environ["MERGELOOM"]
SAMPLE = Path(os.environ["MERGELOOM_ROOT"]) / "samples" / "orders.xml"

# Programs inherit an ignored SIGINT, for example from tests that were started in the background.
signal.signal(signal.SIGINT, signal.default_int_handler)


def run(*arguments):
    """Runs the program. Returns the finished process with its output as text."""
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=300, check=False)


def map_sample(template, *switches):
    """Maps the sample's first object to a template."""
    done = run("--exit-status", "-xmlfile", SAMPLE, *switches, "-template", template, "-hidden")
    assert done.returncode == 0, done.stderr


class ProgramTest(unittest.TestCase):
    """Tests with a folder of their own. Tests of filling set the template."""

    template = None

    @classmethod
    def shared_folder(cls):
        """Makes a folder for all tests of the class."""
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        return Path(folder.name)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def fill(self, *options, template=None, data=SAMPLE):
        """Fills and returns the report. Fails the test if the run fails."""
        done = run("--fill", template or self.template, "--data", data, *options)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done.stderr

    def refused(self, *options, template=None, data=SAMPLE):
        """Returns the reason why a run fails. Fails the test if the run succeeds."""
        done = run("--fill", template or self.template, "--data", data, *options)
        self.assertNotEqual(done.returncode, 0)
        return done.stderr
