#include "describe/SqliteConnection.h"

#include "describe/SelectStatement.h"

#include <sqlite3.h>

#include <utility>

namespace mergeloom::describe {

namespace {

constexpr int kMillisecondsToWaitForLock = 2000;

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
        case SQLITE_FULL:
            return "the disk is full.";
        default:
            return std::string(sqlite3_errmsg(connection)) + ".";
    }
}

}  // namespace

SqliteConnection::SqliteConnection(Failure failure, const char* file, int flags)
    : failure_(std::move(failure)), connection_(nullptr, sqlite3_close_v2) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(file, &opened, flags, nullptr);
    connection_.reset(opened);
    if (result != SQLITE_OK) fail(result);
}

SqliteConnection SqliteConnection::openForReading(const std::string& path) {
    SqliteConnection connection({kFileCouldNotBeRead, "The database '" + path + "' could not be read: "},
                                path.c_str(), SQLITE_OPEN_READONLY);
    sqlite3_busy_timeout(connection.get(), kMillisecondsToWaitForLock);
    connection.execute("BEGIN");
    return connection;
}

SqliteConnection SqliteConnection::openScratch() {
    SqliteConnection connection({kFileCouldNotBeSaved, "The records could not be kept in a temporary file: "},
                                "", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    connection.execute("PRAGMA journal_mode = OFF");
    connection.execute("BEGIN");
    return connection;
}

void SqliteConnection::execute(const std::string& sql) const {
    const int result = sqlite3_exec(get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) fail(result);
}

void SqliteConnection::fail(int result) const {
    throw AutomationError(failure_.number, failure_.sentence + reasonOf(get(), result));
}

SqliteStatement::SqliteStatement(const SqliteConnection& connection, const std::string& sql)
    : connection_(connection), statement_(nullptr, sqlite3_finalize) {
    sqlite3_stmt* prepared = nullptr;
    const int result =
        sqlite3_prepare_v2(connection.get(), sql.data(), static_cast<int>(sql.size()), &prepared, nullptr);
    statement_.reset(prepared);
    if (result != SQLITE_OK) connection.fail(result);
}

void SqliteStatement::bind(int parameter, std::string_view text) {
    sqlite3_bind_text(statement_.get(), parameter, text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
}

void SqliteStatement::bind(int parameter, const Value& value) {
    switch (value.kind) {
        case Value::Kind::Integer:
            sqlite3_bind_int64(statement_.get(), parameter, value.integer);
            break;
        case Value::Kind::Real:
            sqlite3_bind_double(statement_.get(), parameter, value.real);
            break;
        case Value::Kind::Text:
            sqlite3_bind_text(statement_.get(), parameter, value.text.data(),
                              static_cast<int>(value.text.size()), SQLITE_STATIC);
            break;
        case Value::Kind::Bytes:
            sqlite3_bind_blob(statement_.get(), parameter, value.text.data(),
                              static_cast<int>(value.text.size()), SQLITE_STATIC);
            break;
        default:
            sqlite3_bind_null(statement_.get(), parameter);
    }
}

bool SqliteStatement::step() {
    const int result = sqlite3_step(statement_.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) connection_.fail(result);
    return result == SQLITE_ROW;
}

void SqliteStatement::reset() {
    sqlite3_reset(statement_.get());
}

std::string SqliteStatement::text(int column) const {
    const unsigned char* const text = sqlite3_column_text(statement_.get(), column);
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

int SqliteStatement::number(int column) const {
    return sqlite3_column_int(statement_.get(), column);
}

bool SqliteStatement::isNull(int column) const {
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

Value SqliteStatement::value(int column) const {
    sqlite3_stmt* const row = statement_.get();
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
            value.text = bytes(column);
            break;
        case SQLITE_BLOB:
            value.kind = Value::Kind::Bytes;
            value.text = bytes(column);
            break;
        default:
            break;
    }
    return value;
}

std::string_view SqliteStatement::bytes(int column) const {
    const void* const bytes = sqlite3_column_blob(statement_.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    return bytes == nullptr ? std::string_view() : std::string_view(static_cast<const char*>(bytes), size);
}

std::unique_ptr<Cursor> selectRows(const SqliteConnection& connection, const RowQuery& query) {
    SqliteStatement statement(connection, selectStatement(query));
    if (query.filter) statement.bind(1, query.filter->value);
    return std::make_unique<SqliteCursor>(std::move(statement));
}

}  // namespace mergeloom::describe
