#pragma once

#include "droppers/DropContext.h"
#include "office/model/word/Document.h"
#include "office/model/word/Selection.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// What is dropped by a field drop, and how.
struct FieldDropArguments {
    XmlNode node{};  ///< the control's element
    word::DocumentPtr document{};
    bool labelRequired = false;
    std::string parentName{};            ///< the enclosing table's or subform's name; empty for a free field
    const TreeNode* treeNode = nullptr;  ///< the control's tree node, if there is one
    bool boundValueUse = false;
    bool isTableField = false;
    bool addCrLf = false;  ///< end the drop with a paragraph mark
};

/// Turns one control into one named place, with its caption before it if that is wanted.
class CNodeDropperField {
  public:
    explicit CNodeDropperField(DropContext& context) : context_(context) {}

    /// Drops at the selection and tells whether a place was made. A subform becomes a form of its controls;
    /// one that is bound to records is refused as long as tables cannot be dropped.
    bool FieldDrop(const FieldDropArguments& arguments);

  private:
    bool drop(const FieldDropArguments& arguments);
    bool mayDrop(const FieldDropArguments& arguments, word::Selection& selection);
    bool dropPlace(const FieldDropArguments& arguments, word::Selection& selection);
    bool dropSubform(const FieldDropArguments& arguments, word::Selection& selection);
    std::string pictureOf(const XmlNode& control) const;

    DropContext& context_;
};

}  // namespace mergeloom
