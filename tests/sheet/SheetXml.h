#pragma once

#include "office/embedded/sheet/SheetPart.h"

#include <string>

namespace mergeloom::embedded {

inline constexpr const char* kMainNamespace = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";

/// Returns a worksheet with the children.
inline std::string worksheet(const std::string& children) {
    return "<worksheet xmlns=\"" + std::string(kMainNamespace) + "\">" + children + "</worksheet>";
}

/// A worksheet around its rows.
inline std::string sheetOf(const std::string& rows) {
    return worksheet("<sheetData>" + rows + "</sheetData>");
}

inline excel::CellPosition at(const char* address) {
    return excel::parseCell(address).value();
}

/// A part with a log of its own.
struct LoggedSheet {
    explicit LoggedSheet(std::string xml)
        : part(std::move(xml), "/xl/worksheets/sheet1.xml", "Orders.xlsx", undo) {}

    UndoLog undo{};
    SheetPart part;
};

}  // namespace mergeloom::embedded
