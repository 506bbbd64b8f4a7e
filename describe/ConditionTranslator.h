#pragma once

#include "describe/ColumnName.h"
#include "describe/Database.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// A column in a statement of SQLite.
struct StatementColumn {
    std::string text{};
    ColumnType type = ColumnType::Untyped;
};

/// Finds the column that a name means, as comparedColumn returns it; returns none for an unknown or ambiguous
/// one.
using ColumnFinder = std::function<std::optional<StatementColumn>(const ColumnName&)>;

/// Decides whether texts may be compared with one another. They are compared regardless of the case of ASCII
/// letters, which is what Access does for texts of ASCII letters only.
enum class TextColumns { Compared, Refused };

/// Returns the expression whose values are in the order of Access: True is -1, and a time without a date
/// belongs to day 0.
StatementColumn comparedColumn(const StatementColumn& column);

/// Translates a condition of Access into one of SQLite: comparisons of columns with values and other columns,
/// Is Null, Between and In, joined by And, Or and Not. Returns none for anything else, and for comparisons
/// whose result may differ, such as the order of texts.
std::optional<std::string> translateCondition(std::string_view condition, const ColumnFinder& find,
                                              TextColumns texts);

}  // namespace mergeloom::describe
