#include "describe/ScratchTables.h"

#include "describe/DecimalText.h"
#include "describe/SelectStatement.h"

#include <sqlite3.h>

#include <string_view>

namespace mergeloom::describe {

namespace {

constexpr const char* kDecimalCollation = "DECIMAL_NUMBER";

int compareDecimalNumbers(void* /*unused*/, int leftSize, const void* left, int rightSize,
                          const void* right) {
    const std::string_view a(static_cast<const char*>(left), static_cast<std::size_t>(leftSize));
    const std::string_view b(static_cast<const char*>(right), static_cast<std::size_t>(rightSize));
    return compareDecimals(a, b);
}

/// Returns the declaration of a column, which determines how its values are compared.
std::string declarationOf(ColumnType type) {
    switch (type) {
        case ColumnType::Integer:
        case ColumnType::Boolean:
            return " INTEGER";
        case ColumnType::Real:
            return " REAL";
        case ColumnType::Decimal:
            return std::string(" TEXT COLLATE ") + kDecimalCollation;
        case ColumnType::Bytes:
            return " BLOB";
        default:
            return " TEXT COLLATE NOCASE";
    }
}

std::string insertStatement(const std::string& table, std::size_t columns) {
    std::string statement = "INSERT INTO " + quotedName(table) + " VALUES (";
    for (std::size_t number = 0; number < columns; ++number)
        statement += number == 0 ? "?" : ", ?";
    return statement + ")";
}

}  // namespace

ScratchTables::ScratchTables() : connection_(SqliteConnection::openScratch()) {
    const int result = sqlite3_create_collation(connection_.get(), kDecimalCollation, SQLITE_UTF8, nullptr,
                                                compareDecimalNumbers);
    if (result != SQLITE_OK) connection_.fail(result);
}

std::string ScratchTables::add(const std::vector<Column>& columns) {
    const std::string name = "copy" + std::to_string(++tables_);
    std::string statement = "CREATE TABLE " + quotedName(name);
    const char* separator = " (";
    for (const Column& column : columns) {
        statement += separator + quotedName(column.name) + declarationOf(column.type);
        separator = ", ";
    }
    connection_.execute(statement + ")");
    return name;
}

std::string ScratchTables::addSelected(const std::vector<Column>& columns, const std::string& statement) {
    std::string name = add(columns);
    connection_.execute("INSERT INTO " + quotedName(name) + " " + statement);
    return name;
}

std::unique_ptr<Cursor> ScratchTables::select(const RowQuery& query) {
    return selectRows(connection_, query);
}

ScratchTables::Inserter::Inserter(const ScratchTables& tables, const std::string& table, std::size_t columns)
    : statement_(tables.connection_, insertStatement(table, columns)) {}

void ScratchTables::Inserter::set(std::size_t column, const Value& value) {
    statement_.bind(static_cast<int>(column) + 1, value);
}

void ScratchTables::Inserter::addRow() {
    statement_.step();
    statement_.reset();
}

}  // namespace mergeloom::describe
