#include "office/libreoffice/word/StoredTable.h"

#include <string_view>

namespace mergeloom::libreoffice {

namespace {

using Row = std::vector<StoredCell>;

/// Letters for a column: 26 large ones, 26 small ones, then two.
std::string columnName(std::size_t column) {
    constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::string name(1, kLetters[column % kLetters.size()]);
    while (column >= kLetters.size()) {
        column = column / kLetters.size() - 1;
        name.insert(name.begin(), kLetters[column % kLetters.size()]);
    }
    return name;
}

void collectRows(const pugi::xml_node& parent, std::vector<pugi::xml_node>& rows) {
    for (const pugi::xml_node child : parent.children()) {
        const std::string_view name = child.name();
        if (name == "table:table-row") rows.push_back(child);
        if (name == "table:table-header-rows" || name == "table:table-rows" ||
            name == "table:table-row-group")
            collectRows(child, rows);
    }
}

pugi::xml_node partsOf(const pugi::xml_node& cell) {
    const pugi::xml_node table = cell.child("table:table");
    return table.attribute("table:is-sub-table").as_bool() ? table : pugi::xml_node();
}

void addCell(const pugi::xml_node& cell, const std::string& name, Row& row);

void addParts(const pugi::xml_node& table, const std::string& whole, Row& row) {
    std::vector<pugi::xml_node> lines;
    collectRows(table, lines);
    for (std::size_t line = 0; line < lines.size(); ++line) {
        std::size_t column = 0;
        for (const pugi::xml_node cell : lines[line].children("table:table-cell"))
            addCell(cell, whole + "." + std::to_string(++column) + "." + std::to_string(line + 1), row);
    }
}

void addCell(const pugi::xml_node& cell, const std::string& name, Row& row) {
    if (const pugi::xml_node parts = partsOf(cell)) return addParts(parts, name, row);
    row.push_back({name, cell, cell.attribute("table:number-columns-spanned").as_int(1),
                   cell.attribute("table:number-rows-spanned").as_int(1)});
}

/// Which columns a cell above still reaches into, by the number of rows.
using Reach = std::vector<int>;

Row storedRow(const pugi::xml_node& element, const std::string& number, Reach& reach) {
    Row row;
    std::size_t column = 0;
    std::size_t place = 0;
    for (const pugi::xml_node cell : element.children()) {
        const bool isCovered = std::string_view(cell.name()) == "table:covered-table-cell";
        if (!isCovered && std::string_view(cell.name()) != "table:table-cell") continue;
        if (reach.size() <= column) reach.resize(column + 1);
        int& rowsBelow = reach[column++];
        if (!isCovered) {
            rowsBelow = cell.attribute("table:number-rows-spanned").as_int(1) - 1;
            addCell(cell, columnName(place++) + number, row);
        } else if (rowsBelow > 0) {
            --rowsBelow;
            row.push_back({.name = columnName(place++) + number, .element = cell, .rows = 0});
        }
    }
    return row;
}

}  // namespace

std::vector<Row> storedRows(const pugi::xml_node& table) {
    std::vector<pugi::xml_node> elements;
    collectRows(table, elements);
    std::vector<Row> rows;
    rows.reserve(elements.size());
    Reach reach;
    for (const pugi::xml_node element : elements)
        rows.push_back(storedRow(element, std::to_string(rows.size() + 1), reach));
    return rows;
}

}  // namespace mergeloom::libreoffice
