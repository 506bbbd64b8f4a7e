#pragma once

#include "base/ErrorHandler.h"
#include "xml/StructureDocument.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"
#include "xml/modNamedItems.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
class xml_node;
}

namespace mergeloom {

/// Index of the controls that have a bound value in the Data part. The rule is defined by searches for a
/// Control element by its name, each through the whole part; the index returns the same results without
/// searching.
class BoundValueIndex {
  public:
    /// Indexes the elements below a Data element, which may be null. Names are kept by reference.
    explicit BoundValueIndex(XmlNode data);

    /// Returns true when the first control of that name, below the first control of the outer name unless
    /// that is empty, has a BoundValue element anywhere below it. A name with both kinds of quote is searched
    /// without its double quotes, and an empty one matches any control that has a name.
    [[nodiscard]] bool hasBoundValue(std::string_view outerName, std::string_view name) const;

  private:
    /// Controls are numbered in document order, so those below a control follow it without a gap.
    using Number = std::uint32_t;

    struct Control {
        Number endBelow;  ///< one past the last control below this one
        bool hasBoundValue;
    };
    struct NamedControl {
        std::string_view name;
        Number number;

        friend bool operator<(const NamedControl& a, const NamedControl& b) {
            return a.name != b.name ? a.name < b.name : a.number < b.number;
        }
    };

    bool addBelow(pugi::xml_node parent);
    bool addControl(pugi::xml_node element);
    [[nodiscard]] Number first(std::string_view name, Number from, Number end) const;

    std::vector<Control> controls_;
    std::vector<NamedControl> byName_;  // in the order of names, then of numbers
    std::vector<Number> named_;         // the controls that have a name, in their order
};

/// Determines if the tree has nodes for the kinds of drop below controls. Runs without a user leave them out,
/// since they would be most of the tree.
enum class DropKindNodes { Shown, LeftOut };

/// Shows a structure document as a tree: objects, controls and, below a control, the kinds of drop that it
/// offers. Errors are reported; nodes added until then stay.
class CXML2TreeView {
  public:
    /// The tree and the document must outlive this object; the document must not be reloaded meanwhile.
    CXML2TreeView(TreeView& tree, const StructureDocument& document, ErrorHandler& errors,
                  DropKindNodes dropKinds = DropKindNodes::Shown)
        : tree_(tree), document_(document), errors_(errors), dropKinds_(dropKinds) {}

    /// Shows a node and its descendants under the tree node of that index, or at the top level when it is 0.
    void DisplayXMLNode(int parentIndex, XmlNode node, bool showIcons);

    /// Returns the text of a node in the tree, empty when it has no tree node. Sets the type's name to an
    /// object's element name or a control's type, and the view state to 2 for a datasheet, to 1 for a form
    /// and to another number for a node without a view.
    std::string FormatNodeString(XmlNode node, std::string& typeName, int& viewState);

    /// Returns true when the data holds a bound value for a control. The parent is the element of the tree
    /// node above.
    bool ContolHasBoundValue(XmlNode controlNode, XmlNode parentNode);

    /// Returns the controls without a text, which have no tree node.
    [[nodiscard]] const std::vector<XmlNode>& leftOut() const { return leftOut_; }

    /// Returns the elements of the tree's keys. To keep them longer than this object, move them.
    [[nodiscard]] XmlNodeCollection& XMLNodes() { return xmlNodes_; }

  private:
    void displayNode(int parentIndex, XmlNode node, bool showIcons);
    TreeNode& addNode(int parentIndex, XmlNode node, const std::string& text);
    static void markSection(TreeNode& controlNode, XmlNode control);
    void addDropKinds(TreeNode& controlNode, XmlNode control);
    void addDropKind(TreeNode& controlNode, DropKind kind);
    std::string textOf(XmlNode node, StructureElement kind, std::string& typeName, int& viewState);
    std::string controlText(XmlNode control, std::string& typeName, int& viewState);

    TreeView& tree_;
    const StructureDocument& document_;
    ErrorHandler& errors_;
    DropKindNodes dropKinds_;
    XmlNodeCollection xmlNodes_;
    std::vector<XmlNode> leftOut_;
    std::optional<BoundValueIndex> boundValues_;
};

}  // namespace mergeloom
