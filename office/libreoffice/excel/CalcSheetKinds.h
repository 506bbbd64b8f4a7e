#pragma once

#include "office/libreoffice/session/LibreOfficeSession.h"

#include <vector>

namespace mergeloom::libreoffice {

enum class CalcSheetKind { Worksheet, WithoutCells };

/// Returns the kinds of a document's sheets in the file that was opened. Calc turns all other kinds, such as
/// chart sheets, into sheets with cells, so they are read from the package (ECMA-376 Part 1, 18.2.19 and
/// 12.3). Empty if all are worksheets or the file's format has no kinds.
std::vector<CalcSheetKind> sheetKindsOf(LibreOfficeSession& session, const DocumentReference& document);

}  // namespace mergeloom::libreoffice
