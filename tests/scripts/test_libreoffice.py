"""Maps with LibreOffice as the office where something is wrong with it, with the document or with the folders.

Each run has to end with a sentence that says what is wrong and with status 1, to lose nothing and to leave
nothing behind: no process, no folder for temporary files, no lock. MERGELOOM names the program. Documents with
passwords are not among these: only an office can make them, which the tests of the office's session let it do.
"""
import os
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
import zipfile
from dataclasses import dataclass
from pathlib import Path

import docx
import openpyxl
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls

import read_xlsx

PROGRAM = Path(os.environ["MERGELOOM"])
MODULE = PROGRAM.parent / "mergeloom_libreoffice.so"
RUN_BOUND = 120
END_BOUND = 10
MANY = 3000
# Seconds of processor time that the office has used when it is killed.
MOMENTS = (0.1, 0.3, 0.5)
TOO_LATE = "the runs were over before they could be killed"


def form(count):
    controls = "".join(f'<Control Name="Field{number}" Caption="Caption {number}:" ControlType="Textbox"/>'
                       for number in range(count))
    return f'<Database><Form Name="F" CurrentView="1" DefaultView="0">{controls}</Form></Database>'


@dataclass
class Kind:
    """A kind of document with its switches, its extensions with and without macros, and a file of it."""
    name: str
    switches: list
    extension: str
    with_macros: str
    open_document: str
    make: object
    count_places: object


def make_docx(path):
    document = docx.Document()
    document.add_paragraph("kept")
    document.save(path)


def make_xlsx(path):
    workbook = openpyxl.Workbook()
    workbook.active["D9"] = "kept"
    workbook.save(path)


def bookmarks(path):
    names = docx.Document(path).element.xpath("//w:bookmarkStart/@w:name")
    return len([name for name in names if name.startswith("Field")])


def named_cells(path):
    return len([name for name in read_xlsx.read_names(path) if name.startswith("ammField")])


KINDS = [
    Kind("Word", [], "docx", "docm", "odt", make_docx, bookmarks),
    Kind("Excel", ["-excel"], "xlsx", "xlsm", "ods", make_xlsx, named_cells),
]

MANIFEST = """<?xml version="1.0" encoding="UTF-8"?>
<manifest:manifest xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0" manifest:version="1.3">
 <manifest:file-entry manifest:full-path="/" manifest:media-type="{type}"/>
 <manifest:file-entry manifest:full-path="content.xml" manifest:media-type="text/xml"/>
 <manifest:file-entry manifest:full-path="Basic/script-lc.xml" manifest:media-type="text/xml"/>
 <manifest:file-entry manifest:full-path="Basic/Standard/script-lb.xml" manifest:media-type="text/xml"/>
 <manifest:file-entry manifest:full-path="Basic/Standard/Module1.xml" manifest:media-type="text/xml"/>
</manifest:manifest>"""
LIBRARIES = """<?xml version="1.0" encoding="UTF-8"?>
<library:libraries xmlns:library="http://openoffice.org/2000/library" xmlns:xlink="http://www.w3.org/1999/xlink">
 <library:library library:name="Standard" library:link="false"/></library:libraries>"""
LIBRARY = """<?xml version="1.0" encoding="UTF-8"?>
<library:library xmlns:library="http://openoffice.org/2000/library" library:name="Standard" library:readonly="false"
 library:passwordprotected="false"><library:element library:name="Module1"/></library:library>"""
BASIC = """<?xml version="1.0" encoding="UTF-8"?>
<script:module xmlns:script="http://openoffice.org/2000/script" script:name="Module1" script:language="StarBasic">
Sub Loaded
 Dim file As Integer
 file = FreeFile
 Open "{trace}" For Output As #file
 Close #file
End Sub
</script:module>"""
CONTENT = """<?xml version="1.0" encoding="UTF-8"?>
<office:document-content xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:script="urn:oasis:names:tc:opendocument:xmlns:script:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:dom="http://www.w3.org/2001/xml-events"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" office:version="1.3">
<office:scripts><office:event-listeners><script:event-listener script:language="ooo:script" script:event-name="dom:load"
 xlink:href="vnd.sun.star.script:Standard.Module1.Loaded?language=Basic&amp;location=document" xlink:type="simple"/>
</office:event-listeners></office:scripts><office:body>{body}</office:body></office:document-content>"""
BODIES = {
    "odt": ("text", "<office:text><text:p>kept</text:p></office:text>"),
    "ods": ("spreadsheet", '<office:spreadsheet><table:table table:name="One"><table:table-row><table:table-cell/>'
            "</table:table-row></table:table></office:spreadsheet>"),
}


