#pragma once

#include "describe/Database.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::describe {

/// A part of the name of MariaDB's driver.
inline constexpr std::string_view kMariaDbDriver = "libmaodbc";

/// An error of a driver.
struct OdbcError {
    std::string state{};     ///< SQLSTATE
    std::string sentence{};  ///< one line
};

/// The place of a table. An empty catalog or schema matches any.
struct OdbcTable {
    std::string catalog{};
    std::string schema{};
    std::string name{};
};

/// A connection to a database of ODBC.
class OdbcConnection {
  public:
    /// Raises OdbcError.
    explicit OdbcConnection(const std::string& connectionString);
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;
    ~OdbcConnection();

    /// Returns a property of the driver or an attribute of the connection by its number in ODBC, or an empty
    /// text if there is none.
    [[nodiscard]] std::string information(unsigned short number) const;
    [[nodiscard]] std::string attribute(int number) const;
    [[nodiscard]] void* handle() const { return connection_; }

  private:
    void* environment_ = nullptr;
    void* connection_ = nullptr;
};

/// A statement and its rows. Numbers and dates are texts, as the driver writes them.
class OdbcStatement {
  public:
    /// Raises OdbcError.
    explicit OdbcStatement(std::shared_ptr<OdbcConnection> connection);
    OdbcStatement(const OdbcStatement&) = delete;
    OdbcStatement& operator=(const OdbcStatement&) = delete;
    ~OdbcStatement();

    /// Limits the number of rows that the next execution returns.
    void limitRows(std::size_t rows);
    /// Sets the only parameter to a value of a type of ODBC.
    void bind(const std::string& value, int type);
    /// Raises OdbcError.
    void execute(const std::string& sql);

    /// List parts of the catalog as rows with the columns that ODBC defines for SQLTables, SQLColumns,
    /// SQLPrimaryKeys, SQLStatistics (unique indexes only) and SQLForeignKeys (of the table that has them).
    /// An empty catalog or schema matches any; "%" matches any schema. Raise OdbcError.
    void listTables(const std::string& catalog);
    void listColumns(const std::string& catalog, const std::string& schemas);
    void listPrimaryKey(const OdbcTable& table);
    void listUniqueIndexes(const OdbcTable& table);
    void listForeignKeys(const OdbcTable& table);

    /// Limits the values that next() reads to those of these columns. The others are Null.
    void readOnly(const std::vector<std::size_t>& columns);

    /// Moves to the next row and reads it. Raises OdbcError.
    bool next();
    /// Returns a value of the current row, whose text is valid until the next one.
    [[nodiscard]] const Value& value(std::size_t column) const { return values_[column]; }
    [[nodiscard]] std::string text(std::size_t column) const { return std::string(values_[column].text); }
    [[nodiscard]] int number(std::size_t column) const;

  private:
    template <typename Call>
    void list(const OdbcTable& table, const Call& call);
    void check(short result) const;
    void prepareRows();
    void readValue(std::size_t column);

    std::shared_ptr<OdbcConnection> connection_;
    void* statement_ = nullptr;
    std::u16string parameter_;
    std::vector<Value::Kind> kinds_;  ///< Null for a column that is not read
    std::vector<std::string> texts_;
    std::vector<Value> values_;
    std::vector<char16_t> piece_;  ///< of a value that is being read
};

}  // namespace mergeloom::describe
