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

}  // namespace

/// Translates a view part by part. A part that Access might select otherwise ends the translation.
class ViewSelection::Builder {
  public:
    Builder(const ViewDefinition& view, const std::vector<Table>& tables, const SourceTest& canSelect)
        : view_(view), tables_(tables), canSelect_(canSelect) {}

    std::optional<ViewSelection> build() {
        if (!addSources() || !addOutputs() || !addJoins() || !addConditions() || !addOrders())
            return std::nullopt;
        addNeededColumns();
        if (view_.isDistinct) selection_.outputs_ = "DISTINCT " + selection_.outputs_;
        return std::move(selection_);
    }

  private:
    bool addSources() {
        for (const ViewDefinition::Source& source : view_.sources) {
            const Table* const table = tableNamed(tables_, source.table);
            if (table == nullptr || !canSelect_(*table)) return false;
            sources_.push_back(table);
            selection_.tables_.push_back(table->name);
        }
        return true;
    }

    bool addOutputs() {
        for (const ViewDefinition::Output& output : view_.outputs) {
            const std::optional<StatementColumn> column = find({output.source, output.column});
            if (!column) return false;
            selection_.outputs_ += (selection_.outputs_.empty() ? "" : ", ") + column->text;
        }
        return !selection_.outputs_.empty();
    }

    bool addJoins() {
        const bool isLeft = view_.joining == ViewDefinition::Joining::Left;
        return addTranslated(view_.joins, TextColumns::Compared,
                             isLeft ? selection_.joinCondition_ : conditions_);
    }

    bool addConditions() {
        if (!addTranslated(view_.conditions, TextColumns::Refused, conditions_)) return false;
        if (!conditions_.empty()) selection_.end_ = " WHERE " + conditions_;
        return true;
    }

    bool addTranslated(const std::vector<std::string>& conditions, TextColumns texts, std::string& result) {
        const ColumnFinder compared = [this](const ColumnName& name) {
            const std::optional<StatementColumn> column = find(name);
            return column ? std::optional(comparedColumn(*column)) : std::nullopt;
        };
        for (const std::string& condition : conditions) {
            const std::optional<std::string> translated = translateCondition(condition, compared, texts);
            if (!translated) return false;
            append(result, *translated);
        }
        return true;
    }

    /// Orders texts by their letters, regardless of the case of ASCII ones.
    bool addOrders() {
        const char* separator = " ORDER BY ";
        for (const ViewDefinition::Order& order : view_.orders) {
            const std::optional<ColumnName> name = columnNameOf(order.expression);
            const std::optional<StatementColumn> column = name ? find(*name) : std::nullopt;
            if (!column || column->type == ColumnType::Untyped || column->type == ColumnType::Bytes)
                return false;
            selection_.end_ += separator + comparedColumn(*column).text + (order.isDescending ? " DESC" : "");
            separator = ", ";
        }
        return true;
    }

    /// Adds a column of each table from which the statement needs none, since a copy has one at least.
    void addNeededColumns() {
        for (const Table* const source : sources_) {
            std::set<std::string>& columns = selection_.needed_[source->name];
            if (columns.empty()) columns.insert(source->columns.front().name);
        }
    }

    /// Returns none for an unknown or ambiguous name.
    std::optional<StatementColumn> find(const ColumnName& name) {
        std::optional<StatementColumn> found;
        for (std::size_t number = 0; number < sources_.size(); ++number) {
            if (!name.source.empty() && !equalsIgnoringCase(view_.sources[number].name, name.source))
                continue;
            const Column* const column = columnNamed(*sources_[number], name.column);
            if (column == nullptr) continue;
            if (found) return std::nullopt;
            selection_.needed_[sources_[number]->name].insert(column->name);
            const std::string text = "s" + std::to_string(number) + "." + quotedName(column->name);
            found = StatementColumn{text, column->type};
        }
        return found;
    }

    const ViewDefinition& view_;
    const std::vector<Table>& tables_;
    const SourceTest& canSelect_;
    std::vector<const Table*> sources_;
    std::string conditions_;
    ViewSelection selection_;
};

std::optional<ViewSelection> ViewSelection::translate(const ViewDefinition& view,
                                                      const std::vector<Table>& tables,
                                                      const SourceTest& canSelect) {
    return Builder(view, tables, canSelect).build();
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
