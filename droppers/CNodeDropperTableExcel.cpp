#include "droppers/CNodeDropperField.h"
#include "droppers/CNodeDropperTable.h"
#include "droppers/CellNavigation.h"
#include "droppers/LinkedFields.h"
#include "droppers/StructureNodes.h"
#include "droppers/TableBookmark.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Worksheet.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>
#include <map>

/// The Excel half of CNodeDropperTable.
namespace mergeloom {

namespace {

/// Offices round lengths; an excess of one pixel covers nothing.
constexpr Points kPixel{0.75};

/// The widths of columns, by their numbers in the sheet.
using ColumnWidths = std::map<int, ColumnWidth>;

/// Returns the columns of the block that hold the whole width of an object in any of the sheet's rows.
ColumnWidths columnsOfObjects(excel::Range& block) {
    const int first = block.Column();
    const int end = first + block.Columns()->Count();
    const excel::ShapesPtr shapes = block.Worksheet()->Shapes();
    ColumnWidths widths;
    for (int number = 1; number <= shapes->Count(); ++number) {
        const excel::ShapePtr shape = shapes->Item(number);
        const excel::RangePtr cell = shape->TopLeftCell();
        const int column = cell->Column();
        const bool isInside = column >= first && column < end;
        const bool fits = shape->Width().value <= cell->Width().value + kPixel.value;
        if (isInside && fits) widths.emplace(column, cell->ColumnWidth());
    }
    return widths;
}

/// Fits the columns of a block to their texts. A column that holds the whole width of an object on the sheet
/// is not narrowed, since the object would cover the cells beside it.
void fitColumns(excel::Range& block) {
    const ColumnWidths formerWidths = columnsOfObjects(block);
    block.Columns()->AutoFit();
    for (const auto& [column, width] : formerWidths) {
        const excel::RangePtr cell = block.Cells(1, column - block.Column() + 1);
        if (cell->ColumnWidth() < width) cell->SetColumnWidth(width);
    }
}

int rowsFor(const std::vector<ControlNodes>& places) {
    const auto longest = std::ranges::max_element(places, {}, &ControlNodes::size);
    return kCaptionRow + static_cast<int>(longest->size());
}

/// Returns the cells of a table from its first one on; null where the sheet ends or cells are merged.
excel::RangePtr blockAt(excel::Range& first, const std::vector<ControlNodes>& places) {
    const int columns = static_cast<int>(places.size());
    excel::RangePtr block = rangeOrNone([&] { return first.Resize(rowsFor(places), columns); });
    return block && !block->MergeCells() ? block : nullptr;
}

/// Returns the active cell; null when no cells are selected.
excel::RangePtr selectedCell(excel::Application& application) {
    if (application.Selection()->TypeName() != "Range") return {};
    return rangeOrNone([&] { return application.ActiveCell(); });
}

/// Makes the cell below the table the active one, so that the next drop does not damage the table. The
/// sheet's last row has none.
void leaveTable(excel::Range& first, int rows) {
    const excel::RangePtr below = rangeOrNone([&] { return cellBelow(first, rows); });
    if (below) below->Select();
}

std::string refersTo(excel::Range& block) {
    return "=" + block.AddressLocal();
}

}  // namespace

int CNodeDropperTable::xlTableDrop(const TreeNode& robjTVNode, const excel::WorkbookPtr& robjWorkbook,
                                   const std::string& name, const FieldKeys* fieldKeys) {
    int rows = 0;
    context_.reports.trap({kTableModule, "xlTableDrop"}, [&] {
        if (!robjTVNode.Child()) return false;
        const excel::RangePtr cell = selectedCell(*robjWorkbook->Application());
        if (!cell) return xlRefuse();
        const ControlNodes columns = columnsOf(robjTVNode, fieldKeys ? *fieldKeys : chooseFields(robjTVNode));
        if (!areColumns(columns)) return false;
        const std::vector<ControlNodes> places = xlPlaces(robjTVNode, columns);
        if (!blockAt(*cell, places)) return xlRefuse();
        rows = xlInsertTable({robjTVNode, robjWorkbook, name}, *cell, places);
        return true;
    });
    return context_.reports.failed() ? 0 : rows;
}

bool CNodeDropperTable::xlHasRoom(const TreeNode& node, excel::Range& cell, const FieldKeys& columns) {
    return blockAt(cell, xlPlaces(node, chosenControls(node, columns))) != nullptr;
}

bool CNodeDropperTable::xlRefuse() {
    return context_.reports.refuse("It is impossible to insert the table into current selection.");
}

std::vector<ControlNodes> CNodeDropperTable::xlPlaces(const TreeNode& node,
                                                      const ControlNodes& columns) const {
    return placesOfColumns(context_.xmlNodes, columns, fieldsOf(context_.xmlNodes, node));
}

int CNodeDropperTable::xlInsertTable(const ExcelDrop& drop, excel::Range& cell,
                                     const std::vector<ControlNodes>& places) {
    const int columns = static_cast<int>(places.size());
    excel::RangePtr block = cell.Resize(kFieldRow, columns);
    const std::string ownName = tableRangeName(drop.node, drop.name);
    const std::string rangeName = tableNameInDrop(context_, ownName);
    excel::DefinedNamePtr tableName;
    // A table under an empty name could never be found again.
    if (!rangeName.empty()) tableName = nameTable(context_, *drop.workbook, rangeName, refersTo(*block));
    if (rangeName != ownName) tellFurtherTable(context_, ownName, tableName->Name());
    if (!xlFillTable(drop, *block, places)) return 0;

    if (rowsFor(places) > kFieldRow) {
        block = block->Resize(rowsFor(places), columns);
        if (tableName) tableName->SetRefersToLocal(refersTo(*block));
    }
    fitColumns(*block);
    leaveTable(cell, rowsFor(places));
    return block->Rows()->Count();
}

bool CNodeDropperTable::xlFillTable(const ExcelDrop& drop, excel::Range& block,
                                    const std::vector<ControlNodes>& places) {
    return context_.reports.trap({kTableModule, "xlFillTable"}, [&] {
        int column = 1;
        for (const ControlNodes& fields : places) {
            xlFillColumn(drop, block, column, fields);
            if (context_.reports.failed()) return false;
            ++column;
        }
        return true;
    });
}

void CNodeDropperTable::xlFillColumn(const ExcelDrop& drop, excel::Range& block, int column,
                                     const ControlNodes& fields) {
    const std::string prefix = placePrefix(context_.xmlNodes, drop.node, drop.name);
    const XmlNode first = elementOf(context_.xmlNodes, fields.front());
    block.Cells(kCaptionRow, column)->SetValue(GetControlCaption(context_.reports, first));
    int row = kFieldRow;
    for (const TreeNode* field : fields) {
        block.Cells(row, column)->Select();
        const FieldDropArguments arguments{
            .node = elementOf(context_.xmlNodes, field), .parentName = prefix, .treeNode = field};
        CNodeDropperField(context_).xlFieldDrop(arguments, drop.workbook);
        if (context_.reports.failed()) return;
        ++row;
    }
}

}  // namespace mergeloom
