#include "describe/SqliteDatabase.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "describe/DeclaredType.h"
#include "describe/SelectStatement.h"
#include "describe/SqliteConnection.h"

#include <algorithm>
#include <utility>

namespace mergeloom::describe {

namespace {

/// The values of the column "hidden" in a list of columns for those that a query does not return.
constexpr int kHiddenColumn = 1;

class SqliteDatabase final : public Database {
  public:
    explicit SqliteDatabase(const std::string& path) : connection_(SqliteConnection::openForReading(path)) {
        readTables();
    }

    [[nodiscard]] const std::vector<Table>& tables() const override { return tables_; }
    [[nodiscard]] const std::vector<std::string>& remarks() const override { return remarks_; }

    std::unique_ptr<Cursor> select(const RowQuery& query) override { return selectRows(connection_, query); }

    std::optional<std::string> sampleOf(const std::string& table, const std::string& column) override {
        const std::string name = quotedName(column);
        SqliteStatement statement(connection_, "SELECT " + name + " FROM " + quotedName(table) + " WHERE " +
                                                   name + " IS NOT NULL LIMIT 1");
        SqliteCursor cursor(std::move(statement));
        return cursor.next() ? std::string(cursor.value(0).text) : std::string();
    }

  private:
    /// Reads the names of tables and views. Virtual tables are read like others; the tables in which they
    /// keep their content are not listed.
    void readTables() {
        SqliteStatement list(
            connection_,
            "SELECT name, type FROM pragma_table_list WHERE schema = 'main' AND type <> 'shadow' "
            "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
        while (list.step())
            tables_.push_back({list.text(1) == "view" ? TableKind::View : TableKind::Table, list.text(0)});
        // The list is in no order, unlike the schema.
        orderAsInSchema();
        std::erase_if(tables_, [this](Table& table) { return !readTable(table); });
        completeForeignKeys();
    }

    void orderAsInSchema() {
        SqliteStatement schema(connection_, "SELECT name FROM sqlite_schema WHERE type IN ('table', 'view')");
        auto next = tables_.begin();
        while (schema.step()) {
            const auto found = std::ranges::find(next, tables_.end(), schema.text(0), &Table::name);
            if (found != tables_.end()) std::iter_swap(next++, found);
        }
    }

    /// Returns false for a view whose tables or columns no longer exist.
    bool readTable(Table& table) {
        try {
            readColumns(table);
        } catch (const AutomationError& error) {
            if (table.kind == TableKind::Table) throw;
            remarks_.push_back("The view '" + table.name + "' is left out: " + error.description());
            return false;
        }
        readKeys(table);
        readForeignKeys(table);
        return true;
    }

    void readColumns(Table& table) {
        SqliteStatement list(connection_,
                             "SELECT name, type, pk FROM pragma_table_xinfo(?) WHERE hidden <> " +
                                 std::to_string(kHiddenColumn) + " ORDER BY cid");
        list.bind(1, table.name);
        std::vector<std::pair<int, std::string>> keyParts;
        while (list.step()) {
            const DeclaredType type = declaredType(list.text(1));
            table.columns.push_back({list.text(0), {}, type.type, type.decimals});
            if (list.number(2) > 0) keyParts.emplace_back(list.number(2), list.text(0));
        }
        if (keyParts.empty()) return;
        std::ranges::sort(keyParts);
        std::vector<std::string>& key = table.keys.emplace_back();
        for (auto& [place, name] : keyParts)
            key.push_back(std::move(name));
    }

    /// Reads the keys that are not the primary one. An index of a part of the rows is no key.
    void readKeys(Table& table) {
        SqliteStatement list(connection_,
                             "SELECT name FROM pragma_index_list(?) WHERE \"unique\" = 1 AND partial = 0 AND "
                             "origin <> 'pk' ORDER BY seq DESC");
        list.bind(1, table.name);
        while (list.step()) {
            std::vector<std::string> key = columnsOfIndex(list.text(0));
            if (!key.empty()) table.keys.push_back(std::move(key));
        }
    }

    /// Returns no columns for an index of expressions.
    std::vector<std::string> columnsOfIndex(const std::string& index) {
        SqliteStatement list(connection_, "SELECT name FROM pragma_index_info(?) ORDER BY seqno");
        list.bind(1, index);
        std::vector<std::string> columns;
        while (list.step()) {
            if (list.isNull(0)) return {};
            columns.push_back(list.text(0));
        }
        return columns;
    }

    void readForeignKeys(Table& table) {
        SqliteStatement list(connection_,
                             "SELECT id, \"table\", \"from\", \"to\" FROM pragma_foreign_key_list(?) "
                             "ORDER BY id DESC, seq");
        list.bind(1, table.name);
        int id = -1;
        while (list.step()) {
            if (list.number(0) != id) table.foreignKeys.push_back({{}, list.text(1), {}});
            id = list.number(0);
            ForeignKey& key = table.foreignKeys.back();
            key.columns.push_back(list.text(2));
            if (!list.isNull(3)) key.referredColumns.push_back(list.text(3));
        }
    }

    /// Replaces names by their spelling in the referred tables, and adds the columns that a foreign key
    /// leaves out because it refers to the primary key.
    void completeForeignKeys() {
        for (Table& table : tables_) {
            for (ForeignKey& key : table.foreignKeys)
                complete(key);
            std::erase_if(table.foreignKeys, [](const ForeignKey& key) {
                return key.referredColumns.size() != key.columns.size();
            });
        }
    }

    void complete(ForeignKey& key) const {
        const auto found = std::ranges::find_if(tables_, [&](const Table& table) {
            return equalsIgnoringAsciiCase(table.name, key.referredTable);
        });
        if (found == tables_.end()) return key.referredColumns.clear();
        key.referredTable = found->name;
        if (key.referredColumns.empty() && !found->keys.empty()) key.referredColumns = found->keys.front();
        for (std::string& referred : key.referredColumns) {
            const auto column = std::ranges::find_if(found->columns, [&](const Column& candidate) {
                return equalsIgnoringAsciiCase(candidate.name, referred);
            });
            if (column != found->columns.end()) referred = column->name;
        }
    }

    SqliteConnection connection_;
    std::vector<Table> tables_;
    std::vector<std::string> remarks_;
};

}  // namespace

std::unique_ptr<Database> openSqlite(const std::string& path) {
    return std::make_unique<SqliteDatabase>(path);
}

}  // namespace mergeloom::describe
