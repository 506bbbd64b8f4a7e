#include "office/embedded/books/SheetCutter.h"

#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/SharedFormula.h"
#include "office/embedded/sheet/SheetState.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlText.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace mergeloom::embedded {

namespace {

using Kind = BookPiece::Kind;

/// Cuts the cells of one sheet.
class CellCutter {
  public:
    CellCutter(CutBookPart& part, const SheetState& state, const BookPlaces& places, BookSheets& sheets)
        : part_(part), state_(state), sheets_(sheets), map_(sheets.maps[part.sheet]), cutter_(part, sheets) {
        for (std::size_t number = 0; number < places.places.size(); ++number) {
            const BookPlace& place = places.places[number];
            if (place.sheet == part.sheet && !place.isPicture) places_.emplace(place.cell, number);
        }
    }

    void cut(BookPieces& pieces, const excel::CellPosition& cell, std::string_view xml) {
        const std::optional<std::size_t> group = map_.groupAt(cell.row);
        if (!group || map_.groups()[*group].hasColumn(cell.column)) return cutCell(pieces, cell, xml);
        BookPiece piece{.kind = Kind::FirstOnly};
        cutCell(piece.inside, cell, xml);
        appendEmptyCell(piece.otherwise, cell, xml);
        pieces.push_back(std::move(piece));
    }

  private:
    [[nodiscard]] const std::string& prefix() const { return state_.index.prefix; }
    [[nodiscard]] bool moves(int row) const { return map_.canMove(row) || map_.groupAt(row); }

    void cutCell(BookPieces& pieces, const excel::CellPosition& cell, std::string_view xml) {
        const CellXml parts = splitCell(xml, prefix());
        XmlTag tag(parts.tag);
        const auto place = places_.find(cell);
        if (place != places_.end()) {
            for (const std::string_view name : {"t", "cm", "vm", "s"})
                tag.remove(name);
            appendTag(pieces, cell, tag);
            pieces.push_back({.kind = Kind::Value,
                              .xml = std::string(parts.extensions) + "</" + prefix() + "c>",
                              .number = place->second});
        } else if (!parts.formula.empty()) {
            tag.remove("t");
            appendTag(pieces, cell, tag);
            appendFixed(pieces, ">");
            appendFormula(pieces, cell, xml, parts);
            appendFixed(pieces, std::string(parts.extensions) + "</" + prefix() + "c>");
        } else if (!moves(cell.row)) {
            appendFixed(pieces, xml);
        } else {
            appendTag(pieces, cell, tag);
            appendFixed(pieces, parts.tag.ends_with("/>") ? "/>" : ">");
            appendFixed(pieces, xml.substr(parts.tag.size()));
        }
    }

    /// Appends a start tag without its end.
    void appendTag(BookPieces& pieces, const excel::CellPosition& cell, XmlTag& tag) {
        tag.remove("r");
        appendFixed(pieces, "<" + prefix() + "c r=\"" + excel::columnLetters(cell.column));
        appendRowNumber(pieces, cell.row);
        appendFixed(pieces, "\"" + std::string(tag.attributes()));
    }

    void appendEmptyCell(BookPieces& pieces, const excel::CellPosition& cell, std::string_view xml) {
        const std::optional<std::string_view> style = findAttribute(splitCell(xml, prefix()).attributes, "s");
        if (!style) return;
        appendFixed(pieces, "<" + prefix() + "c r=\"" + excel::columnLetters(cell.column));
        appendPiece(pieces, Kind::Row, static_cast<std::size_t>(cell.row));
        appendFixed(pieces, "\" s=\"" + std::string(*style) + "\"/>");
    }

    void appendFormula(BookPieces& pieces, const excel::CellPosition& cell, std::string_view xml,
                       const CellXml& parts) {
        const std::string_view type = findAttribute(parts.formulaAttributes, "t").value_or("");
        const FormulaPlace place{.sheet = part_.sheet, .group = map_.groupAt(cell.row)};
        if (!sheets_.hasRepeatedRows()) return appendFixed(pieces, parts.formula);
        if (type == "dataTable" && !map_.isEmpty())
            sheets_.obstacles.emplace_back("a data table is on the sheet");
        if (type == "dataTable") return appendFixed(pieces, parts.formula);
        XmlTag tag(parts.formula.substr(0, parts.formula.find('>', parts.formulaAttributes.size()) + 1));
        if (type == "shared") {
            for (const std::string_view name : {"t", "si", "ref"})
                tag.remove(name);
        }
        if (type == "array") {
            checkArray(findAttribute(parts.formulaAttributes, "ref").value_or(""));
            appendArrayTag(pieces, tag, place.group);
        } else {
            appendFixed(pieces, tag.startTag());
        }
        const std::string formula = formulaOf(state_, cell, xml);
        cutter_.appendFormula(pieces, escapeXml(encodeXstring(formula)), place);
        appendFixed(pieces, tag.endTag());
    }

