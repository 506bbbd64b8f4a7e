#include "office/libreoffice/excel/CalcSizes.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/Range.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <com/sun/star/beans/XMultiPropertySet.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

using Properties = Reference<css::beans::XPropertySet>;

Properties columnsOf(const CalcSheet& sheet, const excel::CellArea& area) {
    const Reference<css::table::XColumnRowRange> range(sheet.range(area), UNO_QUERY_THROW);
    return {range->getColumns(), UNO_QUERY_THROW};
}

Properties rowsOf(const CalcSheet& sheet, const excel::CellArea& area) {
    const Reference<css::table::XColumnRowRange> range(sheet.range(area), UNO_QUERY_THROW);
    return {range->getRows(), UNO_QUERY_THROW};
}

sal_Int32 lengthIn(const Properties& lines, const char* name) {
    if (!lines->getPropertyValue("IsVisible").get<bool>()) return 0;
    sal_Int32 length = 0;
    lines->getPropertyValue(OUString::createFromAscii(name)) >>= length;
    return length;
}

/// A line is hidden if and only if its size is 0.
template <typename KeepLocked>
void setLength(const Properties& lines, const char* name, sal_Int32 length,
               const KeepLocked& keepUndoLocked) {
    lines->setPropertyValue("IsVisible", css::uno::Any(length > 0));
    keepUndoLocked();
    if (length > 0) lines->setPropertyValue(OUString::createFromAscii(name), css::uno::Any(length));
}

/// A column or row and its former size.
class FormerLine {
  public:
    FormerLine(const Reference<css::document::XUndoManager>& undo, const Properties& line, const char* name)
        : undo_(undo), line_(line), name_(name), length_(lengthIn(line_, name)) {
        // A row without a height of its own grows and shrinks with its texts.
        if (std::string_view(name) == "Height")
            line_->getPropertyValue("OptimalHeight") >>= hasOptimalHeight_;
    }
    /// Restores the size and keeps the one that the line had.
    void exchange() {
        const FormerLine replaced(undo_, line_, name_);
        restore();
        *this = replaced;
    }

  private:
    void restore() const {
        if (hasOptimalHeight_) return line_->setPropertyValue("OptimalHeight", css::uno::Any(true));
        setLength(line_, name_, length_, [this] { lockAgain(undo_); });
    }

    Reference<css::document::XUndoManager> undo_;
    Properties line_;
    const char* name_;
    sal_Int32 length_;
    bool hasOptimalHeight_ = false;
};

/// Sets the sizes of columns or rows; a step records the former size of each.
void change(CalcContent& content, const Properties& lines, const char* name, sal_Int32 length) {
    content.touch();
    content.connection().call([&] {
        const Reference<css::container::XIndexAccess> single(lines, UNO_QUERY_THROW);
        const sal_Int32 count = content.undo().isRecording() ? single->getCount() : 0;
        for (sal_Int32 index = 0; index < count; ++index) {
            FormerLine former(content.undo().manager(), {single->getByIndex(index), UNO_QUERY_THROW}, name);
            content.undo().recordExchange([&connection = content.connection(), former]() mutable {
                connection.call([&] { former.exchange(); });
            });
        }
        content.undo().keepLocked();
        setLength(lines, name, length, [&] { content.undo().keepLocked(); });
    });
}

[[noreturn]] void raiseSizeError(const std::string& sentence) {
    throw AutomationError(kApplicationDefined, sentence);
}

template <typename Structure>
Structure valueIn(CalcContent& content, std::size_t sheet, const excel::CellArea& area, const char* name) {
    return content.connection().call([&] {
        const Properties properties(content.sheet(sheet).range(area), UNO_QUERY_THROW);
        return properties->getPropertyValue(OUString::createFromAscii(name)).get<Structure>();
    });
}

struct ShownText {
    std::string text;
    CalcFont font;
};

/// Returns the text of a cell that needs space; empty if it is wrapped or shrunk to fit.
ShownText shownIn(const Reference<css::table::XCell>& cell) {
    // Sorted by name, as the interface requires.
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

/// Returns the width of the widest text in pixels; 0 if no cell needs space. Calc's own fitting uses the
/// whole column, so the cells are measured here.
double widestText(CalcContent& content, CalcSheet& sheet, const excel::CellArea& column) {
    content.pending().flush();
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

ColumnWidth columnWidth(CalcContent& content, std::size_t sheet, int column) {
    const sal_Int32 length = content.connection().call([&] {
        return lengthIn(columnsOf(content.sheet(sheet), {{1, column}, {1, column}}), "Width");
    });
    return content.columnUnits().widthOf(content.columnUnits().pixelsOf(length));
}

Points rowHeight(CalcContent& content, std::size_t sheet, int row) {
    return pointsOf(blockSize(content, sheet, {{row, 1}, {row, 1}}).Height);
}

void setColumnWidth(CalcContent& content, std::size_t index, const excel::CellArea& area, ColumnWidth width) {
    CalcSheet& sheet = content.sheet(index);
    sheet.checkMayChange("columns");
    if (width < ColumnWidth{0} || width > excel::kWidestColumn)
        raiseSizeError("A column cannot have that width.");
    const int pixels = content.columnUnits().pixelsOf(width);
    const auto columns = content.connection().call([&] { return columnsOf(sheet, area); });
    change(content, columns, "Width", content.columnUnits().lengthOf(pixels));
}

void setRowHeight(CalcContent& content, std::size_t index, const excel::CellArea& area, Points height) {
    CalcSheet& sheet = content.sheet(index);
    sheet.checkMayChange("rows");
    if (height < Points{0} || height > excel::kHighestRow) raiseSizeError("A row cannot have that height.");
    const auto rows = content.connection().call([&] { return rowsOf(sheet, area); });
    change(content, rows, "Height", lengthOfPixels(pixelsOf(height)));
}

css::awt::Point cellPlace(CalcContent& content, std::size_t sheet, const excel::CellPosition& cell) {
    return valueIn<css::awt::Point>(content, sheet, {cell, cell}, "Position");
}

css::awt::Size blockSize(CalcContent& content, std::size_t sheet, const excel::CellArea& area) {
    // Hidden lines keep the thickness of a twip.
    constexpr sal_Int32 kTwip = 2;
    css::awt::Size size = valueIn<css::awt::Size>(content, sheet, area, "Size");
    if (size.Width <= kTwip) size.Width = 0;
    if (size.Height <= kTwip) size.Height = 0;
    return size;
}

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
