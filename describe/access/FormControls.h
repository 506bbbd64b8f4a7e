#pragma once

#include "describe/StoredForm.h"
#include "describe/access/DesignBlob.h"

#include <string>
#include <string_view>

namespace mergeloom::describe::access {

/// Returns the list with its kind by its type (RowSourceType); an empty list for a type other than
/// "Table/Query", whose rows are those of a table or a statement, and "Value List".
ListSource listOfType(const std::string& type, ListSource list);

/// Returns the form with the controls that show data. Raises kFileCouldNotBeRead for a design that is no
/// form.
StoredForm formOf(const std::string& name, const DesignObject& design);

/// Returns the type of a control by its number in Access (AcControlType), or Unknown for one without data.
ControlType controlTypeOf(int kind);

}  // namespace mergeloom::describe::access
