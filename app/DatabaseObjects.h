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

    /// Returns "Table", "Query" or "Form", whatever the letter case in the structure document.
    [[nodiscard]] std::string kind() const;
    [[nodiscard]] std::string name() const;
    /// Returns its name in sentences: Form "Orders".
    [[nodiscard]] std::string title() const;
};

/// Returns the objects in the order of the structure document.
std::vector<DatabaseObject> objectsOf(MappingSource& source);

/// Returns the object that a user names: by its name alone, or as "Form Orders" when objects of several kinds
/// share the name. A name in another letter case is taken when none is spelled exactly so. Raises
/// MappingRefusal, with the existing names, when no or more than one kind of object has the name.
const DatabaseObject& objectNamed(const std::vector<DatabaseObject>& objects, const std::string& name);

/// Returns the number of controls of an object, those of its subforms included.
int controlCount(const DatabaseObject& object);

}  // namespace mergeloom
