#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/model/excel/Forward.h"

/// The functions, besides Excel's object model, that a window needs to show Calc's workbooks. All workbooks
/// passed must be Calc's.
namespace mergeloom::libreoffice {

DocumentReference componentOf(excel::Workbook& workbook);
/// Takes over what the user is still typing into a cell.
void endInput(excel::Workbook& workbook);
/// beginEditing() makes the object model read the workbook as the user left it, including the selection, and
/// stops repainting. endEditing() repaints and shows the model's selection.
void beginEditing(excel::Workbook& workbook);
void endEditing(excel::Workbook& workbook);

}  // namespace mergeloom::libreoffice
