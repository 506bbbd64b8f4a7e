#!/usr/bin/env python3
"""Measures how the time of four jobs grows when the job doubles: bound subforms that become tables (of 5 and of 63
columns), formula fields that become columns of a workbook's table, the fields of one formula that become rows of a
Word table, and merge fields that become places."""

import argparse
import pathlib
import sys
import tempfile

from docx import Document
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls

import comparisons
from inputs import ROOT
from measuring import Contender

MERGE_FIELD = (
    "<w:p " + nsdecls("w") + '><w:r><w:fldChar w:fldCharType="begin"/></w:r>'
    '<w:r><w:instrText xml:space="preserve"> MERGEFIELD Name{number} \\* MERGEFORMAT </w:instrText></w:r>'
    '<w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:rPr><w:b/></w:rPr><w:t>«Name{number}»</w:t></w:r>'
    '<w:r><w:fldChar w:fldCharType="end"/></w:r></w:p>')


def write_merge_fields(path, count):
    document = Document()
    section = document.element.body[-1]
    for number in range(count):
        section.addprevious(parse_xml(MERGE_FIELD.replace("{number}", str(number))))
    document.save(path)


def write_subforms(path, count, columns):
    controls = "".join(f'<Control Name="C{column}" Caption="Column {column}" ControlType="Textbox" Section="0"/>'
                       for column in range(columns))
    subforms = "".join(f'<Control Name="Sub{number}" ControlType="Subform">'
                       f'<Form Name="S{number}" HasRecordset="1">{controls}</Form></Control>'
                       for number in range(count))
    path.write_text(f'<Database><Form Name="Tables" CurrentView="1" DefaultView="0">{subforms}</Form></Database>')


def write_formula_fields(path, count):
    fields = "".join(f'<Control Name="F{number}" ControlSource="=Sum([F{(number + 1) % count}])"/>'
                     for number in range(count))
    path.write_text(f'<Database><Table Name="Linked" CurrentView="2">{fields}</Table></Database>')


def write_formula(path, count):
    fields = "".join(f'<Control Name="F{number}" ControlSource="F{number}"/>' for number in range(count))
    names = "+".join(f"[F{number}]" for number in range(count))
    path.write_text(f'<Database><Table Name="Linked" CurrentView="2">'
                    f'<Control Name="Total" ControlSource="=Sum({names})"/>{fields}</Table></Database>')


def convert_fields(program, folder, count):
    source, target = folder / f"fields{count}.docx", folder / f"converted{count}.docx"
    write_merge_fields(source, count)
    contender = Contender([program, "--convert-fields", str(source), "--output", str(target)], target)
    contender.require_bookmarks(count)
    return contender


def map_tables(program, folder, count, columns):
    source, target = folder / f"tables{count}x{columns}.xml", folder / f"tables{count}x{columns}.docx"
    write_subforms(source, count, columns)
    contender = Contender([program, "-hidden", "-xmlfile", str(source), "-template", str(target)], target)
    contender.require_bookmarks(count * (columns + 1))
    return contender


def map_formula_fields(program, folder, count):
    source, target = folder / f"linked{count}.xml", folder / f"linked{count}.xlsx"
    write_formula_fields(source, count)
    contender = Contender([program, "-excel", "-hidden", "-xmlfile", str(source), "-template", str(target)], target)
    contender.run()
    contender.require(count + 1, "names", "xl/workbook.xml", b"<definedName ")
    return contender


def map_formula(program, folder, count):
    source, target = folder / f"formula{count}.xml", folder / f"formula{count}.docx"
    write_formula(source, count)
    contender = Contender([program, "-hidden", "-xmlfile", str(source), "-template", str(target), "-listing",
                           "-fields", "Total"], target)
    contender.require_bookmarks(count + 2)
    return contender


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", default=str(ROOT / "build" / "release" / "mergeloom"))
    parser.add_argument("--runs", type=int, default=7, help="rounds that are counted (7)")
    arguments = parser.parse_args()
    program, runs = arguments.program, arguments.runs
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        rows = [(f"{count:,} and {2 * count:,} tables of {columns} columns",
                 *(map_tables(program, folder, times * count, columns) for times in (1, 2)))
                for count, columns in ((250, 5), (500, 5), (20, 63))]
        rows += [(f"{count:,} and {2 * count:,} formula fields",
                  *(map_formula_fields(program, folder, times * count) for times in (1, 2)))
                 for count in (2_000, 4_000)]
        rows += [(f"{count:,} and {2 * count:,} fields of one formula",
                  *(map_formula(program, folder, times * count) for times in (1, 2)))
                 for count in (2_000, 4_000)]
        rows += [(f"{count:,} and {2 * count:,} merge fields",
                  *(convert_fields(program, folder, times * count) for times in (1, 2)))
                 for count in (2_500, 5_000, 10_000)]
        comparisons.growth("Doubling the job", rows, runs)


if __name__ == "__main__":
    sys.exit(main())
