#include "office/libreoffice/excel/CalcSizes.h"

#include "base/AutomationError.h"
#include "office/model/excel/Range.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <string_view>
#include <utility>

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

/// Nothing hides a line but its size 0.
void setLength(const Properties& lines, const char* name, sal_Int32 length) {
    lines->setPropertyValue("IsVisible", css::uno::Any(length > 0));
    if (length > 0) lines->setPropertyValue(OUString::createFromAscii(name), css::uno::Any(length));
}

/// A column or row and what it takes to make it again what it was.
class FormerLine {
  public:
    FormerLine(const Properties& line, const char* name)
        : line_(line), name_(name), length_(lengthIn(line_, name)) {
        // A row that no one has set grows and shrinks with its texts.
        if (std::string_view(name) == "Height") line_->getPropertyValue("OptimalHeight") >>= isFree_;
    }
    void restore() const {
        if (isFree_) return line_->setPropertyValue("OptimalHeight", css::uno::Any(true));
        setLength(line_, name_, length_);
    }

  private:
    Properties line_;
    const char* name_;
    sal_Int32 length_;
    bool isFree_ = false;
};

/// Sets the sizes of columns or rows; a step keeps what each of them was.
void change(CalcContent& content, const Properties& lines, const char* name, sal_Int32 length) {
    content.touch();
    content.connection().call([&] {
        const Reference<css::container::XIndexAccess> single(lines, UNO_QUERY_THROW);
        const sal_Int32 count = content.undo().isRecording() ? single->getCount() : 0;
        for (sal_Int32 index = 0; index < count; ++index) {
            const FormerLine former({single->getByIndex(index), UNO_QUERY_THROW}, name);
            content.undo().keep(
                [&connection = content.connection(), former] { connection.call([&] { former.restore(); }); });
        }
        setLength(lines, name, length);
    });
}

[[noreturn]] void refuseSize(const std::string& sentence) {
    throw AutomationError(kApplicationDefined, sentence);
}

template <typename Structure>
Structure valueIn(CalcContent& content, std::size_t sheet, const excel::CellArea& area, const char* name) {
    return content.connection().call([&] {
        const Properties properties(content.sheet(sheet).range(area), UNO_QUERY_THROW);
        return properties->getPropertyValue(OUString::createFromAscii(name)).get<Structure>();
    });
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
        refuseSize("A column cannot have that width.");
    const int pixels = content.columnUnits().pixelsOf(width);
    const auto columns = content.connection().call([&] { return columnsOf(sheet, area); });
    change(content, columns, "Width", content.columnUnits().lengthOf(pixels));
}

void setRowHeight(CalcContent& content, std::size_t index, const excel::CellArea& area, Points height) {
    CalcSheet& sheet = content.sheet(index);
    sheet.checkMayChange("rows");
    if (height < Points{0} || height > excel::kHighestRow) refuseSize("A row cannot have that height.");
    const auto rows = content.connection().call([&] { return rowsOf(sheet, area); });
    change(content, rows, "Height", lengthOfPixels(pixelsOf(height)));
}

css::awt::Point cellPlace(CalcContent& content, std::size_t sheet, const excel::CellPosition& cell) {
    return valueIn<css::awt::Point>(content, sheet, {cell, cell}, "Position");
}

css::awt::Size blockSize(CalcContent& content, std::size_t sheet, const excel::CellArea& area) {
    // What is hidden keeps the thickness of a twip.
    constexpr sal_Int32 kTwip = 2;
    css::awt::Size size = valueIn<css::awt::Size>(content, sheet, area, "Size");
    if (size.Width <= kTwip) size.Width = 0;
    if (size.Height <= kTwip) size.Height = 0;
    return size;
}

}  // namespace mergeloom::libreoffice
