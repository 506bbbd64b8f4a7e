#pragma once

#include "describe/Database.h"
#include "describe/OdbcConnection.h"
#include "describe/OdbcKeys.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::describe {

/// The tables and views of a database of ODBC with their columns and keys.
class OdbcCatalog {
  public:
    /// Raises OdbcError.
    explicit OdbcCatalog(std::shared_ptr<OdbcConnection> connection);

    [[nodiscard]] const std::vector<Table>& tables() const { return tables_; }
    /// Returns the place of a table that has this name here.
    [[nodiscard]] const OdbcTable& placeOf(const std::string& table) const { return places_.at(table); }
    /// Returns the type of a column in ODBC.
    [[nodiscard]] int typeOf(const std::string& table, const std::string& column) const;

  private:
    void readTables();
    void readColumns();
    void readBooleans();
    void forgetTablesWithoutColumns();
    void addKeys(const std::vector<OdbcKeyColumn>& columns);
    void addForeignColumn(Table& table, const OdbcKeyColumn& column, bool begins);
    void listKeys();
    void readPrimaryKey(Table& table);
    void readForeignKeys(Table& table);
    void complete(ForeignKey& key);
    void addUniqueKeys(const ForeignKey& key);
    void readUniqueKeys(const Table& table);
    Table& tableOf(const std::string& name);

    std::shared_ptr<OdbcConnection> connection_;
    std::string catalog_;
    std::vector<Table> tables_;
    std::map<std::string, OdbcTable> places_;
    std::map<std::pair<std::string, std::string>, std::string> names_;  ///< by schema and name
    std::map<std::pair<std::string, std::string>, int> types_;          ///< by table and column
    /// By table, those besides the primary one. They are read for a foreign key that needs them, if not for
    /// all tables at once.
    std::map<std::string, std::vector<std::vector<std::string>>> uniqueKeys_;
    bool areUniqueKeysRead_ = false;
};

}  // namespace mergeloom::describe
