"""Checks the files that describe the program to a desktop and a shell, and the installed tree.

MERGELOOM names the program, MERGELOOM_ROOT the folder of the sources.
"""
import configparser
import gzip
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

PROGRAM = Path(os.environ["MERGELOOM"])
ROOT = Path(os.environ["MERGELOOM_ROOT"])
DATA = ROOT / "data"
MIME = "{http://www.freedesktop.org/standards/shared-mime-info}"
# Matches an argument as a whole word, with or without a value after it.
ARGUMENT = re.compile(r"(?<![\w.-])--?[a-z][a-z-]+")


DESCRIBE = PROGRAM.with_name("mergeloom-describe")


def own_arguments(program=PROGRAM):
    """Returns the switches and options in the program's own list."""
    text = subprocess.run([program, "--help"], capture_output=True, text=True, check=True).stdout
    found = set()
    for line in text.splitlines():
        if line.startswith("  -"):
            found.update(ARGUMENT.findall(re.split(r"  +", line.strip())[0]))
    return found


def complete(*words, folder=".", program=PROGRAM):
    """Returns bash's completions of the last word."""
    function = "_" + program.name.replace("-", "_")
    script = ("compopt() { :; }; source " + str(DATA / "mergeloom.bash") + "; COMP_WORDS=(\"$@\"); "
              "COMP_CWORD=$(($# - 1)); " + function + "; printf '%s\\n' \"${COMPREPLY[@]}\"")
    run = subprocess.run(["bash", "-c", script, "bash", program, *words], capture_output=True, text=True,
                         check=True, cwd=folder)
    assert not run.stderr, run.stderr
    return set(run.stdout.split("\n")) - {""}


class Arguments(unittest.TestCase):
    def test_all_places_list_the_same(self):
        own = own_arguments()
        self.assertGreaterEqual(len(own), 19)
        manual = (DATA / "mergeloom.1").read_text().replace("\\-", "-")
        page = (ROOT / "docs/help/command-line.html").read_text()
        tables = "".join(re.findall(r"<tr><td><code>.*?</td>", page, re.DOTALL))
        headings = "".join(re.findall(r"^\.TP\n(.*)$", manual, re.MULTILINE))
        self.assertEqual(set(ARGUMENT.findall(headings.replace('"', " "))) - {"-designer"}, own)
        self.assertEqual(set(ARGUMENT.findall(tables)), own)
        self.assertEqual({word.rstrip("=") for word in complete("")}, own)

    @unittest.skipUnless(DESCRIBE.exists(), "this build has no mergeloom-describe")
    def test_all_places_list_the_same_of_describing(self):
        own = own_arguments(DESCRIBE)
        self.assertGreaterEqual(len(own), 6)
        manual = (DATA / "mergeloom-describe.1").read_text().replace("\\-", "-")
        page = (ROOT / "docs/help/describe.html").read_text()
        headings = "".join(re.findall(r"^\.TP\n(.*)$", manual, re.MULTILINE))
        tables = "".join(re.findall(r"<tr><td><code>.*?</td>", page, re.DOTALL))
        self.assertEqual(set(ARGUMENT.findall(headings.replace('"', " "))), own)
        self.assertEqual(set(ARGUMENT.findall(tables)) | {"--version", "--help"}, own)
        self.assertEqual(complete("-", program=DESCRIBE), own)


