#include "office/embedded/word/EmbeddedCells.h"

#include "office/embedded/text/TableElements.h"
#include "office/model/word/Range.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

int numberAmong(const std::vector<pugi::xml_node>& nodes, pugi::xml_node node) {
    return static_cast<int>(std::find(nodes.begin(), nodes.end(), node) - nodes.begin()) + 1;
}

}  // namespace

int EmbeddedCell::ColumnIndex() {
    const opc::WordNames& names = table_->names();
    return numberAmong(cellsOf(names.ancestor(cell_, opc::WordTag::Row), names), cell_);
}

int EmbeddedCell::RowIndex() {
    const opc::WordNames& names = table_->names();
    return numberAmong(rowsOf(table_->element(), names), names.ancestor(cell_, opc::WordTag::Row));
}

void EmbeddedCell::Select() {
    Range()->Select();
}

word::CellPtr EmbeddedCells::Item(int number) {
    return std::make_shared<EmbeddedCell>(table_, cells_[indexOf(number)]);
}

}  // namespace mergeloom::embedded
