#include "office/libreoffice/excel/CalcHosting.h"

#include "office/libreoffice/excel/CalcCells.h"
#include "office/libreoffice/excel/CalcView.h"
#include "office/libreoffice/excel/CalcWorkbook.h"

#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

CalcWorkbook& calcOf(excel::Workbook& workbook) {
    return dynamic_cast<CalcWorkbook&>(workbook);
}

Reference<css::frame::XModel> modelOf(CalcWorkbook& workbook) {
    return {workbook.document(), UNO_QUERY_THROW};
}

/// Returns the selected areas; none if something other than cells is selected.
std::vector<excel::CellArea> selectedAreas(const Reference<css::uno::XInterface>& selection) {
    const Reference<css::sheet::XCellRangeAddressable> one(selection, UNO_QUERY);
    if (one.is()) return {areaOf(one->getRangeAddress())};
    std::vector<excel::CellArea> areas;
    const Reference<css::sheet::XSheetCellRanges> several(selection, UNO_QUERY);
    if (!several.is()) return areas;
    for (const css::table::CellRangeAddress& address : several->getRangeAddresses())
        areas.push_back(areaOf(address));
    return areas;
}

/// Adopts the selected areas of the view. The content has read the active cell and sheet itself.
void takeSelection(CalcContent& content, const Reference<css::frame::XModel>& model) {
    if (!content.hasActiveCells()) return;
    CalcSheet& sheet = content.sheet(content.activeSheet());
    std::vector<excel::CellArea> areas = selectedAreas(model->getCurrentSelection());
    if (!areas.empty()) sheet.select({sheet.selection().activeCell, std::move(areas)});
}

void showSelection(CalcContent& content, const Reference<css::frame::XController>& view) {
    if (!content.hasActiveCells()) return;
    CalcSheet& sheet = content.sheet(content.activeSheet());
    Reference<css::sheet::XSpreadsheetView>(view, UNO_QUERY_THROW)->setActiveSheet(sheet.uno());
    const std::vector<excel::CellArea>& areas = sheet.selection().areas;
    if (areas.size() != 1) return;
    const excel::CellArea& area = areas.front();
    const Reference<css::view::XSelectionSupplier> selection(view, UNO_QUERY_THROW);
    selection->select(css::uno::Any(sheet.range(area)));
    // A single cell is shown as the active one, not as selected.
    if (area.first == area.last) deselectCells(content.connection().context(), view);
}

}  // namespace

DocumentReference componentOf(excel::Workbook& workbook) {
    return calcOf(workbook).document();
}

void endInput(excel::Workbook& workbook) {
    calcOf(workbook).endInput();
}

void beginEditing(excel::Workbook& workbook) {
    CalcWorkbook& calc = calcOf(workbook);
    calc.endInput();
    calc.discardContent();
    CalcContent& content = *calc.content();
    content.connection().call([&] {
        const Reference<css::frame::XModel> model = modelOf(calc);
        takeSelection(content, model);
        model->lockControllers();
    });
}

void endEditing(excel::Workbook& workbook) {
    CalcWorkbook& calc = calcOf(workbook);
    CalcContent& content = *calc.content();
    content.pending().flush();
    content.connection().call([&] {
        const Reference<css::frame::XModel> model = modelOf(calc);
        model->unlockControllers();
        showSelection(content, model->getCurrentController());
    });
    calc.discardContent();
}

}  // namespace mergeloom::libreoffice
