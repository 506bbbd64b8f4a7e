#pragma once

#include "describe/Database.h"

#include <functional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Returns a name between quotation marks, doubled inside it.
std::string quotedName(std::string_view name, std::string_view mark = "\"");

/// The names in the statements of a kind of database.
struct SqlNames {
    std::string mark = "\"";  ///< the quotation mark
    /// Returns the name of a table as statements write it, such as one with its schema; the name in quotation
    /// marks if there is no function.
    std::function<std::string(const std::string&)> table{};
};

/// Returns the statement in SQL that reads the rows of a query. The value of its filter is its one parameter.
std::string selectStatement(const RowQuery& query, const SqlNames& names = {});

}  // namespace mergeloom::describe
