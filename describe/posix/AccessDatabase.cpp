#include "describe/AccessDatabase.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "describe/NestedViews.h"
#include "describe/ReaderProcess.h"
#include "describe/ScratchTables.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace mergeloom::describe {

namespace {

constexpr const char* kReaderProgram = "mergeloom-read-access";

/// The columns of tables that a query needs.
using NeededColumns = std::map<std::string, std::set<std::string>>;

void need(NeededColumns& needed, const std::string& table, const std::vector<std::string>& columns) {
    needed[table].insert(columns.begin(), columns.end());
}

NeededColumns columnsNeededBy(const RowQuery& query) {
    NeededColumns needed;
    need(needed, query.table, query.columns);
    need(needed, query.table, query.key);
    std::string table = query.table;
    for (const Join& join : query.joins) {
        need(needed, table, join.columns);
        need(needed, join.table, join.referredColumns);
        need(needed, join.table, join.key);
        table = join.table;
    }
    if (query.filter) need(needed, table, {query.filter->column});
    for (const Lookup& lookup : query.lookups) {
        need(needed, query.table, {lookup.column});
        need(needed, lookup.table, {lookup.referredColumn, lookup.shownColumn});
    }
    return needed;
}

/// A database file of Access. Its tables are copied into a temporary database when their rows are selected.
class AccessDatabase final : public Database {
  public:
    explicit AccessDatabase(std::string path) : path_(std::move(path)) {
        attempt([this] { readSchema(); });
    }

    [[nodiscard]] const std::vector<Table>& tables() const override { return tables_; }
    [[nodiscard]] const std::vector<StoredForm>& forms() const override { return forms_; }
    [[nodiscard]] const std::vector<std::string>& remarks() const override { return remarks_; }

    std::unique_ptr<Cursor> select(const RowQuery& query) override {
        for (const auto& [table, columns] : columnsNeededBy(query))
            provide(table, columns);
        RowQuery copied = query;
        copied.table = copies_.at(query.table).name;
        for (Join& join : copied.joins)
            join.table = copies_.at(join.table).name;
        for (Lookup& lookup : copied.lookups)
            lookup.table = copies_.at(lookup.table).name;
        return scratch_.select(copied);
    }

    [[nodiscard]] bool canSelect(const std::string& table) const override {
        return views_.canSelect(tableOf(table));
    }

    /// Reads the sample of a query's column from the table that the query shows.
    std::optional<std::string> sampleOf(const std::string& table, const std::string& column) override {
        const std::optional<StoredColumn> stored = storedColumn(table, column);
        if (!stored) return std::nullopt;
        std::string sample;
        attempt([&] { sample = readSample(stored->table, stored->column); });
        return sample;
    }

  private:
    struct StoredColumn {
        std::string table;
        std::string column;
    };

    struct Copy {
        std::string name;
        std::set<std::string> columns;
    };

    /// Runs a reading and adds the file's name to the errors that it raises.
    template <typename Task>
    void attempt(const Task& task) const {
        try {
            task();
        } catch (const AutomationError& error) {
            if (error.number() != kFileCouldNotBeRead) throw;
            throw AutomationError(kFileCouldNotBeRead,
                                  "The database '" + path_ + "' could not be read: " + error.description());
        }
    }

    void readSchema() {
        ReaderProcess reader(kReaderProgram, {path_});
        while (const std::optional<Message> message = reader.next()) {
            if (*message == Message::Table) tables_.push_back(reader.parts().table());
            if (*message == Message::Form) forms_.push_back(reader.parts().form());
            if (*message == Message::Remark) remarks_.push_back(reader.parts().text());
        }
    }

    /// Returns a table that is described.
    [[nodiscard]] const Table& tableOf(const std::string& name) const { return *tableNamed(tables_, name); }

    /// Returns the column of a table that a column of a table or view shows, or none if the view is unknown.
    [[nodiscard]] std::optional<StoredColumn> storedColumn(const std::string& name,
                                                           const std::string& column) const {
        const Table& table = tableOf(name);
        if (table.kind == TableKind::Table) return StoredColumn{table.name, column};
        const auto place = std::ranges::find_if(table.columns,
                                                [&](const Column& candidate) {
                                                    return equalsIgnoringCase(candidate.name, column);
                                                }) -
                           table.columns.begin();
        if (!views_.selectionOf(table) || place == std::ssize(table.columns)) return std::nullopt;
        const ViewDefinition::Output& output = table.definition->outputs[static_cast<std::size_t>(place)];
        const auto source = std::ranges::find_if(table.definition->sources, [&](const auto& candidate) {
            return equalsIgnoringCase(candidate.name, output.source);
        });
        return storedColumn(source->table, output.column);
    }

    /// Copies a table unless its copy has all the columns.
    void provide(const std::string& table, std::set<std::string> columns) {
        if (tableOf(table).kind == TableKind::View) return provideView(tableOf(table));
        Copy& copy = copies_[table];
        if (!copy.name.empty() && std::ranges::includes(copy.columns, columns)) return;
        columns.insert(copy.columns.begin(), copy.columns.end());
        copy.columns = std::move(columns);
        attempt([&] { copy.name = copyOf(tableOf(table), copy.columns); });
    }

    /// Selects the rows of a view from copies of its tables.
    void provideView(const Table& view) {
        if (copies_.contains(view.name)) return;
        const std::optional<ViewSelection>& selection = views_.selectionOf(view);
        if (!selection) {
            throw AutomationError(kFileCouldNotBeRead,
                                  "The records of the query '" + view.name + "' in '" + path_ +
                                      "' can be read by Access only; choose a table or form.");
        }
        for (const auto& [table, columns] : selection->neededColumns())
            provide(table, columns);
        const auto nameOf = [this](const std::string& table) { return copies_.at(table).name; };
        copies_[view.name].name = scratch_.addSelected(view.columns, selection->statement(nameOf));
    }

    std::string copyOf(const Table& table, const std::set<std::string>& names) {
        std::vector<Column> columns;
        std::vector<std::string> arguments{path_, table.name};
        for (const Column& column : table.columns) {
            if (!names.contains(column.name)) continue;
            columns.push_back(column);
            arguments.push_back(column.name);
        }
        std::string copy = scratch_.add(columns);
        ScratchTables::Inserter rows(scratch_, copy, columns.size());
        std::vector<std::string> texts(columns.size());
        ReaderProcess reader(kReaderProgram, arguments);
        while (reader.next()) {
            for (std::size_t column = 0; column < columns.size(); ++column)
                rows.set(column, reader.parts().value(texts[column]));
            rows.addRow();
        }
        return copy;
    }

    [[nodiscard]] std::string readSample(const std::string& table, const std::string& column) const {
        ReaderProcess reader(kReaderProgram, {path_, table, column});
        std::string sample;
        while (reader.next()) {
            if (reader.parts().value(sample).kind != Value::Kind::Null) return sample;
        }
        return {};
    }

    std::string path_;
    std::vector<Table> tables_;
    std::vector<StoredForm> forms_;
    std::vector<std::string> remarks_;
    ScratchTables scratch_;
    std::map<std::string, Copy> copies_;
    mutable NestedViews views_{tables_};
};

}  // namespace

std::unique_ptr<Database> openAccess(const std::string& path) {
    return std::make_unique<AccessDatabase>(path);
}

}  // namespace mergeloom::describe
