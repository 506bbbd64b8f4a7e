#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/model/excel/Forward.h"

/// What a window that shows Calc's workbooks needs of them besides Excel's object model. The workbooks are
/// Calc's.
namespace mergeloom::libreoffice {

DocumentReference componentOf(excel::Workbook& workbook);
/// The object model is to know the workbook as the user has left it, and selects what the view does. Nothing
/// shows until the second is called, which lets the view select what the model does.
void beginEditing(excel::Workbook& workbook);
void endEditing(excel::Workbook& workbook);

}  // namespace mergeloom::libreoffice
