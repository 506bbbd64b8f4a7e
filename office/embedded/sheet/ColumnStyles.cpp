#include "office/embedded/sheet/ColumnStyles.h"

#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"

#include <optional>
#include <string>

namespace mergeloom::embedded {

namespace {

std::optional<int> styleOfRow(const SheetState& sheet, int row) {
    const std::string_view tag = sheet.cells.rowTag(row);
    if (tag.empty()) return {};
    const XmlTag parts(tag);
    if (!isSet(parts.attributes(), "customFormat")) return {};
    return findNumber(parts.attributes(), "s");
}

int styleOfColumn(const SheetState& sheet, int column) {
    const std::string columns = sheet.sections.text("cols");
    XmlScanner scanner(columns);
    while (scanner.next()) {
        if (!isElement(scanner.name(), sheet.index.prefix, "col")) continue;
        const int first = findNumber(scanner.attributes(), "min").value_or(0);
        const int last = findNumber(scanner.attributes(), "max").value_or(first);
        if (column < first || column > last) continue;
        return findNumber(scanner.attributes(), "style").value_or(0);
    }
    return 0;
}

}  // namespace

int styleOfNewCell(const SheetState& sheet, const excel::CellPosition& cell) {
    const std::optional<int> style = styleOfRow(sheet, cell.row);
    return style ? *style : styleOfColumn(sheet, cell.column);
}

}  // namespace mergeloom::embedded
