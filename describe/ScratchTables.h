#pragma once

#include "describe/Database.h"
#include "describe/SqliteConnection.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// Copies of tables in a temporary database, which joins and orders rows for sources that cannot. The copies
/// are stored in a file to limit the memory that is used.
class ScratchTables {
  public:
    /// Raises kFileCouldNotBeRead.
    ScratchTables();

    /// Adds an empty table and returns its name, which is unique. Texts in it are equal regardless of the
    /// case of ASCII letters, and decimal numbers are compared by their values.
    std::string add(const std::vector<Column>& columns);
    /// Adds a table with the rows that a statement selects, in their order, and returns its name.
    std::string addSelected(const std::vector<Column>& columns, const std::string& statement);
    std::unique_ptr<Cursor> select(const RowQuery& query);

    /// Adds rows to one table.
    class Inserter {
      public:
        Inserter(const ScratchTables& tables, const std::string& table, std::size_t columns);
        /// Sets a value of the next row, whose text must exist until the row is added.
        void set(std::size_t column, const Value& value);
        void addRow();

      private:
        SqliteStatement statement_;
    };

  private:
    SqliteConnection connection_;
    std::size_t tables_ = 0;
};

}  // namespace mergeloom::describe
