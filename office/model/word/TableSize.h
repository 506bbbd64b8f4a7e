#pragma once

#include "base/AutomationError.h"

#include <cstddef>
#include <string>

namespace mergeloom::word {

/// The number of columns that Word allows in a table.
inline constexpr std::size_t kMaxTableColumns = 63;

/// Returns the sentence that refuses a table with more columns.
inline std::string tooManyColumns(std::size_t columns) {
    return "A Word table has at most " + std::to_string(kMaxTableColumns) + " columns; " +
           std::to_string(columns) + " were asked for.";
}

/// Raises kCommandFailed for a size that no new table can have.
inline void checkTableSize(int rows, int columns) {
    if (columns > static_cast<int>(kMaxTableColumns))
        throw AutomationError(kCommandFailed, tooManyColumns(static_cast<std::size_t>(columns)));
    if (rows < 1 || columns < 1) throw AutomationError(kCommandFailed, "A table needs rows and columns.");
}

}  // namespace mergeloom::word
