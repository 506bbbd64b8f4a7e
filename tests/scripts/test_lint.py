"""Tests the choice of sources by tools/lint.py --changed in small repositories. clang-tidy itself is not started."""
import contextlib
import importlib.util
import io
import os
import subprocess
import tempfile
import unittest
from pathlib import Path
from unittest import mock

TOOL = Path(__file__).parents[2] / "tools" / "lint.py"

SOURCES = {
    "base/Text.h": '#include "base/Unit.h"\n',
    "base/Text.cpp": '#include "base/Text.h"\n',
    "base/Unit.h": "int unit();\n",
    "app/Main.cpp": '#include "base/Text.h"\n',
    "tests/doubles/Disk.h": "int disk();\n",
    "tests/app/MainTest.cpp": '#include "doubles/Disk.h"\n',
}

# The change, the sources that are needed for it, and those that only include a changed file.
CHANGES = [
    ("a source", {"app/Main.cpp": "// New\n"}, ["app/Main.cpp"], []),
    ("a header with a source of its own", {"base/Text.h": "// New\n"}, ["base/Text.cpp"], ["app/Main.cpp"]),
    ("a header that others include", {"base/Unit.h": "// New\n"}, ["app/Main.cpp"], ["base/Text.cpp"]),
    ("a header that a changed source includes", {"base/Unit.h": "// New\n", "base/Text.cpp": '#include "base/Text.h"\n\n'},
     ["base/Text.cpp"], ["app/Main.cpp"]),
    ("a header of the tests", {"tests/doubles/Disk.h": "// New\n"}, ["tests/app/MainTest.cpp"], []),
    ("a new source", {"base/More.cpp": "int more;\n"}, ["base/More.cpp"], []),
    ("a source that moved", {"app/Main.cpp": None, "app/Entry.cpp": SOURCES["app/Main.cpp"]}, [], []),
    ("another file", {"README.md": "Text\n"}, [], []),
]


def load(root):
    """Loads the tool as if it were in the folder."""
    spec = importlib.util.spec_from_file_location("lint", TOOL)
    tool = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(tool)
    tool.ROOT = root
    return tool


def setUpModule():
    # These variables may be set for the sources of the project itself.
    for name in ("MERGELOOM_LINT_BASE", "MERGELOOM_LINT_MOST"):
        os.environ.pop(name, None)


class ChangedSources(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(os.path.realpath(folder.name))
        self.tool = load(self.root)

    def git(self, *arguments):
        identity = ["-c", "user.name=Test", "-c", "user.email=test@mergeloom.invalid", "-c", "commit.gpgsign=false"]
        subprocess.run(["git", "-C", self.root, *identity, *arguments], check=True, capture_output=True)

    def commit(self, files):
        for name, text in files.items():
            file = self.root / name
            file.parent.mkdir(parents=True, exist_ok=True)
            if text is None:
                file.unlink()
            else:
                file.write_text(text)
        self.git("init", "-q")
        self.git("add", "-A")
        self.git("commit", "-q", "-m", "Change")

    def narrow(self, **environment):
        """Returns the chosen sources and the output of the tool."""
        sources = sorted(self.root.rglob("*.cpp"))
        includes = {source: self.tool.included_files(source, {}) for source in sources}
        said = io.StringIO()
        with mock.patch.dict(os.environ, environment), contextlib.redirect_stdout(said):
            chosen = self.tool.narrow_to_changes(sources, includes)
        return [source.relative_to(self.root).as_posix() for source in chosen], said.getvalue()

    def test_follows_each_change(self):
        for name, files, needed, others in CHANGES:
            with self.subTest(name):
                self.setUp()
                self.commit(SOURCES)
                self.commit(files)
                self.assertEqual(self.narrow()[0], needed + others)

    def test_leaves_the_less_important_out_and_says_so(self):
        self.commit(SOURCES)
        self.commit({"base/Text.h": "// New\n"})
        chosen, said = self.narrow(MERGELOOM_LINT_MOST="1")
        self.assertEqual(chosen, ["base/Text.cpp"])
        self.assertIn("Note: 1 of them are left out", said)

    def test_compares_with_the_given_commit(self):
        self.commit(SOURCES)
        self.git("tag", "start")
        self.commit({"app/Main.cpp": "// New\n"})
        self.commit({"README.md": "Text\n"})
        self.assertEqual(self.narrow()[0], [])
        self.assertEqual(self.narrow(MERGELOOM_LINT_BASE="start")[0], ["app/Main.cpp"])
        chosen, said = self.narrow(MERGELOOM_LINT_BASE="lost")
        self.assertEqual(chosen, [])
        self.assertIn("names 'lost', which is no commit here", said)

    def test_says_why_there_is_nothing_to_compare_with(self):
        with self.assertRaisesRegex(self.tool.NoBase, "no git repository"):
            self.narrow()
        self.commit(SOURCES)
        with self.assertRaisesRegex(self.tool.NoBase, "no parent"):
            self.narrow()


if __name__ == "__main__":
    unittest.main()
