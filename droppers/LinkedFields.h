#pragma once

#include "droppers/ControlNodes.h"
#include "xml/XmlNodeCollection.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mergeloom {

/// The names that stand in square brackets in a calculated control source, in its order. They count when the
/// source applies a function or a parenthesis to a field: somewhere in it "(" is followed by "[" (blanks
/// aside) and closed by ")". Then every name in brackets counts, also outside the parenthesis, so that
/// "=Sum([Price])*[Qty]" gives Price and Qty. What stands in double quotes is a text and names nothing.
std::vector<std::string> linkedNames(std::string_view controlSource);

/// The fields of an object by their names, without regard to letter case. Of several fields of one name the
/// first one counts. Found in the same time however many fields there are.
class FieldsByName {
  public:
    FieldsByName(const XmlNodeCollection& xmlNodes, const ControlNodes& fields);

    /// The field of that name; none when there is none.
    [[nodiscard]] const TreeNode* find(std::string_view name) const;

  private:
    std::unordered_map<std::string, const TreeNode*> byFoldedName_;
};

/// The fields among the siblings, other than the field itself, that the field's control source names, letter
/// case aside, in the order in which it names them.
ControlNodes GetLinkedFields(const XmlNodeCollection& xmlNodes, const TreeNode& field,
                             const FieldsByName& siblings);

/// The columns of a table, each with the fields that get a place in it: its own, and under it those that its
/// control source needs and that have no place yet.
std::vector<ControlNodes> placesOfColumns(const XmlNodeCollection& xmlNodes, const ControlNodes& columns,
                                          const ControlNodes& siblings);

}  // namespace mergeloom
