#include "office/embedded/sheet/SheetCells.h"

#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/RowCells.h"
#include "office/embedded/sheet/XmlScanner.h"

namespace mergeloom::embedded {

SheetCells::SheetCells(std::string_view xml, const SheetIndex& index, const CellEdits& edits)
    : xml_(xml), index_(index), edits_(edits) {}

std::string_view SheetCells::stored(const excel::CellPosition& cell) const {
    const IndexedRow* row = index_.findRow(cell.row);
    if (!row) return {};
    XmlScanner scanner(row->range.of(xml_));
    scanner.next();
    RowCells cells(scanner, index_.prefix, cell.row);
    while (cells.next() && cells.column() <= cell.column) {
        if (cells.column() == cell.column) return scanner.takeElement();
    }
    return {};
}

std::string SheetCells::current(const excel::CellPosition& cell) const {
    const CellEdit* edit = edits_.find(cell);
    return edit ? edited(stored(cell), cell, *edit) : std::string(stored(cell));
}

std::string SheetCells::edited(std::string_view stored, const excel::CellPosition& cell,
                               const CellEdit& edit) const {
    if (edit.kind == CellEdit::Kind::Formula) return withFormula(stored, edit.content, index_.prefix);
    if (!stored.empty()) return withText(stored, edit.content, index_.prefix);
    std::string tag = "<" + index_.prefix + "c r=\"" + addressOf(cell) + "\"";
    if (edit.newStyle != 0) tag += " s=\"" + std::to_string(edit.newStyle) + "\"";
    return withText(tag + "/>", edit.content, index_.prefix);
}

void SheetCells::forEachIn(const excel::CellArea& area, const Visit& visit) const {
    for (auto row = index_.rowsFrom(area.first.row); row != index_.rows.end() && row->number <= area.last.row;
         ++row) {
        XmlScanner scanner(row->range.of(xml_));
        scanner.next();
        RowCells cells(scanner, index_.prefix, row->number);
        while (cells.next() && cells.column() <= area.last.column) {
            if (cells.column() < area.first.column) continue;
            const excel::CellPosition cell{row->number, cells.column()};
            const CellEdit* edit = edits_.find(cell);
            const std::string_view stored = scanner.takeElement();
            if (!visit(cell, edit ? edited(stored, cell, *edit) : stored)) return;
        }
    }
}

std::string_view SheetCells::rowTag(int row) const {
    const IndexedRow* found = index_.findRow(row);
    if (!found) return {};
    XmlScanner scanner(found->range.of(xml_));
    scanner.next();
    return scanner.tag();
}

}  // namespace mergeloom::embedded
