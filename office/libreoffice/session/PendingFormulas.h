#pragma once

#include "office/libreoffice/session/Uno.h"

namespace mergeloom::libreoffice {

/// Computes the formulas of a workbook that have no result yet; does nothing for other documents. Calc
/// computes a cell when it is first shown or exported, and may give it the number format of the cells that it
/// refers to. So a first export would write other formats than a later one. Must be called within
/// OfficeConnection::call.
void computePendingFormulas(const DocumentReference& document);

}  // namespace mergeloom::libreoffice
