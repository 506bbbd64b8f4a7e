#pragma once

#include "base/AutomationError.h"
#include "describe/Database.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace mergeloom::describe {

/// An open database of SQLite.
class SqliteConnection {
  public:
    /// Opens a file for reading. All statements read the same snapshot. Raises kFileCouldNotBeRead with a
    /// sentence that names the file if it is damaged, encrypted or locked.
    static SqliteConnection openForReading(const std::string& path);
    /// Opens an empty database in a temporary file without a name, without support for rollbacks. Its errors
    /// are kFileCouldNotBeSaved.
    static SqliteConnection openScratch();

    /// Executes a statement that returns no rows. Raises the same errors as fail().
    void execute(const std::string& sql) const;
    [[nodiscard]] sqlite3* get() const { return connection_.get(); }
    /// Raises kFileCouldNotBeRead, for a temporary database kFileCouldNotBeSaved, with a sentence for a
    /// result code of the library.
    [[noreturn]] void fail(int result) const;

  private:
    /// The error that a failure raises, and the begin of its sentence.
    struct Failure {
        ErrorNumber number;
        std::string sentence;
    };

    SqliteConnection(Failure failure, const char* file, int flags);

    Failure failure_;
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> connection_;
};

/// A statement and, while it is executed, its current row. The connection must outlive it.
class SqliteStatement {
  public:
    /// Raises the connection's error if the statement is wrong.
    SqliteStatement(const SqliteConnection& connection, const std::string& sql);

    /// Replaces a parameter, counted from 1.
    void bind(int parameter, std::string_view text);
    /// Replaces a parameter by a value whose text must exist until the statement was executed.
    void bind(int parameter, const Value& value);

    /// Moves to the next row. Returns false after the last one. Raises the connection's error.
    bool step();
    /// Makes the statement ready to be executed again.
    void reset();

    [[nodiscard]] std::string text(int column) const;
    [[nodiscard]] int number(int column) const;
    [[nodiscard]] bool isNull(int column) const;
    /// Returns a value whose text is valid until the statement moves.
    [[nodiscard]] Value value(int column) const;

  private:
    [[nodiscard]] std::string_view bytes(int column) const;

    const SqliteConnection& connection_;
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_;
};

/// The rows of a statement.
class SqliteCursor final : public Cursor {
  public:
    explicit SqliteCursor(SqliteStatement statement) : statement_(std::move(statement)) {}

    bool next() override { return statement_.step(); }
    [[nodiscard]] Value value(std::size_t position) const override {
        return statement_.value(static_cast<int>(position));
    }

  private:
    SqliteStatement statement_;
};

/// Executes the statement of a query.
std::unique_ptr<Cursor> selectRows(const SqliteConnection& connection, const RowQuery& query);

}  // namespace mergeloom::describe
