#include "office/libreoffice/excel/CalcMergedCells.h"

#include "office/libreoffice/excel/CalcAddress.h"
#include "office/libreoffice/excel/CalcCells.h"

#include <algorithm>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSheetCellRange.hpp>
#include <com/sun/star/util/XMergeable.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr int kRowsOfBlock = 64;

bool isMerged(const Reference<css::uno::XInterface>& cells) {
    return Reference<css::util::XMergeable>(cells, UNO_QUERY_THROW)->getIsMerged();
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

/// The smallest area around this one that cuts no merged cells.
excel::CellArea CalcMergedCells::extended(const excel::CellArea& area) {
    return connection_.call([&] {
        const Reference<css::sheet::XSheetCellRange> cells(rangeOf(sheet_, area), UNO_QUERY_THROW);
        const Reference<css::sheet::XSheetCellCursor> cursor(sheet_->createCursorByRange(cells));
        cursor->collapseToMergedArea();
        const Reference<css::sheet::XCellRangeAddressable> address(cursor, UNO_QUERY_THROW);
        return areaOf(address->getRangeAddress());
    });
}

}  // namespace mergeloom::libreoffice
