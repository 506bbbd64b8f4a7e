#pragma once

#include "describe/Database.h"
#include "describe/ValueList.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// A control of an object, which shows one column of the object's table.
struct ControlDesign {
    std::string name{};
    std::string caption{};  ///< with "&" doubled
    ControlType type = ControlType::Textbox;
    Column column{};                 ///< without a name if the control shows no column
    std::optional<Lookup> lookup{};  ///< of a Combobox or Listbox
    Column lookedUp{};               ///< the column that the lookup shows
    ValueList values{};              ///< of a Combobox or Listbox without a lookup, or an OptionGroup
    std::string image{};             ///< the path of one of the pictures of the records
    std::string source{};            ///< a column or an expression
    FormSection section = FormSection::Detail;
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
    DefaultView view = DefaultView::SingleForm;  ///< of a form
    bool hasRecords = true;                      ///< false for a form without data
    std::vector<std::string> remarks{};          ///< sentences about its parts that are left out

    /// Returns true if its records can be selected.
    [[nodiscard]] bool hasTable() const { return !table.empty(); }

    /// Returns the name as users write it: "Form Orders".
    [[nodiscard]] std::string fullName() const;
};

/// A subform: the records of a table that refer to a record of the form.
struct SubformDesign {
    std::string name{};
    std::string caption{};
    ForeignKey link{};  ///< without columns if its records cannot be selected
    ObjectDesign form{};
    FormSection section = FormSection::Detail;
};

/// Returns the text with "&" doubled.
std::string asCaption(const std::string& text);

/// The depth to which tables can be nested in a letter.
inline constexpr std::size_t kMaxSubformDepth = 2;

/// Designs the objects of a database: its stored forms, a form for each other table that tables refer to,
/// then the tables and the queries, each in the order of the database.
std::vector<ObjectDesign> designObjects(const Database& database);

/// Returns the object without the controls and subforms whose values cannot be selected from the database.
ObjectDesign selectablePart(const ObjectDesign& object, const Database& database);

}  // namespace mergeloom::describe
