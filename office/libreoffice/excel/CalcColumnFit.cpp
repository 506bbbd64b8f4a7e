#include "office/libreoffice/excel/CalcSizes.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/Range.h"

#include <algorithm>
#include <cmath>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/text/XTextRange.hpp>

/// Calc's own fitting looks at the whole column, so the cells are measured here.
namespace mergeloom::libreoffice {

namespace {

struct ShownText {
    std::string text;
    CalcFont font;
};

/// The text of a cell that asks for room; empty where the text fits itself into what there is.
ShownText shownIn(const Reference<css::table::XCell>& cell) {
    const Reference<css::beans::XPropertySet> properties(cell, UNO_QUERY_THROW);
    ShownText shown;
    const bool fitsItself = properties->getPropertyValue("IsTextWrapped").get<bool>() ||
                            properties->getPropertyValue("ShrinkToFit").get<bool>();
    if (fitsItself) return shown;
    shown.text = fromUno(Reference<css::text::XTextRange>(cell, UNO_QUERY_THROW)->getString());
    shown.font.name = fromUno(properties->getPropertyValue("CharFontName").get<OUString>());
    shown.font.points = static_cast<double>(properties->getPropertyValue("CharHeight").get<float>());
    shown.font.weight = properties->getPropertyValue("CharWeight").get<float>();
    return shown;
}

std::vector<CalcArea> filledCells(CalcContent& content, const CalcSheet& sheet, const CalcArea& column) {
    using namespace css::sheet;
    const auto addresses = content.connection().call([&] {
        const Reference<XCellRangesQuery> query(sheet.range(column), UNO_QUERY_THROW);
        const sal_Int16 flags =
            CellFlags::VALUE | CellFlags::DATETIME | CellFlags::STRING | CellFlags::FORMULA;
        return query->queryContentCells(flags)->getRangeAddresses();
    });
    std::vector<CalcArea> areas;
    // Of a column behind the last one with a content Calc tells that one's cells.
    for (const css::table::CellRangeAddress& address : addresses)
        if (const auto cells = intersection(areaOf(address), column)) areas.push_back(*cells);
    return areas;
}

/// In pixels; 0 when no cell asks for room.
double widestText(CalcContent& content, CalcSheet& sheet, const CalcArea& column) {
    double widest = 0;
    for (const CalcArea& area : filledCells(content, sheet, column)) {
        for (CalcCell cell = area.first; cell.row <= area.last.row; ++cell.row) {
            const CalcArea merged = sheet.mergedAt(cell);
            if (merged.first != merged.last) continue;
            const ShownText shown = content.connection().call([&] { return shownIn(sheet.cell(cell)); });
            if (!shown.text.empty())
                widest = std::max(widest, content.fonts().textWidth(shown.text, shown.font));
        }
    }
    return widest;
}

}  // namespace

void fitColumns(CalcContent& content, std::size_t index, const CalcArea& area) {
    CalcSheet& sheet = content.sheet(index);
    sheet.checkMayChange("columns");
    const CalcColumnUnits& units = content.columnUnits();
    for (int column = area.first.column; column <= area.last.column; ++column) {
        const CalcArea cells{{area.first.row, column}, {area.last.row, column}};
        const double text = widestText(content, sheet, cells);
        if (text == 0) continue;
        const int pixels = static_cast<int>(std::ceil(text)) + units.padding();
        setColumnWidth(content, index, cells, std::min(units.widthOf(pixels), excel::kWidestColumn));
    }
}

}  // namespace mergeloom::libreoffice
