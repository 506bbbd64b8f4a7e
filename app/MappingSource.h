#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "xml/StructureDocument.h"
#include "xml/TreeView.h"
#include "xml/XmlNodeCollection.h"

#include <string>
#include <vector>

namespace mergeloom {

/// A structure document with the tree over it that nobody sees.
class MappingSource {
  public:
    /// Loads the document and shows it in the tree. A document that does not load leaves the tree empty, and
    /// the user is told why.
    MappingSource(const std::string& path, ErrorHandler& errors, Messages& messages);

    /// The object that is mapped: the tree's first node, or none when the tree is empty.
    [[nodiscard]] const TreeNode* firstObject() { return tree_.First(); }
    [[nodiscard]] const XmlNodeCollection& xmlNodes() const { return xmlNodes_; }
    /// The controls that have no text to be shown under; they are in no tree and in no template.
    [[nodiscard]] const std::vector<XmlNode>& leftOut() const { return leftOut_; }
    [[nodiscard]] const StructureDocument& document() const { return document_; }

  private:
    StructureDocument document_;
    TreeView tree_;
    XmlNodeCollection xmlNodes_;
    std::vector<XmlNode> leftOut_;
};

}  // namespace mergeloom
