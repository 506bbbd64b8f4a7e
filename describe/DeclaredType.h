#pragma once

#include "describe/Database.h"

#include <string_view>

namespace mergeloom::describe {

/// The type of a column and the digits that it shows after the decimal point.
struct DeclaredType {
    ColumnType type = ColumnType::Untyped;
    int decimals = 0;
};

/// Returns the type that a declaration in SQL names, such as "VARCHAR(40)" or "decimal(10, 2)". An empty
/// declaration and one that names no known type are Untyped.
DeclaredType declaredType(std::string_view declaration);

}  // namespace mergeloom::describe
