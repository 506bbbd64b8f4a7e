#pragma once

#include "droppers/DropContext.h"
#include "xml/TreeView.h"
#include "xml/XmlNodeCollection.h"

#include <string>
#include <vector>

namespace mergeloom {

/// Returns whether the value of the switch for fields lists any.
bool listsFields(const std::string& fieldList);
/// Returns whether a list has anything but separators and blanks.
bool namesFields(const std::string& fieldList);

/// The fields that a list names.
struct NamedFields {
    FieldKeys keys;                      ///< of the fields in the tree, in the list's order
    std::vector<std::string> unmatched;  ///< the names that no field has
};

/// Returns a sentence with the names that match no field of the object with that title; empty when all match.
std::string unmatchedSentence(const NamedFields& fields, const std::string& object);

/// Finds the fields that a list names. The names are separated by commas, or by semicolons when there is no
/// comma, and are those of children of the object's node, without regard to case and the blanks around them.
NamedFields fieldsNamed(const TreeNode& object, const XmlNodeCollection& xmlNodes,
                        const std::string& fieldList);

}  // namespace mergeloom
