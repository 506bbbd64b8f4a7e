#include "office/libreoffice/excel/CalcTexts.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/excel/CalcCells.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/Range.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/text/XTextRange.hpp>

namespace mergeloom::libreoffice {

namespace {

/// The number of cells that are written in one call.
constexpr std::int64_t kCellsAtOnce = 20'000;

std::string writtenNumber(double number) {
    std::array<char, 32> buffer{};
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    std::string text(buffer.data(), end);
    std::ranges::replace(text, 'e', 'E');
    return text;
}

bool isNumber(const Reference<css::table::XCell>& cell,
              const Reference<css::beans::XPropertySet>& properties) {
    if (cell->getType() == css::table::CellContentType_VALUE) return true;
    if (cell->getType() != css::table::CellContentType_FORMULA || cell->getError() != 0) return false;
    sal_Int32 result = 0;
    properties->getPropertyValue("FormulaResultType2") >>= result;
    return result == css::sheet::FormulaResult::VALUE;
}

void setBlock(const CalcSheet& sheet, const excel::CellArea& area, const std::string& text) {
    const css::uno::Any value(toUno(text));
    css::uno::Sequence<css::uno::Any> row(area.columns());
    std::fill_n(row.getArray(), area.columns(), value);
    css::uno::Sequence<css::uno::Sequence<css::uno::Any>> rows(area.rows());
    std::fill_n(rows.getArray(), area.rows(), row);
    Reference<css::sheet::XCellRangeData>(sheet.range(area), UNO_QUERY_THROW)->setDataArray(rows);
}

/// Records the contents of an area's cells in the current step.
void recordCells(CalcContent& content, const CalcSheet& sheet, const excel::CellArea& area) {
    if (!content.undo().isRecording()) return;
    CalcFormerCells former = content.connection().call([&] { return CalcFormerCells(sheet.uno(), area); });
    content.undo().recordExchange([&content, former = std::move(former)]() mutable {
        content.connection().call([&] { former.exchange([&] { lockAgain(content.undo().manager()); }); });
    });
}

void fillInBlocks(CalcContent& content, const CalcSheet& sheet, const excel::CellArea& area,
                  const std::string& text) {
    content.pending().flush();
    recordCells(content, sheet, area);
    const int height = static_cast<int>(std::max<std::int64_t>(1, kCellsAtOnce / area.columns()));
    for (excel::CellArea block = area; block.first.row <= area.last.row; block.first.row += height) {
        block.last.row = std::min(area.last.row, block.first.row + height - 1);
        content.connection().call([&] {
            setBlock(sheet, block, text);
            content.undo().keepLocked();
        });
    }
}

void check(CalcSheet& sheet, const excel::CellArea& area, const std::string& text) {
    if (utf16Length(text) > excel::kMaxCellText)
        throw AutomationError(kApplicationDefined, "A cell cannot hold a text of that length.");
    if (std::int64_t{area.rows()} * area.columns() > excel::kMaxFilledCells) {
        throw AutomationError(kApplicationDefined,
                              "The area " + absoluteAddressOf(area) + " has too many cells to fill.");
    }
    sheet.checkMayWrite(area);
}

}  // namespace

std::string textOf(CalcContent& content, std::size_t sheet, const excel::CellPosition& position) {
    return content.connection().call([&]() -> std::string {
        const Reference<css::table::XCell> cell = content.sheet(sheet).cell(position);
        if (cell->getType() == css::table::CellContentType_EMPTY) return {};
        const Reference<css::beans::XPropertySet> properties(cell, UNO_QUERY_THROW);
        if (!isNumber(cell, properties)) {
            return fromUno(Reference<css::text::XTextRange>(cell, UNO_QUERY_THROW)->getString());
        }
        sal_Int32 format = 0;
        properties->getPropertyValue("NumberFormat") >>= format;
        const double number = cell->getValue();
        if (content.showsBooleans(format)) return number != 0 ? "TRUE" : "FALSE";
        return writtenNumber(number);
    });
}

void fill(CalcContent& content, std::size_t index, const excel::CellArea& area, const std::string& text) {
    CalcSheet& sheet = content.sheet(index);
    check(sheet, area, text);
    content.touch();
    if (area.first != area.last && !sheet.merged().exist()) return fillInBlocks(content, sheet, area, text);
    forEachCell(area, [&](const excel::CellPosition& cell) {
        // Covered cells keep their contents.
        if (sheet.merged().at(cell).first == cell) content.pending().setText(index, cell, text);
    });
}

}  // namespace mergeloom::libreoffice
