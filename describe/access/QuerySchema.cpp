#include "describe/access/QuerySchema.h"

#include "base/Text.h"
#include "describe/ColumnName.h"
#include "describe/access/TableScan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace mergeloom::describe::access {

namespace {

/// The kinds of queries by their flags in the catalog. The kinds between these two change data.
constexpr std::int64_t kKindMask = 0xF0;
enum QueryKind : std::int64_t { kSelect = 0, kCrosstab = 0x10, kPassThrough = 0x70, kUnion = 0x80 };

/// The kinds of rows in a query's definition, and flags of the options.
enum Attribute : std::int64_t {
    kBeginning = 0,
    kType = 1,
    kOptions = 3,
    kSource = 5,
    kOutput = 6,
    kJoin = 7,
    kWhere = 8,
    kOrder = 11,
    kEnd = 255
};
constexpr std::int64_t kShowsAllColumns = 1;
constexpr std::int64_t kIsDistinct = 2;

/// The kinds of joins, and the mark of a descending order.
enum JoinKind : std::int64_t { kInner = 1, kLeft = 2, kRight = 3 };
constexpr const char* kDescending = "D";

using Source = ViewDefinition::Source;

struct Join {
    std::int64_t kind;
    std::string left;
    std::string right;
    std::string condition;
};

struct Definition {
    std::vector<Source> sources;
    std::vector<std::pair<std::string, std::string>> outputs;  ///< expressions and their names in the query
    bool showsAllColumns = false;
    std::vector<Join> joins{};
    std::vector<std::string> conditions{};
    std::vector<ViewDefinition::Order> orders{};
    bool isDistinct = false;
    bool isSimple = true;  ///< false if there are groups, parameters or anything else
};

/// Sets how the sources are joined. Returns false for outer joins of more than two sources.
bool setJoins(const Definition& definition, ViewDefinition& view) {
    for (const Join& join : definition.joins)
        view.joins.push_back(join.condition);
    const auto isInner = [](const Join& join) { return join.kind == kInner; };
    if (std::ranges::all_of(definition.joins, isInner)) return true;
    const Join& first = definition.joins.front();
    const bool areAlike = std::ranges::all_of(definition.joins, [&](const Join& join) {
        return join.kind == first.kind && join.left == first.left && join.right == first.right;
    });
    if (!areAlike || view.sources.size() != 2 || (first.kind != kLeft && first.kind != kRight)) return false;
    const std::string& whole = first.kind == kLeft ? first.left : first.right;
    if (!equalsIgnoringCase(view.sources[0].name, whole)) std::swap(view.sources[0], view.sources[1]);
    view.joining = ViewDefinition::Joining::Left;
    return equalsIgnoringCase(view.sources[0].name, whole);
}

/// A column and its source, which is empty for an expression.
struct Output {
    std::string source;
    Column column;
    std::string name{};  ///< of the column in the source
};

class QueryDescriber {
  public:
    QueryDescriber(std::map<std::int64_t, Definition> definitions, AccessSchema& schema)
        : definitions_(std::move(definitions)), schema_(schema) {}

    /// Returns true if one of the query's sources has one of these names, in folded case.
    [[nodiscard]] bool shows(const QueryEntry& query, const std::set<std::string>& names) const {
        const auto definition = definitions_.find(query.id);
        return definition != definitions_.end() &&
               std::ranges::any_of(definition->second.sources, [&](const Source& source) {
                   return names.contains(foldCase(source.table));
               });
    }

    /// Returns false if the query shows all columns of a source that is not described.
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
            // An expression has no source; its own name distinguishes it.
            if (!output.source.empty() && isNamedTwice(output.column.name))
                view.columns.back().name = output.source + "." + output.column.name;
        }
        view.definition = definitionOf(definition);
        if (!view.columns.empty()) schema_.tables.push_back(std::move(view));
        return true;
    }

  private:
    /// Returns the definition of a query of columns, without groups, functions and parameters.
    [[nodiscard]] std::optional<ViewDefinition> definitionOf(const Definition& definition) const {
        if (!definition.isSimple) return std::nullopt;
        ViewDefinition view{definition.sources};
        for (const Output& output : outputs_) {
            if (output.source.empty()) return std::nullopt;
            view.outputs.push_back({output.source, output.name});
        }
        view.conditions = definition.conditions;
        view.orders = definition.orders;
        view.isDistinct = definition.isDistinct;
        return setJoins(definition, view) ? std::optional(std::move(view)) : std::nullopt;
    }

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
            const Table* const table = tableNamed(schema_.tables, source.table);
            if (table == nullptr) {
                if (isAll) return false;
                continue;
            }
            for (const Column& column : table->columns) {
                if (!isAll && !equalsIgnoringCase(column.name, name.column)) continue;
                outputs_.push_back({source.name, column, column.name});
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

void readRow(std::int64_t attribute, TableScan& rows, Definition& definition) {
    switch (attribute) {
        case kBeginning:
        case kType:
        case kEnd:
            return;
        case kOptions: {
            const std::int64_t options = rows.number(5);
            definition.showsAllColumns = (options & kShowsAllColumns) != 0;
            definition.isDistinct = (options & kIsDistinct) != 0;
            if ((options & ~(kShowsAllColumns | kIsDistinct)) != 0) definition.isSimple = false;
            return;
        }
        case kSource: {
            const std::string table = rows.text(2);
            const std::string alias = rows.text(3);
            definition.sources.push_back({table, alias.empty() ? table : alias});
            return;
        }
        case kOutput:
            definition.outputs.emplace_back(rows.text(4), rows.text(2));
            return;
        case kJoin:
            definition.joins.push_back({rows.number(5), rows.text(2), rows.text(3), rows.text(4)});
            return;
        case kWhere:
            definition.conditions.push_back(rows.text(4));
            return;
        case kOrder:
            definition.orders.push_back({rows.text(4), rows.text(2) == kDescending});
            return;
        default:
            definition.isSimple = false;
    }
}

std::map<std::int64_t, Definition> readDefinitions(const AccessFile& file) {
    TableScan rows(file, "MSysQueries", {"ObjectId", "Attribute", "Name1", "Name2", "Expression", "Flag"});
    std::map<std::int64_t, Definition> definitions;
    while (rows.next()) {
        Definition& definition = definitions[rows.number(0)];
        const std::int64_t attribute = rows.number(1);
        readRow(attribute, rows, definition);
    }
    return definitions;
}

/// Removes and returns the queries that show none of the others.
std::vector<QueryEntry> takeReady(std::vector<QueryEntry>& queries, const QueryDescriber& describer) {
    std::set<std::string> names;
    for (const QueryEntry& query : queries)
        names.insert(foldCase(query.name));
    const auto waiting = std::ranges::stable_partition(
        queries, [&](const QueryEntry& query) { return !describer.shows(query, names); });
    std::vector<QueryEntry> ready(queries.begin(), waiting.begin());
    queries.erase(queries.begin(), waiting.begin());
    return ready;
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
    // A query may show the columns of another one that is after it in the catalog. Those that refer to each
    // other in a circle cannot wait.
    while (!pending.empty()) {
        std::vector<QueryEntry> ready = takeReady(pending, describer);
        if (ready.empty()) ready = std::exchange(pending, {});
        for (const QueryEntry& query : ready) {
            if (describer.describe(query)) continue;
            schema.remarks.push_back("The query '" + query.name +
                                     "' is left out: it shows the columns of a table that is not described.");
        }
    }
}

}  // namespace mergeloom::describe::access
