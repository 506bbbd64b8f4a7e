#include "office/embedded/sheet/SheetIndex.h"

#include "office/embedded/sheet/RowCells.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// Fills an index while it goes through a part.
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

    [[nodiscard]] bool standsOn(std::string_view localName) const {
        return isElement(scanner_.name(), index_.prefix, localName);
    }

    void readRootChild() {
        const bool isOurs = prefixOf(scanner_.name()) == index_.prefix;
        RootChild child{std::string(isOurs ? localNameOf(scanner_.name()) : scanner_.name()), tagRange()};
        if (standsOn("sheetData")) readSheetData();
        scanner_.skipElement();
        child.range.end = tagRange().end;
        index_.children.push_back(std::move(child));
    }

    void readSheetData() {
        if (index_.sheetDataTag) throw BadXml("holds the data of a sheet twice");
        index_.sheetDataTag = tagRange();
        scanner_.forEachChild([this] {
            if (standsOn("row")) readRow();
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
        // A row that does not tell its number follows the one before it.
        const bool isCounted = !findAttribute(scanner_.attributes(), "r");
        const int number =
            isCounted ? before + 1 : findNumber(scanner_.attributes(), "r").value_or(excel::kLastRow + 1);
        if (number < 1 || number > excel::kLastRow) throw BadXml("holds a row that no sheet has");
        if (number <= before)
            throw BadXml("holds its rows out of order (row " + std::to_string(number) + ")");
        return number;
    }

    void readCellChild(const excel::CellPosition& cell) {
        if (scanner_.attributes().empty() || !standsOn("f")) return;
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
