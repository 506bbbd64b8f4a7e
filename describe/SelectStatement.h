#pragma once

#include "describe/Database.h"

#include <functional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Returns a name between quotation marks, doubled inside it.
std::string quotedName(std::string_view name, std::string_view mark = "\"");

/// The syntax of names in the statements of a kind of database.
struct SqlNames {
    std::string mark = "\"";  ///< the quotation mark
    /// Returns the name of a table for statements, for example with its schema. Without a function, it is the
    /// name in quotation marks.
    std::function<std::string(const std::string&)> table{};
};

/// Returns the statement in SQL that reads the rows of a query. The value of its filter is its one parameter.
std::string selectStatement(const RowQuery& query, const SqlNames& names = {});

}  // namespace mergeloom::describe
