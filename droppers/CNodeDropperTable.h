#pragma once

#include "droppers/ControlNodes.h"
#include "droppers/DropContext.h"
#include "droppers/FieldSelection.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Cell.h"
#include "office/model/word/Document.h"
#include "office/model/word/Table.h"
#include "xml/TreeView.h"

#include <map>
#include <string>
#include <vector>

namespace mergeloom {

inline constexpr const char* kTableModule = "CNodeDropperTable";
inline constexpr int kCaptionRow = 1;
inline constexpr int kFieldRow = 2;

/// Makes a table of an object's or subform's fields: captions in the first row, places in the second. A
/// dropper serves one drop.
class CNodeDropperTable {
  public:
    explicit CNodeDropperTable(DropContext& context) : context_(context) {}

    /// Puts the table behind a new paragraph at the selection, under its bookmark, in place of an earlier
    /// table of that name, and tells whether it did. The name is the object's or the subform control's. Keys
    /// choose the columns and their order; without keys the user does, or all fields become columns where no
    /// user is asked. The caret stands behind the table then.
    bool TableDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument, const std::string& name,
                   const FieldKeys* fieldKeys);

    /// Has the fields of a node chosen by the user, or takes all where no user is asked. No keys when there
    /// are no fields or the user closed the window.
    FieldKeys chooseFields(const TreeNode& node);

    /// The same in a workbook: the table takes the cells from the active one on, whatever they hold, under
    /// its range name. Answers how many rows it has, 0 when none was made. Refused where it has no room. The
    /// cell below the table is selected then, or on the sheet's last row that of the last field.
    int xlTableDrop(const TreeNode& robjTVNode, const excel::WorkbookPtr& robjWorkbook,
                    const std::string& name, const FieldKeys* fieldKeys);

    /// Whether a table of these columns can stand with its first cell there: on the sheet, and on no merged
    /// cells.
    bool xlHasRoom(const TreeNode& node, excel::Range& cell, const FieldKeys& columns);
    /// Tells that the table has no room. Answers false.
    bool xlRefuse();

  private:
    /// One call of TableDrop.
    struct Drop {
        const TreeNode& node;
        const word::DocumentPtr& document;
        const std::string& name;
    };
    struct ExcelDrop {
        const TreeNode& node;
        const excel::WorkbookPtr& workbook;
        const std::string& name;
    };

    void ShowFields(const TreeNode& node);
    void CollectSelectedFields();
    void mDialogFields_Load();
    void mbtnInsert_Click();
    /// The chosen controls but for those that no place can be named after, which are told.
    ControlNodes columnsOf(const TreeNode& node, const FieldKeys& keys);
    bool areColumns(const ControlNodes& chosen);
    bool insertTable(const Drop& drop, const ControlNodes& columns);
    bool FillTable(const Drop& drop, word::Table& table, const ControlNodes& columns);
    void fillColumn(const Drop& drop, word::Table& table, word::Cell& caption, const ControlNodes& places);
    void dropIntoCell(const Drop& drop, word::Cell& cell, const TreeNode& field);

    std::vector<ControlNodes> xlPlaces(const TreeNode& node, const ControlNodes& columns) const;
    int xlInsertTable(const ExcelDrop& drop, excel::Range& cell, const std::vector<ControlNodes>& places);
    bool xlFillTable(const ExcelDrop& drop, excel::Range& block, const std::vector<ControlNodes>& places);
    void xlFillColumn(const ExcelDrop& drop, excel::Range& block, int column, const ControlNodes& fields);

    DropContext& context_;
    FieldSelection mDialogFields;
    std::map<int, std::string> keysByIndex_;
    FieldKeys selectedKeys_;
};

}  // namespace mergeloom
