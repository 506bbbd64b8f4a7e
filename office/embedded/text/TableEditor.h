#pragma once

#include "office/embedded/text/StoryEditor.h"
#include "office/opc/WordNames.h"

#include <pugixml.hpp>
#include <vector>

namespace mergeloom::embedded {

/// Return the rows of a table and the cells of a row (ECMA-376 Part 1, 17.4), also those in content controls
/// or tracked changes; those of nested tables do not count.
std::vector<pugi::xml_node> rowsOf(pugi::xml_node table, const opc::WordNames& names);
std::vector<pugi::xml_node> cellsOf(pugi::xml_node row, const opc::WordNames& names);
/// Returns how many columns of the grid a cell takes.
int columnsOf(pugi::xml_node cell, const opc::WordNames& names);
/// Returns the last of rowsOf without visiting the others; none for a table without rows.
pugi::xml_node lastRowOf(pugi::xml_node table, const opc::WordNames& names);

/// Returns how many columns the table's grid has; for a table without a grid, how many cells its longest row
/// has.
int columnCountOf(pugi::xml_node table, const opc::WordNames& names);

/// Returns true if all rows have the same cells over the same columns of the grid, and no cell spans several
/// rows.
bool isUniform(pugi::xml_node table, const opc::WordNames& names);

/// The shape of a new table.
struct TableShape {
    int rows = 0;
    int columns = 0;
    std::int64_t width = 0;  ///< of the whole table, in twips
    /// True when the document has the style "TableGrid"; without it the table has borders of its own.
    bool hasGridStyle = false;
};

/// Inserts tables and rows into a story.
class TableEditor {
  public:
    TableEditor(Story& story, StoryEditor& editor, WordElementFactory& elementFactory, EditJournal& journal)
        : story_(story), editor_(editor), elementFactory_(elementFactory), journal_(journal) {}

    /// Inserts a table before the paragraph at the position; a paragraph with text before the position is
    /// split there first. Returns the mark of the table's first row.
    Item* insertTable(CharacterPosition position, const TableShape& shape);

    /// Appends a row like the last one, whose mark is given, with empty cells. Returns its mark.
    Item* appendRow(const Item* lastRowMark);

  private:
    pugi::xml_node makeTable(const TableShape& shape);
    pugi::xml_node makeRowLike(pugi::xml_node row);
    void addProperties(pugi::xml_node table, const TableShape& shape);
    void addBorders(pugi::xml_node properties);
    pugi::xml_node append(pugi::xml_node parent, std::string_view name);
    void set(pugi::xml_node node, std::string_view name, const std::string& value);
    void set(pugi::xml_node node, std::string_view name, std::int64_t value);
    /// Adds the items of a row before an item; returns the row's mark.
    Item* insertRowItems(pugi::xml_node row, Item* next);

    Story& story_;
    StoryEditor& editor_;
    WordElementFactory& elementFactory_;
    EditJournal& journal_;
};

}  // namespace mergeloom::embedded
