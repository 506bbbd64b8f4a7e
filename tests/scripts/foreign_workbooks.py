"""Makes Excel workbooks with programs of other makers: LibreOffice, python3-openpyxl and python3-xlsxwriter."""
import os
from pathlib import Path

import openpyxl
import xlsxwriter
from openpyxl.chart import BarChart, Reference
from openpyxl.comments import Comment
from openpyxl.drawing.image import Image
from openpyxl.formatting.rule import CellIsRule
from openpyxl.styles import Font, PatternFill, Protection
from openpyxl.workbook.defined_name import DefinedName
from openpyxl.worksheet.datavalidation import DataValidation
from openpyxl.worksheet.table import Table

import foreign_documents
import read_xlsx

# In each workbook the active cell is H3 of the second sheet. The cells below it and to its right are empty.
ACTIVE_SHEET = "Year '26"
MACROS = os.urandom(5000)

FLAT_SHEET = """<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.spreadsheet">
<office:body><office:spreadsheet>
<table:table table:name="Data"><table:table-column table:number-columns-repeated="3"/>
 <table:table-row><table:table-cell office:value-type="string"><text:p>Town</text:p></table:table-cell>
  <table:table-cell office:value-type="string"><text:p>Sum</text:p></table:table-cell></table:table-row>
 <table:table-row><table:table-cell office:value-type="string"><text:p>Ulm</text:p></table:table-cell>
  <table:table-cell office:value-type="float" office:value="3"/></table:table-row>
 <table:table-row><table:table-cell office:value-type="string"><text:p>Ulm</text:p></table:table-cell>
  <table:table-cell table:formula="of:=SUM([.B2];4)" office:value-type="float" office:value="7"/></table:table-row>
</table:table>
<table:table table:name="Pivot"/>
<table:named-expressions><table:named-range table:name="Towns" table:base-cell-address="$Data.$A$1"
 table:cell-range-address="$Data.$A$1:.$A$3"/></table:named-expressions>
<table:data-pilot-tables><table:data-pilot-table table:name="P" table:target-range-address="Pivot.A1:Pivot.B4"
  table:application-data=""><table:source-cell-range table:cell-range-address="Data.A1:Data.B3"/>
 <table:data-pilot-field table:source-field-name="Town" table:orientation="row"/>
 <table:data-pilot-field table:source-field-name="Sum" table:orientation="data" table:function="sum"/>
</table:data-pilot-table></table:data-pilot-tables>
</office:spreadsheet></office:body></office:document>
"""


def fill(sheet):
    """Writes cells of every kind into the block from A1 to E9."""
    sheet.append(["Town", "Sum", "Share", "Note", "Day"])
    for row in range(2, 9):
        sheet.append([f"Town {row}", row * 1.5, f"=B{row}/SUM($B$2:$B$8)", row % 2 == 0, None])
    sheet.append(["merged"])
    sheet.merge_cells("A9:C9")


def by_openpyxl(folder, picture):
    workbook = openpyxl.Workbook()
    first = workbook.active
    first.title = "Data"
    fill(first)
    sheet = workbook.create_sheet(ACTIVE_SHEET)
    fill(sheet)
    sheet["A1"].font = Font(bold=True, name="Arial", size=14)
    sheet["H9"].fill = PatternFill("solid", "FFFF00")
    sheet["H9"].protection = Protection(locked=False)
    sheet["B2"].comment = Comment("remarked", "Ann")
    sheet["A2"].hyperlink = "https://example.org/"
    sheet.column_dimensions["D"].width = 30
    sheet.row_dimensions[4].height = 40
    sheet.row_dimensions[7].hidden = True
    sheet.freeze_panes = "B2"
    sheet.add_table(Table(displayName="Sums", ref="A1:E8"))
    sheet.conditional_formatting.add("B2:B8", CellIsRule("greaterThan", ["5"], font=Font(color="FF0000")))
    validation = DataValidation("list", '"yes,no"')
    validation.add("D2:D8")
    sheet.add_data_validation(validation)
    chart = BarChart()
    chart.add_data(Reference(sheet, min_col=2, min_row=1, max_row=8), titles_from_data=True)
    sheet.add_chart(chart, "A12")
    sheet.add_image(Image(str(picture)), "E12")
    sheet.print_title_rows = "1:1"
    for name, text in (("Total", "'Year ''26'!$B$2:$B$8"), ("Rate", "0.19"), ("Gone", "#REF!"),
                       ("ammcustomer", "Data!$A$1")):
        read_xlsx.define_name(workbook, DefinedName(name, attr_text=text, hidden=name == "Rate"))
    workbook.active = 1
    for view in sheet.views.sheetView:
        view.selection[-1].activeCell = view.selection[-1].sqref = "H3"
    target = folder / "openpyxl.xlsx"
    workbook.save(target)
    return target


def by_xlsxwriter(folder, picture):
    target = folder / "xlsxwriter.xlsm"
    macros = folder / "vbaProject.bin"
    macros.write_bytes(MACROS)
    workbook = xlsxwriter.Workbook(str(target))
    workbook.add_vba_project(str(macros))
    data = workbook.add_worksheet("Data")
    sheet = workbook.add_worksheet(ACTIVE_SHEET)
    for each in (data, sheet):
        each.write_row(0, 0, ["Town", "Sum", "Share"])
        for row in range(1, 8):
            each.write_row(row, 0, [f"Town {row}", row * 1.5, row % 2 == 0])
            each.write_formula(row, 3, f"=B{row + 1}*2", None, row * 3)
    sheet.write_array_formula("E2:E4", "{=B2:B4*2}")
    sheet.write_rich_string("A10", workbook.add_format({"bold": True}), "rich ", "text")
    sheet.insert_image("A14", str(picture), {"object_position": 1})
    chart = workbook.add_chart({"type": "line"})
    chart.add_series({"values": ["Data", 1, 1, 7, 1]})
    sheet.insert_chart("E14", chart)
    sheet.write_comment("B2", "remarked")
    sheet.add_sparkline("F2", {"range": "Data!B2:B8"})
    sheet.conditional_format("B2:B8", {"type": "data_bar"})
    sheet.set_column("G:I", 12, workbook.add_format({"italic": True}))
    sheet.set_row(2, 22)
    sheet.set_selection("H3")
    sheet.activate()
    pie = workbook.add_chart({"type": "pie"})
    pie.add_series({"values": ["Data", 1, 1, 7, 1]})
    workbook.add_chartsheet("Picture").set_chart(pie)
    workbook.define_name("Total", "='Year ''26'!$B$2:$B$8")
    workbook.define_name("Data!Local", "=Data!$A$1")
    workbook.close()
    return target


def by_libreoffice(folder):
    """Returns a workbook with a pivot table, and LibreOffice's version of the one that openpyxl wrote."""
    flat = folder / "flat.fods"
    flat.write_text(FLAT_SHEET, encoding="utf-8")
    pivot = folder / "flat.xlsx"
    foreign_documents.convert(flat, pivot, "xlsx:Calc MS Excel 2007 XML")
    again = folder / "again" / "openpyxl.xlsx"
    again.parent.mkdir()
    foreign_documents.convert(folder / "openpyxl.xlsx", again, "xlsx:Calc MS Excel 2007 XML")
    return pivot, again


def make_all(folder: Path, picture: Path):
    """Maps a name to a workbook for each of the programs and sources."""
    workbooks = {"openpyxl": by_openpyxl(folder, picture), "xlsxwriter": by_xlsxwriter(folder, picture)}
    workbooks["pivot"], workbooks["again"] = by_libreoffice(folder)
    return workbooks
