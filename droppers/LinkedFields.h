#pragma once

#include "droppers/StructureNodes.h"
#include "xml/XmlNode.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mergeloom {

/// Returns the names in square brackets of a calculated control source, in their order. They count when the
/// source applies a function or a parenthesis to a field: somewhere in it "(" is followed by "[" (blanks
/// aside) and closed by ")". Then every name in brackets counts, also outside the parenthesis, so that
/// "=Sum([Price])*[Qty]" returns Price and Qty. Text in double quotes names nothing.
std::vector<std::string> linkedNames(std::string_view controlSource);

/// Index of an object's fields by their names, regardless of letter case. Of several fields of one name the
/// first one counts.
class FieldsByName {
  public:
    FieldsByName(const XmlNodeCollection& xmlNodes, const ControlNodes& fields);

    /// Returns the field of that name, or null.
    [[nodiscard]] const TreeNode* find(std::string_view name) const;

  private:
    std::unordered_map<std::string, const TreeNode*> byFoldedName_;
};

/// Returns the siblings that the field's control source names (regardless of letter case) in its order,
/// without the field itself.
ControlNodes GetLinkedFields(const XmlNodeCollection& xmlNodes, const TreeNode& field,
                             const FieldsByName& siblings);

/// Returns the columns of a table, each with the fields that get a place in it: its own, and below it those
/// that its control source needs and that have no place yet.
std::vector<ControlNodes> placesOfColumns(const XmlNodeCollection& xmlNodes, const ControlNodes& columns,
                                          const ControlNodes& siblings);

}  // namespace mergeloom
