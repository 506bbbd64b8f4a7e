#include "describe/OdbcDatabase.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "describe/OdbcCatalog.h"
#include "describe/OdbcConnection.h"
#include "describe/SelectStatement.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <cstdlib>
#include <optional>
#include <utility>

namespace mergeloom::describe {

namespace {

constexpr const char* kPasswordVariable = "MERGELOOM_ODBC_PASSWORD";
constexpr std::string_view kWrongPassword = "28000";

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

bool asksForPassword(const OdbcError& error) {
    return error.state == kWrongPassword ||
           findIgnoringAsciiCase(error.sentence, "password") != std::string_view::npos;
}

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
            catalog_.emplace(connection_);
        });
    }

    [[nodiscard]] const std::vector<Table>& tables() const override { return catalog_->tables(); }

    std::unique_ptr<Cursor> select(const RowQuery& query) override {
        return attempt(source_, password_, [&]() -> std::unique_ptr<Cursor> {
            // A driver that returns rows one at a time may allow only one open statement for each connection.
            auto statement = std::make_unique<OdbcStatement>(streamingConnection());
            if (query.filter) statement->bind(query.filter->value, filteredType(query));
            statement->execute(selectStatement(query, names()));
            return std::make_unique<OdbcCursor>(std::move(statement), source_, password_);
        });
    }

    std::optional<std::string> sampleOf(const std::string& table, const std::string& column) override {
        return attempt(source_, password_, [&]() -> std::optional<std::string> {
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
    }

    [[nodiscard]] std::shared_ptr<OdbcConnection> streamingConnection() const {
        const std::string driver = connection_->information(SQL_DRIVER_NAME);
        std::string options;
        for (const DriverOptions& known : kStreamingOptions) {
            if (driver.find(known.driver) != std::string::npos) options = known.options;
        }
        return std::make_shared<OdbcConnection>(connectionString_ + options);
    }

    [[nodiscard]] std::string qualifiedName(const std::string& table) const {
        const OdbcTable& place = catalog_->placeOf(table);
        const std::string name = quotedName(place.name, mark_);
        return place.schema.empty() ? name : quotedName(place.schema, mark_) + "." + name;
    }

    [[nodiscard]] SqlNames names() const {
        return {mark_, [this](const std::string& table) { return qualifiedName(table); }};
    }

    /// Returns the type of the column that a filter is about.
    [[nodiscard]] int filteredType(const RowQuery& query) const {
        const std::string& table = query.joins.empty() ? query.table : query.joins.back().table;
        return catalog_->typeOf(table, query.filter->column);
    }

    std::string source_;
    std::string connectionString_;
    std::string password_;
    std::shared_ptr<OdbcConnection> connection_;
    std::string mark_ = "\"";
    std::optional<OdbcCatalog> catalog_;
};

}  // namespace

std::unique_ptr<Database> openOdbc(const std::string& source, const PasswordPrompt& askPassword) {
    return std::make_unique<OdbcDatabase>(source, askPassword);
}

}  // namespace mergeloom::describe
