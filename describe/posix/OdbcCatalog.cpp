#include "describe/OdbcCatalog.h"

#include "describe/DeclaredType.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cstddef>
#include <set>

namespace mergeloom::describe {

namespace {

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
enum : std::size_t { kSchema = 1, kTable = 2, kColumn = 3, kFrom = 7, kPlace = 8, kName = 11 };
}

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

/// A foreign key whose rows are not all read yet.
struct KeyRows {
    std::string name;
    std::string referredTable;
    std::map<int, std::pair<std::string, std::string>> columns{};  ///< by their place in the key
};

ForeignKey foreignKeyOf(const KeyRows& rows) {
    ForeignKey key{{}, rows.referredTable, {}};
    for (const auto& [place, columns] : rows.columns) {
        key.columns.push_back(columns.first);
        key.referredColumns.push_back(columns.second);
    }
    return key;
}

/// Returns the key to which a row belongs. Rows are ordered by the referred table and the place in the key,
/// so those of several keys may alternate. Without a name, which is optional, place 1 begins a new key.
KeyRows& keyOfRow(std::vector<KeyRows>& keys, const std::string& name, const std::string& referred,
                  int place) {
    const auto isSame = [&](const KeyRows& key) { return key.name == name && key.referredTable == referred; };
    const auto found = name.empty() ? keys.end() : std::ranges::find_if(keys, isSame);
    if (found != keys.end()) return *found;
    const bool continues = name.empty() && place != 1 && !keys.empty();
    if (!continues) keys.push_back({name, referred});
    return keys.back();
}

}  // namespace

OdbcCatalog::OdbcCatalog(std::shared_ptr<OdbcConnection> connection)
    : connection_(std::move(connection)), catalog_(connection_->attribute(SQL_ATTR_CURRENT_CATALOG)) {
    readTables();
    readColumns();
    readBooleans();
    forgetTablesWithoutColumns();
    const std::optional<std::vector<OdbcKeyColumn>> keys = keysOfAllTables(connection_);
    keys ? addKeys(*keys) : listKeys();
}

void OdbcCatalog::listKeys() {
    for (Table& table : tables_) {
        if (table.kind == TableKind::Table) readPrimaryKey(table);
    }
    for (Table& table : tables_) {
        if (table.kind == TableKind::Table) readForeignKeys(table);
    }
}

void OdbcCatalog::forgetTablesWithoutColumns() {
    std::set<std::string> forgotten;
    for (const Table& table : tables_) {
        if (table.columns.empty()) forgotten.insert(table.name);
    }
    std::erase_if(tables_, [](const Table& table) { return table.columns.empty(); });
    std::erase_if(names_, [&](const auto& name) { return forgotten.contains(name.second); });
}

void OdbcCatalog::addKeys(const std::vector<OdbcKeyColumn>& columns) {
    std::map<std::string, Table*> tables;
    for (Table& table : tables_)
        tables[table.name] = &table;
    const OdbcKeyColumn* previous = nullptr;
    for (const OdbcKeyColumn& column : columns) {
        const bool begins = previous == nullptr || !previous->isOfSameKey(column);
        previous = &column;
        const auto name = names_.find({column.table.schema, column.table.name});
        if (name == names_.end()) continue;
        if (column.kind == OdbcKeyColumn::Kind::Foreign) {
            addForeignColumn(*tables[name->second], column, begins);
            continue;
        }
        auto& keys = column.kind == OdbcKeyColumn::Kind::Primary ? tables[name->second]->keys
                                                                 : uniqueKeys_[name->second];
        if (begins) keys.emplace_back();
        keys.back().push_back(column.column);
    }
    areUniqueKeysRead_ = true;
    for (Table& table : tables_) {
        for (ForeignKey& key : table.foreignKeys)
            complete(key);
    }
}

/// Omits keys that refer to tables that are not described.
void OdbcCatalog::addForeignColumn(Table& table, const OdbcKeyColumn& column, bool begins) {
    const auto referred = names_.find({column.referredTable.schema, column.referredTable.name});
    if (referred == names_.end()) return;
    if (begins) table.foreignKeys.push_back({{}, referred->second, {}});
    table.foreignKeys.back().columns.push_back(column.column);
    table.foreignKeys.back().referredColumns.push_back(column.referredColumn);
}

int OdbcCatalog::typeOf(const std::string& table, const std::string& column) const {
    const auto found = types_.find({table, column});
    return found == types_.end() ? SQL_WVARCHAR : found->second;
}

