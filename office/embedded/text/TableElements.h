#pragma once

#include "office/opc/WordNames.h"

#include <pugixml.hpp>
#include <vector>

namespace mergeloom::embedded {

/// Return the rows of a table and the cells of a row (ECMA-376 Part 1, 17.4), also those in content controls
/// or tracked changes; those of nested tables do not count.
std::vector<pugi::xml_node> rowsOf(pugi::xml_node table, const opc::WordNames& names);
std::vector<pugi::xml_node> cellsOf(pugi::xml_node row, const opc::WordNames& names);

/// Returns how many columns the table's grid has; for a table without a grid, how many cells its longest row
/// has.
int columnCountOf(pugi::xml_node table, const opc::WordNames& names);

/// Returns whether all rows have the same cells over the same columns of the grid, and no cell spans several
/// rows.
bool isUniform(pugi::xml_node table, const opc::WordNames& names);

}  // namespace mergeloom::embedded
