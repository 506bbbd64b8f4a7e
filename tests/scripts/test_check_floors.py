"""Plants each fault that tools/check_floors.py has to find."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "tools" / "check_floors.py"

CLEAN = {
    "base/Text.h": "#pragma once\n#include <string>\n",
    "base/Text.cpp": '#include "base/Text.h"\n#include <unicode/uchar.h>\n',
    "droppers/Drop.h": '#pragma once\n#include "base/Text.h"\n#include "office/model/Range.h"\n',
    "office/model/Range.h": "#pragma once\nnamespace mergeloom::word {\nclass Range {};\nvoid move(Range&);\n}\n",
    "ui/dialogs/Shown.cpp": '#include "droppers/Drop.h"\nnamespace mergeloom::ui {\nclass Range;\n'
                            '// word::Range\nconst char* text = "word::Range";\nRange* range;\n}\n',
    "base/posix/Files.cpp": "#include <sys/stat.h>\n#include <unistd.h>\n",
    "ui/dialogs/Quit.cpp": "#include <unistd.h>\n",
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
    ("a header of one system", {"base/Text.cpp": "#include <sys/file.h>\n"},
     "base/Text.cpp: <sys/file.h> belongs into a folder 'posix'"),
    ("a header of the other system", {"base/posix/Files.cpp": "#include <windows.h>\n"},
     "base/posix/Files.cpp: <windows.h> belongs into a folder 'windows'"),
    ("a library through another floor's header",
     {"office/opc/Part.h": "#pragma once\n#include <pugixml.hpp>\n",
      "office/libreoffice/excel/Cells.cpp": '#include "office/opc/Part.h"\npugi::xml_node root();\n'},
     "office/libreoffice/excel/Cells.cpp: pugi:: of <pugixml.hpp> belongs to xml"),
    ("a class through another floor's header",
     {"ui/dialogs/Shown.cpp": '#include "droppers/Drop.h"\nnamespace mergeloom::ui {\nword::Range* range;\n}\n'},
     "ui/dialogs/Shown.cpp: ui/dialogs may not use mergeloom::word::Range of office/model/Range.h"),
    ("a function through another floor's header",
     {"ui/dialogs/Shown.cpp": '#include "droppers/Drop.h"\nvoid shown() { mergeloom::word::move(it()); }\n'},
     "ui/dialogs/Shown.cpp: ui/dialogs may not use mergeloom::word::move of office/model/Range.h"),
    ("a namespace through another floor's header",
     {"ui/dialogs/Shown.cpp": '#include "droppers/Drop.h"\nusing namespace mergeloom::word;\n'},
     "ui/dialogs/Shown.cpp: ui/dialogs may not use mergeloom::word of office/model/Range.h"),
    ("a header without a guard", {"droppers/Drop.h": '#include "base/Text.h"\n'}, "no #pragma once"),
    ("a file on no floor", {"office/Lost.cpp": "\n"}, "stands on no floor"),
    ("a circle", {"base/Text.h": '#pragma once\n  # include "base/More.h"\n',
                  "base/More.h": '#pragma once\n#include "base/Text.h"\n'},
     "circle: base/More.h -> base/Text.h -> base/More.h"),
]


def check(files):
    """Runs the check over a tree of the files. Returns its status and its output."""
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
