#include "office/embedded/text/TableElements.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

namespace {

void collect(pugi::xml_node container, opc::WordTag wanted, const opc::WordNames& names,
             std::vector<pugi::xml_node>& found) {
    for (const pugi::xml_node child : container.children()) {
        switch (const opc::WordTag tag = names.tagOf(child)) {
            case opc::WordTag::ContentControl:
            case opc::WordTag::ContentControlContent:
            case opc::WordTag::CustomXml:
            case opc::WordTag::Insertion:
            case opc::WordTag::Deletion:
                collect(child, wanted, names, found);
                break;
            default:
                if (tag == wanted) found.push_back(child);
        }
    }
}

bool isMerged(pugi::xml_node cell, const opc::WordNames& names) {
    const pugi::xml_node properties = cell.child(names.element("tcPr").c_str());
    return properties.child(names.element("vMerge").c_str()) ||
           properties.child(names.element("hMerge").c_str());
}

/// Returns how many columns of the grid the cell takes.
int columnsOf(pugi::xml_node cell, const opc::WordNames& names) {
    const pugi::xml_node span =
        cell.child(names.element("tcPr").c_str()).child(names.element("gridSpan").c_str());
    return span.attribute(names.attribute("val").c_str()).as_int(1);
}

}  // namespace

std::vector<pugi::xml_node> rowsOf(pugi::xml_node table, const opc::WordNames& names) {
    std::vector<pugi::xml_node> rows;
    collect(table, opc::WordTag::Row, names, rows);
    return rows;
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

}  // namespace mergeloom::embedded