    void appendArrayTag(BookPieces& pieces, XmlTag& tag, std::optional<std::size_t> group) {
        const std::string area(findAttribute(tag.attributes(), "ref").value_or(""));
        tag.remove("ref");
        const std::string start = tag.startTag();
        appendFixed(pieces, start.substr(0, start.size() - 1) + " ref=\"");
        cutter_.appendAreas(pieces, area, group);
        appendFixed(pieces, "\">");
    }

    /// Part of an array formula cannot be moved.
    void checkArray(std::string_view reference) {
        const std::optional<excel::CellArea> area = excel::parseArea(reference);
        if (!area) return;
        const bool isTorn = std::ranges::any_of(map_.groups(), [&](const RepeatedRows& rows) {
            return area->last.row >= rows.first && area->first.row <= rows.last &&
                   (area->first.row < rows.first || area->last.row > rows.last);
        });
        if (isTorn)
            sheets_.obstacles.push_back("the array formula in " + addressOf(*area) + " would be torn");
    }

    void appendRowNumber(BookPieces& pieces, int row) {
        if (!moves(row)) return appendFixed(pieces, std::to_string(row));
        appendPiece(pieces, Kind::Row, static_cast<std::size_t>(row));
    }

    CutBookPart& part_;
    const SheetState& state_;
    BookSheets& sheets_;
    const RowMap& map_;
    BookPartCutter cutter_;
    std::map<excel::CellPosition, std::size_t> places_;
};

class SheetCutter {
  public:
    SheetCutter(const std::string& xml, std::size_t sheet, const BookPlaces& places, BookSheets& sheets)
        : state_(xml),
          places_(places),
          sheets_(sheets),
          map_(sheets.maps[sheet]),
          part_{.isSheet = true, .sheet = sheet, .prefix = state_.index.prefix},
          cells_(part_, state_, places, sheets) {}

    CutBookPart cut() {
        std::size_t done = 0;
        for (const RootChild& child : state_.index.children) {
            appendFixed(part_.pieces, xml().substr(done, child.range.begin - done));
            cutChild(child);
            done = child.range.end;
        }
        appendFixed(part_.pieces, xml().substr(done));
        return std::move(part_);
    }

  private:
    [[nodiscard]] std::string_view xml() const { return state_.xml; }

    void cutChild(const RootChild& child) {
        const std::string_view text = child.range.of(xml());
        if (child.name == "sheetData") return cutRows(child.range);
        if (!sheets_.hasRepeatedRows()) return appendFixed(part_.pieces, text);
        if (child.name != "mergeCells" || map_.isEmpty()) return BookPartCutter(part_, sheets_).cut(text);
        readMerges(text);
        appendPiece(part_.pieces, Kind::Merges, 0);
    }

    void readMerges(std::string_view text) {
        XmlScanner scanner(text);
        while (scanner.next()) {
            const auto area = excel::parseArea(findAttribute(scanner.attributes(), "ref").value_or(""));
            if (area && scanner.kind() != TagKind::End) addMerge(*area);
        }
    }

    void addMerge(const excel::CellArea& area) {
        for (const RepeatedRows& rows : map_.groups()) {
            const bool startsInside = rows.isPattern(area.first.row);
            if (startsInside && area.last.row > rows.end)
                sheets_.obstacles.push_back("the merged cells " + addressOf(area) + " reach out of them");
        }
        part_.merges.push_back(area);
    }

