#include "describe/StoredFormDesigner.h"

#include "base/Text.h"
#include "describe/ColumnName.h"
#include "describe/ListLookup.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace mergeloom::describe {

namespace {

constexpr char kExpressionMark = '=';

/// Returns the name of the column that a control shows, or an empty text.
std::string columnOf(const std::string& source) {
    if (source.starts_with(kExpressionMark)) return {};
    // A name without brackets may have characters that need brackets in an expression.
    const std::optional<ColumnName> name = columnNameOf(source);
    return name && name->source.empty() ? name->column : source;
}

const ControlDesign* controlOf(const ObjectDesign& object, const std::string& column) {
    const auto found = std::ranges::find_if(object.controls, [&](const ControlDesign& control) {
        return equalsIgnoringCase(control.column.name, column);
    });
    return found == object.controls.end() ? nullptr : &*found;
}

/// Returns the name after a prefix such as "Form.", or none if the text has another prefix.
std::optional<std::string> nameAfter(std::string_view text, std::string_view prefix) {
    if (!equalsIgnoringAsciiCase(text.substr(0, prefix.size()), prefix)) return std::nullopt;
    return std::string(text.substr(prefix.size()));
}

/// Returns the column of the form's table that a master field names, directly or by the control that shows
/// it.
const Column* masterColumn(const ObjectDesign& object, const Table& table, const std::string& field) {
    const std::string name = columnOf(field);
    for (const ControlDesign& control : object.controls) {
        const bool isShown = equalsIgnoringCase(control.name, name) && !control.column.name.empty();
        if (isShown) return columnNamed(table, control.column.name);
    }
    return columnNamed(table, name);
}

/// The decimals of a control belong to its own format if it has one, otherwise to that of the column.
void takeFormat(Column& column, const StoredControl& control) {
    if (!control.format.empty()) {
        column.format = control.format;
        column.formatDecimals.reset();
    }
    if (!control.formatDecimals) return;
    column.formatDecimals = control.formatDecimals;
    if (column.type == ColumnType::Decimal) column.decimals = *control.formatDecimals;
}

}  // namespace

StoredFormDesigner::StoredFormDesigner(const Database& database,
                                       const std::map<std::string, ObjectDesign>& objects)
    : database_(database), objects_(objects) {}

ObjectDesign StoredFormDesigner::design(const StoredForm& form) const {
    return design(form, {});
}

/// Skips subforms that are already open around the form, since forms may refer to each other in a circle.
ObjectDesign StoredFormDesigner::design(const StoredForm& form, std::vector<std::string> around) const {
    ObjectDesign object;
    object.kind = StructureElement::Form;
    object.name = form.name;
    object.view = form.view;
    if (const ObjectDesign* const source = sourceOf(form)) {
        object.table = source->table;
        object.key = source->key;
    }
    around.push_back(foldCase(form.name));
    for (const StoredControl& control : form.controls) {
        if (control.type != ControlType::Subform) addControl(object, control);
    }
    for (const StoredControl& control : form.controls) {
        const bool isSubform = control.type == ControlType::Subform;
        if (isSubform && around.size() <= kMaxSubformDepth) addSubform(object, control, around);
    }
    object.hasRecords =
        !form.source.empty() || std::ranges::any_of(form.controls, [](const StoredControl& control) {
            return !columnOf(control.source).empty();
        });
    return object;
}

void StoredFormDesigner::addControl(ObjectDesign& object, const StoredControl& stored) const {
    ControlDesign control{stored.name, stored.caption, stored.type};
    const std::string column = columnOf(stored.source);
    control.source = column.empty() ? stored.source : column;
    control.section = stored.section;
    const auto table = objects_.find(object.table);
    const ControlDesign* const shown = table == objects_.end() ? nullptr : controlOf(table->second, column);
    if (shown != nullptr) {
        control.column = shown->column;
        takeFormat(control.column, stored);
        if (stored.type == ControlType::Combobox || stored.type == ControlType::Listbox) {
            const bool hasList = !stored.list.rows.empty();
            control.lookup =
                hasList ? lookupIn(stored.list, shown->column.name, database_.tables()) : shown->lookup;
            control.values = hasList ? ValueList(stored.list) : shown->values;
        }
        if (stored.type == ControlType::OptionGroup) control.values = ValueList(stored.list);
        if (control.caption.empty()) control.caption = shown->caption;
    }
    if (control.caption.empty()) control.caption = asCaption(stored.name);
    object.controls.push_back(std::move(control));
}

void StoredFormDesigner::addSubform(ObjectDesign& object, const StoredControl& stored,
                                    const std::vector<std::string>& around) const {
    std::optional<ObjectDesign> inner;
    if (const std::optional<std::string> name = nameAfter(stored.shownObject, "Form.")) {
        const auto form = std::ranges::find_if(database_.forms(), [&](const StoredForm& candidate) {
            return equalsIgnoringCase(candidate.name, *name);
        });
        const bool isOpen = std::ranges::find(around, foldCase(*name)) != around.end();
        if (form != database_.forms().end() && !isOpen) inner = design(*form, around);
    } else {
        for (const char* const prefix : {"Table.", "Query."}) {
            const std::optional<std::string> table = nameAfter(stored.shownObject, prefix);
            const Table* const found = table ? tableNamed(database_.tables(), *table) : nullptr;
            if (found == nullptr) continue;
            inner = objects_.at(found->name);
            inner->view = DefaultView::Datasheet;
        }
    }
    if (!inner) {
        object.remarks.push_back("The subform '" + stored.name + "' of '" + object.name +
                                 "' is left out: what it shows is not described.");
        return;
    }
    const ForeignKey link = linkOf(object, stored, *inner);
    const std::string caption = stored.caption.empty() ? asCaption(stored.name) : stored.caption;
    object.remarks.insert(object.remarks.end(), inner->remarks.begin(), inner->remarks.end());
    object.subforms.push_back({stored.name, caption, link, std::move(*inner), stored.section});
}

const ObjectDesign* StoredFormDesigner::sourceOf(const StoredForm& form) const {
    const Table* const table = tableNamed(database_.tables(), form.source);
    if (table == nullptr) return nullptr;
    const bool isWhole = std::ranges::all_of(form.controls, [&](const StoredControl& control) {
        const std::string column = columnOf(control.source);
        return column.empty() || columnNamed(*table, column) != nullptr;
    });
    return isWhole ? &objects_.at(table->name) : nullptr;
}

/// Returns the columns by which records of the subform belong to one of the form. They are none if a column
/// is not known, or if nothing identifies a record of the form.
ForeignKey StoredFormDesigner::linkOf(const ObjectDesign& object, const StoredControl& stored,
                                      const ObjectDesign& inner) const {
    const Table* const outerTable = tableNamed(database_.tables(), object.table);
    const Table* const innerTable = tableNamed(database_.tables(), inner.table);
    const bool isLinked =
        !stored.childFields.empty() && stored.childFields.size() == stored.masterFields.size();
    if (outerTable == nullptr || innerTable == nullptr || object.key.empty() || !isLinked) return {};
    ForeignKey link{{}, outerTable->name, {}};
    for (std::size_t number = 0; number < stored.childFields.size(); ++number) {
        const Column* const child = columnNamed(*innerTable, columnOf(stored.childFields[number]));
        const Column* const master = masterColumn(object, *outerTable, stored.masterFields[number]);
        if (child == nullptr || master == nullptr) return {};
        link.columns.push_back(child->name);
        link.referredColumns.push_back(master->name);
    }
    return link;
}

}  // namespace mergeloom::describe
