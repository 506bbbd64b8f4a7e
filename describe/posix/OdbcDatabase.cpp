#include "describe/OdbcDatabase.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "describe/DeclaredType.h"
#include "describe/OdbcConnection.h"
#include "describe/SelectStatement.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <utility>

namespace mergeloom::describe {

namespace {

constexpr const char* kPasswordVariable = "MERGELOOM_ODBC_PASSWORD";
constexpr std::string_view kWrongPassword = "28000";

/// The columns of the catalog functions' results, counted from 0.
namespace tables {
enum : std::size_t { kSchema = 1, kName = 2, kType = 3 };
}
namespace columns {
enum : std::size_t { kSchema = 1, kTable = 2, kName = 3, kType = 4, kTypeName = 5, kDecimals = 8 };
}
namespace keys {
enum : std::size_t { kColumn = 3, kPlace = 4 };
}
namespace indexes {
enum : std::size_t { kName = 5, kColumn = 8, kFilter = 12 };
}
namespace references {
enum : std::size_t { kSchema = 1, kTable = 2, kColumn = 3, kFrom = 7, kPlace = 8 };
}

constexpr std::string_view kMariaDbDriver = "libmaodbc";

/// The options that make drivers return rows one at a time, by parts of the drivers' file names.
struct DriverOptions {
    std::string_view driver;
    std::string_view options;
};
constexpr std::array<DriverOptions, 3> kStreamingOptions{{
    {"psqlodbc", ";UseDeclareFetch=1;Fetch=1000"},
    {kMariaDbDriver, ";FORWARDONLY=1;NO_CACHE=1"},
    {"sqlite3odbc", ";StepAPI=1"},
}};

ColumnType typeOf(int type) {
    switch (type) {
        case SQL_BIT:
            return ColumnType::Boolean;
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return ColumnType::Integer;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return ColumnType::Decimal;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return ColumnType::Real;
        case SQL_TYPE_DATE:
            return ColumnType::Date;
        case SQL_TYPE_TIME:
            return ColumnType::Time;
        case SQL_TYPE_TIMESTAMP:
            return ColumnType::DateAndTime;
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY:
            return ColumnType::Bytes;
        default:
            return ColumnType::Text;
    }
}

/// Returns the column of the current row of a list of columns.
Column columnOf(const OdbcStatement& list) {
    Column column{list.text(columns::kName), {}, typeOf(list.number(columns::kType))};
    if (column.type == ColumnType::Decimal) column.decimals = list.number(columns::kDecimals);
    // Some drivers have other types for booleans and decimal numbers than the database.
    const DeclaredType declared = declaredType(list.text(columns::kTypeName));
    if (declared.type != ColumnType::Boolean && declared.type != ColumnType::Decimal) return column;
    column.type = declared.type;
    column.decimals = declared.decimals;
    return column;
}

bool asksForPassword(const OdbcError& error) {
    return error.state == kWrongPassword ||
           findIgnoringAsciiCase(error.sentence, "password") != std::string_view::npos;
}

/// The place of a table in the database.
struct TablePlace {
    std::string schema;
    std::string name;

    friend auto operator<=>(const TablePlace&, const TablePlace&) = default;
};

class OdbcCursor final : public Cursor {
  public:
    OdbcCursor(std::unique_ptr<OdbcStatement> statement, std::string source, std::string password)
        : statement_(std::move(statement)), source_(std::move(source)), password_(std::move(password)) {}

    bool next() override;
    [[nodiscard]] Value value(std::size_t position) const override { return statement_->value(position); }

  private:
    std::unique_ptr<OdbcStatement> statement_;
    std::string source_;
    std::string password_;
};

/// Runs a task and returns its result. Raises kFileCouldNotBeRead with the driver's sentence, in which the
/// password is replaced.
template <typename Task>
auto attempt(const std::string& source, const std::string& password, const Task& task) {
    try {
        return task();
    } catch (const OdbcError& error) {
        const std::string sentence =
            password.empty() ? error.sentence : replaceAll(error.sentence, password, "***");
        throw AutomationError(kFileCouldNotBeRead,
                              "The database '" + source + "' could not be read: " + sentence);
    }
}

bool OdbcCursor::next() {
    return attempt(source_, password_, [this] { return statement_->next(); });
}

class OdbcDatabase final : public Database {
  public:
    OdbcDatabase(const std::string& source, const PasswordPrompt& askPassword)
        : source_(source), connectionString_(odbcConnectionString(source)) {
        if (const char* const password = std::getenv(kPasswordVariable)) takePassword(password);
        attempt(source_, password_, [&] {
            connect(askPassword);
            readTables();
        });
    }

