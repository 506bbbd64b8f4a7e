#pragma once

#include "describe/Database.h"

#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Returns a name between quotation marks, doubled inside it.
std::string quotedName(std::string_view name, std::string_view mark = "\"");

/// Returns the statement in SQL that reads the rows of a query. The value of its filter is its one parameter.
std::string selectStatement(const RowQuery& query, std::string_view mark = "\"");

}  // namespace mergeloom::describe
