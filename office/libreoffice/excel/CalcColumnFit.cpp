#include "office/libreoffice/excel/CalcSizes.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/Range.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <com/sun/star/beans/XMultiPropertySet.hpp>
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
    // In the order of their names, as the interface wants it.
    const std::array<OUString, 5> names{"CharFontName", "CharHeight", "CharWeight", "IsTextWrapped",
                                        "ShrinkToFit"};
    const Reference<css::beans::XMultiPropertySet> properties(cell, UNO_QUERY_THROW);
    const css::uno::Sequence<css::uno::Any> values =
        properties->getPropertyValues({names.data(), static_cast<sal_Int32>(names.size())});
    ShownText shown;
    if (values[3].get<bool>() || values[4].get<bool>()) return shown;
    shown.text = fromUno(Reference<css::text::XTextRange>(cell, UNO_QUERY_THROW)->getString());
    shown.font.name = fromUno(values[0].get<OUString>());
    shown.font.points = static_cast<double>(values[1].get<float>());
    shown.font.weight = values[2].get<float>();
    return shown;
}

/// In pixels; 0 when no cell asks for room.
double widestText(CalcContent& content, CalcSheet& sheet, const excel::CellArea& column) {
    content.pending().settle();
    double widest = 0;
    for (const excel::CellArea& area :
         content.connection().call([&] { return filledIn(sheet.uno(), column); })) {
        forEachCell(area, [&](const excel::CellPosition& cell) {
            if (sheet.merged().at(cell) != excel::CellArea{cell, cell}) return;
            const ShownText shown = content.connection().call([&] { return shownIn(sheet.cell(cell)); });
            if (!shown.text.empty())
                widest = std::max(widest, content.fonts().textWidth(shown.text, shown.font));
        });
    }
    return widest;
}

}  // namespace

void fitColumns(CalcContent& content, std::size_t index, const excel::CellArea& area) {
    CalcSheet& sheet = content.sheet(index);
    sheet.checkMayChange("columns");
    const CalcColumnUnits& units = content.columnUnits();
    for (int column = area.first.column; column <= area.last.column; ++column) {
        const excel::CellArea cells{{area.first.row, column}, {area.last.row, column}};
        const double text = widestText(content, sheet, cells);
        if (text == 0) continue;
        const int pixels = static_cast<int>(std::ceil(text)) + units.padding();
        setColumnWidth(content, index, cells, std::min(units.widthOf(pixels), excel::kWidestColumn));
    }
}

}  // namespace mergeloom::libreoffice