    [[nodiscard]] const std::vector<Table>& tables() const override { return tables_; }
    [[nodiscard]] const std::vector<std::string>& remarks() const override { return remarks_; }

    std::unique_ptr<Cursor> select(const RowQuery& query) override {
        return attempt(source_, password_, [&]() -> std::unique_ptr<Cursor> {
            // A driver that returns rows one at a time may allow only one open statement for each connection.
            auto statement = std::make_unique<OdbcStatement>(streamingConnection());
            if (query.filter) statement->bind(query.filter->value, filteredType(query));
            statement->execute(selectStatement(query, names()));
            return std::make_unique<OdbcCursor>(std::move(statement), source_, password_);
        });
    }

    std::string sampleOf(const std::string& table, const std::string& column) override {
        return attempt(source_, password_, [&] {
            OdbcStatement statement(connection_);
            statement.limitRows(1);
            const std::string name = quotedName(column, mark_);
            statement.execute("SELECT " + name + " FROM " + qualifiedName(table) + " WHERE " + name +
                              " IS NOT NULL");
            return statement.next() ? statement.text(0) : std::string();
        });
    }

  private:
    void takePassword(const std::string& password) {
        password_ = password;
        connectionString_ = withPassword(connectionString_, password);
    }

    void connect(const PasswordPrompt& askPassword) {
        try {
            connection_ = std::make_shared<OdbcConnection>(connectionString_);
        } catch (const OdbcError& error) {
            if (!password_.empty() || !asksForPassword(error)) throw;
            const std::optional<std::string> password = askPassword();
            if (!password) throw;
            takePassword(*password);
            connection_ = std::make_shared<OdbcConnection>(connectionString_);
        }
        const std::string mark = connection_->information(SQL_IDENTIFIER_QUOTE_CHAR);
        if (!trimBlanks(mark).empty()) mark_ = mark;
        catalog_ = connection_->attribute(SQL_ATTR_CURRENT_CATALOG);
    }

    [[nodiscard]] std::shared_ptr<OdbcConnection> streamingConnection() const {
        const std::string driver = connection_->information(SQL_DRIVER_NAME);
        std::string options;
        for (const DriverOptions& known : kStreamingOptions) {
            if (driver.find(known.driver) != std::string::npos) options = known.options;
        }
        return std::make_shared<OdbcConnection>(connectionString_ + options);
    }

    void readTables() {
        OdbcStatement list(connection_);
        list.listTables(catalog_);
        std::vector<std::pair<TablePlace, TableKind>> found;
        std::map<std::string, int> counts;
        while (list.next()) {
            const TablePlace place{list.text(tables::kSchema), list.text(tables::kName)};
            found.emplace_back(place,
                               list.text(tables::kType) == "VIEW" ? TableKind::View : TableKind::Table);
            ++counts[place.name];
        }
        for (const auto& [place, kind] : found) {
            // Tables with the same name in several schemas get the schema in their names.
            const std::string name = counts[place.name] > 1 ? place.schema + "." + place.name : place.name;
            places_[name] = place;
            names_[place] = name;
            tables_.push_back({kind, name});
        }
        readColumns();
        readBooleans();
        std::erase_if(tables_, [](const Table& table) { return table.columns.empty(); });
        for (Table& table : tables_) {
            if (table.kind == TableKind::Table) readPrimaryKey(table);
        }
        for (Table& table : tables_) {
            if (table.kind == TableKind::Table) readForeignKeys(table);
        }
    }

    void readColumns() {
        OdbcStatement list(connection_);
        const bool hasSchemas =
            std::ranges::any_of(places_, [](const auto& entry) { return !entry.second.schema.empty(); });
        list.listColumns(catalog_, hasSchemas ? "%" : "");
        while (list.next()) {
            const auto name = names_.find({list.text(columns::kSchema), list.text(columns::kTable)});
            if (name == names_.end()) continue;
            const Column column = columnOf(list);
            types_[{name->second, column.name}] = list.number(columns::kType);
            tableNamed(name->second)->columns.push_back(column);
        }
    }

    /// Sets the type of MariaDB's booleans, which are stored as tinyint(1). Its driver reports them as
    /// integers.
    void readBooleans() {
        if (connection_->information(SQL_DRIVER_NAME).find(kMariaDbDriver) == std::string::npos) return;
        OdbcStatement list(connection_);
        list.execute(
            "SELECT TABLE_NAME, COLUMN_NAME FROM information_schema.COLUMNS "
            "WHERE TABLE_SCHEMA = DATABASE() AND COLUMN_TYPE = 'tinyint(1)'");
        while (list.next()) {
            const auto table = std::ranges::find(tables_, list.text(0), &Table::name);
            if (table == tables_.end()) continue;
            const auto column = std::ranges::find(table->columns, list.text(1), &Column::name);
            if (column != table->columns.end()) column->type = ColumnType::Boolean;
        }
    }

