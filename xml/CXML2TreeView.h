#pragma once

#include "base/ErrorHandler.h"
#include "xml/BoundValueIndex.h"
#include "xml/StructureDocument.h"
#include "xml/TreeView.h"
#include "xml/XmlNodeCollection.h"
#include "xml/modNamedItems.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom {

/// Shows a structure document as a tree: objects, controls and, below a control, what can be dropped of it.
/// Errors are reported; what was shown until then stays.
class CXML2TreeView {
  public:
    /// The tree and the document must outlive this object; the document is not loaded anew meanwhile.
    CXML2TreeView(TreeView& tree, const StructureDocument& document, ErrorHandler& errors)
        : tree_(tree), document_(document), errors_(errors) {}

    /// Shows a node and what is below it under the tree node of that index, or at the top level when it is 0.
    void DisplayXMLNode(int parentIndex, XmlNode node, bool showIcons);

    /// The text under which a node is shown, empty when it has no tree node of its own. Sets the type's name
    /// to an object's element name or a control's type, and the view state to 2 for a datasheet, to 1 for a
    /// form and to another number for what has no view.
    std::string FormatNodeString(XmlNode node, std::string& typeName, int& viewState);

    /// Whether the data holds a bound value for a control; the parent is the element of the tree node above.
    bool ContolHasBoundValue(XmlNode controlNode, XmlNode parentNode);

    /// The controls that have no text to be shown under, and so no tree node.
    [[nodiscard]] const std::vector<XmlNode>& leftOut() const { return leftOut_; }

    /// The elements of the tree's keys. Whoever needs them for longer moves them out of here.
    [[nodiscard]] XmlNodeCollection& XMLNodes() { return xmlNodes_; }

  private:
    void displayNode(int parentIndex, XmlNode node, bool showIcons);
    TreeNode& addNode(int parentIndex, XmlNode node, const std::string& text);
    void addDropKinds(TreeNode& controlNode, XmlNode control);
    void addDropKind(TreeNode& controlNode, DropKind kind);
    std::string controlText(XmlNode control, std::string& typeName, int& viewState);

    TreeView& tree_;
    const StructureDocument& document_;
    ErrorHandler& errors_;
    XmlNodeCollection xmlNodes_;
    std::vector<XmlNode> leftOut_;
    std::optional<BoundValueIndex> boundValues_;
};

}  // namespace mergeloom
