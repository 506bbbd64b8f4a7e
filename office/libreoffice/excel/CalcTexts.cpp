#include "office/libreoffice/excel/CalcTexts.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/text/XTextRange.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr CharacterCount kLongestCellText{32767};
/// A whole column may be filled; a whole sheet fits in no memory.
constexpr std::int64_t kMostCellsFilled = kSheetRows;
/// How many cells go over the line at once.
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

void setOne(const CalcSheet& sheet, const CalcCell& cell, const std::string& text) {
    Reference<css::text::XTextRange>(sheet.cell(cell), UNO_QUERY_THROW)->setString(toUno(text));
}

/// Makes a cell hold again what it held.
void restore(const Reference<css::table::XCell>& cell, css::table::CellContentType type, double number,
             const OUString& text) {
    if (type == css::table::CellContentType_VALUE) return cell->setValue(number);
    if (type == css::table::CellContentType_FORMULA) return cell->setFormula(text);
    Reference<css::text::XTextRange>(cell, UNO_QUERY_THROW)->setString(text);
}

/// Keeps what a cell holds, its text without the formats of single letters. Within a call.
void keepCell(CalcContent& content, const Reference<css::table::XCell>& cell) {
    const css::table::CellContentType type = cell->getType();
    const double number = type == css::table::CellContentType_VALUE ? cell->getValue() : 0;
    OUString text;
    if (type == css::table::CellContentType_FORMULA) text = cell->getFormula();
    if (type == css::table::CellContentType_TEXT)
        text = Reference<css::text::XTextRange>(cell, UNO_QUERY_THROW)->getString();
    content.undo().keep([&connection = content.connection(), cell, type, number, text] {
        connection.call([&] { restore(cell, type, number, text); });
    });
}

/// Keeps what the cells of an area hold for the step that is being recorded.
void keepCells(CalcContent& content, const CalcSheet& sheet, const CalcArea& area) {
    if (!content.undo().isRecording()) return;
    content.connection().call([&] {
        for (CalcCell cell = area.first; cell.row <= area.last.row; ++cell.row) {
            for (cell.column = area.first.column; cell.column <= area.last.column; ++cell.column)
                keepCell(content, sheet.cell(cell));
        }
    });
}

void setBlock(const CalcSheet& sheet, const CalcArea& area, const std::string& text) {
    const css::uno::Any value(toUno(text));
    css::uno::Sequence<css::uno::Any> row(area.columns());
    std::fill_n(row.getArray(), area.columns(), value);
    css::uno::Sequence<css::uno::Sequence<css::uno::Any>> rows(area.rows());
    std::fill_n(rows.getArray(), area.rows(), row);
    Reference<css::sheet::XCellRangeData>(sheet.range(area), UNO_QUERY_THROW)->setDataArray(rows);
}

void fillInBlocks(CalcContent& content, const CalcSheet& sheet, const CalcArea& area,
                  const std::string& text) {
    const int height = static_cast<int>(std::max<std::int64_t>(1, kCellsAtOnce / area.columns()));
    for (CalcArea block = area; block.first.row <= area.last.row; block.first.row += height) {
        block.last.row = std::min(area.last.row, block.first.row + height - 1);
        content.connection().call([&] { setBlock(sheet, block, text); });
    }
}

/// Cell by cell, past those that others cover.
void fillAmongMerged(CalcContent& content, CalcSheet& sheet, const CalcArea& area, const std::string& text) {
    for (CalcCell cell = area.first; cell.row <= area.last.row; ++cell.row) {
        for (cell.column = area.first.column; cell.column <= area.last.column; ++cell.column) {
            if (sheet.mergedAt(cell).first != cell) continue;
            content.connection().call([&] { setOne(sheet, cell, text); });
        }
    }
}

void check(CalcSheet& sheet, const CalcArea& area, const std::string& text) {
    if (utf16Length(text) > kLongestCellText)
        throw AutomationError(kApplicationDefined, "A cell cannot hold a text of that length.");
    if (std::int64_t{area.rows()} * area.columns() > kMostCellsFilled) {
        throw AutomationError(kApplicationDefined,
                              "The area " + absoluteAddressOf(area) + " has too many cells to fill.");
    }
    sheet.checkMayWrite(area);
}

}  // namespace

std::string textOf(CalcContent& content, std::size_t sheet, const CalcCell& position) {
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
        if (content.showsTruth(format)) return number != 0 ? "TRUE" : "FALSE";
        return writtenNumber(number);
    });
}

void fill(CalcContent& content, std::size_t index, const CalcArea& area, const std::string& text) {
    CalcSheet& sheet = content.sheet(index);
    check(sheet, area, text);
    content.touch();
    keepCells(content, sheet, area);
    if (sheet.hasMerged()) return fillAmongMerged(content, sheet, area, text);
    if (area.first != area.last) return fillInBlocks(content, sheet, area, text);
    content.connection().call([&] { setOne(sheet, area.first, text); });
}

}  // namespace mergeloom::libreoffice
