#pragma once

#include "office/opc/XmlPart.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// A cell of a table as Writer stores it.
struct StoredCell {
    std::string name;        ///< by which Writer finds it, such as "B2"
    pugi::xml_node element;  ///< that holds its paragraphs
    int columns = 1;         ///< how many of the table's columns it takes
    int rows = 1;  ///< how many rows it takes; 0 where one above covers it and its text is not stored
};

/// The cells of a table, row by row. A cell that reaches over several columns is one; below a cell that
/// reaches over several rows there is a covered one in each. The parts of a split cell stand in the row of
/// the whole.
std::vector<std::vector<StoredCell>> storedRows(const pugi::xml_node& table);

}  // namespace mergeloom::libreoffice
