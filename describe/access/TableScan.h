#pragma once

#include "describe/access/AccessTable.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom::describe::access {

/// Reads some columns of all rows of a table.
class TableScan {
  public:
    /// Raises kFileCouldNotBeRead.
    TableScan(const AccessFile& file, const std::string& table, const std::vector<std::string>& columns)
        : table_(file, table), texts_(columns.size()) {
        for (const std::string& column : columns)
            positions_.push_back(table_.positionOf(column));
    }

    bool next() { return table_.next(); }
    /// Returns the value of one of the columns, by its index in the constructor's list. Its text is valid
    /// until the next row.
    Value value(std::size_t column) { return table_.value(positions_[column], texts_[column]); }
    std::string text(std::size_t column) { return std::string(value(column).text); }
    std::int64_t number(std::size_t column) { return value(column).integer; }

  private:
    AccessTable table_;
    std::vector<std::size_t> positions_;
    std::vector<std::string> texts_;
};

}  // namespace mergeloom::describe::access
