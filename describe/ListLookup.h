#pragma once

#include "describe/Database.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// Returns the index of the first column that is not hidden.
std::size_t firstVisibleColumn(const ListSource& list);

/// Returns the column that a list shows for the values of a column. Returns none for a list that is no table
/// and no "SELECT columns FROM table", and if the rows of the list are not identified by the values.
std::optional<Lookup> lookupIn(const ListSource& list, const std::string& column,
                               const std::vector<Table>& tables);

}  // namespace mergeloom::describe
