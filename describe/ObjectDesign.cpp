#include "describe/ObjectDesign.h"

#include "base/Text.h"
#include "describe/ListLookup.h"
#include "describe/StoredForm.h"
#include "describe/StoredFormDesigner.h"

#include <algorithm>
#include <map>
#include <utility>

namespace mergeloom::describe {

namespace {

/// Databases join a limited number of tables in one query, SQLite 64. The lookups of further columns are left
/// out; these show their keys.
constexpr std::size_t kMaxLookups = 48;

using TablesByName = std::map<std::string, const Table*>;

TablesByName tablesByName(const std::vector<Table>& tables) {
    TablesByName byName;
    for (const Table& table : tables)
        byName.emplace(table.name, &table);
    return byName;
}

/// Limits the lookups, and stores the shown columns, whose formats apply to the values.
void completeLookups(ObjectDesign& object, const TablesByName& tables) {
    std::size_t lookups = 0;
    for (ControlDesign& control : object.controls) {
        if (control.lookup && ++lookups > kMaxLookups) control.lookup.reset();
        if (!control.lookup) continue;
        const Column* const shown =
            columnNamed(*tables.at(control.lookup->table), control.lookup->shownColumn);
        if (shown != nullptr) control.lookedUp = *shown;
    }
    for (SubformDesign& subform : object.subforms)
        completeLookups(subform.form, tables);
}

/// A foreign key and the table that has it.
struct Reference {
    const Table* from = nullptr;
    const ForeignKey* key = nullptr;
};

class ObjectDesigner {
  public:
    explicit ObjectDesigner(const Database& database)
        : database_(database), tables_(database.tables()), byName_(tablesByName(tables_)) {
        for (const Table& table : tables_) {
            for (const ForeignKey& key : table.foreignKeys) {
                if (key.referredTable != table.name && refersToKey(key))
                    references_[key.referredTable].push_back({&table, &key});
            }
        }
    }

    [[nodiscard]] std::vector<ObjectDesign> design() const {
        std::vector<ObjectDesign> objects = storedForms();
        for (const Table& table : tables_) {
            if (references_.contains(table.name) && !isStored(table.name))
                objects.push_back(formOf(table, {&table}, {}));
        }
        for (const TableKind kind : {TableKind::Table, TableKind::View}) {
            for (const Table& table : tables_) {
                if (table.kind == kind) objects.push_back(plainObject(table));
            }
        }
        return objects;
    }

  private:
    [[nodiscard]] std::vector<ObjectDesign> storedForms() const {
        if (database_.forms().empty()) return {};
        std::map<std::string, ObjectDesign> plain;
        for (const Table& table : tables_)
            plain.emplace(table.name, plainObject(table));
        const StoredFormDesigner designer(database_, plain);
        std::vector<ObjectDesign> objects;
        for (const StoredForm& form : database_.forms())
            objects.push_back(designer.design(form));
        return objects;
    }

    [[nodiscard]] bool isStored(const std::string& name) const {
        return std::ranges::any_of(
            database_.forms(), [&](const StoredForm& form) { return equalsIgnoringCase(form.name, name); });
    }

    /// Returns false for a foreign key whose columns identify no row; its rows would count several times.
    [[nodiscard]] bool refersToKey(const ForeignKey& key) const {
        const auto found = byName_.find(key.referredTable);
        return found != byName_.end() &&
               std::ranges::any_of(found->second->keys, [&](const std::vector<std::string>& candidate) {
                   return std::ranges::is_permutation(candidate, key.referredColumns);
               });
    }

    /// Omits the columns of the link, since they repeat the key of the form.
    [[nodiscard]] ObjectDesign formOf(const Table& table, const std::vector<const Table*>& around,
                                      const std::vector<std::string>& link) const {
        ObjectDesign form = object(StructureElement::Form, table);
        std::erase_if(form.controls, [&](const ControlDesign& control) {
            return std::ranges::find(link, control.name) != link.end();
        });
        if (around.size() <= kMaxSubformDepth) addSubforms(form, table, around);
        return form;
    }

    /// Skips tables that are already open around the form, since references may form a circle.
    void addSubforms(ObjectDesign& form, const Table& table, const std::vector<const Table*>& around) const {
        const auto found = references_.find(table.name);
        if (found == references_.end()) return;
        for (const Reference& reference : found->second) {
            if (std::ranges::find(around, reference.from) != around.end()) continue;
            std::vector<const Table*> path = around;
            path.push_back(reference.from);
            const std::string name = freeName(form, reference);
            ObjectDesign inner = formOf(*reference.from, path, reference.key->columns);
            if (inner.controls.empty() && inner.subforms.empty()) continue;
            inner.view = DefaultView::Datasheet;
            form.subforms.push_back({name, asCaption(name), *reference.key, std::move(inner)});
        }
    }

