#include "office/com/excel/ComWorksheet.h"

#include "base/AutomationError.h"
#include "office/com/excel/ComCellRange.h"
#include "office/com/excel/ComShapes.h"

namespace mergeloom::com {

namespace {

class ComWorksheets final : public excel::Worksheets {
  public:
    ComWorksheets(ComExcelModelPtr model, AutomationObject sheets)
        : model_(std::move(model)), sheets_(std::move(sheets)) {}

    int Count() override { return sheets_.get("Count").integer(); }
    excel::WorksheetPtr Item(int number) override { return item(number); }
    excel::WorksheetPtr Item(const std::string& name) override { return item(name); }

  private:
    excel::WorksheetPtr item(const Value& index) {
        return std::make_shared<ComWorksheet>(model_, sheets_.object("Worksheet", "Item", {index}));
    }

    ComExcelModelPtr model_;
    AutomationObject sheets_;
};

}  // namespace

excel::RangePtr ComWorksheet::Cells(int row, int column) {
    const excel::CellPosition cell{row, column};
    return std::make_shared<ComCellRange>(model_, sheet_, excel::CellArea{cell, cell});
}

excel::RangePtr ComWorksheet::Range(const std::string& address) {
    if (const std::optional<excel::CellPosition> cell = excel::parseCell(address))
        return Cells(cell->row, cell->column);
    throw AutomationError(kApplicationDefined, "'" + address + "' is no address of a cell.");
}

excel::RangePtr ComWorksheet::UsedRange() {
    return rangeOf(model_, sheet_.object("Range", "UsedRange"));
}

excel::ShapesPtr ComWorksheet::Shapes() {
    return makeShapes(model_, sheet_);
}

excel::PicturesPtr ComWorksheet::Pictures() {
    return makePictures(model_, sheet_);
}

excel::WorksheetsPtr makeWorksheets(const ComExcelModelPtr& model, const AutomationObject& workbook) {
    return std::make_shared<ComWorksheets>(model, workbook.object("Sheets", "Worksheets"));
}

}  // namespace mergeloom::com
