#pragma once

#include "office/graft/LineShift.h"

#include <pugixml.hpp>
#include <string>

namespace mergeloom::graft {

/// Moves the cells of a worksheet, given by its sheetData, if it is the sheet with the inserted or removed
/// rows or columns, and the references of its formulas. Returns true if anything was changed. Raises Refusal.
bool shiftCells(pugi::xml_node sheetData, const std::string& sheetName, const LineShift& shift, bool isSheet);

}  // namespace mergeloom::graft