    /// Returns a name that is unique in the form: a control may have the name of the table, and a table may
    /// refer to the form's table twice.
    static std::string freeName(const ObjectDesign& form, const Reference& reference) {
        const std::string& table = reference.from->name;
        std::string name = table;
        for (int number = 1; isTaken(form, name); ++number) {
            name = table + "_" + reference.key->columns.front();
            if (number > 1) name += "_" + std::to_string(number);
        }
        return name;
    }

    static bool isTaken(const ObjectDesign& form, const std::string& name) {
        return std::ranges::find(form.controls, name, &ControlDesign::name) != form.controls.end() ||
               std::ranges::find(form.subforms, name, &SubformDesign::name) != form.subforms.end();
    }

    [[nodiscard]] ObjectDesign plainObject(const Table& table) const {
        return object(table.kind == TableKind::View ? StructureElement::Query : StructureElement::Table,
                      table);
    }

    [[nodiscard]] ObjectDesign object(StructureElement kind, const Table& table) const {
        ObjectDesign object;
        object.kind = kind;
        object.name = table.name;
        object.table = table.name;
        if (!table.keys.empty()) object.key = table.keys.front();
        for (const Column& column : table.columns)
            object.controls.push_back(control(column));
        lookUp(object, table);
        return object;
    }

    void lookUp(ObjectDesign& object, const Table& table) const {
        for (ControlDesign& control : object.controls) {
            control.values = ValueList(control.column.list);
            if (!control.values.isEmpty()) continue;
            control.lookup = lookupIn(control.column.list, control.column.name, tables_);
            if (!control.lookup) control.lookup = lookupOf(table, control.column);
            if (!control.lookup) continue;
            if (control.type != ControlType::Listbox) control.type = ControlType::Combobox;
        }
    }

    static ControlDesign control(const Column& column) {
        ControlDesign control{column.name, asCaption(column.caption.empty() ? column.name : column.caption)};
        control.column = column;
        control.source = column.name;
        if (column.type == ColumnType::Boolean) control.type = ControlType::Checkbox;
        if (column.display != ControlType::Unknown) control.type = column.display;
        if (column.type == ColumnType::Bytes) control.type = ControlType::BoundObjectFrame;
        const bool isNumber = column.type == ColumnType::Integer;
        if (isNumber && control.type == ControlType::Checkbox) control.column.type = ColumnType::Boolean;
        return control;
    }

    [[nodiscard]] std::optional<Lookup> lookupOf(const Table& table, const Column& column) const {
        for (const ForeignKey& key : table.foreignKeys) {
            if (key.columns != std::vector{column.name} || !refersToKey(key)) continue;
            const std::string& referred = key.referredColumns.front();
            const std::string shown = shownColumn(*byName_.at(key.referredTable), referred);
            if (!shown.empty()) return Lookup{column.name, key.referredTable, referred, shown};
        }
        return std::nullopt;
    }

    /// Returns the first column with text that is neither a part of the primary key nor the one that a
    /// foreign key refers to, since people do not remember keys.
    static std::string shownColumn(const Table& table, const std::string& referred) {
        for (const Column& column : table.columns) {
            const bool isKey = !table.keys.empty() &&
                               std::ranges::find(table.keys.front(), column.name) != table.keys.front().end();
            if (column.type == ColumnType::Text && !isKey && column.name != referred) return column.name;
        }
        return {};
    }

    const Database& database_;
    const std::vector<Table>& tables_;
    TablesByName byName_;
    std::map<std::string, std::vector<Reference>> references_;
};

}  // namespace

std::string asCaption(const std::string& text) {
    return replaceAll(text, "&", "&&");
}

std::string ObjectDesign::fullName() const {
    return StructureElementName(kind) + " " + name;
}

std::vector<ObjectDesign> designObjects(const Database& database) {
    std::vector<ObjectDesign> objects = ObjectDesigner(database).design();
    const TablesByName tables = tablesByName(database.tables());
    for (ObjectDesign& object : objects)
        completeLookups(object, tables);
    return objects;
}

ObjectDesign selectablePart(const ObjectDesign& object, const Database& database) {
    ObjectDesign part = object;
    std::erase_if(part.controls, [](const ControlDesign& control) { return control.column.name.empty(); });
    std::erase_if(part.subforms, [&](const SubformDesign& subform) {
        return subform.link.columns.empty() || !database.canSelect(subform.form.table);
    });
    for (SubformDesign& subform : part.subforms)
        subform.form = selectablePart(subform.form, database);
    return part;
}

}  // namespace mergeloom::describe
