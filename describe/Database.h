#pragma once

#include "describe/ViewDefinition.h"
#include "xml/modNamedItems.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The tables of a database and their rows, as every kind of database provides them.
namespace mergeloom::describe {

/// The type of a column as its table declares it. The values of an Untyped column decide for themselves.
enum class ColumnType : std::uint8_t {
    Untyped,
    Text,
    Integer,
    Decimal,
    Real,
    Boolean,
    Date,
    Time,
    DateAndTime,
    Bytes
};

/// The list from which a control takes its values, as the database stores it.
struct ListSource {
    enum class Kind : std::uint8_t { Rows, Values };

    std::string rows{};    ///< a table, a statement or the values; empty if there is no list
    int boundColumn = 1;   ///< the column of the list that is stored, counted from 1
    std::string widths{};  ///< of the columns, separated by ";"; a column of width 0 is hidden
    Kind kind = Kind::Rows;
    int columns = 1;  ///< into which the Values are divided

    friend bool operator==(const ListSource&, const ListSource&) = default;
};

struct Column {
    std::string name{};
    std::string caption{};  ///< as the database stores it; empty if it stores none
    ColumnType type = ColumnType::Untyped;
    int decimals = 0;      ///< the digits after the decimal point that a Decimal shows
    std::string format{};  ///< as Access writes it; empty if the database stores none
    /// The digits after the decimal point that a named format shows, if they are not its own.
    std::optional<int> formatDecimals{};
    /// The type of control in which the database shows the column; Unknown if it stores none.
    ControlType display = ControlType::Unknown;
    ListSource list{};
};

struct ForeignKey {
    std::vector<std::string> columns{};
    std::string referredTable{};
    std::vector<std::string> referredColumns{};
};

enum class TableKind : std::uint8_t { Table, View };

struct Table {
    TableKind kind = TableKind::Table;
    std::string name{};
    std::vector<Column> columns{};
    /// The columns of each key, which identify a row; the primary key is the first.
    std::vector<std::vector<std::string>> keys{};
    std::vector<ForeignKey> foreignKeys{};
    std::optional<ViewDefinition> definition{};  ///< of a view whose rows the database itself does not select
};

/// Returns the table with this name or, if there is none, one with a name that differs only in case, or null.
const Table* tableNamed(const std::vector<Table>& tables, const std::string& name);
/// Returns the column of a table by the same rules, or null.
const Column* columnNamed(const Table& table, const std::string& name);

/// The sections of a form, with the numbers that the structure document uses.
enum class FormSection : std::uint8_t { Detail, Header, Footer, PageHeader, PageFooter };

/// One value of a row. The text of a Text or a Bytes is valid until its cursor moves.
struct Value {
    enum class Kind : std::uint8_t { Null, Integer, Real, Text, Bytes };

    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text{};

    friend bool operator==(const Value&, const Value&) = default;
};

/// The columns by which the rows of one table belong to a row of another.
struct Join {
    std::vector<std::string> columns{};
    std::string table{};
    std::vector<std::string> referredColumns{};
    std::vector<std::string> key{};  ///< identifies a row of the other table and orders its rows
};

/// The column of another table that is shown in place of the key that refers to it.
struct Lookup {
    std::string column{};
    std::string table{};
    std::string referredColumn{};
    std::string shownColumn{};
};

/// Selects the rows in which a column has the value that a text denotes.
struct RowFilter {
    std::string column{};
    std::string value{};
};

/// A selection of rows of a table, with the rows that they refer to.
///
/// A row consists of the values of the columns, those of the lookups, those of the keys of the joined tables,
/// the outermost first, and those of the table's own key. The rows are ordered by these keys.
struct RowQuery {
    std::string table{};
    std::vector<std::string> columns{};
    std::vector<Lookup> lookups{};
    std::vector<Join> joins{};  ///< from the table to the outermost one, one after the other
    std::vector<std::string> key{};
    std::optional<RowFilter> filter{};  ///< of the outermost table
};

/// Reads rows one after the other.
class Cursor {
  public:
    Cursor() = default;
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;
    virtual ~Cursor() = default;

    /// Moves to the next row, at first to the first one. Returns false after the last row. Raises
    /// kFileCouldNotBeRead with a sentence that names the database.
    virtual bool next() = 0;
    /// Returns a value of the current row.
    [[nodiscard]] virtual Value value(std::size_t position) const = 0;
};

struct StoredForm;

/// A database that was opened for reading.
class Database {
  public:
    Database() = default;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    virtual ~Database() = default;

    /// Returns the tables and views in the order of the database.
    [[nodiscard]] virtual const std::vector<Table>& tables() const = 0;
    /// Returns the forms that the database stores.
    [[nodiscard]] virtual const std::vector<StoredForm>& forms() const;
    /// Returns sentences about the parts of the database that cannot be described.
    [[nodiscard]] virtual const std::vector<std::string>& remarks() const;
    /// Returns true if the rows of a table or view can be selected.
    [[nodiscard]] virtual bool canSelect(const std::string& table) const;
    /// Raises kFileCouldNotBeRead with a sentence that names the database.
    virtual std::unique_ptr<Cursor> select(const RowQuery& query) = 0;
    /// Returns one of the values of a column of Bytes, an empty text if there is none, or nothing if the
    /// column belongs to a view that cannot be selected. Raises kFileCouldNotBeRead.
    virtual std::optional<std::string> sampleOf(const std::string& table, const std::string& column) = 0;
};

}  // namespace mergeloom::describe
