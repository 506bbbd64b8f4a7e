#pragma once

#include "droppers/DropContext.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// The control that a field drop places, and how.
struct FieldDropArguments {
    XmlNode node{};  ///< the control's element
    bool labelRequired = false;
    std::string parentName{};            ///< the enclosing subform's name; empty for a free field
    const TreeNode* treeNode = nullptr;  ///< the control's tree node, if there is one
    bool boundValueUse = false;
    bool isTableField = false;
    std::string tableName{};  ///< the bookmark or range of the table that a table field belongs to
    bool addCrLf = false;     ///< end the drop with a paragraph mark; in Word only
};

/// The refusal of a table field outside its table.
inline constexpr const char* kOutsideItsTable =
    "The field may only be dropped on a table\u2019s merge area if it is a tablefield.";

/// Turns one control into one named place, with its caption before it if required.
class CNodeDropperField {
  public:
    explicit CNodeDropperField(DropContext& context) : context_(context) {}

    /// Drops at the selection. Returns true when a place was made. A subform becomes a form of its controls,
    /// or a table of its fields when it is bound to records. When the table of a table field exists, the
    /// field is refused outside of it.
    bool FieldDrop(const FieldDropArguments& arguments, const word::DocumentPtr& document);

    /// Drops a table field into the Word table at the selection and makes that table the field's own, unless
    /// the field's own table exists already. A required caption goes into the cell above when that is empty,
    /// otherwise before the place. Raises kApplicationError for a table that is not a plain grid of two rows
    /// or more.
    bool TableFieldDrop(const FieldDropArguments& arguments, const word::DocumentPtr& document);

    /// Drops at the active cell. Returns the number of rows used, 0 when nothing was written. A required
    /// caption goes into that cell and the place to the right of it. Subforms and table fields are treated as
    /// in Word.
    int xlFieldDrop(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook);

  private:
    bool drop(const FieldDropArguments& arguments, const word::DocumentPtr& document);
    bool mayDropAt(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                   word::Selection& selection);
    bool dropSubform(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                     word::Selection& selection);
    /// The name is the control's, simplified.
    bool dropPlace(const FieldDropArguments& arguments, std::string name, const word::DocumentPtr& document,
                   word::Selection& selection);
    bool dropTable(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                   word::Selection& selection);
    bool dropIntoTable(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                       word::Table& table);
    bool typeCaptionAbove(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                          word::Table& table);
    bool typeLabel(const FieldDropArguments& arguments, word::Selection& selection);
    bool dropForm(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                  word::Selection& selection);

    int xlDrop(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook);
    int xlTypeLabel(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook,
                    excel::Range& cell);
    int xlDropPlace(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook);
    int xlDropTable(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook,
                    excel::Range& cell);
    int xlDropForm(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook);

    std::string pictureOf(const XmlNode& control) const;

    DropContext& context_;
};

/// Returns true if a place can be named after a control. If not, informs the user why the control is omitted.
bool takesName(DropContext& context, const FieldDropArguments& control);

/// Returns true if a control can be dropped, or any control of a subform. If not, informs the user why it is
/// omitted. A subform needs its tree node.
bool takesControl(DropContext& context, const FieldDropArguments& control);

}  // namespace mergeloom
