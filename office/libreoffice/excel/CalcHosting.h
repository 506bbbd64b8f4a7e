#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/model/excel/Forward.h"

/// What a window that shows Calc's workbooks needs of them besides Excel's object model. The workbooks are
/// Calc's.
namespace mergeloom::libreoffice {

DocumentReference componentOf(excel::Workbook& workbook);

}  // namespace mergeloom::libreoffice
