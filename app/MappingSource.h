#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "xml/StructureDocument.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>
#include <vector>

namespace mergeloom {

/// A structure document with its tree. The tree is not shown, so it does not contain the kinds of drop below
/// controls.
class MappingSource {
  public:
    /// Loads the document and builds the tree. When a document does not load, the tree stays empty, and a
    /// message says why.
    MappingSource(const std::string& path, ErrorHandler& errors, Messages& messages);
    /// Loads the document without its data, whose records are handed over one by one. No message is shown
    /// when it does not load; the document has the reason. Passes on the errors of the handler.
    MappingSource(const std::string& path, ErrorHandler& errors, const RecordHandler& records);

    /// Returns the object that is mapped: the tree's first node, or none when the tree is empty.
    [[nodiscard]] const TreeNode* firstObject() { return tree_.First(); }
    [[nodiscard]] const XmlNodeCollection& xmlNodes() const { return xmlNodes_; }
    /// Returns the controls without a text to show, which are in no tree and in no template.
    [[nodiscard]] const std::vector<XmlNode>& leftOut() const { return leftOut_; }
    [[nodiscard]] const StructureDocument& document() const { return document_; }

  private:
    void showTree(ErrorHandler& errors);

    StructureDocument document_;
    TreeView tree_;
    XmlNodeCollection xmlNodes_;
    std::vector<XmlNode> leftOut_;
};

/// Returns a sentence that names the controls of an object that become no place because they have no caption.
/// Empty when there are none.
std::string leftOutControls(const MappingSource& source, const TreeNode& object);

}  // namespace mergeloom