void OdbcCatalog::readTables() {
    OdbcStatement list(connection_);
    list.listTables(catalog_);
    list.readOnly({tables::kSchema, tables::kName, tables::kType});
    std::vector<std::pair<OdbcTable, TableKind>> found;
    std::map<std::string, int> counts;
    while (list.next()) {
        const OdbcTable place{catalog_, list.text(tables::kSchema), list.text(tables::kName)};
        found.emplace_back(place, list.text(tables::kType) == "VIEW" ? TableKind::View : TableKind::Table);
        ++counts[place.name];
    }
    for (const auto& [place, kind] : found) {
        // Tables with the same name in several schemas get the schema in their names.
        const std::string name = counts[place.name] > 1 ? place.schema + "." + place.name : place.name;
        places_[name] = place;
        names_[{place.schema, place.name}] = name;
        tables_.push_back({kind, name});
    }
}

void OdbcCatalog::readColumns() {
    OdbcStatement list(connection_);
    const bool hasSchemas =
        std::ranges::any_of(places_, [](const auto& entry) { return !entry.second.schema.empty(); });
    list.listColumns(catalog_, hasSchemas ? "%" : "");
    list.readOnly({columns::kSchema, columns::kTable, columns::kName, columns::kType, columns::kTypeName,
                   columns::kDecimals});
    Table* table = nullptr;
    while (list.next()) {
        const auto name = names_.find({list.text(columns::kSchema), list.text(columns::kTable)});
        if (name == names_.end()) continue;
        // The columns of a table are consecutive, so the table is searched only once for them.
        if (table == nullptr || table->name != name->second) table = &tableOf(name->second);
        Column column = columnOf(list);
        types_[{name->second, column.name}] = list.number(columns::kType);
        table->columns.push_back(std::move(column));
    }
}

/// Sets the type of MariaDB's booleans, which are stored as tinyint(1). Its driver reports them as integers.
void OdbcCatalog::readBooleans() {
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

void OdbcCatalog::readPrimaryKey(Table& table) {
    OdbcStatement list(connection_);
    list.listPrimaryKey(placeOf(table.name));
    std::map<int, std::string> key;
    while (list.next())
        key[list.number(keys::kPlace)] = list.text(keys::kColumn);
    if (key.empty()) return;
    std::vector<std::string>& names = table.keys.emplace_back();
    for (auto& [number, column] : key)
        names.push_back(std::move(column));
}

void OdbcCatalog::readForeignKeys(Table& table) {
    OdbcStatement list(connection_);
    list.listForeignKeys(placeOf(table.name));
    std::vector<KeyRows> rows;
    while (list.next()) {
        const auto referred = names_.find({list.text(references::kSchema), list.text(references::kTable)});
        if (referred == names_.end()) continue;
        const int place = list.number(references::kPlace);
        KeyRows& key = keyOfRow(rows, list.text(references::kName), referred->second, place);
        key.columns[place] = {list.text(references::kFrom), list.text(references::kColumn)};
    }
    // The order of several keys to one table depends on the driver.
    std::ranges::stable_sort(rows, {}, &KeyRows::name);
    for (const KeyRows& key : rows) {
        table.foreignKeys.push_back(foreignKeyOf(key));
        complete(table.foreignKeys.back());
    }
}

/// Adds the referred columns if the driver omits them, as it may for a reference to the primary key.
void OdbcCatalog::complete(ForeignKey& key) {
    const Table& table = tableOf(key.referredTable);
    const bool isWithoutColumns = std::ranges::all_of(key.referredColumns, &std::string::empty);
    if (isWithoutColumns && !table.keys.empty()) key.referredColumns = table.keys.front();
    addUniqueKeys(key);
}

/// Reads the further keys of a table if a foreign key does not refer to its primary key.
void OdbcCatalog::addUniqueKeys(const ForeignKey& key) {
    Table& table = tableOf(key.referredTable);
    const bool isKnown = std::ranges::any_of(table.keys, [&](const std::vector<std::string>& known) {
        return std::ranges::is_permutation(known, key.referredColumns);
    });
    if (isKnown) return;
    if (!areUniqueKeysRead_) readUniqueKeys(table);
    const std::vector<std::vector<std::string>>& keys = uniqueKeys_[table.name];
    table.keys.insert(table.keys.end(), keys.begin(), keys.end());
}

void OdbcCatalog::readUniqueKeys(const Table& table) {
    OdbcStatement list(connection_);
    list.listUniqueIndexes(placeOf(table.name));
    std::map<std::string, std::vector<std::string>> indexes;
    while (list.next()) {
        const bool isPartial = !list.text(indexes::kFilter).empty();
        if (!list.text(indexes::kColumn).empty() && !isPartial)
            indexes[list.text(indexes::kName)].push_back(list.text(indexes::kColumn));
    }
    std::vector<std::vector<std::string>>& keys = uniqueKeys_[table.name];
    keys.clear();
    for (auto& [name, columns] : indexes)
        keys.push_back(std::move(columns));
}

/// Returns a table by its name here. Names that differ only in case are different.
Table& OdbcCatalog::tableOf(const std::string& name) {
    return *std::ranges::find(tables_, name, &Table::name);
}

}  // namespace mergeloom::describe
