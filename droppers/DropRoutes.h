#pragma once

#include "droppers/CNodeDropperField.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// What a node becomes in one kind of document, once it is known what the node stands for. Each tells whether
/// something was dropped.
class DropRoutes {
  public:
    DropRoutes() = default;
    DropRoutes(const DropRoutes&) = delete;
    DropRoutes& operator=(const DropRoutes&) = delete;
    virtual ~DropRoutes() = default;

    virtual bool labelDrop(const XmlNode& control) = 0;
    /// The name of the table that a table field belongs to is left to the route.
    virtual bool fieldDrop(FieldDropArguments arguments) = 0;
    /// An object or a subform, with its name.
    virtual bool formDrop(const TreeNode& node, const std::string& name) = 0;
    virtual bool tableDrop(const TreeNode& node, const std::string& name) = 0;
    virtual bool labelDocumentDrop(const TreeNode& node, const std::string& name) = 0;
};

}  // namespace mergeloom
