#pragma once

#include "describe/Database.h"
#include "describe/access/AccessFile.h"
#include "describe/access/FieldValue.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::describe::access {

/// Details of a column that the library does not return, or that differ between its versions.
struct ColumnDetails {
    bool isCalculated = false;
    int scale = 0;  ///< the digits after the point of a decimal number
};

/// A table of a database file and its rows. The file must outlive it.
class AccessTable {
  public:
    /// Raises kFileCouldNotBeRead if there is no such table or it is damaged.
    AccessTable(const AccessFile& file, const std::string& name);

    /// Returns the readable columns.
    [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }
    /// Returns the names of the other columns, each with the reason why it cannot be read.
    [[nodiscard]] const std::vector<std::pair<std::string, std::string>>& unreadable() const {
        return unreadable_;
    }
    /// Returns the readable columns of each key, the primary one first.
    [[nodiscard]] std::vector<std::vector<std::string>> keys() const;
    /// Returns the position of a readable column. The case of letters is ignored. Raises kFileCouldNotBeRead.
    [[nodiscard]] std::size_t positionOf(const std::string& column) const;

    /// Moves to the next row; the first call moves to the first one. Returns false after the last one. Raises
    /// kFileCouldNotBeRead if pages are missing.
    bool next();
    /// Returns a value of the current row. The bytes of texts are stored in the argument.
    Value value(std::size_t column, std::string& text);

  private:
    /// A readable column.
    struct Field {
        std::size_t number = 0;  ///< among all columns
        int stored = 0;          ///< its type in the file
        int scale = 0;
    };

    bool nextPage();
    bool readRow(int row);
    void splitRow(int start, std::size_t size);
    [[nodiscard]] Bytes bytesOf(const MdbField& field) const;
    Value valueOf(int stored, int scale, Bytes bytes, std::string& text);
    std::string textOf(int stored, int scale, Bytes bytes);
    [[nodiscard]] std::string textOf(Bytes bytes) const;
    [[nodiscard]] std::map<int, ColumnDetails> readDetails() const;

    const AccessFile& file_;
    std::unique_ptr<MdbTableDef, void (*)(MdbTableDef*)> table_;
    std::vector<Field> readable_;
    std::vector<Column> columns_;
    std::vector<std::pair<std::string, std::string>> unreadable_;
    std::vector<MdbField> fields_;  ///< of the current row, for all columns
    long page_ = 0;
    int rowOnPage_ = 0;
    int rowsOnPage_ = 0;
    std::size_t textSize_ = 0;  ///< of all texts that were read
};

}  // namespace mergeloom::describe::access