def make_with_trace(path, trace):
    """Writes an OpenDocument file with a macro that writes a file when it is opened."""
    short_type, body = BODIES[path.suffix[1:]]
    media_type = "application/vnd.oasis.opendocument." + short_type
    entries = {
        "mimetype": media_type, "META-INF/manifest.xml": MANIFEST.format(type=media_type),
        "content.xml": CONTENT.format(body=body), "Basic/script-lc.xml": LIBRARIES,
        "Basic/Standard/script-lb.xml": LIBRARY, "Basic/Standard/Module1.xml": BASIC.format(trace=trace),
    }
    with zipfile.ZipFile(path, "w") as archive:
        for name, text in entries.items():
            archive.writestr(name, text)


def put_macros(source, path, kind):
    """Writes a document with macros, made from one without them, as other programs write it."""
    main = {"docx": "word/document.xml", "xlsx": "xl/workbook.xml"}[kind.extension]
    folder, part = main.split("/")
    types = {"docx": ("application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml",
                      "application/vnd.ms-word.document.macroEnabled.main+xml"),
             "xlsx": ("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml",
                      "application/vnd.ms-excel.sheet.macroEnabled.main+xml")}[kind.extension]
    with zipfile.ZipFile(source) as before, zipfile.ZipFile(path, "w") as after:
        for name in before.namelist():
            text = before.read(name)
            if name == "[Content_Types].xml":
                text = text.decode().replace(*types).replace(
                    "<Default ", '<Default Extension="bin" ContentType="application/vnd.ms-office.vbaProject"/><Default ',
                    1).encode()
            if name == f"{folder}/_rels/{part}.rels":
                text = text.decode().replace(
                    "</Relationships>", '<Relationship Id="rIdMacros" Target="vbaProject.bin" Type="http://schemas.'
                    'microsoft.com/office/2006/relationships/vbaProject"/></Relationships>').encode()
            after.writestr(name, text)
        after.writestr(f"{folder}/vbaProject.bin", os.urandom(2000))


def processes_naming(text):
    """Returns the numbers and command lines of the processes whose command lines contain a text."""
    found = {}
    for entry in Path("/proc").iterdir():
        try:
            line = (entry / "cmdline").read_bytes().decode(errors="replace") if entry.name.isdigit() else ""
        except OSError:
            continue
        if text in line:
            found[int(entry.name)] = line
    return found


def until(condition, bound):
    last = time.monotonic() + bound
    while not condition():
        if time.monotonic() > last:
            return False
        time.sleep(0.02)
    return True


