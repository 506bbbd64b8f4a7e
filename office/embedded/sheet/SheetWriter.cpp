#include "office/embedded/sheet/SheetWriter.h"

#include "office/embedded/sheet/RowWriter.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlSplicer.h"

#include <algorithm>
#include <optional>
#include <set>
#include <vector>

namespace mergeloom::embedded {

namespace {

constexpr std::size_t kBytesPerEdit = 100;

/// The cells that were written, as one area; nothing when none were.
std::optional<excel::CellArea> writtenArea(const CellEdits& edits) {
    std::optional<excel::CellArea> area;
    for (const auto& [row, rowEdits] : edits.rows()) {
        if (rowEdits.cells.empty()) continue;
        const excel::CellPosition first{row, rowEdits.cells.begin()->first};
        const excel::CellPosition last{row, rowEdits.cells.rbegin()->first};
        area = area ? enclosing(*area, {first, last}) : excel::CellArea{first, last};
    }
    return area;
}

/// The dimension element with the written cells in it.
std::string withWrittenArea(const std::string& dimension, const CellEdits& edits) {
    const std::optional<excel::CellArea> written = writtenArea(edits);
    if (!written) return dimension;
    XmlScanner scanner(dimension);
    if (!scanner.next()) return dimension;
    const std::optional<excel::CellArea> area =
        excel::parseArea(findAttribute(scanner.attributes(), "ref").value_or(""));
    if (!area) return dimension;
    const excel::CellArea enlarged = enclosing(*area, *written);
    if (enlarged == *area) return dimension;
    XmlTag tag(scanner.tag());
    tag.set("ref", addressOf(enlarged));
    return (scanner.kind() == TagKind::Empty ? tag.emptyTag() : tag.startTag()) +
           dimension.substr(scanner.end());
}

class SheetWriter {
  public:
    explicit SheetWriter(const SheetState& sheet)
        : sheet_(sheet),
          rows_(sheet),
          splicer_(sheet.xml, sheet.edits.rows().size() * kBytesPerEdit),
          insertions_(sheet.sections.insertions(newSheetData())),
          next_(insertions_.begin()) {}

    std::string write() {
        writeRoot();
        for (const RootChild& child : sheet_.index.children) {
            writeChild(child);
            insertAt(child.range.end);
        }
        return splicer_.finish();
    }

  private:
    [[nodiscard]] std::string newSheetData() const {
        const bool isNeeded = !sheet_.index.sheetDataTag && !sheet_.edits.rows().empty();
        return isNeeded ? rows_.newSheetData() : "";
    }

    void writeRoot() {
        const ByteRange range = sheet_.index.rootTag;
        const XmlTag& tag = sheet_.root.tag();
        const bool isEmpty = range.of(sheet_.xml).ends_with("/>");
        const bool opens = isEmpty && !insertions_.empty();
        if (opens || sheet_.root.isChanged()) {
            splicer_.replace(range.begin, range.end, isEmpty && !opens ? tag.emptyTag() : tag.startTag());
        }
        insertAt(range.end);
        if (opens) splicer_.replace(range.end, range.end, tag.endTag());
    }

    void insertAt(std::size_t place) {
        for (; next_ != insertions_.end() && next_->place == place; ++next_)
            splicer_.replace(place, place, next_->text);
    }

    void writeChild(const RootChild& child) {
        if (child.name == "sheetData") return writeSheetData(child.range);
        const std::string* replacement = sheet_.sections.replacement(child.name);
        if (child.name == "dimension") return writeDimension(child.range);
        if (!replacement) return;
        // All children of that name were replaced by one text.
        const bool isFirst = replaced_.insert(child.name).second;
        splicer_.replace(child.range.begin, child.range.end, isFirst ? *replacement : "");
    }

    void writeDimension(const ByteRange& range) {
        const std::string dimension = withWrittenArea(sheet_.sections.text("dimension"), sheet_.edits);
        if (dimension != range.of(sheet_.xml)) splicer_.replace(range.begin, range.end, dimension);
    }

    void writeSheetData(const ByteRange& range) {
        const bool isEmpty = sheet_.index.sheetDataTag->of(sheet_.xml).ends_with("/>");
        if (!isEmpty) return rows_.write(splicer_);
        if (!sheet_.edits.rows().empty()) splicer_.replace(range.begin, range.end, rows_.newSheetData());
    }

    const SheetState& sheet_;
    RowWriter rows_;
    XmlSplicer splicer_;
    std::vector<Insertion> insertions_;
    std::vector<Insertion>::const_iterator next_;
    std::set<std::string> replaced_;
};

}  // namespace

std::string writeSheet(const SheetState& sheet) {
    return SheetWriter(sheet).write();
}

}  // namespace mergeloom::embedded
