#!/usr/bin/env python3
"""Asks the desktop which program opens the files that Mergeloom knows, with its types and those of the system.

MERGELOOM_ROOT names the folder of the sources.
"""
import configparser
import os
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from access_file import ACE14, JET4, AccessFile

DATA = Path(os.environ["MERGELOOM_ROOT"]) / "data"
SYSTEM = Path("/usr/share/mime/packages/freedesktop.org.xml")
# The desktop's own library finds the type of a file. It reads its folders when it is loaded.
ASK = """
import sys
from gi.repository import Gio
for path in sys.argv[1:]:
    print(Gio.File.new_for_path(path).query_info("standard::content-type", 0, None).get_content_type())
"""


@unittest.skipUnless(SYSTEM.exists() and shutil.which("update-mime-database"), "shared-mime-info is not installed")
class FileTypes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def types(self, paths):
        packages = self.folder / "mime/packages"
        packages.mkdir(parents=True)
        for source in (SYSTEM, DATA / "mergeloom.xml"):
            shutil.copy(source, packages)
        environment = {**os.environ, "XDG_DATA_HOME": str(self.folder), "XDG_DATA_DIRS": str(self.folder)}
        made = subprocess.run(["update-mime-database", self.folder / "mime"], capture_output=True, text=True, check=False,
                              env=environment)
        self.assertEqual((made.returncode, made.stderr), (0, ""))
        asked = subprocess.run([sys.executable, "-c", ASK, *paths], capture_output=True, text=True, check=True,
                               env=environment)
        return asked.stdout.splitlines()

    def opened_types(self, name):
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(DATA / name)
        self.assertIn("%f", entry["Desktop Entry"]["Exec"])
        return entry["Desktop Entry"]["MimeType"].rstrip(";").split(";")

    def test_databases_and_structure_documents_are_opened(self):
        databases = []
        for version, ending in ((JET4, "mdb"), (ACE14, "accdb")):
            databases.append(self.folder / f"shop.{ending}")
            AccessFile(version).save(databases[-1])
        for ending in ("db", "sqlite", "sqlite3"):
            databases.append(self.folder / f"shop.{ending}")
            with sqlite3.connect(databases[-1]) as connection:
                connection.execute("CREATE TABLE t (a)")
            connection.close()
        structure, other = self.folder / "shop.mergeloom.xml", self.folder / "shop.xml"
        for path in (structure, other):
            path.write_text('<?xml version="1.0"?><Database/>')
        *found, structure_type, other_type = self.types([*databases, structure, other])
        opened = self.opened_types("mergeloom-database.desktop")
        for path, kind in zip(databases, found):
            self.assertIn(kind, opened, path.name)
        self.assertEqual(self.opened_types("mergeloom-structure.desktop"), [structure_type])
        self.assertNotIn(other_type, [*opened, structure_type])


if __name__ == "__main__":
    unittest.main()