@unittest.skipUnless(MODULE.exists(), "built without LibreOffice")
class LibreOffice(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.temporary = self.folder / "temporary"
        self.temporary.mkdir()
        self.documents = self.folder / "documents"
        self.documents.mkdir()
        self.environment = os.environ | {"TMPDIR": str(self.temporary)}
        self.environment.pop("MERGELOOM_SOFFICE", None)
        (self.folder / "form.xml").write_text(form(2), encoding="utf-8")

    def command(self, kind, *switches, program=PROGRAM, structure="form.xml"):
        return [program, "--office=libreoffice", "--exit-status", *kind.switches, "-hidden", "-xmlfile",
                self.folder / structure, *switches]

    def map(self, kind, *switches, program=PROGRAM, **options):
        return subprocess.run(self.command(kind, *switches, program=program), capture_output=True, text=True,
                              timeout=RUN_BOUND, check=False, env=self.environment, **options)

    def start(self, kind, *switches, structure="form.xml"):
        return subprocess.Popen(self.command(kind, *switches, structure=structure), stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True, env=self.environment)

    def assert_nothing_left(self, documents=()):
        def running():
            return processes_naming(str(self.temporary))

        self.assertTrue(until(lambda: not running(), END_BOUND), running())
        self.assertTrue(until(lambda: not list(self.temporary.iterdir()), END_BOUND), list(self.temporary.iterdir()))
        self.assertEqual(sorted(file.name for file in self.documents.iterdir()), sorted(documents))

    def assert_refused(self, done, *words, documents=()):
        self.assertEqual(done.returncode, 1, done.stderr)
        for word in words:
            self.assertIn(str(word), done.stderr)
        self.assertRegex(done.stderr, r"(?m)\.$")
        self.assert_nothing_left(documents)

    def program(self, script):
        """Writes a program that replaces the office."""
        path = self.folder / "soffice"
        path.write_text(f"#!/bin/sh\n{script}\n")
        path.chmod(0o755)
        self.environment["MERGELOOM_SOFFICE"] = str(path)
        return path

    def test_there_is_none(self):
        alone = self.folder / "mergeloom"
        shutil.copy(PROGRAM, alone)
        for kind in KINDS:
            target = self.documents / f"new.{kind.extension}"
            with self.subTest(kind.name, missing="the module"):
                self.assert_refused(self.map(kind, "-template", target, program=alone), "module for LibreOffice could not be loaded")
            with self.subTest(kind.name, missing="the office"):
                self.environment["MERGELOOM_SOFFICE"] = "/nowhere/soffice"
                self.assert_refused(self.map(kind, "-template", target), "MERGELOOM_SOFFICE", "'/nowhere/soffice'")
                del self.environment["MERGELOOM_SOFFICE"]

    def test_one_that_ends_at_once(self):
        self.program("echo 'No display today.' >&2; exit 3")
        for kind in KINDS:
            with self.subTest(kind.name):
                done = self.map(kind, "-template", self.documents / f"new.{kind.extension}")
                self.assert_refused(done, "LibreOffice could not be started: it ended by itself. Its last words: "
                                    "No display today.")

    def test_one_that_hangs_goes_with_the_run(self):
        started = self.folder / "started"
        self.program(f"touch '{started}'; sleep 600")
        for kind in KINDS:
            with self.subTest(kind.name):
                run = self.start(kind, "-template", self.documents / f"new.{kind.extension}")
                self.addCleanup(run.kill)
                self.assertTrue(until(started.exists, END_BOUND))
                started.unlink()
                run.terminate()
                run.communicate(timeout=END_BOUND)
                self.assertNotEqual(run.returncode, 0)
                self.assert_nothing_left()

    def workers(self):
        return [number for number, line in processes_naming(str(self.temporary)).items()
                if Path(line.split("\0")[0]).name == "soffice.bin"]

    def has_worked(self, seconds):
        """Returns true if the office has used that much processor time."""
        ticks = 0
        for number in self.workers():
            try:
                fields = Path(f"/proc/{number}/stat").read_text().rpartition(")")[2].split()
            except OSError:
                continue
            ticks += int(fields[11]) + int(fields[12])
        return ticks >= seconds * os.sysconf("SC_CLK_TCK")

    def run_and_kill(self, kind, victim, moment, *switches):
        """Kills the office or the program after the office has worked for a while. Returns the status of the run."""
        run = self.start(kind, *switches, structure="many.xml")
        self.addCleanup(run.kill)
        self.assertTrue(until(lambda: run.poll() is not None or self.has_worked(moment), RUN_BOUND))
        if victim == "the program":
            run.kill()
        for number in self.workers() if victim == "the office" else []:
            os.kill(number, signal.SIGKILL)
        said = run.communicate(timeout=RUN_BOUND)[0]
        if victim == "the office" and run.returncode != 0:
            self.assertRegex(said, r"LibreOffice (ended unexpectedly|could not be started: it ended by itself)\.")
        return run.returncode

    def test_killed_in_the_middle(self):
        (self.folder / "many.xml").write_text(form(MANY), encoding="utf-8")
        for kind in KINDS:
            existing = self.documents / f"existing.{kind.extension}"
            absent = self.documents / f"absent.{kind.extension}"
            failures = 0
            for victim in ("the office", "the program"):
                for moment in MOMENTS:
                    with self.subTest(kind.name, victim=victim, moment=moment):
                        kind.make(existing)
                        before = existing.read_bytes()
                        status = self.run_and_kill(kind, victim, moment, "-usedocument", existing)
                        self.assert_nothing_left([existing.name])
                        # The run may have been killed after the file was replaced.
                        if status == 0 or existing.read_bytes() != before:
                            self.assertEqual(kind.count_places(existing), MANY)
                        failures += status != 0
                        existing.unlink()
            failures_without_file = 0
            for moment in MOMENTS:
                with self.subTest(kind.name, target="absent", moment=moment):
                    status = self.run_and_kill(kind, "the office", moment, "-template", absent)
                    self.assert_nothing_left([absent.name] if status == 0 else [])
                    if status == 0:
                        self.assertEqual(kind.count_places(absent), MANY)
                        absent.unlink()
                    failures_without_file += status != 0
            with self.subTest(kind.name):
                self.assertGreater(failures, 2, TOO_LATE)
                self.assertGreater(failures_without_file, 0, TOO_LATE)

    def test_no_folder_for_temporary_files(self):
        for folder, words in ((self.folder / "missing", "does not exist"), (Path("/proc"), "cannot be written")):
            for kind in KINDS:
                with self.subTest(kind.name, folder=folder):
                    self.environment["TMPDIR"] = str(folder)
                    done = self.map(kind, "-template", self.documents / f"new.{kind.extension}")
                    self.assert_refused(done, "LibreOffice could not be started", folder, words)

    def test_two_runs_at_once(self):
        runs = {}
        for kind in KINDS:
            for number in range(2):
                target = self.documents / f"{number}.{kind.extension}"
                runs[target] = kind, self.start(kind, "-template", target)
        for target, (kind, run) in runs.items():
            said = run.communicate(timeout=RUN_BOUND)[0]
            with self.subTest(target.name):
                self.assertEqual((run.returncode, said), (0, ""))
                self.assertEqual(kind.count_places(target), 2)
        self.assert_nothing_left([target.name for target in runs])

    def test_a_document_that_may_only_be_read(self):
        for kind in KINDS:
            with self.subTest(kind.name):
                source = self.documents / f"source.{kind.extension}"
                target = self.documents / f"target.{kind.extension}"
                kind.make(source)
                source.chmod(0o444)
                before = source.read_bytes()
                done = self.map(kind, "-usedocument", source, "-template", target)
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertEqual(kind.count_places(target), 2)
                self.assertEqual((source.read_bytes(), source.stat().st_mode & 0o777), (before, 0o444))
                self.assert_nothing_left([source.name, target.name])
                source.unlink()
                target.unlink()

    def test_what_is_no_document(self):
        for kind in KINDS:
            with self.subTest(kind.name):
                source = self.documents / f"source.{kind.extension}"
                source.write_bytes(b"PK\x03\x04 but no archive")
                done = self.map(kind, "-usedocument", source, "-template", self.documents / f"new.{kind.extension}")
                self.assert_refused(done, source, "could not be read", documents=[source.name])
                source.unlink()

    def test_a_content_control_is_no_difference(self):
        source = self.documents / "source.docx"
        document = docx.Document()
        paragraph = document.add_paragraph()
        paragraph._p.append(parse_xml(
            f"<w:sdt {nsdecls('w')}><w:sdtPr><w:text/></w:sdtPr><w:sdtContent><w:r><w:t>Customer</w:t></w:r>"
            "</w:sdtContent></w:sdt>"))
        paragraph.add_run(" and more")
        document.save(source)
        done = self.map(KINDS[0], "-usedocument", source)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual("".join(docx.Document(source).element.xpath("//w:t/text()")).count("Customer"), 1)
        self.assertEqual(bookmarks(source), 2)

    def test_macros_are_not_lost(self):
        for kind in KINDS:
            for source_name in (f"source.{kind.with_macros}", f"source.{kind.open_document}"):
                with self.subTest(source_name):
                    source = self.documents / source_name
                    trace = self.folder / "trace"
                    if source.suffix == f".{kind.open_document}":
                        make_with_trace(source, trace)
                    else:
                        kind.make(self.folder / "plain")
                        put_macros(self.folder / "plain", source, kind)
                    before = source.read_bytes()
                    target = self.documents / f"lost.{kind.extension}"
                    done = self.map(kind, "-usedocument", source, "-template", target)
                    self.assert_refused(done, f"The file '{target}' cannot be saved: the ",
                                        " holds macros, which its format cannot keep. Choose ", kind.with_macros,
                                        documents=[source.name])
                    self.assertEqual(source.read_bytes(), before)
                    self.assertFalse(trace.exists(), "the macro was run")
                    source.unlink()


if __name__ == "__main__":
    unittest.main()