    void cutRows(const ByteRange& data) {
        std::size_t done = data.begin;
        for (const IndexedRow& row : state_.index.rows) {
            const std::optional<std::size_t> group = map_.groupAt(row.number);
            const std::string_view before = xml().substr(done, row.range.begin - done);
            done = row.range.end;
            if (group && map_.groups()[*group].isEarlier(row.number)) continue;
            const bool continues = group && row.number != firstStoredRow(*group);
            BookPieces& pieces = continues ? part_.pieces.back().inside : part_.pieces;
            appendFixed(pieces, before);
            if (!group || continues) {
                cutRow(pieces, row);
                continue;
            }
            part_.pieces.push_back({.kind = Kind::Rows, .number = *group});
            cutRow(part_.pieces.back().inside, row);
        }
        appendFixed(part_.pieces, xml().substr(done, data.end - done));
    }

    [[nodiscard]] int firstStoredRow(std::size_t group) const {
        return state_.index.rowsFrom(map_.groups()[group].first)->number;
    }

    void cutRow(BookPieces& pieces, const IndexedRow& row) {
        const std::string_view rowXml = row.range.of(xml());
        XmlScanner scanner(rowXml);
        scanner.next();
        appendRowTag(pieces, row.number, scanner.tag());
        std::size_t done = scanner.end();
        RowCells cells(scanner, state_.index.prefix, row.number);
        while (cells.next()) {
            appendFixed(pieces, rowXml.substr(done, scanner.begin() - done));
            cells_.cut(pieces, {row.number, cells.column()}, scanner.takeElement());
            done = scanner.end();
        }
        appendFixed(pieces, rowXml.substr(done));
    }

    void appendRowTag(BookPieces& pieces, int row, std::string_view text) {
        XmlTag tag(text);
        const std::optional<std::size_t> group = map_.groupAt(row);
        if (wasHidden(row)) tag.remove("hidden");
        BookPieces hidden;
        if (!isSet(tag.attributes(), "hidden")) appendHidden(hidden, row, group);
        const bool stays = !group && !map_.canMove(row) && hidden.empty() && !wasHidden(row);
        if (stays && !hasPicture(row)) return appendFixed(pieces, text);
        tag.remove("r");
        const BookPiece height = takeHeight(tag, row);
        appendFixed(pieces, "<" + state_.index.prefix + "row r=\"");
        appendPiece(pieces, Kind::Row, static_cast<std::size_t>(row));
        appendFixed(pieces, "\"" + std::string(tag.attributes()));
        if (height.kind == Kind::Height) pieces.push_back(height);
        pieces.insert(pieces.end(), hidden.begin(), hidden.end());
        appendFixed(pieces, text.ends_with("/>") ? "/>" : ">");
    }

    [[nodiscard]] bool hasPicture(int row) const {
        return std::ranges::any_of(places_.places, [&](const BookPlace& place) {
            return place.isPicture && place.sheet == part_.sheet && place.cell.row == row;
        });
    }

    /// Removes the attributes of a height of its own from the tag of a row with pictures.
    [[nodiscard]] BookPiece takeHeight(XmlTag& tag, int row) const {
        BookPiece piece;
        if (!hasPicture(row)) return piece;
        piece = {.kind = Kind::Height, .number = static_cast<std::size_t>(row)};
        for (const std::string_view name : {"ht", "customHeight"}) {
            const std::optional<std::string_view> value = findAttribute(tag.attributes(), name);
            if (value) piece.xml += " " + std::string(name) + "=\"" + std::string(*value) + "\"";
        }
        tag.remove("ht");
        tag.remove("customHeight");
        return piece;
    }

    /// Appends the attribute that hides a row of a table without records.
    void appendHidden(BookPieces& pieces, int row, std::optional<std::size_t> group) {
        if (group) return appendPiece(pieces, Kind::Hidden, *group);
        for (const BookTable& table : places_.tables) {
            const bool isTableRow = row >= table.area.first.row && row <= table.area.last.row;
            if (table.sheet != part_.sheet || !isTableRow) continue;
            return appendPiece(pieces, Kind::HiddenTable, table.group);
        }
    }

    [[nodiscard]] bool wasHidden(int row) const {
        return std::ranges::any_of(places_.hiddenRows[part_.sheet], [row](const excel::CellArea& area) {
            return row >= area.first.row && row <= area.last.row;
        });
    }

    SheetState state_;
    const BookPlaces& places_;
    BookSheets& sheets_;
    const RowMap& map_;
    CutBookPart part_;
    CellCutter cells_;
};

}  // namespace

CutBookPart cutSheet(const std::string& xml, std::size_t sheet, const BookPlaces& places,
                     BookSheets& sheets) {
    return SheetCutter(xml, sheet, places, sheets).cut();
}

}  // namespace mergeloom::embedded
