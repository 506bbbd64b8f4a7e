#pragma once

#include "droppers/DropContext.h"
#include "office/model/word/Document.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// What is dropped by a field drop, and how.
struct FieldDropArguments {
    XmlNode node{};  ///< the control's element
    word::DocumentPtr document{};
    bool labelRequired = false;
    std::string parentName{};            ///< the enclosing subform's name; empty for a free field
    const TreeNode* treeNode = nullptr;  ///< the control's tree node, if there is one
    bool boundValueUse = false;
    bool isTableField = false;
    std::string tableName{};  ///< the bookmark of the table that a table field belongs to
    bool addCrLf = false;     ///< end the drop with a paragraph mark
};

/// Turns one control into one named place, with its caption before it if that is wanted.
class CNodeDropperField {
  public:
    explicit CNodeDropperField(DropContext& context) : context_(context) {}

    /// Drops at the selection and tells whether a place was made. A subform becomes a form of its controls,
    /// or a table of its fields when it is bound to records. A table field is refused outside its table where
    /// that is there.
    bool FieldDrop(const FieldDropArguments& arguments);

    /// Drops a table field into the Word table at the selection and makes that table the field's own, unless
    /// that is there already. A caption that is wanted goes into the cell above when that is empty, else
    /// before the place. Raises kApplicationError for a table that is not a plain grid of two rows or more.
    bool TableFieldDrop(const FieldDropArguments& arguments);

  private:
    bool drop(const FieldDropArguments& arguments);
    bool mayDrop(const FieldDropArguments& arguments, word::Selection& selection);
    bool dropPlace(const FieldDropArguments& arguments, word::Selection& selection);
    bool dropTable(const FieldDropArguments& arguments);
    bool dropIntoTable(const FieldDropArguments& arguments, word::Table& table);
    bool typeCaptionAbove(const FieldDropArguments& arguments, word::Table& table);
    bool typeLabel(const FieldDropArguments& arguments);
    bool dropForm(const FieldDropArguments& arguments, word::Selection& selection);
    std::string pictureOf(const XmlNode& control) const;

    DropContext& context_;
};

}  // namespace mergeloom
