#include "office/embedded/books/PartCutter.h"

#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"

#include <algorithm>
#include <array>
#include <span>

namespace mergeloom::embedded {

namespace {

using Kind = BookPiece::Kind;

constexpr std::array<std::string_view, 7> kFormulaElements{
    {"f", "formula", "formula1", "formula2", "calculatedColumnFormula", "totalsRowFormula", "definedName"}};
/// The rows in the anchor of a note, which is a list of numbers (ECMA-376 Part 4, 19.4.2.1).
constexpr std::array<std::size_t, 2> kRowsOfAnchor{2, 6};

/// Returns true for a formula that is nothing but a reference to one cell.
bool isSingleCell(std::string_view formula) {
    int references = 0;
    for (FormulaReader reader(formula); reader.next();) {
        const bool isCell = reader.reference() != nullptr && !reader.reference()->last;
        if (isCell) ++references;
        if (!isCell && !reader.text().ends_with('!') && !reader.text().ends_with('\'')) return false;
    }
    return references == 1;
}

}  // namespace

bool BookSheets::hasRepeatedRows() const {
    return std::ranges::any_of(maps, [](const RowMap& map) { return !map.isEmpty(); });
}

void BookPartCutter::cut(std::string_view xml) {
    XmlScanner scanner(xml);
    std::size_t done = 0;
    std::string_view open;  // the element before, if it has no child so far
    while (scanner.next()) {
        const std::string_view text = xml.substr(done, scanner.begin() - done);
        const std::string_view name = localNameOf(scanner.name());
        const bool isLeaf = scanner.kind() == TagKind::End && !open.empty();
        if (!isLeaf || !cutText(open, text)) appendFixed(part_.pieces, text);
        if (scanner.kind() == TagKind::End) {
            if (name == "sparkline") isInSparkline_ = false;
            if (name == "definedNames") appendPiece(part_.pieces, Kind::Names, 0);
            appendFixed(part_.pieces, scanner.tag());
        } else {
            noteElement(name, scanner.attributes());
            cutTag(name, scanner.tag(), scanner.attributes());
        }
        open = scanner.kind() == TagKind::Start ? name : std::string_view();
        done = scanner.end();
    }
    appendFixed(part_.pieces, xml.substr(done));
}

/// Notes what the references in an element refer to.
void BookPartCutter::noteElement(std::string_view name, std::string_view attributes) {
    if (name == "rowBreaks" || name == "colBreaks") isInRowBreaks_ = name == "rowBreaks";
    if (name == "sparkline") isInSparkline_ = true;
    sheet_ = part_.sheet;
    if (name == "worksheetSource") {
        const std::string sheet = decodeXml(findAttribute(attributes, "sheet").value_or(""));
        sheet_ = sheets_.find(sheet).value_or(part_.sheet);
    }
    if (name != "conditionalFormatting" && name != "dataValidation") return;
    // The formulas of a rule are those of its first cell.
    const auto areas = excel::parseAreas(findAttribute(attributes, "sqref").value_or(""));
    place_.group = areas.empty() ? std::nullopt : map().groupAt(areas.front().first.row);
}

void BookPartCutter::cutTag(std::string_view name, std::string_view tag, std::string_view attributes) {
    std::size_t done = 0;
    for (XmlAttributes attribute(attributes); attribute.next();) {
        const std::string_view value = attribute.value();
        const auto begin = static_cast<std::size_t>(value.data() - tag.data());
        appendFixed(part_.pieces, tag.substr(done, begin - done));
        done = begin + (cutAttribute(name, attribute.name(), value) ? value.size() : 0);
    }
    appendFixed(part_.pieces, tag.substr(done));
}

/// Returns false for an attribute that stays as it is.
bool BookPartCutter::cutAttribute(std::string_view element, std::string_view name, std::string_view value) {
    // The view of the user stays.
    if (element == "selection") return false;
    const bool isCell = name == "r" && (element == "cellWatch" || element == "inputCells");
    if (name == "sqref" || name == "ref" || isCell) {
        if (map().isEmpty()) return false;
        appendAreas(part_.pieces, value);
        return true;
    }
    if (name == "id" && element == "brk" && isInRowBreaks_) return appendRow(Kind::Break, value, 1);
    return false;
}

/// Returns false for a text that stays as it is.
bool BookPartCutter::cutText(std::string_view name, std::string_view text) {
    if (std::ranges::find(kFormulaElements, name) != kFormulaElements.end()) {
        appendFormula(part_.pieces, text, place_);
        return true;
    }
    if (name == "row" || name == "Row") return appendRow(Kind::RowFromZero, text, 0);
    if (map().isEmpty()) return false;
    if (name == "Anchor") {
        cutAnchor(text);
        return true;
    }
    if (name != "sqref") return false;
    const auto areas = excel::parseAreas(text);
    if (isInSparkline_ && !areas.empty() && map().groupAt(areas.front().first.row))
        sheets_.obstacles.emplace_back("a sparkline is in these rows");
    appendAreas(part_.pieces, text);
    return true;
}

bool BookPartCutter::appendRow(Kind kind, std::string_view number, int first) {
    const std::optional<int> row = parseNumber(number);
    if (!row || *row < first) return false;
    const int fromOne = *row - first + 1;
    if (!map().canMove(fromOne) && !map().groupAt(fromOne)) return false;
    appendPiece(part_.pieces, kind, static_cast<std::size_t>(*row));
    return true;
}

void BookPartCutter::cutAnchor(std::string_view text) {
    for (std::size_t number = 0; !text.empty(); ++number) {
        const std::size_t blank = std::min(text.find_first_not_of(" \t\r\n"), text.size());
        appendFixed(part_.pieces, text.substr(0, blank));
        text.remove_prefix(blank);
        const std::size_t end = std::min(text.find(','), text.size());
        const bool isRow = std::ranges::find(kRowsOfAnchor, number) != kRowsOfAnchor.end();
        if (!isRow || !appendRow(Kind::RowFromZero, text.substr(0, end), 0))
            appendFixed(part_.pieces, text.substr(0, end));
        appendFixed(part_.pieces, text.substr(end, 1));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void BookPartCutter::appendFormula(BookPieces& pieces, std::string_view xml, const FormulaPlace& place) {
    const std::string formula = decodeXml(xml);
    using SingleCells = MovableFormula::SingleCells;
    const bool grows = part_.singleCells == SingleCells::Grow && isSingleCell(formula);
    const MovableFormula movable(formula, place.sheet, sheets_.find,
                                 grows ? SingleCells::Grow : SingleCells::Stay);
    if (!movable.canMove(sheets_.maps)) return appendFixed(pieces, xml);
    if (!grows && movable.isTornBy(sheets_.maps, place))
        sheets_.obstacles.push_back("the formula " + formula + " refers to some of these rows");
    appendPiece(pieces, Kind::Formula, part_.formulas.size());
    part_.formulas.push_back(movable);
    part_.formulaPlaces.push_back(place);
}

void BookPartCutter::appendAreas(BookPieces& pieces, std::string_view text,
                                 std::optional<std::size_t> group) {
    appendPiece(pieces, Kind::Areas, part_.areas.size());
    part_.areas.push_back({sheet_, excel::parseAreas(text), group});
}

}  // namespace mergeloom::embedded
