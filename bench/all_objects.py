#!/usr/bin/env python3
"""Measures the templates of all objects of a database (--all) beside one run for each object.

Single runs read either the same structure document, with --object, or one that holds their object alone.
"""

import argparse
import pathlib
import statistics
import sys
import tempfile
import time

from inputs import ROOT
from measuring import Contender, print_table


def object_xml(number, fields):
    controls = "".join(f'<Control Name="Field{field}" Caption="Field {field}:" ControlType="Textbox" Section="0"/>'
                       for field in range(fields))
    return f'<Form Name="Form{number}" CurrentView="1" DefaultView="0">{controls}</Form>'


def write_structure(path, objects):
    path.write_text("<Database>" + "".join(objects) + "</Database>", encoding="utf-8")
    return path


class Database:
    """Returns a structure document of many forms, the documents of each of them, and a folder for the templates."""

    def __init__(self, program, folder, objects, fields):
        self.program = program
        self.folder = pathlib.Path(folder)
        xml = [object_xml(number, fields) for number in range(objects)]
        self.whole = write_structure(self.folder / "all.xml", xml)
        self.parts = [write_structure(self.folder / f"part{number}.xml", [one]) for number, one in enumerate(xml)]
        self.templates = self.folder / "templates"
        self.templates.mkdir()

    def seconds(self, commands):
        """Returns the total time of the commands. Ends the benchmark unless they make a template of each object."""
        for template in self.templates.iterdir():
            template.unlink()
        begin = time.perf_counter()
        for command in commands:
            Contender(command, self.templates / "none").run()
        taken = time.perf_counter() - begin
        made = len(list(self.templates.iterdir()))
        if made != len(self.parts):
            sys.exit(f"{made} templates were made where {len(self.parts)} were expected")
        return taken

    def command(self, *arguments):
        return [str(self.program), "--exit-status", *map(str, arguments)]

    def together(self):
        return [self.command("--all", self.templates, "-xmlfile", self.whole)]

    def one_by_one(self, options_of, structure_of):
        return [self.command(*options_of(number), "-hidden", "-xmlfile", structure_of(number), "-template",
                             self.templates / f"Form{number}.dotx") for number in range(len(self.parts))]

    def by_name(self):
        return self.one_by_one(lambda number: ("--object", f"Form{number}"), lambda _: self.whole)

    def from_parts(self):
        return self.one_by_one(lambda _: (), lambda number: self.parts[number])


def read_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", default=ROOT / "build" / "release" / "mergeloom", type=pathlib.Path)
    parser.add_argument("--objects", type=int, default=1_000)
    parser.add_argument("--fields", type=int, default=20, help="of each object (20)")
    parser.add_argument("--runs", type=int, default=3, help="rounds that are counted (3)")
    return parser.parse_args()


def main():
    arguments = read_arguments()
    with tempfile.TemporaryDirectory() as folder:
        database = Database(arguments.program, folder, arguments.objects, arguments.fields)
        ways = {"--all": database.together(), "single runs with --object": database.by_name(),
                "single runs of documents of their own": database.from_parts()}
        rounds = [{name: database.seconds(commands) for name, commands in ways.items()}
                  for _ in range(arguments.runs)]
    rows = []
    for name in ways:
        seconds = statistics.median(one[name] for one in rounds)
        share = statistics.median(one["--all"] / one[name] for one in rounds)
        rows.append([name, f"{seconds:.2f} s", f"{share:.2f}"])
    print_table(f"{arguments.objects:,} objects of {arguments.fields} fields",
                ["templates made by", "time", "share that --all takes"], rows)


if __name__ == "__main__":
    main()
