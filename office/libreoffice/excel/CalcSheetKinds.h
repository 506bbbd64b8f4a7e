#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"

#include <vector>

namespace mergeloom::libreoffice {

enum class CalcSheetKind { Worksheet, WithoutCells };

/// Which of a document's sheets are worksheets in the file that was opened. Calc makes sheets with cells of
/// all others, such as those that are nothing but a chart, so the package is asked (ECMA-376 Part 1, 18.2.19
/// and 12.3). Empty where all are worksheets or the file is of a format that does not tell.
std::vector<CalcSheetKind> sheetKindsOf(OfficeConnection& connection, const DocumentReference& document);

}  // namespace mergeloom::libreoffice
