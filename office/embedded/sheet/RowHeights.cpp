#include "office/embedded/sheet/RowHeights.h"

#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"

#include <charconv>
#include <optional>

namespace mergeloom::embedded {

namespace {

std::optional<double> parseHeight(std::string_view text) {
    double points = 0;
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), points);
    if (result.ec != std::errc() || points < 0) return {};
    return points;
}

std::optional<double> storedHeight(std::string_view rowXml) {
    XmlScanner scanner(rowXml);
    scanner.next();
    if (isSet(scanner.attributes(), "hidden")) return 0;
    return parseHeight(findAttribute(scanner.attributes(), "ht").value_or(""));
}

}  // namespace

void visitRowHeights(const SheetState& sheet, const std::function<void(const StoredRowHeight&)>& visit) {
    auto edit = sheet.edits.rows().begin();
    const auto editsEnd = sheet.edits.rows().end();
    const auto visitEditsBefore = [&](int row) {
        for (; edit != editsEnd && edit->first < row; ++edit) {
            if (edit->second.height) visit({edit->first, *edit->second.height});
        }
    };
    for (const IndexedRow& row : sheet.index.rows) {
        visitEditsBefore(row.number);
        if (edit != editsEnd && edit->first == row.number && edit->second.height) continue;
        if (const auto points = storedHeight(row.range.of(sheet.xml))) visit({row.number, *points});
    }
    visitEditsBefore(excel::kLastRow + 1);
}

}  // namespace mergeloom::embedded
