"""Draws the floors of small trees, and plants each difference that tools/draw_floors.py --check has to find."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

DRAW = Path(__file__).parents[2] / "tools" / "draw_floors.py"
PAGE = "docs/architecture.md"
BEGIN = "<!-- Drawn by tools/draw_floors.py -->"
END = "<!-- End of the drawing -->"

TREE = {
    "base/CMakeLists.txt": "mergeloom_floor(base base ${sources})\ntarget_link_libraries(mergeloom_base PRIVATE ICU::uc)\n",
    "office/CMakeLists.txt": "mergeloom_floor(office_model office/model)\n"
                             "target_link_libraries(mergeloom_office_model PRIVATE mergeloom_base)\n",
    "app/CMakeLists.txt": "mergeloom_floor(app app ${sources})\n"
                          "target_link_libraries(mergeloom_app PUBLIC mergeloom_office_model\n"
                          "  PRIVATE mergeloom_base)  # not mergeloom_app\n",
    "office/module/CMakeLists.txt": "add_library(mergeloom_far MODULE ${sources})\n"
                                    "target_link_libraries(mergeloom_far PRIVATE mergeloom_office_model)\n",
    "tests/CMakeLists.txt": "mergeloom_floor(doubles tests/doubles)\n",
    PAGE: f"# Floors\n\n{BEGIN}\n{END}\n\nMore.\n",
}

PICTURE = """```mermaid
flowchart TB
  app["app"]
  base["base"]
  subgraph office["office/"]
    office_model["office/model"]
    office_module["office/module"]
  end
  app --> office_model
  office_module --> office_model
  office_model --> base
```
"""

DIFFERENCES = [
    ("a new floor", "xml/CMakeLists.txt", "", "mergeloom_floor(xml xml)\n"),
    ("a new link", "office/module/CMakeLists.txt", "mergeloom_office_model", "mergeloom_office_model mergeloom_app"),
    ("a link that is gone", "office/CMakeLists.txt", "PRIVATE mergeloom_base", "PRIVATE"),
    ("a picture that was changed by hand", PAGE, "app --> office_model", "app --> base"),
]


def draw(root, *options):
    """Runs the script. Returns its status and its output."""
    done = subprocess.run([sys.executable, DRAW, *options, root], capture_output=True, text=True, check=False)
    return done.returncode, done.stdout + done.stderr


class DrawFloors(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name, text in TREE.items():
            self.write(name, text)

    def write(self, name, text):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def replace(self, name, old, new):
        file = self.root / name
        text = file.read_text(encoding="utf-8") if file.exists() else ""
        self.assertIn(old, text)
        self.write(name, text.replace(old, new, 1))

    def test_draws_the_links_that_do_not_follow_from_others(self):
        self.assertEqual(draw(self.root), (0, ""))
        self.assertEqual((self.root / PAGE).read_text(encoding="utf-8"),
                         f"# Floors\n\n{BEGIN}\n{PICTURE}{END}\n\nMore.\n")
        self.assertEqual(draw(self.root, "--check"), (0, ""))

    def test_finds_each_difference(self):
        for name, file, old, new in DIFFERENCES:
            with self.subTest(name):
                self.setUp()
                draw(self.root)
                self.replace(file, old, new)
                before = (self.root / PAGE).read_bytes()
                status, output = draw(self.root, "--check")
                self.assertEqual(status, 1)
                self.assertIn("differs from the links", output)
                self.assertEqual((self.root / PAGE).read_bytes(), before)

    def test_refuses_what_it_cannot_draw(self):
        for name, file, old, new, complaint in [
            ("a circle", "base/CMakeLists.txt", "ICU::uc", "mergeloom_app", "circle of links: "),
            ("no place to draw", PAGE, END, "", "has no lines"),
        ]:
            with self.subTest(name):
                self.setUp()
                self.replace(file, old, new)
                status, output = draw(self.root)
                self.assertEqual(status, 1)
                self.assertIn(complaint, output)


if __name__ == "__main__":
    unittest.main()
