#include "describe/OdbcConnection.h"

#include "base/ConnectionString.h"
#include "base/Text.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

namespace mergeloom::describe {

namespace {

constexpr std::uintptr_t kSecondsToConnect = 10;
constexpr std::size_t kValuePieceSize = 4096;  ///< in bytes, without the end of a text
constexpr std::size_t kNameSize = 1024;        ///< in characters
constexpr std::size_t kMaxScale = 1000;

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the driver manager has texts of UTF-16");

/// A text argument of a function of ODBC. An empty text is passed as a null pointer, which matches any value.
class WideText {
  public:
    explicit WideText(const std::string& text) : units_(toUtf16(text)) {}
    SQLWCHAR* get() { return units_.empty() ? nullptr : reinterpret_cast<SQLWCHAR*>(units_.data()); }
    [[nodiscard]] SQLSMALLINT size() const { return static_cast<SQLSMALLINT>(units_.size()); }

  private:
    std::u16string units_;
};

/// Converts a number to the pointer type in which ODBC takes attribute values.
SQLPOINTER pointer(std::uintptr_t number) {
    return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

std::string textOf(const std::array<SQLWCHAR, kNameSize>& units, std::size_t size) {
    return fromUtf16({reinterpret_cast<const char16_t*>(units.data()), std::min(size, kNameSize - 1)});
}

/// Converts a driver's message to one sentence. Drivers write their names in brackets before a message, and
/// some write several lines.
std::string sentenceOf(std::string message) {
    while (message.starts_with('[') && message.find(']') != std::string::npos)
        message.erase(0, message.find(']') + 1);
    std::ranges::replace(message, '\n', ' ');
    std::ranges::replace(message, '\t', ' ');
    message = trimBlanks(message);
    return message.empty() || message.ends_with('.') ? message : message + ".";
}

[[noreturn]] void raise(SQLSMALLINT kind, SQLHANDLE handle) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, kNameSize> message{};
    SQLINTEGER native = 0;
    SQLSMALLINT size = 0;
    const SQLRETURN result = SQLGetDiagRecW(kind, handle, 1, state.data(), &native, message.data(),
                                            static_cast<SQLSMALLINT>(message.size()), &size);
    if (!SQL_SUCCEEDED(result)) throw OdbcError{"HY000", "the driver gives no reason."};
    throw OdbcError{fromUtf16({reinterpret_cast<const char16_t*>(state.data()), state.size() - 1}),
                    sentenceOf(textOf(message, static_cast<std::size_t>(size)))};
}

/// Returns the number of digits after the point of a number, a time or a date with a time. A driver may round
/// a parameter to the scale with which it is bound; types without a scale ignore it.
SQLSMALLINT scaleOf(std::string_view value) {
    const std::size_t point = value.rfind('.');
    if (point == std::string_view::npos) return 0;
    const std::string_view fraction = value.substr(point + 1);
    const std::size_t digits = std::min(fraction.find_first_not_of("0123456789"), fraction.size());
    return static_cast<SQLSMALLINT>(std::min(digits, kMaxScale));
}

/// Returns the driver of a data source, or an empty text for an unknown one.
std::string driverOfDataSource(SQLHENV environment, const std::string& dataSource) {
    std::array<SQLWCHAR, kNameSize> name{};
    std::array<SQLWCHAR, kNameSize> driver{};
    SQLSMALLINT nameSize = 0;
    SQLSMALLINT driverSize = 0;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    const auto room = static_cast<SQLSMALLINT>(kNameSize);
    while (SQL_SUCCEEDED(SQLDataSourcesW(environment, direction, name.data(), room, &nameSize, driver.data(),
                                         room, &driverSize))) {
        if (equalsIgnoringAsciiCase(textOf(name, static_cast<std::size_t>(nameSize)), dataSource))
            return textOf(driver, static_cast<std::size_t>(driverSize));
        direction = SQL_FETCH_NEXT;
    }
    return {};
}

/// Returns the connection string with an option for the driver of SQLite, which otherwise makes a file that
/// is not there.
std::string withoutNewFiles(SQLHENV environment, const std::string& connection) {
    std::string driver;
    for (const auto& [name, value] : connectionPairs(connection)) {
        if (equalsIgnoringAsciiCase(name, "DRIVER")) driver = value;
        if (equalsIgnoringAsciiCase(name, "DSN")) driver = driverOfDataSource(environment, value);
    }
    const bool isSqlite = findIgnoringAsciiCase(driver, "sqlite") != std::string_view::npos;
    return isSqlite ? connection + ";NoCreat=1" : connection;
}

bool isBinary(SQLSMALLINT type) {
    return type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY;
}

}  // namespace

OdbcConnection::OdbcConnection(const std::string& connectionString) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, pointer(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    SQLSetConnectAttrW(connection_, SQL_ATTR_LOGIN_TIMEOUT, pointer(kSecondsToConnect), SQL_IS_UINTEGER);
    SQLSetConnectAttrW(connection_, SQL_ATTR_ACCESS_MODE, pointer(SQL_MODE_READ_ONLY), SQL_IS_UINTEGER);
    WideText text(withoutNewFiles(environment_, connectionString));
    const SQLRETURN result = SQLDriverConnectW(connection_, nullptr, text.get(), text.size(), nullptr, 0,
                                               nullptr, SQL_DRIVER_NOPROMPT);
    if (SQL_SUCCEEDED(result)) return;
    try {
        raise(SQL_HANDLE_DBC, connection_);
    } catch (const OdbcError&) {
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
        throw;
    }
}

OdbcConnection::~OdbcConnection() {
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

std::string OdbcConnection::information(unsigned short number) const {
    std::array<SQLWCHAR, kNameSize> text{};
    SQLSMALLINT bytes = 0;
    const SQLRETURN result = SQLGetInfoW(connection_, number, text.data(), sizeof text, &bytes);
    return SQL_SUCCEEDED(result) ? textOf(text, static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR))
                                 : std::string();
}

std::string OdbcConnection::attribute(int number) const {
    std::array<SQLWCHAR, kNameSize> text{};
    SQLINTEGER bytes = 0;
    const SQLRETURN result = SQLGetConnectAttrW(connection_, number, text.data(), sizeof text, &bytes);
    return SQL_SUCCEEDED(result) ? textOf(text, static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR))
                                 : std::string();
}

