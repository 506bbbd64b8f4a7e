#include "office/embedded/sheet/RowWriter.h"

#include "office/embedded/sheet/RowCells.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mergeloom::embedded {

namespace {

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

/// The columns that a row says it uses; it may say so in several pieces ("1:3 7:9").
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

}  // namespace

void RowWriter::write(XmlSplicer& splicer) const {
    // Behind the last row, and before white space that closes the sheet's data.
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
    if (edits.height) setHeight(row, *edits.height);
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
    if (edits.height) setHeight(tag, *edits.height);
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

}  // namespace mergeloom::embedded
