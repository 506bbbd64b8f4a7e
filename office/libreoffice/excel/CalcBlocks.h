#pragma once

#include "office/model/excel/CellAddress.h"

#include <map>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Rectangles that hold all of the cells once and no others: cells side by side, and rows of them below one
/// another.
[[nodiscard]] std::vector<excel::CellArea> blocksOf(const std::map<excel::CellPosition, std::string>& texts);

}  // namespace mergeloom::libreoffice
