#include "describe/SqliteDatabase.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "describe/DeclaredType.h"
#include "describe/SelectStatement.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace mergeloom::describe {

namespace {

constexpr int kMillisecondsToWaitForLock = 2000;

/// The values of the column "hidden" in a list of columns for those that a query does not return.
constexpr int kHiddenColumn = 1;

[[noreturn]] void raiseNotRead(const std::string& path, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeRead, "The database '" + path + "' could not be read: " + reason);
}

/// Returns a sentence for a result code, or the library's own message.
std::string reasonOf(sqlite3* connection, int result) {
    switch (result & 0xFF) {
        case SQLITE_NOTADB:
            return "it is encrypted or no database of SQLite.";
        case SQLITE_CORRUPT:
            return "it is damaged.";
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "another program has locked it.";
        default:
            return std::string(sqlite3_errmsg(connection)) + ".";
    }
}

std::string textOf(const unsigned char* text) {
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

class Connection {
  public:
    explicit Connection(std::string path) : path_(std::move(path)) {
        sqlite3* opened = nullptr;
        const int result = sqlite3_open_v2(path_.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
        connection_.reset(opened);
        if (result != SQLITE_OK) fail(result);
        sqlite3_busy_timeout(opened, kMillisecondsToWaitForLock);
        // All statements read the same state of the database.
        const int begun = sqlite3_exec(opened, "BEGIN", nullptr, nullptr, nullptr);
        if (begun != SQLITE_OK) fail(begun);
    }

    [[nodiscard]] sqlite3* get() const { return connection_.get(); }
    [[noreturn]] void fail(int result) const { raiseNotRead(path_, reasonOf(get(), result)); }

  private:
    std::string path_;
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> connection_{nullptr, sqlite3_close_v2};
};

/// A statement and, while it is executed, its current row.
class Statement {
  public:
    Statement(const Connection& connection, const std::string& sql) : connection_(connection) {
        sqlite3_stmt* prepared = nullptr;
        const int result = sqlite3_prepare_v2(connection.get(), sql.data(), static_cast<int>(sql.size()),
                                              &prepared, nullptr);
        statement_.reset(prepared);
        if (result != SQLITE_OK) connection.fail(result);
    }

    void bind(int parameter, const std::string& text) {
        sqlite3_bind_text(get(), parameter, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
    bool step() {
        const int result = sqlite3_step(get());
        if (result != SQLITE_ROW && result != SQLITE_DONE) connection_.fail(result);
        return result == SQLITE_ROW;
    }
    [[nodiscard]] std::string text(int column) const { return textOf(sqlite3_column_text(get(), column)); }
    [[nodiscard]] int number(int column) const { return sqlite3_column_int(get(), column); }
    [[nodiscard]] bool isNull(int column) const { return sqlite3_column_type(get(), column) == SQLITE_NULL; }
    [[nodiscard]] sqlite3_stmt* get() const { return statement_.get(); }

  private:
    const Connection& connection_;
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_{nullptr, sqlite3_finalize};
};

class SqliteCursor final : public Cursor {
  public:
    explicit SqliteCursor(Statement statement) : statement_(std::move(statement)) {}

    bool next() override { return statement_.step(); }

    [[nodiscard]] Value value(std::size_t position) const override {
        sqlite3_stmt* const row = statement_.get();
        const int column = static_cast<int>(position);
        Value value;
        switch (sqlite3_column_type(row, column)) {
            case SQLITE_INTEGER:
                value.kind = Value::Kind::Integer;
                value.integer = sqlite3_column_int64(row, column);
                break;
            case SQLITE_FLOAT:
                value.kind = Value::Kind::Real;
                value.real = sqlite3_column_double(row, column);
                break;
            case SQLITE_TEXT:
                value.kind = Value::Kind::Text;
                value.text = bytesOf(column);
                break;
            case SQLITE_BLOB:
                value.kind = Value::Kind::Bytes;
                value.text = bytesOf(column);
                break;
            default:
                break;
        }
        return value;
    }

  private:
    [[nodiscard]] std::string_view bytesOf(int column) const {
        const void* const bytes = sqlite3_column_blob(statement_.get(), column);
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
        return bytes == nullptr ? std::string_view()
                                : std::string_view(static_cast<const char*>(bytes), size);
    }

    Statement statement_;
};

class SqliteDatabase final : public Database {
  public:
    explicit SqliteDatabase(const std::string& path) : connection_(path) { readTables(); }

    [[nodiscard]] const std::vector<Table>& tables() const override { return tables_; }
    [[nodiscard]] const std::vector<std::string>& remarks() const override { return remarks_; }

    std::unique_ptr<Cursor> select(const RowQuery& query) override {
        Statement statement(connection_, selectStatement(query));
        if (query.filter) statement.bind(1, query.filter->value);
        return std::make_unique<SqliteCursor>(std::move(statement));
    }

    std::string sampleOf(const std::string& table, const std::string& column) override {
        const std::string name = quotedName(column);
        Statement statement(connection_, "SELECT " + name + " FROM " + quotedName(table) + " WHERE " + name +
                                             " IS NOT NULL LIMIT 1");
        SqliteCursor cursor(std::move(statement));
        return cursor.next() ? std::string(cursor.value(0).text) : std::string();
    }

  private:
    /// Reads the names of tables and views. Virtual tables are read like others; the tables in which they
    /// keep their content are not listed.
    void readTables() {
        Statement list(connection_,
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
        Statement schema(connection_, "SELECT name FROM sqlite_schema WHERE type IN ('table', 'view')");
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
        Statement list(connection_, "SELECT name, type, pk FROM pragma_table_xinfo(?) WHERE hidden <> " +
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
        Statement list(connection_,
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
        Statement list(connection_, "SELECT name FROM pragma_index_info(?) ORDER BY seqno");
        list.bind(1, index);
        std::vector<std::string> columns;
        while (list.step()) {
            if (list.isNull(0)) return {};
            columns.push_back(list.text(0));
        }
        return columns;
    }

    void readForeignKeys(Table& table) {
        Statement list(connection_,
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

    Connection connection_;
    std::vector<Table> tables_;
    std::vector<std::string> remarks_;
};

}  // namespace

std::unique_ptr<Database> openSqlite(const std::string& path) {
    return std::make_unique<SqliteDatabase>(path);
}

}  // namespace mergeloom::describe
