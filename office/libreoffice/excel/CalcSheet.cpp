#include "office/libreoffice/excel/CalcSheet.h"

#include "base/AutomationError.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XDataPilotTable.hpp>
#include <com/sun/star/sheet/XDataPilotTablesSupplier.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSheetCellRange.hpp>
#include <com/sun/star/util/CellProtection.hpp>
#include <com/sun/star/util/XMergeable.hpp>
#include <com/sun/star/util/XProtectable.hpp>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr int kRowsOfBlock = 64;

bool isMerged(const Reference<css::uno::XInterface>& cells) {
    return Reference<css::util::XMergeable>(cells, UNO_QUERY_THROW)->getIsMerged();
}

[[noreturn]] void raiseNotAllowed(const std::string& sentence) {
    throw AutomationError(kApplicationDefined, sentence);
}

excel::CellArea addressOf(const Reference<css::uno::XInterface>& range) {
    return areaOf(Reference<css::sheet::XCellRangeAddressable>(range, UNO_QUERY_THROW)->getRangeAddress());
}

bool touches(const std::vector<excel::CellArea>& areas, const excel::CellArea& area) {
    return std::ranges::any_of(
        areas, [&](const excel::CellArea& other) { return intersection(other, area).has_value(); });
}

}  // namespace

bool CalcMergedCells::exist() {
    if (!exist_) exist_ = connection_.call([&] { return isMerged(sheet_); });
    return *exist_;
}

bool CalcMergedCells::existIn(const excel::CellArea& area) {
    if (!exist()) return false;
    if (extended(area) != area) return true;
    return connection_.call([&] { return isMerged(rangeOf(sheet_, area)); });
}

excel::CellArea CalcMergedCells::at(const excel::CellPosition& cell) {
    const excel::CellArea single{cell, cell};
    if (!exist() || !existInBlock(cell.row)) return single;
    const auto [found, isNew] = known_.try_emplace(cell, single);
    if (isNew) found->second = extended(single);
    return found->second;
}

bool CalcMergedCells::existInBlock(int row) {
    const int first = (row - 1) / kRowsOfBlock * kRowsOfBlock + 1;
    const auto [found, isNew] = blocks_.try_emplace(first, true);
    if (isNew) {
        const int last = std::min(excel::kLastRow, first + kRowsOfBlock - 1);
        found->second = existIn({{first, 1}, {last, excel::kLastColumn}});
    }
    return found->second;
}

/// Returns the smallest area around this one that does not cut merged cells.
excel::CellArea CalcMergedCells::extended(const excel::CellArea& area) {
    return connection_.call([&] {
        const Reference<css::sheet::XSheetCellRange> cells(rangeOf(sheet_, area), UNO_QUERY_THROW);
        const Reference<css::sheet::XSheetCellCursor> cursor(sheet_->createCursorByRange(cells));
        cursor->collapseToMergedArea();
        const Reference<css::sheet::XCellRangeAddressable> address(cursor, UNO_QUERY_THROW);
        return areaOf(address->getRangeAddress());
    });
}

CalcSheet::CalcSheet(OfficeConnection& connection, CalcPendingEdits& pending,
                     const Reference<css::sheet::XSpreadsheet>& sheet, std::string name,
                     const excel::CellPosition& activeCell)
    : connection_(connection),
      pending_(pending),
      sheet_(sheet),
      name_(std::move(name)),
      selection_{activeCell, {{activeCell, activeCell}}},
      merged_(connection_, sheet_) {}

bool CalcSheet::isHidden() {
    return connection_.call([&] {
        const Reference<css::beans::XPropertySet> properties(sheet_, UNO_QUERY_THROW);
        return !properties->getPropertyValue("IsVisible").get<bool>();
    });
}

CalcShapeTable& CalcSheet::shapes() {
    if (!shapes_) shapes_.emplace(connection_, sheet_);
    return *shapes_;
}

bool CalcSheet::isProtected() {
    if (!isProtected_) {
        isProtected_ = connection_.call(
            [&] { return Reference<css::util::XProtectable>(sheet_, UNO_QUERY_THROW)->isProtected(); });
    }
    return *isProtected_;
}

