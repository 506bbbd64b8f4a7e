#pragma once

#include "describe/Database.h"
#include "xml/modNamedItems.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// A control of a form as the database stores it.
struct StoredControl {
    ControlType type = ControlType::Textbox;
    std::string name{};
    std::string caption{};  ///< of the label that belongs to it; empty if there is none
    std::string source{};   ///< a column, an expression after "=", or empty
    FormSection section = FormSection::Detail;
    std::string format{};                     ///< empty if it is that of the column
    std::optional<int> formatDecimals{};      ///< that a named format shows, if they are not its own
    ListSource list{};                        ///< of a Combobox or Listbox; the options of an OptionGroup
    std::string shownObject{};                ///< of a Subform: "Form.Lines", "Table.Lines" or "Query.Lines"
    std::vector<std::string> childFields{};   ///< of a Subform, columns of its own records
    std::vector<std::string> masterFields{};  ///< of a Subform, columns or controls of the form around it
};

/// A form that the database stores.
struct StoredForm {
    std::string name{};
    std::string source{};  ///< a table, a query, a statement, or empty
    std::vector<StoredControl> controls{};
    DefaultView view = DefaultView::SingleForm;
};

}  // namespace mergeloom::describe
