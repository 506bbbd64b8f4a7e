"""Plants each fault that tools/check_floors.py is there to find."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "tools" / "check_floors.py"

CLEAN = {
    "base/Text.h": "#pragma once\n#include <string>\n",
    "base/Text.cpp": '#include "base/Text.h"\n#include <unicode/uchar.h>\n',
    "droppers/Drop.h": '#pragma once\n#include "base/Text.h"\n',
    "tests/base/TextTest.cpp": '#include "droppers/Drop.h"\n',
}

FAULTS = [
    ("an include of a higher floor", {"base/Text.cpp": '#include "droppers/Drop.h"\n'},
     "base may not include droppers/Drop.h"),
    ("a sibling office floor", {"office/formats/A.cpp": '#include "office/model/M.h"\n',
                                "office/model/M.h": "#pragma once\n"},
     "office/formats may not include office/model/M.h"),
    ("a path that does not start at the root", {"base/Text.cpp": '#include "Text.h"\n'}, "is no source"),
    ("a library outside its floor", {"droppers/Drop.cpp": "#include <libxml/tree.h>\n"},
     "<libxml/tree.h> belongs to xml"),
    ("a header without a guard", {"droppers/Drop.h": '#include "base/Text.h"\n'}, "no #pragma once"),
    ("a file on no floor", {"office/Lost.cpp": "\n"}, "stands on no floor"),
    ("a circle", {"base/Text.h": '#pragma once\n  # include "base/More.h"\n',
                  "base/More.h": '#pragma once\n#include "base/Text.h"\n'},
     "circle: base/More.h -> base/Text.h -> base/More.h"),
]


def check(files):
    """Runs the check over a tree of those files; gives its status and what it printed."""
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            file = Path(root) / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True, check=False)
    return done.returncode, done.stdout + done.stderr


class CheckFloors(unittest.TestCase):
    def test_passes_a_clean_tree(self):
        self.assertEqual(check(CLEAN), (0, ""))

    def test_finds_each_fault(self):
        for name, files, complaint in FAULTS:
            with self.subTest(name):
                status, output = check(CLEAN | files)
                self.assertEqual(status, 1)
                self.assertIn(complaint, output)
                self.assertEqual(len(output.splitlines()), 1, output)

    def test_refuses_a_tree_without_sources(self):
        self.assertEqual(check({})[0], 1)


if __name__ == "__main__":
    unittest.main()
