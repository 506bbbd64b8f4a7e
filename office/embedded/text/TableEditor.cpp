#include "office/embedded/text/TableEditor.h"

#include "base/AutomationError.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

namespace {

/// Returns true for an element that may be around the rows of a table or the cells of a row.
bool mayWrap(opc::WordTag tag) {
    return tag == opc::WordTag::ContentControl || tag == opc::WordTag::ContentControlContent ||
           tag == opc::WordTag::CustomXml || tag == opc::WordTag::Insertion || tag == opc::WordTag::Deletion;
}

void collect(pugi::xml_node container, opc::WordTag wanted, const opc::WordNames& names,
             std::vector<pugi::xml_node>& found) {
    for (const pugi::xml_node child : container.children()) {
        const opc::WordTag tag = names.tagOf(child);
        if (mayWrap(tag)) collect(child, wanted, names, found);
        if (tag == wanted) found.push_back(child);
    }
}

bool isMerged(pugi::xml_node cell, const opc::WordNames& names) {
    const pugi::xml_node properties = cell.child(names.element("tcPr").c_str());
    return properties.child(names.element("vMerge").c_str()) ||
           properties.child(names.element("hMerge").c_str());
}

/// Returns the width of a column when so many share a width, in whole twips that add up to it.
std::int64_t shareOf(std::int64_t width, int columns, int column) {
    return width * (column + 1) / columns - width * column / columns;
}

}  // namespace

std::vector<pugi::xml_node> rowsOf(pugi::xml_node table, const opc::WordNames& names) {
    std::vector<pugi::xml_node> rows;
    collect(table, opc::WordTag::Row, names, rows);
    return rows;
}

int columnsOf(pugi::xml_node cell, const opc::WordNames& names) {
    const pugi::xml_node span =
        cell.child(names.element("tcPr").c_str()).child(names.element("gridSpan").c_str());
    return span.attribute(names.attribute("val").c_str()).as_int(1);
}

pugi::xml_node lastRowOf(pugi::xml_node table, const opc::WordNames& names) {
    for (pugi::xml_node child = table.last_child(); child; child = child.previous_sibling()) {
        const opc::WordTag tag = names.tagOf(child);
        if (tag == opc::WordTag::Row) return child;
        const pugi::xml_node wrapped = mayWrap(tag) ? lastRowOf(child, names) : pugi::xml_node();
        if (wrapped) return wrapped;
    }
    return {};
}

std::vector<pugi::xml_node> cellsOf(pugi::xml_node row, const opc::WordNames& names) {
    std::vector<pugi::xml_node> cells;
    collect(row, opc::WordTag::CellElement, names, cells);
    return cells;
}

int columnCountOf(pugi::xml_node table, const opc::WordNames& names) {
    const pugi::xml_node grid = table.child(names.element("tblGrid").c_str());
    // The children do not copy the name that they are searched by.
    const std::string name = names.element("gridCol");
    const auto columns = grid.children(name.c_str());
    const auto count = static_cast<int>(std::distance(columns.begin(), columns.end()));
    if (count > 0) return count;
    std::size_t longest = 0;
    for (const pugi::xml_node row : rowsOf(table, names))
        longest = std::max(longest, cellsOf(row, names).size());
    return static_cast<int>(longest);
}

bool isUniform(pugi::xml_node table, const opc::WordNames& names) {
    const std::vector<pugi::xml_node> rows = rowsOf(table, names);
    const auto columns = [&](pugi::xml_node row) {
        std::vector<int> found;
        for (const pugi::xml_node cell : cellsOf(row, names))
            found.push_back(isMerged(cell, names) ? 0 : columnsOf(cell, names));
        return found;
    };
    return std::ranges::all_of(rows, [&](pugi::xml_node row) {
        const std::vector<int> found = columns(row);
        return std::ranges::find(found, 0) == found.end() && found == columns(rows.front());
    });
}

Item* TableEditor::insertTable(CharacterPosition position, const TableShape& shape) {
    Item* next = story_.items().itemAt(position);
    const pugi::xml_node before = next ? story_.paragraphOf(next) : pugi::xml_node();
    if (!before) throw AutomationError(kCommandFailed, "No table can stand at this place.");
    const Item* previous = ItemTree::previousInText(next);
    const bool isAfterText =
        story_.positionOf(next) != position ||
        (previous && previous->kind != ItemKind::ParagraphMark && story_.paragraphOf(previous) == before);
    if (isAfterText) {
        editor_.insertParagraphMark(position);
        position = position + CharacterCount{1};
        next = story_.items().itemAt(position);
    }
    const pugi::xml_node paragraph = story_.paragraphOf(next);
    // Marks at the paragraph's start stay in it and are then after the table.
    for (Item* mark = ItemTree::previous(next); mark && isInside(mark->node, paragraph);) {
        if (mark->takesPlace()) break;
        next = mark;
        mark = ItemTree::previous(mark);
    }
    const pugi::xml_node table = makeTable(shape);
    journal_.move(story_.part(), table, paragraph.parent(), paragraph.previous_sibling());
    Item* firstRow = nullptr;
    for (const pugi::xml_node row : rowsOf(table, story_.names())) {
        Item* mark = insertRowItems(row, next);
        if (!firstRow) firstRow = mark;
    }
    story_.shift(position, {}, {static_cast<std::int64_t>(shape.rows) * (shape.columns + 1)});
    return firstRow;
}

