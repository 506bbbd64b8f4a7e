#include "droppers/CNodeDropperField.h"
#include "droppers/CNodeDropperForm.h"
#include "droppers/CNodeDropperLabel.h"
#include "droppers/CNodeDropperTable.h"
#include "droppers/CellNavigation.h"
#include "droppers/FormerPlaces.h"
#include "droppers/ObjectLayout.h"
#include "droppers/StructureNodes.h"
#include "droppers/modExcelNamedRangeAdd.h"
#include "droppers/modExcelNormalizeName.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>

/// The Excel half of CNodeDropperField.
namespace mergeloom {

namespace {

/// Returns true if the table that the field belongs to exists and the cell is outside of it. A name that has
/// lost its cells guards nothing.
bool isOutsideItsTable(const FieldDropArguments& arguments, excel::Workbook& workbook, excel::Range& cell) {
    if (!arguments.isTableField || arguments.tableName.empty()) return false;
    const excel::NamesPtr names = workbook.Names();
    if (!names->Exists(arguments.tableName)) return false;
    const excel::DefinedNamePtr name = names->Item(arguments.tableName);
    const excel::RangePtr table = rangeOrNone([&] { return name->RefersToRange(); });
    return table && !workbook.Application()->Intersect(*table, cell);
}

}  // namespace

int CNodeDropperField::xlFieldDrop(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook) {
    int rows = 0;
    context_.reports.trap({"CNodeDropperField", "xlFieldDrop"}, [&] {
        rows = xlDrop(arguments, workbook);
        return true;
    });
    return context_.reports.failed() ? 0 : rows;
}

int CNodeDropperField::xlDrop(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook) {
    if (!arguments.node || !workbook) return 0;
    const excel::RangePtr cell = workbook->Application()->ActiveCell();
    if (isOutsideItsTable(arguments, *workbook, *cell)) return context_.reports.refuse(kOutsideItsTable);

    const ObjectLayout layout = layoutOfSubform(arguments.node);
    if (!takesControl(context_, arguments)) return 0;
    if (layout == ObjectLayout::Table) return xlDropTable(arguments, workbook, *cell);
    const int labelRows = xlTypeLabel(arguments, workbook, *cell);
    if (context_.reports.failed()) return 0;
    const int rows =
        layout == ObjectLayout::Form ? xlDropForm(arguments, workbook) : xlDropPlace(arguments, workbook);
    return std::max(labelRows, rows);
}

int CNodeDropperField::xlTypeLabel(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook,
                                   excel::Range& cell) {
    if (!arguments.labelRequired) return 0;
    // More cells may be selected, and a caption goes into all of them.
    cell.Select();
    const bool typed = CNodeDropperLabel(context_.reports).xlLabelDrop(arguments.node, workbook);
    cellRightOf(cell)->Activate();
    return typed ? rowsOf(cell) : 0;
}

int CNodeDropperField::xlDropPlace(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook) {
    const std::string name = ExcelNormalizeName(GetAttributeValue(arguments.node, Attribute::Name), false);
    const NamedRangeContent content{.vfBoundValueUse = arguments.boundValueUse,
                                    .vstrPrefix = arguments.parentName,
                                    .vstrPictureFile = pictureOf(arguments.node)};
    const excel::RangePtr cell = workbook->Application()->ActiveCell();
    if (!context_.formerPlaces) context_.formerPlaces = std::make_shared<FormerPlaces>(*workbook);
    // The names of the former ones are free for the new place, which keeps its name on its own cell.
    removePlaces(*workbook, *cell, context_.formerPlaces->on(*cell),
                 content.vstrPictureFile.empty() ? NewPlace::Text : NewPlace::Picture);
    if (!ExcelNamedRangeAdd(context_.reports, *workbook, name, content)) return 0;
    return rowsOf(*cell);
}

int CNodeDropperField::xlDropTable(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook,
                                   excel::Range& cell) {
    CNodeDropperTable table{context_};
    // Where nothing is chosen or the table has no room, no caption may stand alone.
    const FieldKeys columns = table.chooseFields(*arguments.treeNode);
    if (columns.empty()) return 0;
    if (arguments.labelRequired && !table.xlHasRoom(*arguments.treeNode, *cellRightOf(cell), columns)) {
        return table.xlRefuse();
    }
    const int labelRows = xlTypeLabel(arguments, workbook, cell);
    if (context_.reports.failed()) return 0;
    const std::string name = GetAttributeValue(arguments.node, Attribute::Name);
    return std::max(labelRows, table.xlTableDrop(*arguments.treeNode, workbook, name, &columns));
}

int CNodeDropperField::xlDropForm(const FieldDropArguments& arguments, const excel::WorkbookPtr& workbook) {
    return CNodeDropperForm(context_).xlFormDrop(*arguments.treeNode, workbook,
                                                 GetAttributeValue(arguments.node, Attribute::Name), nullptr);
}

}  // namespace mergeloom
