#include "describe/access/QuerySchema.h"

#include "base/Text.h"
#include "describe/ColumnName.h"
#include "describe/access/TableScan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace mergeloom::describe::access {

namespace {

/// The kinds of queries by their flags in the catalog. The kinds between these two change data.
constexpr std::int64_t kKindMask = 0xF0;
enum QueryKind : std::int64_t { kSelect = 0, kCrosstab = 0x10, kPassThrough = 0x70, kUnion = 0x80 };

/// The kinds of rows in a query's definition, and a flag of the options.
enum Attribute : std::int64_t { kOptions = 3, kSource = 5, kOutput = 6 };
constexpr std::int64_t kShowsAllColumns = 1;

struct Source {
    std::string table;
    std::string name;  ///< in the query
};

struct Definition {
    std::vector<Source> sources;
    std::vector<std::pair<std::string, std::string>> outputs;  ///< expressions and their names in the query
    bool showsAllColumns = false;
};

/// A column and its source.
struct Output {
    std::string source;
    Column column;
};

class QueryDescriber {
  public:
    QueryDescriber(std::map<std::int64_t, Definition> definitions, AccessSchema& schema)
        : definitions_(std::move(definitions)), schema_(schema) {}

    /// Returns false if the query shows all columns of a source that is not described, or not yet.
    bool describe(const QueryEntry& query) {
        const Definition& definition = definitions_[query.id];
        outputs_.clear();
        if (definition.showsAllColumns && !addColumns(definition, {{}, "*"})) return false;
        for (const auto& [expression, name] : definition.outputs) {
            if (!addOutput(definition, expression, name)) return false;
        }
        Table view{TableKind::View, query.name};
        for (const Output& output : outputs_) {
            view.columns.push_back(output.column);
            if (isNamedTwice(output.column.name))
                view.columns.back().name = output.source + "." + output.column.name;
        }
        if (!view.columns.empty()) schema_.tables.push_back(std::move(view));
        return true;
    }

  private:
    bool addOutput(const Definition& definition, const std::string& expression, const std::string& name) {
        const std::optional<ColumnName> column = columnNameOf(expression);
        if (column && addColumns(definition, *column)) {
            if (!name.empty()) outputs_.back().column.name = name;
            return true;
        }
        if (column && column->column == "*") return false;
        const std::string shown = name.empty() && column ? column->column : name;
        if (!shown.empty()) outputs_.push_back({{}, {shown}});
        return true;
    }

    /// Adds a column, or all of them. Returns false if a source or the column is not known.
    bool addColumns(const Definition& definition, const ColumnName& name) {
        const bool isAll = name.column == "*";
        bool isFound = false;
        for (const Source& source : definition.sources) {
            if (!name.source.empty() && !equalsIgnoringCase(source.name, name.source)) continue;
            const auto table = std::ranges::find_if(schema_.tables, [&](const Table& candidate) {
                return equalsIgnoringCase(candidate.name, source.table);
            });
            if (table == schema_.tables.end()) {
                if (isAll) return false;
                continue;
            }
            for (const Column& column : table->columns) {
                if (!isAll && !equalsIgnoringCase(column.name, name.column)) continue;
                outputs_.push_back({source.name, column});
                isFound = true;
            }
        }
        return isFound;
    }

    [[nodiscard]] bool isNamedTwice(const std::string& name) const {
        return std::ranges::count_if(outputs_, [&](const Output& output) {
                   return equalsIgnoringCase(output.column.name, name);
               }) > 1;
    }

    std::map<std::int64_t, Definition> definitions_;
    AccessSchema& schema_;
    std::vector<Output> outputs_;
};

std::map<std::int64_t, Definition> readDefinitions(const AccessFile& file) {
    TableScan rows(file, "MSysQueries", {"ObjectId", "Attribute", "Name1", "Name2", "Expression", "Flag"});
    std::map<std::int64_t, Definition> definitions;
    while (rows.next()) {
        Definition& definition = definitions[rows.number(0)];
        const std::int64_t attribute = rows.number(1);
        if (attribute == kOptions) definition.showsAllColumns = (rows.number(5) & kShowsAllColumns) != 0;
        if (attribute == kSource) {
            const std::string table = rows.text(2);
            const std::string alias = rows.text(3);
            definition.sources.push_back({table, alias.empty() ? table : alias});
        }
        if (attribute == kOutput) definition.outputs.emplace_back(rows.text(4), rows.text(2));
    }
    return definitions;
}

}  // namespace

void describeQueries(const AccessFile& file, const std::vector<QueryEntry>& queries, AccessSchema& schema) {
    QueryDescriber describer(readDefinitions(file), schema);
    std::vector<QueryEntry> pending;
    for (const QueryEntry& query : queries) {
        const std::int64_t kind = query.flags & kKindMask;
        if (kind == kSelect) pending.push_back(query);
        if (kind == kCrosstab || kind == kPassThrough || kind == kUnion)
            schema.remarks.push_back("The query '" + query.name + "' is left out: it is no select query.");
    }
    // A query may show the columns of another one that is after it in the catalog.
    std::size_t before = pending.size() + 1;
    while (!pending.empty() && pending.size() < before) {
        before = pending.size();
        std::erase_if(pending, [&](const QueryEntry& query) { return describer.describe(query); });
    }
    for (const QueryEntry& query : pending) {
        schema.remarks.push_back("The query '" + query.name +
                                 "' is left out: it shows the columns of a table that is not described.");
    }
}

}  // namespace mergeloom::describe::access
