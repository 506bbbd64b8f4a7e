#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// An expression that is a column. The column "*" means all columns; an empty source means any source.
struct ColumnName {
    std::string source{};
    std::string column{};
};

/// Takes a name from the front of a text: "[Ship to]" or "Orders". Returns none for anything else.
std::optional<std::string> takeName(std::string_view& text);

/// Returns the column that an expression of Access names: "Orders.[Ship to]". Returns none for anything else.
std::optional<ColumnName> columnNameOf(std::string_view expression);

}  // namespace mergeloom::describe
