#include "office/embedded/sheet/SheetIndex.h"

#include "office/embedded/sheet/XmlAttributes.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace mergeloom::embedded {

namespace {

int firstRowOf(const excel::CellArea& area) {
    return area.first.row;
}

std::string inRow(int row) {
    return " in row " + std::to_string(row);
}

/// Builds the index in one pass over a part.
class SheetIndexer {
  public:
    explicit SheetIndexer(std::string_view xml) : scanner_(xml) {}

    SheetIndex read() {
        if (!scanner_.next() || localNameOf(scanner_.name()) != "worksheet") throw BadXml("is no worksheet");
        index_.prefix = prefixOf(scanner_.name());
        index_.rootTag = tagRange();
        scanner_.forEachChild([this] { readRootChild(); });
        if (scanner_.next()) throw BadXml("is not well-formed XML (more than one root element)");
        index_.arrays = AreaIndex(std::move(arrays_));
        return std::move(index_);
    }

  private:
    [[nodiscard]] ByteRange tagRange() const {
        return {static_cast<std::uint32_t>(scanner_.begin()), static_cast<std::uint32_t>(scanner_.end())};
    }

    [[nodiscard]] bool isAt(std::string_view localName) const {
        return isElement(scanner_.name(), index_.prefix, localName);
    }

    void readRootChild() {
        const bool isOurs = prefixOf(scanner_.name()) == index_.prefix;
        RootChild child{std::string(isOurs ? localNameOf(scanner_.name()) : scanner_.name()), tagRange()};
        if (isAt("sheetData")) readSheetData();
        scanner_.skipElement();
        child.range.end = tagRange().end;
        index_.children.push_back(std::move(child));
    }

    void readSheetData() {
        if (index_.sheetDataTag) throw BadXml("holds the data of a sheet twice");
        index_.sheetDataTag = tagRange();
        scanner_.forEachChild([this] {
            if (isAt("row")) readRow();
        });
    }

    void readRow() {
        IndexedRow row{rowNumber(), tagRange()};
        RowCells cells(scanner_, index_.prefix, row.number);
        while (cells.next())
            scanner_.forEachChild([&] { readCellChild({row.number, cells.column()}); });
        row.range.end = tagRange().end;
        index_.rows.push_back(row);
    }

    [[nodiscard]] int rowNumber() const {
        const int before = index_.rows.empty() ? 0 : index_.rows.back().number;
        // A row without a number follows the one before it.
        const bool isCounted = !findAttribute(scanner_.attributes(), "r");
        const int number =
            isCounted ? before + 1 : findNumber(scanner_.attributes(), "r").value_or(excel::kLastRow + 1);
        if (number < 1 || number > excel::kLastRow) throw BadXml("holds a row that no sheet has");
        if (number <= before)
            throw BadXml("holds its rows out of order (row " + std::to_string(number) + ")");
        return number;
    }

    void readCellChild(const excel::CellPosition& cell) {
        if (scanner_.attributes().empty() || !isAt("f")) return;
        const std::string_view attributes = scanner_.attributes();
        const std::optional<std::string_view> type = findAttribute(attributes, "t");
        const std::optional<std::string_view> reference = findAttribute(attributes, "ref");
        if (!type || !reference) return;
        if (type == "shared") {
            index_.formulaGroups.add(findNumber(attributes, "si").value_or(0), cell);
            return;
        }
        const std::optional<excel::CellArea> area = excel::parseArea(*reference);
        if (area && area->first != area->last) arrays_.push_back(*area);
    }

    XmlScanner scanner_;
    SheetIndex index_;
    std::vector<excel::CellArea> arrays_;
};

}  // namespace

AreaIndex::AreaIndex(std::vector<excel::CellArea> areas) : areas_(std::move(areas)) {
    std::ranges::stable_sort(areas_, {}, firstRowOf);
    reach_.reserve(areas_.size());
    int reach = 0;
    for (const excel::CellArea& area : areas_)
        reach_.push_back(reach = std::max(reach, area.last.row));
}

std::optional<excel::CellArea> AreaIndex::find(const excel::CellPosition& cell) const {
    const auto next = std::ranges::upper_bound(areas_, cell.row, {}, firstRowOf);
    for (auto index = static_cast<std::size_t>(next - areas_.begin()); index > 0; --index) {
        if (reach_[index - 1] < cell.row) return {};
        if (areas_[index - 1].contains(cell)) return areas_[index - 1];
    }
    return {};
}

std::optional<excel::CellPosition> FormulaGroups::masterOf(int group, const excel::CellPosition& cell) const {
    const auto next = masters_.upper_bound({group, cell});
    if (next != masters_.begin() && std::prev(next)->first == group) return std::prev(next)->second;
    if (next != masters_.end() && next->first == group) return next->second;
    return {};
}

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
    // A cell without a reference follows the one before it.
    const std::optional<excel::CellPosition> cell =
        reference ? excel::parseCell(*reference) : excel::CellPosition{row_, column_ + 1};
    if (!cell || cell->row != row_ || cell->column > excel::kLastColumn) {
        throw BadXml("holds a cell" + inRow(row_) + " that cannot stand there");
    }
    if (cell->column <= column_) throw BadXml("holds its cells" + inRow(row_) + " out of order");
    column_ = cell->column;
}

std::vector<IndexedRow>::const_iterator SheetIndex::rowsFrom(int number) const {
    return std::ranges::lower_bound(rows, number, {}, &IndexedRow::number);
}

const IndexedRow* SheetIndex::findRow(int number) const {
    const auto found = rowsFrom(number);
    return found != rows.end() && found->number == number ? &*found : nullptr;
}

SheetIndex indexSheet(std::string_view xml) {
    if (xml.size() > std::numeric_limits<std::uint32_t>::max()) throw BadXml("is too large");
    return SheetIndexer(xml).read();
}

}  // namespace mergeloom::embedded
