#pragma once

#include "base/Text.h"
#include "office/libreoffice/session/Uno.h"
#include "office/model/excel/CellAddress.h"

#include <com/sun/star/table/CellRangeAddress.hpp>
#include <string>

namespace mergeloom::libreoffice {

/// Returns the area of UNO's address, which counts rows and columns from 0.
[[nodiscard]] inline excel::CellArea areaOf(const css::table::CellRangeAddress& address) {
    return {{address.StartRow + 1, address.StartColumn + 1}, {address.EndRow + 1, address.EndColumn + 1}};
}

/// Returns Calc's notation of an address on a sheet: "$'Sheet1'.$B$3".
[[nodiscard]] inline std::string referenceOnSheet(const std::string& sheet, const std::string& address) {
    return "$'" + replaceAll(sheet, "'", "''") + "'." + address;
}

}  // namespace mergeloom::libreoffice
