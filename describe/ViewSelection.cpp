#include "describe/ViewSelection.h"

#include "base/Text.h"
#include "describe/ConditionTranslator.h"
#include "describe/ListLookup.h"
#include "describe/SelectStatement.h"

#include <cstddef>
#include <string_view>

namespace mergeloom::describe {

namespace {

void append(std::string& conditions, const std::string& condition) {
    conditions += (conditions.empty() ? "" : " AND ") + condition;
}

/// Orders as Access does; the order of texts is that of their letters, regardless of the case of ASCII ones.
bool canOrder(ColumnType type) {
    return type != ColumnType::Untyped && type != ColumnType::Bytes;
}

}  // namespace

std::optional<ViewSelection> ViewSelection::translate(const ViewDefinition& view,
                                                      const std::vector<Table>& tables) {
    ViewSelection selection;
    std::vector<const Table*> sources;
    for (const ViewDefinition::Source& source : view.sources) {
        const Table* const table = tableNamed(tables, source.table);
        if (table == nullptr || table->kind != TableKind::Table) return std::nullopt;
        sources.push_back(table);
        selection.tables_.push_back(table->name);
    }
    const ColumnFinder find = [&](const ColumnName& name) -> std::optional<StatementColumn> {
        std::optional<StatementColumn> found;
        for (std::size_t number = 0; number < sources.size(); ++number) {
            if (!name.source.empty() && !equalsIgnoringCase(view.sources[number].name, name.source)) continue;
            const Column* const column = columnNamed(*sources[number], name.column);
            if (column == nullptr) continue;
            if (found) return std::nullopt;
            selection.needed_[sources[number]->name].insert(column->name);
            found =
                StatementColumn{"s" + std::to_string(number) + "." + quotedName(column->name), column->type};
        }
        return found;
    };
    for (const ViewDefinition::Output& output : view.outputs) {
        const std::optional<StatementColumn> column = find({output.source, output.column});
        if (!column) return std::nullopt;
        selection.outputs_ += (selection.outputs_.empty() ? "" : ", ") + column->text;
    }
    const bool isLeft = view.joining == ViewDefinition::Joining::Left;
    std::string conditions;
    for (const std::string& join : view.joins) {
        const std::optional<std::string> translated = translateCondition(join, find, TextColumns::Compared);
        if (!translated) return std::nullopt;
        append(isLeft ? selection.joinCondition_ : conditions, *translated);
    }
    for (const std::string& condition : view.conditions) {
        const std::optional<std::string> translated =
            translateCondition(condition, find, TextColumns::Refused);
        if (!translated) return std::nullopt;
        append(conditions, *translated);
    }
    if (!conditions.empty()) selection.end_ = " WHERE " + conditions;
    const char* separator = " ORDER BY ";
    for (const ViewDefinition::Order& order : view.orders) {
        const std::optional<ColumnName> name = columnNameOf(order.expression);
        const std::optional<StatementColumn> column = name ? find(*name) : std::nullopt;
        if (!column || !canOrder(column->type)) return std::nullopt;
        selection.end_ += separator + column->text + (order.isDescending ? " DESC" : "");
        separator = ", ";
    }
    if (selection.outputs_.empty()) return std::nullopt;
    // The copy of a table has one column at least.
    for (const Table* const source : sources) {
        std::set<std::string>& columns = selection.needed_[source->name];
        if (columns.empty()) columns.insert(source->columns.front().name);
    }
    if (view.isDistinct) selection.outputs_ = "DISTINCT " + selection.outputs_;
    return selection;
}

std::string ViewSelection::statement(
    const std::function<std::string(const std::string& table)>& nameOf) const {
    std::string statement = "SELECT " + outputs_;
    std::string_view separator = " FROM ";
    for (std::size_t number = 0; number < tables_.size(); ++number) {
        statement += separator;
        statement += quotedName(nameOf(tables_[number])) + " s" + std::to_string(number);
        separator = joinCondition_.empty() ? ", " : " LEFT JOIN ";
    }
    if (!joinCondition_.empty()) statement += " ON " + joinCondition_;
    return statement + end_;
}

}  // namespace mergeloom::describe
