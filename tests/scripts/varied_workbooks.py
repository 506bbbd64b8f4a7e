"""Makes workbooks of every feature alone and of random mixtures with a fixed seed, by python3-xlsxwriter,
python3-openpyxl and LibreOffice."""
import datetime
import random
import subprocess
import zipfile
from pathlib import Path

import openpyxl
import xlsxwriter
from openpyxl.formatting.rule import ColorScaleRule, FormulaRule, IconSetRule
from openpyxl.styles import Alignment, Border, Font, NamedStyle, PatternFill, Protection, Side
from openpyxl.worksheet.datavalidation import DataValidation
from openpyxl.worksheet.table import Table, TableStyleInfo

import extended_workbooks
import foreign_documents
import foreign_workbooks

WORDS = "harbour order letter invoice total customer street between delivery quantity price remark thanks".split()
FIRST = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'


def words(chance):
    return " ".join(chance.choice(WORDS) for _ in range(chance.randint(1, 4)))


def fill(sheet, chance, book):
    """Writes cells of most kinds with the formats that each needs."""
    bold = book.add_format({"bold": True, "bg_color": "#DDEEFF"})
    money = book.add_format({"num_format": "#,##0.00 [$€-407]"})
    day = book.add_format({"num_format": "dd.mm.yyyy"})
    sheet.write_row(0, 0, ["Town", "Sum", "Share", "Day", "True"], bold)
    for row in range(1, 9):
        sheet.write_string(row, 0, words(chance))
        sheet.write_number(row, 1, chance.randint(1, 900) / 4, money)
        sheet.write_formula(row, 2, f"=B{row + 1}*2", None, 0)
        sheet.write_datetime(row, 3, datetime.datetime(2020, 1, row), day)
        sheet.write_boolean(row, 4, row % 2 == 0)


class ByXlsxwriter:
    """The features that xlsxwriter writes, each a method that takes a workbook, a filled sheet and a picture."""

    @staticmethod
    def plain(_book, _sheet, _picture):
        """Adds no feature, for a workbook with cells alone."""

    @staticmethod
    def rich(book, sheet, _picture):
        sheet.write_rich_string("A11", book.add_format({"bold": True}), "rich ", book.add_format({"color": "red"}), "text")
        sheet.write_string("A12", " blanks around ")
        sheet.write_string("A13", "two\nlines", book.add_format({"text_wrap": True}))

    @staticmethod
    def array(_book, sheet, _picture):
        sheet.write_array_formula("G2:G4", "{=B2:B4*2}")

    @staticmethod
    def dynamic(_book, sheet, _picture):
        sheet.write_dynamic_array_formula("G2:G4", "=B2:B4*2")

    @staticmethod
    def table(_book, sheet, _picture):
        sheet.add_table("H1:I5", {"columns": [{"header": "One"}, {"header": "Two", "total_function": "sum"}],
                                  "total_row": True, "data": [[1, 2], [3, 4], [5, 6]]})

    @staticmethod
    def picture(_book, sheet, picture):
        sheet.insert_image("G2", str(picture), {"object_position": 1, "url": "https://example.org/"})

    @staticmethod
    def chart(book, sheet, _picture):
        chart = book.add_chart({"type": "column"})
        chart.add_series({"values": ["Data", 1, 1, 7, 1], "categories": ["Data", 1, 0, 7, 0], "trendline": {
            "type": "linear"}})
        chart.set_title({"name": "Sums"})
        sheet.insert_chart("G6", chart)

    @staticmethod
    def chart_sheet(book, _sheet, _picture):
        pie = book.add_chart({"type": "pie"})
        pie.add_series({"values": ["Data", 1, 1, 7, 1]})
        book.add_chartsheet("Pie").set_chart(pie)

    @staticmethod
    def comment(_book, sheet, _picture):
        sheet.write_comment("B2", "remarked", {"author": "Ann"})

    @staticmethod
    def sparkline(_book, sheet, _picture):
        sheet.add_sparkline("F2", {"range": "Data!B2:B8", "markers": True})

    @staticmethod
    def bars(_book, sheet, _picture):
        sheet.conditional_format("B2:B8", {"type": "data_bar", "data_bar_2010": True})
        sheet.conditional_format("C2:C8", {"type": "3_color_scale"})

    @staticmethod
    def rule(book, sheet, _picture):
        sheet.conditional_format("B2:B8", {"type": "cell", "criteria": ">", "value": 50,
                                           "format": book.add_format({"font_color": "red"})})

    @staticmethod
    def validation(_book, sheet, _picture):
        sheet.data_validation("A2:A8", {"validate": "list", "source": ["a", "b"]})
        sheet.data_validation("B2:B8", {"validate": "decimal", "criteria": "between", "minimum": 1, "maximum": 10})

    @staticmethod
    def outline(_book, sheet, _picture):
        for row in range(2, 5):
            sheet.set_row(row, None, None, {"level": 1, "hidden": row == 3})
        sheet.set_column("G:H", 15, None, {"level": 1})

    @staticmethod
    def filter(_book, sheet, _picture):
        sheet.autofilter("A1:E9")
        sheet.filter_column("B", "x > 10")

    @staticmethod
    def links(_book, sheet, _picture):
        sheet.write_url("A11", "https://example.org/?a=1&b=2", string="site")
        sheet.write_url("A12", "internal:Data!A1", string="inside")
        sheet.write_url("A13", "external:other.xlsx", string="file")

    @staticmethod
    def protection(book, sheet, _picture):
        sheet.write("A11", "open", book.add_format({"locked": False}))
        sheet.protect("", {"format_cells": True})
        sheet.unprotect_range("B2:B4")

    @staticmethod
    def page(_book, sheet, _picture):
        sheet.set_landscape()
        sheet.set_header("&LLeft&C&P of &N")
        sheet.repeat_rows(0)
        sheet.print_area("A1:E9")
        sheet.set_h_pagebreaks([5])
        sheet.fit_to_pages(1, 0)

    @staticmethod
    def frozen(_book, sheet, _picture):
        sheet.freeze_panes(1, 1)
        sheet.set_zoom(80)
        sheet.hide_gridlines(2)

    @staticmethod
    def names(book, _sheet, _picture):
        book.define_name("Rate", "=0.19")
        book.define_name("Data!Local", "=Data!$B$2:$B$8")
        book.define_name("Total", "=SUM(Data!$B$2:$B$8)")

    @staticmethod
    def hidden(book, _sheet, _picture):
        book.add_worksheet("Hidden").hide()

    @staticmethod
    def merged(book, sheet, _picture):
        sheet.merge_range("A11:C12", "merged", book.add_format({"align": "center", "border": 1}))

    @staticmethod
    def box(_book, sheet, _picture):
        sheet.insert_textbox("G2", "a box", {"width": 100, "height": 50})
        sheet.insert_button("G8", {"macro": "x", "caption": "Press"})

    @staticmethod
    def looks(book, sheet, _picture):
        sheet.write("A11", "all", book.add_format({
            "italic": True, "underline": 1, "font_size": 14, "rotation": 45, "border": 2, "pattern": 4,
            "fg_color": "#FFFF00", "indent": 1, "shrink": True}))
        sheet.set_column("B:B", 20, book.add_format({"italic": True}))
        sheet.set_row(6, 30, book.add_format({"bg_color": "#EEEEEE"}))
        sheet.set_tab_color("#00FF00")


