"""Saves files of other programs from LibreOffice after drops, which must ask nothing and must not change other content.

MERGELOOM_ROOT names the folder of the sources and MERGELOOM the program, beside which save_files is.
bench/saved_rates.py does the same with many more files.
"""
import json
import os
import random
import subprocess
import tempfile
import unittest
from pathlib import Path

import extended_workbooks
import varied_documents
import varied_workbooks

ROOT = Path(os.environ["MERGELOOM_ROOT"])
PICTURE = ROOT / "samples" / "pictures" / "letterhead.png"
SAVER = Path(os.environ["MERGELOOM"]).parent / "save_files"
STRUCTURE = ROOT / "tests" / "scripts" / "saved_fields.xml"

# Each file has many features, so the test takes seconds.
DOCUMENTS = {
    "marks.docx": ("marks", "field", "link", "looks", "list", "header"),
    "boxes.docx": ("alternate", "grid table", "footnote", "bidi", "columns"),
    "hard.docx": ("check control", "text control", "changes", "picture"),
}
WORKBOOKS = {
    "tables.xlsx": ("rich", "table", "chart", "comment", "rule", "names"),
    "links.xlsx": ("links", "array", "sparkline", "validation", "merged", "hidden", "box"),
}

# A drop changes the cells of a sheet and the workbook's names, or a document's body, and its styles, lists and settings
# if necessary.
CHANGED_ENTRIES = {".xlsx": 2, ".docx": 4}


class SavedFiles(unittest.TestCase):
    def save(self, paths, faults):
        done = subprocess.run([SAVER, STRUCTURE, str(faults), *paths], capture_output=True, text=True, timeout=600,
                              check=True)
        return [json.loads(line) for line in done.stdout.splitlines()]

    def test_changes_are_repeated_and_faults_are_seen(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            for document, features in DOCUMENTS.items():
                varied_documents.make_document(folder / document, features, random.Random(document), PICTURE)
            for workbook, features in WORKBOOKS.items():
                varied_workbooks.make_by_xlsxwriter(folder / workbook, features, random.Random(workbook), PICTURE)
            for name in extended_workbooks.EXTENSIONS:
                extended_workbooks.extend(folder / "tables.xlsx", name)
            results = self.save(sorted(folder.glob("*.???x")), 1)
        self.assertEqual(len(results), len(DOCUMENTS) + len(WORKBOOKS))
        for result in results:
            with self.subTest(result["file"]):
                self.assertTrue(result["same"], "it changed although nothing was edited")
                self.assertEqual(result["outcome"], "proved", result.get("reason"))
                self.assertLessEqual(result["entries"] - result["kept"], CHANGED_ENTRIES[Path(result["file"]).suffix])
                self.assertGreaterEqual(result["planted"], 4)
                self.assertEqual(result["missed"], [])


if __name__ == "__main__":
    unittest.main()