    void readPrimaryKey(Table& table) {
        OdbcStatement list(connection_);
        const TablePlace& place = places_.at(table.name);
        list.listPrimaryKey(catalog_, place.schema, place.name);
        std::map<int, std::string> key;
        while (list.next())
            key[list.number(keys::kPlace)] = list.text(keys::kColumn);
        if (key.empty()) return;
        std::vector<std::string>& names = table.keys.emplace_back();
        for (auto& [number, column] : key)
            names.push_back(std::move(column));
    }

    /// Reads the foreign keys of a table. A row with position 1 begins a new key.
    void readForeignKeys(Table& table) {
        OdbcStatement list(connection_);
        const TablePlace& place = places_.at(table.name);
        list.listForeignKeys(catalog_, place.schema, place.name);
        while (list.next()) {
            const auto referred =
                names_.find({list.text(references::kSchema), list.text(references::kTable)});
            if (referred == names_.end()) continue;
            if (list.number(references::kPlace) == 1 || table.foreignKeys.empty())
                table.foreignKeys.push_back({{}, referred->second, {}});
            table.foreignKeys.back().columns.push_back(list.text(references::kFrom));
            table.foreignKeys.back().referredColumns.push_back(list.text(references::kColumn));
        }
        for (ForeignKey& key : table.foreignKeys)
            complete(key);
    }

    /// Adds the referred columns if the driver omits them, as it may for a reference to the primary key.
    void complete(ForeignKey& key) {
        const Table& table = *tableNamed(key.referredTable);
        const bool isWithoutColumns = std::ranges::all_of(key.referredColumns, &std::string::empty);
        if (isWithoutColumns && !table.keys.empty()) key.referredColumns = table.keys.front();
        addUniqueKeys(key);
    }

    /// Reads the further keys of a table if a foreign key does not refer to its primary key.
    void addUniqueKeys(const ForeignKey& key) {
        Table& table = *tableNamed(key.referredTable);
        const bool isKnown = std::ranges::any_of(table.keys, [&](const std::vector<std::string>& known) {
            return std::ranges::is_permutation(known, key.referredColumns);
        });
        if (isKnown) return;
        OdbcStatement list(connection_);
        const TablePlace& place = places_.at(table.name);
        list.listUniqueIndexes(catalog_, place.schema, place.name);
        std::map<std::string, std::vector<std::string>> indexes;
        while (list.next()) {
            const bool isPartial = !list.text(indexes::kFilter).empty();
            if (!list.text(indexes::kColumn).empty() && !isPartial)
                indexes[list.text(indexes::kName)].push_back(list.text(indexes::kColumn));
        }
        for (auto& [name, columns] : indexes)
            table.keys.push_back(std::move(columns));
    }

    Table* tableNamed(const std::string& name) { return &*std::ranges::find(tables_, name, &Table::name); }

    [[nodiscard]] std::string qualifiedName(const std::string& table) const {
        const TablePlace& place = places_.at(table);
        const std::string name = quotedName(place.name, mark_);
        return place.schema.empty() ? name : quotedName(place.schema, mark_) + "." + name;
    }

    [[nodiscard]] SqlNames names() const {
        return {mark_, [this](const std::string& table) { return qualifiedName(table); }};
    }

    /// Returns the type of the column that a filter is about.
    [[nodiscard]] int filteredType(const RowQuery& query) const {
        const std::string& table = query.joins.empty() ? query.table : query.joins.back().table;
        const auto found = types_.find({table, query.filter->column});
        return found == types_.end() ? SQL_WVARCHAR : found->second;
    }

    std::string source_;
    std::string connectionString_;
    std::string password_;
    std::shared_ptr<OdbcConnection> connection_;
    std::string mark_ = "\"";
    std::string catalog_;
    std::vector<Table> tables_;
    std::map<std::string, TablePlace> places_;
    std::map<TablePlace, std::string> names_;
    std::map<std::pair<std::string, std::string>, int> types_;
    std::vector<std::string> remarks_;
};

}  // namespace

std::unique_ptr<Database> openOdbc(const std::string& source, const PasswordPrompt& askPassword) {
    return std::make_unique<OdbcDatabase>(source, askPassword);
}

}  // namespace mergeloom::describe