void CalcSheet::checkMayChange(const char* what) {
    if (isProtected())
        raiseNotAllowed("The sheet '" + name_ + "' is protected: its " + what + " cannot be changed.");
}

void CalcSheet::checkMayWrite(const excel::CellArea& area) {
    const bool isOne = area.first == area.last;
    const std::string what =
        (isOne ? "The cell " : "A cell of ") + absoluteAddressOf(area) + " of the sheet '" + name_ + "' ";
    if (isProtected() && isLocked(area)) {
        raiseNotAllowed(what + "is protected. Take the sheet's protection off first.");
    }
    if (hasArray(area))
        raiseNotAllowed(what + "is part of an array formula, which can only be changed as a whole.");
    if (hasPivotTable(area)) raiseNotAllowed(what + "is part of a pivot table.");
}

Reference<css::table::XCell> CalcSheet::cell(const excel::CellPosition& cell) const {
    pending_.flush();
    return cellOf(sheet_, cell);
}

Reference<css::table::XCellRange> CalcSheet::range(const excel::CellArea& area) const {
    pending_.flush();
    return rangeOf(sheet_, area);
}

/// UNO returns no value for cells that differ; then at least one of them is locked.
bool CalcSheet::isLocked(const excel::CellArea& area) {
    return connection_.call([&] {
        const Reference<css::beans::XPropertySet> properties(rangeOf(sheet_, area), UNO_QUERY_THROW);
        css::util::CellProtection protection;
        protection.IsLocked = true;
        properties->getPropertyValue("CellProtection") >>= protection;
        return protection.IsLocked;
    });
}

bool CalcSheet::hasArray(const excel::CellArea& area) {
    for (const excel::CellArea& formula : formulas()) {
        const std::optional<excel::CellArea> common = intersection(formula, area);
        if (!common) continue;
        // For several adjacent formulas the cursor finds the array of the first cell only.
        for (excel::CellPosition cell = common->first; cell.row <= common->last.row; ++cell.row) {
            for (cell.column = common->first.column; cell.column <= common->last.column; ++cell.column) {
                const excel::CellArea array = connection_.call([&] {
                    const Reference<css::sheet::XSheetCellRange> start(rangeOf(sheet_, {cell, cell}),
                                                                       UNO_QUERY_THROW);
                    const Reference<css::sheet::XSheetCellCursor> cursor(sheet_->createCursorByRange(start));
                    cursor->collapseToCurrentArray();
                    return addressOf(cursor);
                });
                if (array.first != array.last) return true;
            }
        }
    }
    return false;
}

bool CalcSheet::hasPivotTable(const excel::CellArea& area) {
    return touches(pivotTables(), area);
}

/// The cells with formulas can only become fewer, since the object model writes no formulas.
const std::vector<excel::CellArea>& CalcSheet::formulas() {
    if (formulas_) return *formulas_;
    formulas_.emplace();
    const auto addresses = connection_.call([&] {
        const Reference<css::sheet::XCellRangesQuery> query(sheet_, UNO_QUERY_THROW);
        return query->queryContentCells(css::sheet::CellFlags::FORMULA)->getRangeAddresses();
    });
    for (const css::table::CellRangeAddress& address : addresses)
        formulas_->push_back(areaOf(address));
    return *formulas_;
}

const std::vector<excel::CellArea>& CalcSheet::pivotTables() {
    if (pivotTables_) return *pivotTables_;
    pivotTables_.emplace();
    connection_.call([&] {
        const Reference<css::sheet::XDataPilotTablesSupplier> supplier(sheet_, UNO_QUERY_THROW);
        const Reference<css::container::XIndexAccess> tables(supplier->getDataPilotTables(), UNO_QUERY_THROW);
        for (sal_Int32 index = 0, count = tables->getCount(); index < count; ++index) {
            const Reference<css::sheet::XDataPilotTable> table(tables->getByIndex(index), UNO_QUERY_THROW);
            pivotTables_->push_back(areaOf(table->getOutputRange()));
        }
    });
    return *pivotTables_;
}

}  // namespace mergeloom::libreoffice