class Completion(unittest.TestCase):
    def test_values(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("a b.xml", "LETTER.DOTX", "old.doc", "notes.log", "list.xlsx"):
                (Path(folder) / name).touch()
            (Path(folder) / "sub").mkdir()
            cases = [
                (["-tem"], {"-template"}),
                (["--office", ""], {"embedded", "libreoffice", "com", "installed"}),
                (["--office", "=", "lib"], {"libreoffice"}),
                (["--off"], {"--office="}),
                (["-hidden", ""], {"formview"}),
                (["-hidden", "-ex"], {"-excel"}),
                (["-fields", ""], set()),
                (["--all", ""], {"sub"}),
                (["--format", "xl"], {"xlsx", "xlsm", "xltx", "xltm"}),
                (["--at", ""], {"start", "end"}),
                (["-xmlfile", ""], {"a b.xml", "sub"}),
                (["-XmlFile", "a"], {"a b.xml"}),
                (["-template", ""], {"LETTER.DOTX", "old.doc", "list.xlsx", "sub"}),
                (["--convert-fields", "="], {"LETTER.DOTX", "old.doc", "sub"}),
                (["-label", "o"], {"old.doc"}),
            ]
            for words, expected in cases:
                with self.subTest(words=words):
                    self.assertEqual(complete(*words, folder=folder), expected)

    @unittest.skipUnless(DESCRIBE.exists(), "this build has no mergeloom-describe")
    def test_values_of_describing(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("a.MDB", "b.accdb", "c.xml", "d.txt"):
                (Path(folder) / name).touch()
            shutil.copy(ROOT / "samples/harbour.db", Path(folder) / "my shop.db")
            cases = [
                (["", ""], {"a.MDB", "b.accdb", "my shop.db"}),
                (["my shop.db", "--output", ""], {"c.xml"}),
                (["my shop.db", "--records", ""], {"all"}),
                (["my shop.db", "--object", "Form Or"], {"Form\\ Orders"}),
                (["my\\ shop.db", "--object", "Form\\ Or"], {"Form\\ Orders"}),
                (["odbc:DSN=shop", "--object", ""], set()),
                (["d.txt", "--object", ""], set()),
            ]
            for words, expected in cases:
                with self.subTest(words=words):
                    self.assertEqual(complete(*words, folder=folder, program=DESCRIBE), expected)


class Desktop(unittest.TestCase):
    def test_entries_name_what_is_there(self):
        types = {kind.get("type") for kind in ElementTree.parse(DATA / "mergeloom.xml").iter(MIME + "mime-type")}
        # Every desktop knows the types of databases.
        types |= {"application/vnd.ms-access", "application/vnd.sqlite3"}
        entries = sorted(DATA.glob("*.desktop"))
        self.assertEqual(len(entries), 3)
        for path in entries:
            entry = configparser.RawConfigParser(delimiters=["="], strict=True)
            entry.optionxform = str
            entry.read(path, encoding="utf-8")
            for section in entry.sections():
                command, *arguments = entry[section]["Exec"].split()
                self.assertEqual(command, "mergeloom")
                switches = {word for word in arguments if word.startswith("-")}
                self.assertLessEqual(switches, own_arguments(), path.name)
            main = entry["Desktop Entry"]
            self.assertTrue((DATA / "icons" / (main["Icon"] + ".svg")).is_file())
            self.assertLessEqual(set(main.get("MimeType", "").split(";")) - {""}, types)
            if shutil.which("desktop-file-validate"):
                subprocess.run(["desktop-file-validate", path], check=True)


class InstalledTree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.prefix = Path(cls.folder.name)
        subprocess.run(["cmake", "--install", PROGRAM.parent, "--prefix", cls.prefix], check=True,
                       capture_output=True)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_what_belongs_to_the_program_lies_where_it_looks(self):
        names = {path.name for path in (self.prefix / "lib/mergeloom").iterdir()}
        for name in ("mergeloom-designer", "mergeloom-designer.chm", "mergeloom_libreoffice.so",
                     "mergeloom_inside.so"):
            self.assertEqual(name in names, (PROGRAM.parent / name).exists(), name)
        manual = gzip.decompress((self.prefix / "share/man/man1/mergeloom.1.gz").read_bytes()).decode()
        self.assertIn(".SH NAME", manual)
        self.assertNotIn("@", manual)

    def test_the_installed_program_maps_the_installed_sample(self):
        program = self.prefix / "bin/mergeloom"
        sample = self.prefix / "share/doc/mergeloom/examples/orders.xml"
        has_libreoffice = (PROGRAM.parent / "mergeloom_inside.so").exists()
        for office in ("embedded", *(["libreoffice"] if has_libreoffice else [])):
            template = self.prefix / f"{office}.dotx"
            subprocess.run([program, "--exit-status", f"--office={office}", "-xmlfile", sample, "-template", template,
                            "-hidden"], check=True, capture_output=True)
            places = subprocess.run([program, "--places", template], check=True, capture_output=True, text=True).stdout
            self.assertIn("OrderLinesLineTotal", places, office)
            self.assertRegex(places, r"Letterhead +bookmark .*/", f"the picture comes with the sample: {office}")


if __name__ == "__main__":
    unittest.main()
