#pragma once

#include "droppers/DropContext.h"
#include "droppers/FieldSelection.h"
#include "droppers/StructureNodes.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
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

/// Makes a table of an object's or subform's fields: captions in the first row, places in the second. Create
/// one for each drop.
class CNodeDropperTable {
  public:
    explicit CNodeDropperTable(DropContext& context) : context_(context) {}

    /// Inserts the table after a new paragraph at the selection, sets its bookmark and removes an earlier
    /// table of that name. Returns true on success. The name is the object's or the subform control's. Keys
    /// choose the columns and their order; without keys the user does, or all fields become columns when no
    /// user is asked. Leaves the caret after the table.
    bool TableDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument, const std::string& name,
                   const FieldKeys* fieldKeys);

    /// Lets the user choose the fields of a node, or takes all when no user is asked. Returns no keys when
    /// there are no fields or the user closed the window.
    FieldKeys chooseFields(const TreeNode& node);

    /// Inserts the table into a workbook: it overwrites the cells from the active one on and gets its range
    /// name. Returns its number of rows, 0 when none was made. A table without room is refused. Selects the
    /// cell below the table, or, at the sheet's last row, that of the last field.
    int xlTableDrop(const TreeNode& robjTVNode, const excel::WorkbookPtr& robjWorkbook,
                    const std::string& name, const FieldKeys* fieldKeys);

    /// Returns true when a table of these columns can begin at that cell: it ends on the sheet and covers no
    /// merged cells.
    bool xlHasRoom(const TreeNode& node, excel::Range& cell, const FieldKeys& columns);
    /// Informs the user that the table has no room. Returns false.
    bool xlRefuse();

  private:
    /// The arguments of one call of TableDrop.
    struct Drop {
        const TreeNode& node;
        const word::DocumentPtr& document;
        const std::string& name;
    };
    class TableRows;
    struct ExcelDrop {
        const TreeNode& node;
        const excel::WorkbookPtr& workbook;
        const std::string& name;
    };

    void ShowFields(const TreeNode& node);
    void CollectSelectedFields();
    void mDialogFields_Load();
    void mbtnInsert_Click();
    /// Returns the chosen controls except those after which no place can be named; the user is informed of
    /// these.
    ControlNodes columnsOf(const TreeNode& node, const FieldKeys& keys);
    bool areColumns(const ControlNodes& chosen);
    bool insertTable(const Drop& drop, const ControlNodes& columns);
    bool FillTable(const Drop& drop, word::Table& table, const ControlNodes& columns);
    void fillColumn(const Drop& drop, TableRows& rows, int column, const ControlNodes& places);
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
