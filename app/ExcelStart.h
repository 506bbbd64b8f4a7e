#pragma once

#include "office/model/excel/Workbook.h"

#include <string>

namespace mergeloom {

/// Makes the cell active at which a mapping is to begin: the first column's cell below the used ones of the
/// active sheet (kAtEnd), the cell of an address ("B7", "Sheet2!B7"), or the first cell of a name. Raises
/// MappingRefusal when there is no such cell.
void activateStart(excel::Workbook& workbook, const std::string& place);

}  // namespace mergeloom