OdbcStatement::OdbcStatement(std::shared_ptr<OdbcConnection> connection)
    : connection_(std::move(connection)) {
    const SQLRETURN result = SQLAllocHandle(SQL_HANDLE_STMT, connection_->handle(), &statement_);
    if (!SQL_SUCCEEDED(result)) raise(SQL_HANDLE_DBC, connection_->handle());
}

OdbcStatement::~OdbcStatement() {
    SQLFreeHandle(SQL_HANDLE_STMT, statement_);
}

void OdbcStatement::check(short result) const {
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) raise(SQL_HANDLE_STMT, statement_);
}

void OdbcStatement::limitRows(std::size_t rows) {
    SQLSetStmtAttrW(statement_, SQL_ATTR_MAX_ROWS, pointer(rows), SQL_IS_UINTEGER);
}

void OdbcStatement::bind(const std::string& value, int type) {
    parameter_ = toUtf16(value);
    const auto bytes = static_cast<SQLLEN>(parameter_.size() * sizeof(char16_t));
    const auto size = std::max<SQLULEN>(parameter_.size(), 1);
    check(SQLBindParameter(statement_, 1, SQL_PARAM_INPUT, SQL_C_WCHAR, static_cast<SQLSMALLINT>(type), size,
                           scaleOf(value), parameter_.data(), bytes, nullptr));
}

void OdbcStatement::execute(const std::string& sql) {
    std::u16string units = toUtf16(sql);
    check(SQLExecDirectW(statement_, reinterpret_cast<SQLWCHAR*>(units.data()),
                         static_cast<SQLINTEGER>(units.size())));
    prepareRows();
}

void OdbcStatement::listTables(const std::string& catalog) {
    WideText place(catalog);
    WideText types("TABLE,VIEW");
    check(
        SQLTablesW(statement_, place.get(), place.size(), nullptr, 0, nullptr, 0, types.get(), types.size()));
    prepareRows();
}

void OdbcStatement::listColumns(const std::string& catalog, const std::string& schemas) {
    WideText place(catalog);
    WideText group(schemas);
    WideText any("%");
    check(SQLColumnsW(statement_, place.get(), place.size(), group.get(), group.size(), any.get(), any.size(),
                      nullptr, 0));
    prepareRows();
}

/// Calls a catalog function of ODBC with the three parts of a table's place.
template <typename Call>
void OdbcStatement::list(const OdbcTable& table, const Call& call) {
    WideText catalog(table.catalog);
    WideText schema(table.schema);
    WideText name(table.name);
    check(call(catalog, schema, name));
    prepareRows();
}

