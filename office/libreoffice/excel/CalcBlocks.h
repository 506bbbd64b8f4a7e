#pragma once

#include "office/libreoffice/excel/CalcArea.h"

#include <map>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Rectangles that hold all of the cells once and no others: cells side by side, and rows of them below one
/// another.
[[nodiscard]] std::vector<CalcArea> blocksOf(const std::map<CalcCell, std::string>& texts);

}  // namespace mergeloom::libreoffice
