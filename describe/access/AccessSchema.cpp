#include "describe/access/AccessSchema.h"

#include "base/Text.h"
#include "describe/access/FormStorage.h"
#include "describe/access/QuerySchema.h"
#include "describe/access/TableScan.h"

#include <cstdint>
#include <map>
#include <utility>

namespace mergeloom::describe::access {

namespace {

constexpr std::int64_t kSystemObject = 0x80000002;

/// The kinds of objects in the catalog.
enum ObjectType : std::int64_t {
    kForm = -32768,
    kTable = 1,
    kTableOverOdbc = 4,
    kQuery = 5,
    kTableElsewhere = 6
};

/// Returns false for the tables of Access itself, and for objects that were deleted or belong to a form.
bool isOfUser(const std::string& name, std::int64_t flags) {
    return (flags & kSystemObject) == 0 && !name.starts_with("MSys") && !name.starts_with('~');
}

std::string remarkOn(const std::string& column, const std::string& table, const std::string& reason) {
    return "The column '" + column + "' of '" + table + "' is left out: " + reason;
}

/// A relation from the rows of the system table, which has a row for each pair of columns.
struct Relation {
    std::string from;
    std::string to;
    std::map<std::int64_t, std::pair<std::string, std::string>> columns;
};

class SchemaReader {
  public:
    explicit SchemaReader(const AccessFile& file) : file_(file) {}

    AccessSchema read() {
        TableScan catalog(file_, "MSysObjects", {"Name", "Type", "Flags", "Id"});
        std::vector<QueryEntry> queries;
        std::vector<std::string> names;
        std::vector<std::string> forms;
        while (catalog.next()) {
            const std::string name = catalog.text(0);
            const std::int64_t type = catalog.number(1);
            const std::int64_t flags = catalog.number(2);
            if (!isOfUser(name, flags)) continue;
            if (type == kTable) names.push_back(name);
            if (type == kForm) forms.push_back(name);
            if (type == kQuery) queries.push_back({catalog.number(3), flags, name});
            if (type == kTableOverOdbc || type == kTableElsewhere)
                schema_.remarks.push_back("The table '" + name +
                                          "' is left out: its records are in another database.");
        }
        for (const std::string& name : names)
            readTable(name);
        readRelations();
        if (!queries.empty()) describeQueries(file_, queries, schema_);
        if (!forms.empty()) readForms(file_, forms, schema_);
        return std::move(schema_);
    }

  private:
    void readTable(const std::string& name) {
        // The library reads names with characters beyond 16 bits wrongly.
        if (!file_.hasTable(name)) {
            schema_.remarks.push_back("The table '" + name + "' is left out: its name cannot be read.");
            return;
        }
        const AccessTable table(file_, name);
        for (const auto& [column, reason] : table.unreadable())
            schema_.remarks.push_back(remarkOn(column, name, reason));
        if (!table.columns().empty())
            schema_.tables.push_back({TableKind::Table, name, table.columns(), table.keys()});
    }

    void readRelations() {
        TableScan rows(file_, "MSysRelationships",
                       {"szRelationship", "szObject", "szReferencedObject", "icolumn", "szColumn",
                        "szReferencedColumn"});
        std::map<std::string, std::size_t> numbers;
        std::vector<Relation> relations;
        while (rows.next()) {
            const auto [found, isNew] = numbers.try_emplace(rows.text(0), relations.size());
            if (isNew) relations.push_back({rows.text(1), rows.text(2), {}});
            relations[found->second].columns[rows.number(3)] = {rows.text(4), rows.text(5)};
        }
        std::map<std::string, Table*> tables;
        for (Table& table : schema_.tables)
            tables.emplace(foldCase(table.name), &table);
        for (const Relation& relation : relations) {
            const auto from = tables.find(foldCase(relation.from));
            const auto to = tables.find(foldCase(relation.to));
            if (from != tables.end() && to != tables.end())
                addForeignKey(*from->second, *to->second, relation);
        }
    }

    /// Omits relations with columns that are not described.
    static void addForeignKey(Table& from, const Table& to, const Relation& relation) {
        ForeignKey key{{}, to.name, {}};
        for (const auto& [place, columns] : relation.columns) {
            const Column* const column = columnNamed(from, columns.first);
            const Column* const referred = columnNamed(to, columns.second);
            if (column == nullptr || referred == nullptr) return;
            key.columns.push_back(column->name);
            key.referredColumns.push_back(referred->name);
        }
        from.foreignKeys.push_back(std::move(key));
    }

    const AccessFile& file_;
    AccessSchema schema_;
};

}  // namespace

AccessSchema readSchema(const AccessFile& file) {
    return SchemaReader(file).read();
}

}  // namespace mergeloom::describe::access