class ByOpenpyxl:
    """The features that openpyxl adds to a workbook, each as a method."""

    @staticmethod
    def table(_book, sheet, _picture):
        sheet.add_table(Table(displayName="Sums", ref="A1:E9", tableStyleInfo=TableStyleInfo("TableStyleMedium9")))

    @staticmethod
    def styles(book, sheet, _picture):
        style = NamedStyle("Ours", font=Font(bold=True, color="1F497D"), border=Border(bottom=Side("thick")))
        book.add_named_style(style)
        sheet["B2"].style = "Ours"
        sheet["B3"].fill = PatternFill("solid", "FFFF00")
        sheet["B3"].alignment = Alignment(horizontal="center", vertical="top", wrap_text=True)
        sheet["B4"].protection = Protection(locked=False, hidden=True)

    @staticmethod
    def rules(_book, sheet, _picture):
        sheet.conditional_formatting.add("B2:B8", ColorScaleRule("min", None, "FF0000", "max", None, "00FF00"))
        sheet.conditional_formatting.add("C2:C8", IconSetRule("3Arrows", "percent", [0, 33, 67]))
        sheet.conditional_formatting.add("A2:A8", FormulaRule(["$B2>50"], font=Font(bold=True)))

    @staticmethod
    def formulas(_book, sheet, _picture):
        sheet["I2"] = "=SUM(B2:B8)+COUNTIF(A:A,\"a*\")"

    @staticmethod
    def dates_1904(book, sheet, _picture):
        book.epoch = openpyxl.utils.datetime.CALENDAR_MAC_1904
        sheet["G1"] = datetime.date(2020, 1, 1)

    @staticmethod
    def validation(_book, sheet, _picture):
        rule = DataValidation("custom", "=LEN(A2)>2", showErrorMessage=True, error="short")
        rule.add("A2:A8")
        sheet.add_data_validation(rule)

    @staticmethod
    def volatile(_book, sheet, _picture):
        sheet["G1"], sheet["G2"], sheet["G3"] = "=TODAY()", "=RAND()", "=NOW()"
        sheet["G4"], sheet["G5"] = "=1/0", "=VLOOKUP(1,A1:B2,2,FALSE)"


