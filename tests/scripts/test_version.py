"""Compares the version of the program, the manual page and the package, and plants each mismatch that
tools/check_version.py has to find.

MERGELOOM names the program in its build folder, MERGELOOM_ROOT the folder of the sources.
"""
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(os.environ["MERGELOOM"])
ROOT = Path(os.environ["MERGELOOM_ROOT"])
CHECK = ROOT / "tools" / "check_version.py"

HEADING = "## 1.2.3 (2026-01-31)"
MISMATCHES = [
    ("an older heading", "## 1.2.2 (2026-01-31)", [], "the newest heading names 1.2.2, CMakeLists.txt 1.2.3"),
    ("a heading of another form", "## Version 1.2.3", [], "is not of the form"),
    ("no heading", "", [], "is not of the form"),
    ("another tag", HEADING, ["v1.2.4"], "the tag v1.2.4 is on HEAD, but CMakeLists.txt names 1.2.3"),
    ("two tags", HEADING, ["v1.2.3", "v1.2.3-rc1"], "the tag v1.2.3-rc1 is on HEAD"),
    ("a release without a date", "## 1.2.3 (not released)", ["v1.2.3"], "has no date"),
]
AGREEMENTS = [
    (HEADING, []),
    (HEADING, ["v1.2.3", "verified", "latest"]),
    ("## 1.2.3 (not released)", []),
]


def git(root, *arguments):
    identity = ["-c", "user.name=Test", "-c", "user.email=test@mergeloom.invalid", "-c", "commit.gpgsign=false"]
    subprocess.run(["git", "-C", root, *identity, *arguments], check=True, capture_output=True)


def check(heading, tags):
    """Runs the check in a repository of version 1.2.3. Returns its status and its output."""
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        (root / "CMakeLists.txt").write_text("project(Mergeloom VERSION 1.2.3 LANGUAGES CXX)\n")
        (root / "CHANGELOG.md").write_text(f"# Changes\n\n{heading}\n\n- New.\n")
        git(root, "init", "-q")
        git(root, "add", ".")
        git(root, "commit", "-q", "-m", "Begin")
        for tag in tags:
            git(root, "tag", tag)
        done = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True, check=False)
    return done.returncode, done.stdout + done.stderr


class Version(unittest.TestCase):
    def test_program_manual_and_package_share_it(self):
        version = re.search(r"^project\(\w+ VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE)[1]
        told = subprocess.run([PROGRAM, "--version"], capture_output=True, text=True, check=True).stdout
        self.assertEqual(told, f"mergeloom {version}\n")
        build = PROGRAM.parent
        self.assertIn(f'set(CPACK_PACKAGE_VERSION "{version}")\n', (build / "CPackConfig.cmake").read_text())
        self.assertTrue((build / "package/changelog").read_text().startswith(f"mergeloom ({version}-1) "))
        self.assertIn(f'"Mergeloom {version}"', (build / "data/mergeloom.1").read_text())

    def test_agreement_passes(self):
        for heading, tags in AGREEMENTS:
            with self.subTest(heading=heading, tags=tags):
                self.assertEqual(check(heading, tags), (0, ""))

    def test_finds_each_mismatch(self):
        for name, heading, tags, complaint in MISMATCHES:
            with self.subTest(name):
                status, output = check(heading, tags)
                self.assertEqual(status, 1)
                self.assertIn(complaint, output)
                self.assertEqual(len(output.splitlines()), 1, output)


if __name__ == "__main__":
    unittest.main()
