#include "office/embedded/sheet/RowCells.h"

#include "office/embedded/sheet/XmlAttributes.h"
#include "office/model/excel/CellAddress.h"

#include <optional>
#include <string>

namespace mergeloom::embedded {

namespace {

std::string inRow(int row) {
    return " in row " + std::to_string(row);
}

}  // namespace

RowCells::RowCells(XmlScanner& scanner, std::string_view prefix, int row)
    : scanner_(scanner), prefix_(prefix), row_(row), isOpen_(scanner.kind() == TagKind::Start) {}

bool RowCells::next() {
    if (!isOpen_) return false;
    if (column_ > 0) scanner_.skipElement();
    while (scanner_.next() && scanner_.kind() != TagKind::End) {
        if (isElement(scanner_.name(), prefix_, "c")) {
            readColumn();
            return true;
        }
        scanner_.skipElement();
    }
    isOpen_ = false;
    return false;
}

void RowCells::readColumn() {
    const std::optional<std::string_view> reference = findAttribute(scanner_.attributes(), "r");
    // A cell that does not tell its place follows the one before it.
    const std::optional<excel::CellPosition> cell =
        reference ? excel::parseCell(*reference) : excel::CellPosition{row_, column_ + 1};
    if (!cell || cell->row != row_ || cell->column > excel::kLastColumn) {
        throw BadXml("holds a cell" + inRow(row_) + " that cannot stand there");
    }
    if (cell->column <= column_) throw BadXml("holds its cells" + inRow(row_) + " out of order");
    column_ = cell->column;
}

}  // namespace mergeloom::embedded
