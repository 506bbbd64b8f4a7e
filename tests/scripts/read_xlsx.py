"""Reads workbooks through python3-openpyxl, a reader that knows nothing of ours."""
import warnings

import openpyxl

warnings.filterwarnings("ignore", module="openpyxl")


def read_workbook(path):
    return openpyxl.load_workbook(path, keep_vba=str(path).endswith("m"))


def define_name(workbook, defined):
    """Adds a name to an openpyxl workbook. Names are a list up to openpyxl 3.0 and a dictionary in later versions."""
    names = workbook.defined_names
    if isinstance(names, dict):
        names[defined.name] = defined
    else:
        names.append(defined)


def read_names(path):
    """Maps each name of the workbook to its reference, except names of sheets, hidden ones and built-in ones."""
    names = read_workbook(path).defined_names
    return {defined.name: defined.attr_text
            for defined in (names.values() if isinstance(names, dict) else names.definedName)
            if defined.localSheetId is None and not defined.hidden and not defined.name.startswith("_xlnm")}


def cells_of(workbook, reference):
    """Returns the texts of the cells to which a name refers, row by row."""
    sheet, area = reference.rsplit("!", 1)
    block = workbook[sheet.strip("'").replace("''", "'")][area.replace("$", "")]
    rows = block if isinstance(block, tuple) else ((block,),)
    return [[cell.value for cell in row] for row in rows]


def read_places(path):
    """Returns each name with the texts of its cells, in the order of the sheet."""
    workbook = read_workbook(path)
    places = [(name, reference, cells_of(workbook, reference)) for name, reference in read_names(path).items()
              if "!$" in reference]
    return {name: texts for name, _, texts in places}


def read_texts(path, sheet=None):
    """Returns the texts of a sheet's rows; without a name those of the active sheet."""
    workbook = read_workbook(path)
    worksheet = workbook[sheet] if sheet else workbook.active
    return [[cell.value for cell in row] for row in worksheet.iter_rows()]