Item* TableEditor::appendRow(const Item* lastRowMark) {
    const pugi::xml_node last = lastRowMark->node;
    const pugi::xml_node row = makeRowLike(last);
    const CharacterPosition end = story_.positionOf(lastRowMark);
    Item* next = ItemTree::next(lastRowMark);
    journal_.move(story_.part(), row, last.parent(), last);
    const CharacterCount before = story_.length();
    Item* mark = insertRowItems(row, next);
    // Ranges after the table move with it; those that ended with the table end with the new row.
    story_.shift(end, {}, story_.length() - before);
    return mark;
}

pugi::xml_node TableEditor::makeTable(const TableShape& shape) {
    const pugi::xml_node table = elementFactory_.makeElement("tbl");
    addProperties(table, shape);
    const pugi::xml_node grid = append(table, "tblGrid");
    const pugi::xml_node row = append(table, "tr");
    for (int column = 0; column < shape.columns; ++column) {
        const std::int64_t width = shareOf(shape.width, shape.columns, column);
        set(append(grid, "gridCol"), "w", width);
        const pugi::xml_node cell = append(row, "tc");
        const pugi::xml_node cellWidth = append(append(cell, "tcPr"), "tcW");
        set(cellWidth, "w", width);
        set(cellWidth, "type", "dxa");
        append(cell, "p");
    }
    for (int further = 1; further < shape.rows; ++further)
        pugi::xml_node(table).append_copy(row);
    return table;
}

void TableEditor::addProperties(pugi::xml_node table, const TableShape& shape) {
    const pugi::xml_node properties = append(table, "tblPr");
    if (shape.hasGridStyle) set(append(properties, "tblStyle"), "val", "TableGrid");
    const pugi::xml_node width = append(properties, "tblW");
    set(width, "w", 0);
    set(width, "type", "auto");
    if (!shape.hasGridStyle) addBorders(properties);
    const pugi::xml_node look = append(properties, "tblLook");
    set(look, "val", "04A0");
    for (const char* on : {"firstRow", "firstColumn", "noVBand"})
        set(look, on, 1);
    for (const char* off : {"lastRow", "lastColumn", "noHBand"})
        set(look, off, 0);
}

void TableEditor::addBorders(pugi::xml_node properties) {
    const pugi::xml_node borders = append(properties, "tblBorders");
    for (const char* side : {"top", "left", "bottom", "right", "insideH", "insideV"}) {
        const pugi::xml_node border = append(borders, side);
        set(border, "val", "single");
        set(border, "sz", 4);
        set(border, "space", 0);
        set(border, "color", "auto");
    }
}

pugi::xml_node TableEditor::makeRowLike(pugi::xml_node row) {
    const opc::WordNames& names = story_.names();
    const pugi::xml_node made = elementFactory_.makeElement("tr");
    const auto copyChild = [&](pugi::xml_node from, const char* name, pugi::xml_node to) {
        const pugi::xml_node child = from.child(names.element(name).c_str());
        if (child) to.append_copy(child);
        return to.last_child();
    };
    copyChild(row, "trPr", made);
    for (const pugi::xml_node cell : cellsOf(row, names)) {
        const pugi::xml_node madeCell = append(made, "tc");
        pugi::xml_node properties = copyChild(cell, "tcPr", madeCell);
        // A cell of the new row is not merged with the one above it.
        properties.remove_child(names.element("vMerge").c_str());
        const pugi::xml_node paragraph = append(madeCell, "p");
        const pugi::xml_node sample = cell.child(names.element("p").c_str());
        copyChild(sample, "pPr", paragraph);
    }
    return made;
}

Item* TableEditor::insertRowItems(pugi::xml_node row, Item* next) {
    for (const pugi::xml_node cell : cellsOf(row, story_.names())) {
        const pugi::xml_node paragraph = story_.names().child(cell, opc::WordTag::Paragraph);
        journal_.insertItem(story_.items(), next, story_.makeItem(ItemKind::ParagraphMark, paragraph, {1}));
    }
    Item* mark = story_.makeItem(ItemKind::RowMark, row, {1});
    journal_.insertItem(story_.items(), next, mark);
    return mark;
}

pugi::xml_node TableEditor::append(pugi::xml_node parent, std::string_view name) {
    return parent.append_child(story_.names().element(name).c_str());
}

void TableEditor::set(pugi::xml_node node, std::string_view name, const std::string& value) {
    node.append_attribute(story_.names().attribute(name).c_str()) = value.c_str();
}

void TableEditor::set(pugi::xml_node node, std::string_view name, std::int64_t value) {
    set(node, name, std::to_string(value));
}

}  // namespace mergeloom::embedded
