#include "office/embedded/sheet/SheetWriter.h"

#include "office/embedded/sheet/SheetIndex.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

namespace {

/// Copies a text with pieces of it replaced, in ascending order.
class XmlSplicer {
  public:
    XmlSplicer(std::string_view source, std::size_t expectedGrowth) : source_(source) {
        result_.reserve(source.size() + expectedGrowth);
    }

    /// Replaces the bytes from begin to end; inserts the text if the two are equal.
    void replace(std::size_t begin, std::size_t end, std::string_view text) {
        result_.append(source_, copied_, begin - copied_);
        result_.append(text);
        copied_ = end;
    }

    std::string finish() {
        replace(source_.size(), source_.size(), {});
        return std::move(result_);
    }

  private:
    std::string_view source_;
    std::string result_;
    std::size_t copied_ = 0;
};

/// Writes the rows of a sheet with their edits.
class RowWriter {
  public:
    /// The sheet must outlive the writer.
    explicit RowWriter(const SheetState& sheet)
        : xml_(sheet.xml), index_(sheet.index), edits_(sheet.edits), cells_(sheet.cells) {}

    /// Writes all changes between the start tag and the end tag of sheetData, which the part must contain.
    void write(XmlSplicer& splicer) const;
    /// Returns the whole sheetData of a part without rows.
    [[nodiscard]] std::string newSheetData() const;

  private:
    [[nodiscard]] std::string newRow(int number, const RowEdits& edits) const;
    [[nodiscard]] std::string newCells(int row, const RowEdits& edits) const;
    void changeRow(XmlSplicer& splicer, const IndexedRow& row, const RowEdits& edits) const;
    void changeCells(XmlSplicer& splicer, const IndexedRow& row, const RowEdits& edits) const;

    std::string_view xml_;
    const SheetIndex& index_;
    const CellEdits& edits_;
    const SheetCells& cells_;
};

std::string numberText(double number) {
    std::array<char, 32> text{};
    const std::to_chars_result result = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), result.ptr};
}

void setHeight(XmlTag& row, double points) {
    row.set("ht", numberText(points));
    row.set("customHeight", "1");
    row.remove("hidden");
}

void applyEdits(XmlTag& row, const RowEdits& edits) {
    if (edits.height) setHeight(row, *edits.height);
    for (const auto& [name, value] : edits.attributes) {
        if (value) {
            row.set(name, *value);
        } else {
            row.remove(name);
        }
    }
}

/// Widens the attribute that lists the columns in use; it may contain several pieces ("1:3 7:9").
void widenSpans(XmlTag& row, const RowEdits& edits) {
    const std::optional<std::string_view> spans = findAttribute(row.attributes(), "spans");
    if (!spans || edits.cells.empty()) return;
    const std::size_t firstEnd = spans->find(':');
    const std::size_t lastBegin = spans->rfind(':') + 1;
    const std::optional<int> first = parseNumber(spans->substr(0, firstEnd));
    const std::optional<int> last = parseNumber(spans->substr(lastBegin));
    if (!first || !last) return;
    const int from = std::min(*first, edits.cells.begin()->first);
    const int to = std::max(*last, edits.cells.rbegin()->first);
    if (from == *first && to == *last) return;
    row.set("spans", std::to_string(from) + ":" + std::to_string(to));
}

void RowWriter::write(XmlSplicer& splicer) const {
    // After the last row, and before white space that ends the sheet's data.
    const std::size_t end = index_.rows.empty() ? index_.sheetDataTag->end : index_.rows.back().range.end;
    for (const auto& [number, edits] : edits_.rows()) {
        const auto row = index_.rowsFrom(number);
        if (row != index_.rows.end() && row->number == number) {
            changeRow(splicer, *row, edits);
            continue;
        }
        const std::size_t place = row == index_.rows.end() ? end : row->range.begin;
        splicer.replace(place, place, newRow(number, edits));
    }
}

std::string RowWriter::newSheetData() const {
    const std::string name = index_.prefix + "sheetData>";
    std::string xml = "<" + name;
    for (const auto& [number, edits] : edits_.rows())
        xml += newRow(number, edits);
    return xml + "</" + name;
}

std::string RowWriter::newRow(int number, const RowEdits& edits) const {
    XmlTag row("<" + index_.prefix + "row r=\"" + std::to_string(number) + "\"/>");
    applyEdits(row, edits);
    if (edits.cells.empty()) return row.emptyTag();
    return row.startTag() + newCells(number, edits) + row.endTag();
}

std::string RowWriter::newCells(int row, const RowEdits& edits) const {
    std::string xml;
    for (const auto& [column, edit] : edits.cells)
        xml += cells_.edited({}, {row, column}, edit);
    return xml;
}

void RowWriter::changeRow(XmlSplicer& splicer, const IndexedRow& row, const RowEdits& edits) const {
    const std::string_view oldTag = cells_.rowTag(row.number);
    const std::size_t tagEnd = row.range.begin + oldTag.size();
    XmlTag tag(oldTag);
    applyEdits(tag, edits);
    widenSpans(tag, edits);
    if (oldTag.ends_with("/>") && !edits.cells.empty()) {
        const std::string xml = tag.startTag() + newCells(row.number, edits) + tag.endTag();
        splicer.replace(row.range.begin, tagEnd, xml);
        return;
    }
    if (tag.attributes() != XmlTag(oldTag).attributes()) {
        splicer.replace(row.range.begin, tagEnd, oldTag.ends_with("/>") ? tag.emptyTag() : tag.startTag());
    }
    changeCells(splicer, row, edits);
}

void RowWriter::changeCells(XmlSplicer& splicer, const IndexedRow& row, const RowEdits& edits) const {
    XmlScanner scanner(row.range.of(xml_));
    scanner.next();
    std::size_t lastEnd = row.range.begin + scanner.end();
    auto edit = edits.cells.begin();
    const auto insertAt = [&](std::size_t place) {
        const std::string xml = cells_.edited({}, {row.number, edit->first}, edit->second);
        splicer.replace(place, place, xml);
        ++edit;
    };
    RowCells cells(scanner, index_.prefix, row.number);
    while (edit != edits.cells.end() && cells.next()) {
        const std::size_t begin = row.range.begin + scanner.begin();
        while (edit != edits.cells.end() && edit->first < cells.column())
            insertAt(begin);
        const std::string_view stored = scanner.takeElement();
        lastEnd = row.range.begin + scanner.end();
        if (edit == edits.cells.end() || edit->first != cells.column()) continue;
        splicer.replace(begin, lastEnd, cells_.edited(stored, {row.number, edit->first}, edit->second));
        ++edit;
    }
    while (edit != edits.cells.end())
        insertAt(lastEnd);
}

constexpr std::size_t kBytesPerEdit = 100;

/// Returns the smallest area that contains the written cells; nothing if there are none.
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

/// Returns the dimension element, enlarged by the written cells.
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
        // One text replaces all children of that name.
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
