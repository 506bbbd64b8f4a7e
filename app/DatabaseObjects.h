#pragma once

#include "app/MappingSource.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>
#include <vector>

namespace mergeloom {

/// A table, query or form of the database, as the tree shows it at its top level.
struct DatabaseObject {
    const TreeNode* node;
    XmlNode element;

    /// "Table", "Query" or "Form", whatever the letter case in the structure document.
    [[nodiscard]] std::string kind() const;
    [[nodiscard]] std::string name() const;
    /// As sentences name it: Form "Orders".
    [[nodiscard]] std::string title() const;
};

/// The objects in the order of the structure document.
std::vector<DatabaseObject> objectsOf(MappingSource& source);

/// The object that a user names: by its name alone, or as "Form Orders" where objects of several kinds share
/// the name. A name in another letter case is taken where none is spelled exactly so. Raises MappingRefusal,
/// with the names that there are, when none or more than one kind of object has the name.
const DatabaseObject& objectNamed(const std::vector<DatabaseObject>& objects, const std::string& name);

/// The number of controls of an object, those of its subforms included.
int controlCount(const DatabaseObject& object);

}  // namespace mergeloom
