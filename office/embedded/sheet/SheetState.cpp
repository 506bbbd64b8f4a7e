#include "office/embedded/sheet/SheetState.h"

#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/XmlScanner.h"

namespace mergeloom::embedded {

const CellEdit* CellEdits::find(const excel::CellPosition& cell) const {
    const auto row = rows_.find(cell.row);
    if (row == rows_.end()) return nullptr;
    const auto found = row->second.cells.find(cell.column);
    return found == row->second.cells.end() ? nullptr : &found->second;
}

std::optional<CellEdit> CellEdits::exchange(const excel::CellPosition& cell, std::optional<CellEdit> edit) {
    std::map<int, CellEdit>& cells = rows_[cell.row].cells;
    std::optional<CellEdit> former;
    if (const auto found = cells.find(cell.column); found != cells.end()) {
        former = std::move(found->second);
        cells.erase(found);
    }
    if (edit) cells.emplace(cell.column, *std::move(edit));
    dropIfEmpty(cell.row);
    return former;
}

std::optional<double> CellEdits::exchangeHeight(int row, std::optional<double> height) {
    std::optional<double> former = std::exchange(rows_[row].height, height);
    dropIfEmpty(row);
    return former;
}

AttributeEdits CellEdits::exchangeAttributes(int row, AttributeEdits attributes) {
    AttributeEdits former = std::exchange(rows_[row].attributes, std::move(attributes));
    dropIfEmpty(row);
    return former;
}

void CellEdits::dropIfEmpty(int row) {
    const auto found = rows_.find(row);
    const RowEdits& edits = found->second;
    if (edits.cells.empty() && !edits.height && edits.attributes.empty()) rows_.erase(found);
}

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
    std::string former(stored);
    if (former.empty()) {
        former = "<" + index_.prefix + "c r=\"" + addressOf(cell) + "\"";
        if (edit.newStyle != 0) former += " s=\"" + std::to_string(edit.newStyle) + "\"";
        former += "/>";
    }
    std::string now = withEditedContent(former, edit);
    return edit.style ? withStyle(now, *edit.style) : now;
}

std::string SheetCells::withEditedContent(const std::string& cell, const CellEdit& edit) const {
    switch (edit.kind) {
        case CellEdit::Kind::Text:
            return withText(cell, edit.content, index_.prefix);
        case CellEdit::Kind::Formula:
            return withFormula(cell, edit.content, index_.prefix);
        case CellEdit::Kind::Content:
            return withContent(cell, edit.type, edit.content, index_.prefix);
        case CellEdit::Kind::Result:
            return withResult(cell, edit.type, edit.content, index_.prefix);
        case CellEdit::Kind::None:
            break;
    }
    return cell;
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
