#pragma once

#include "describe/Database.h"
#include "xml/modNamedItems.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// A control of an object, which shows one column of the object's table.
struct ControlDesign {
    std::string name{};
    std::string caption{};  ///< with "&" doubled
    ControlType type = ControlType::Textbox;
    Column column{};
    std::optional<Lookup> lookup{};  ///< of a Combobox
    std::string image{};             ///< the path of one of the pictures of the records
};

struct SubformDesign;

/// A table, query or form of the structure document.
struct ObjectDesign {
    StructureElement kind = StructureElement::Table;
    std::string name{};
    std::string table{};
    std::vector<std::string> key{};  ///< the columns that identify its records
    std::vector<ControlDesign> controls{};
    /// Has no initializer, since the type SubformDesign is incomplete here.
    std::vector<SubformDesign> subforms;

    /// Returns the name as users write it: "Form Orders".
    [[nodiscard]] std::string fullName() const;
};

/// A subform: the records of a table that refer to a record of the form.
struct SubformDesign {
    std::string name{};
    std::string caption{};
    ForeignKey link{};
    ObjectDesign form{};
};

/// Designs the objects of a database: a form for each table that others refer to, then the tables and the
/// queries, each in the order of the database.
std::vector<ObjectDesign> designObjects(const Database& database);

}  // namespace mergeloom::describe