void OdbcStatement::listPrimaryKey(const OdbcTable& table) {
    list(table, [this](WideText& catalog, WideText& schema, WideText& name) {
        return SQLPrimaryKeysW(statement_, catalog.get(), catalog.size(), schema.get(), schema.size(),
                               name.get(), name.size());
    });
}

void OdbcStatement::listUniqueIndexes(const OdbcTable& table) {
    list(table, [this](WideText& catalog, WideText& schema, WideText& name) {
        return SQLStatisticsW(statement_, catalog.get(), catalog.size(), schema.get(), schema.size(),
                              name.get(), name.size(), SQL_INDEX_UNIQUE, SQL_QUICK);
    });
}

void OdbcStatement::listForeignKeys(const OdbcTable& table) {
    list(table, [this](WideText& catalog, WideText& schema, WideText& name) {
        return SQLForeignKeysW(statement_, nullptr, 0, nullptr, 0, nullptr, 0, catalog.get(), catalog.size(),
                               schema.get(), schema.size(), name.get(), name.size());
    });
}

void OdbcStatement::prepareRows() {
    SQLSMALLINT columns = 0;
    check(SQLNumResultCols(statement_, &columns));
    kinds_.clear();
    for (SQLSMALLINT column = 1; column <= columns; ++column) {
        // Some drivers fail without a place for the name.
        std::array<SQLWCHAR, kNameSize> name{};
        SQLSMALLINT size = 0;
        SQLSMALLINT type = 0;
        check(SQLDescribeColW(statement_, static_cast<SQLUSMALLINT>(column), name.data(),
                              static_cast<SQLSMALLINT>(name.size()), &size, &type, nullptr, nullptr,
                              nullptr));
        kinds_.push_back(isBinary(type) ? Value::Kind::Bytes : Value::Kind::Text);
    }
    texts_.resize(kinds_.size());
    values_.resize(kinds_.size());
    piece_.resize(kValuePieceSize / sizeof(char16_t) + 1);
}

void OdbcStatement::readOnly(const std::vector<std::size_t>& columns) {
    for (std::size_t column = 0; column < kinds_.size(); ++column) {
        if (std::ranges::find(columns, column) == columns.end()) kinds_[column] = Value::Kind::Null;
    }
}

bool OdbcStatement::next() {
    const SQLRETURN result = SQLFetch(statement_);
    check(result);
    if (result == SQL_NO_DATA) return false;
    for (std::size_t column = 0; column < values_.size(); ++column) {
        if (kinds_[column] != Value::Kind::Null) readValue(column);
    }
    return true;
}

void OdbcStatement::readValue(std::size_t column) {
    const bool isText = kinds_[column] == Value::Kind::Text;
    const std::size_t room = isText ? kValuePieceSize + sizeof(char16_t) : kValuePieceSize;
    std::u16string units;
    std::string& text = texts_[column];
    text.clear();
    values_[column] = {};
    SQLRETURN result = SQL_SUCCESS_WITH_INFO;
    while (result == SQL_SUCCESS_WITH_INFO) {
        SQLLEN size = 0;
        result =
            SQLGetData(statement_, static_cast<SQLUSMALLINT>(column + 1), isText ? SQL_C_WCHAR : SQL_C_BINARY,
                       piece_.data(), static_cast<SQLLEN>(room), &size);
        check(result);
        if (size == SQL_NULL_DATA) return;
        if (result == SQL_NO_DATA) break;
        const bool isFull = size == SQL_NO_TOTAL || static_cast<std::size_t>(size) > kValuePieceSize;
        const std::size_t bytes = isFull ? kValuePieceSize : static_cast<std::size_t>(size);
        // Growing in steps would need twice the memory of a long value.
        if (isFull && size != SQL_NO_TOTAL && !isText && text.empty())
            text.reserve(static_cast<std::size_t>(size));
        if (isText)
            units.append(piece_.data(), bytes / sizeof(char16_t));
        else
            text.append(reinterpret_cast<const char*>(piece_.data()), bytes);
        if (!isFull) break;
    }
    if (isText) text = fromUtf16(units);
    values_[column].kind = kinds_[column];
    values_[column].text = text;
}

int OdbcStatement::number(std::size_t column) const {
    int number = 0;
    const std::string_view digits = values_[column].text;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace mergeloom::describe