# Replacements in the text of a part, for content that neither library writes: the part, the former text and the new
# one.
PATCHES = {
    "inline": ("xl/worksheets/sheet1.xml", "</sheetData>", '<row r="40"><c r="A40" t="inlineStr"><is><t>inline</t></is>'
               '</c><c r="B40" t="inlineStr"><is><r><rPr><b/></rPr><t>bold</t></r><r><t> text</t></r></is></c></row>'
               "</sheetData>"),
    "shared": ("xl/worksheets/sheet1.xml", "</sheetData>", '<row r="41"><c r="A41"><f t="shared" ref="A41:C41" si="0">'
               'B2*2</f><v>0</v></c><c r="B41"><f t="shared" si="0"/><v>0</v></c><c r="C41"><f t="shared" si="0"/><v>0</v>'
               "</c></row></sheetData>"),
    "data table": ("xl/worksheets/sheet1.xml", "</sheetData>", '<row r="42"><c r="A42"><v>2</v></c><c r="B42"><f '
                   't="dataTable" ref="B42:B43" dt2D="0" dtr="0" r1="B2"/><v>4</v></c></row><row r="43"><c r="B43"><v>6</v>'
                   "</c></row></sheetData>"),
    "very hidden": ("xl/workbook.xml", '<sheet name="It\'s', '<sheet state="veryHidden" name="It\'s'),
    "phonetic": ("xl/sharedStrings.xml", "<si><t>Town</t></si>", '<si><t>Town</t><rPh sb="0" eb="1"><t>x</t></rPh>'
                 '<phoneticPr fontId="0"/></si>'),
    "no style sheet": ("xl/styles.xml", '<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/>'
                       "</cellStyleXfs>", ""),
    "extension": ("xl/worksheets/sheet1.xml", "</worksheet>", '<extLst><ext uri="{00000000-0000-0000-0000-000000000001}"'
                  '><x:ours xmlns:x="urn:ours">kept</x:ours></ext></extLst></worksheet>'),
    "no references": ("xl/worksheets/sheet1.xml", '<row r="1" spans="1:5">', "<row>"),
    "full calculation": ("xl/workbook.xml", "<calcPr ", '<calcPr iterate="1" '),
}


def features_of(maker):
    return [name for name in vars(maker) if not name.startswith("_")]


def make_by_xlsxwriter(path, features, chance, picture):
    with xlsxwriter.Workbook(str(path)) as book:
        sheet = book.add_worksheet("Data")
        fill(book.add_worksheet("It's 2nd"), chance, book)
        fill(sheet, chance, book)
        for name in features:
            getattr(ByXlsxwriter, name)(book, sheet, picture)


def make_by_openpyxl(path, features, chance, picture):
    make_by_xlsxwriter(path, ["plain"], chance, picture)
    book = openpyxl.load_workbook(path)
    for name in features:
        getattr(ByOpenpyxl, name)(book, book["Data"], picture)
    book.save(path)


def patch(path, name):
    part, former, now = PATCHES[name]
    with zipfile.ZipFile(path) as archive:
        entries = {each: archive.read(each) for each in archive.namelist()}
    text = entries[part].decode()
    if former not in text:
        raise AssertionError(f"{path.name} has no {former}")
    entries[part] = text.replace(former, now, 1).encode()
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        for each, content in entries.items():
            archive.writestr(each, content)


def by_libreoffice(folder):
    flat = folder / "flat.fods"
    flat.write_text(foreign_workbooks.FLAT_SHEET, encoding="utf-8")
    for extension, name in (("ods", "calc8"), ("xls", "MS Excel 97")):
        source = folder / f"from-{extension}.fods"
        subprocess.run(["cp", flat, source], check=True)
        foreign_documents.convert(source, source.with_suffix(f".{extension}"), f"{extension}:{name}")
        foreign_documents.convert(source.with_suffix(f".{extension}"), source.with_suffix(".xlsx"),
                                  "xlsx:Calc MS Excel 2007 XML")
        source.with_suffix(f".{extension}").unlink()
        source.unlink()
        yield source.with_suffix(".xlsx")
    flat.unlink()


def make_all(folder: Path, picture: Path, mixtures: int, seed: int = 1, converted: bool = True):
    """Yields the workbooks."""
    makers = ((ByXlsxwriter, make_by_xlsxwriter, "x"), (ByOpenpyxl, make_by_openpyxl, "o"))
    for maker, make, letter in makers:
        for name in features_of(maker):
            path = folder / f"{letter}-{name}.xlsx"
            make(path, [name], random.Random(f"{seed}{name}"), picture)
            yield path
    for name in PATCHES:
        path = folder / f"p-{name.replace(' ', '-')}.xlsx"
        make_by_xlsxwriter(path, ["plain"], random.Random(f"{seed}{name}"), picture)
        patch(path, name)
        yield path
    for name, (features, _) in extended_workbooks.EXTENSIONS.items():
        path = folder / f"e-{name.replace(' ', '-')}.xlsx"
        make_by_xlsxwriter(path, features, random.Random(f"{seed}{name}"), picture)
        extended_workbooks.extend(path, name)
        yield path
    for number in range(mixtures):
        chance = random.Random(f"{seed}-{number}")
        maker, make, letter = makers[number % 4 == 3]
        pool = [name for name in features_of(maker) if name not in ("filter", "protection", "formulas")]
        path = folder / f"{letter}-mixture{number:03}.xlsx"
        make(path, chance.sample(pool, chance.randint(2, min(7, len(pool)))), chance, picture)
        if letter == "x":
            for name in sorted(chance.sample(["inline", "shared", "phonetic", "extension"], chance.randint(0, 2))):
                patch(path, name)
        yield path
    if converted:
        yield from by_libreoffice(folder)
