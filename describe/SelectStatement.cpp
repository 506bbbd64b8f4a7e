#include "describe/SelectStatement.h"

#include "base/Text.h"

#include <ranges>

namespace mergeloom::describe {

namespace {

/// Builds a statement in which t0 is the table, t1 and so on are the joined tables and l0 and so on are the
/// tables of the lookups.
class StatementBuilder {
  public:
    StatementBuilder(const RowQuery& query, const SqlNames& names) : query_(query), names_(names) {}

    std::string build() {
        selectColumns();
        join();
        lookUp();
        filter();
        order();
        return std::move(statement_);
    }

  private:
    [[nodiscard]] std::string name(char kind, std::size_t number, const std::string& column) const {
        return kind + std::to_string(number) + '.' + quotedName(column, names_.mark);
    }
    [[nodiscard]] std::string tableName(const std::string& table) const {
        return names_.table ? names_.table(table) : quotedName(table, names_.mark);
    }

    void add(const std::string& column) {
        statement_ += separator_ + column;
        separator_ = ", ";
    }

    /// Adds the columns that identify the rows, those of the outermost table first.
    void addKeys() {
        for (std::size_t number = query_.joins.size(); number > 0; --number) {
            for (const std::string& column : query_.joins[number - 1].key)
                add(name('t', number, column));
        }
        for (const std::string& column : query_.key)
            add(name('t', 0, column));
    }

    void selectColumns() {
        statement_ = "SELECT ";
        for (const std::string& column : query_.columns)
            add(name('t', 0, column));
        for (std::size_t number = 0; number < query_.lookups.size(); ++number)
            add(name('l', number, query_.lookups[number].shownColumn));
        addKeys();
        statement_ += " FROM " + tableName(query_.table) + " t0";
    }

    void join() {
        for (std::size_t number = 0; number < query_.joins.size(); ++number) {
            const Join& join = query_.joins[number];
            statement_ += " JOIN " + tableName(join.table) + " t" + std::to_string(number + 1);
            separator_ = " ON ";
            for (std::size_t part = 0; part < join.columns.size(); ++part) {
                statement_ += separator_ + name('t', number, join.columns[part]) + " = " +
                              name('t', number + 1, join.referredColumns[part]);
                separator_ = " AND ";
            }
        }
    }

    void lookUp() {
        for (std::size_t number = 0; number < query_.lookups.size(); ++number) {
            const Lookup& lookup = query_.lookups[number];
            statement_ += " LEFT JOIN " + tableName(lookup.table) + " l" + std::to_string(number) + " ON " +
                          name('t', 0, lookup.column) + " = " + name('l', number, lookup.referredColumn);
        }
    }

    void filter() {
        if (query_.filter)
            statement_ += " WHERE " + name('t', query_.joins.size(), query_.filter->column) + " = ?";
    }

    void order() {
        separator_ = " ORDER BY ";
        addKeys();
    }

    const RowQuery& query_;
    const SqlNames& names_;
    std::string statement_;
    std::string separator_;
};

}  // namespace

std::string quotedName(std::string_view name, std::string_view mark) {
    const std::string once(mark);
    return once + replaceAll(name, mark, once + once) + once;
}

std::string selectStatement(const RowQuery& query, const SqlNames& names) {
    return StatementBuilder(query, names).build();
}

}  // namespace mergeloom::describe
