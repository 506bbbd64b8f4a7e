#include "office/com/excel/ComWorksheet.h"

#include "base/AutomationError.h"
#include "office/com/excel/ComCellRange.h"
#include "office/com/excel/ComShapes.h"

namespace mergeloom::com {

namespace {

class ComWorksheets final : public excel::Worksheets {
  public:
    ComWorksheets(AutomationObject application, AutomationObject sheets)
        : application_(std::move(application)), sheets_(std::move(sheets)) {}

    int Count() override { return sheets_.get("Count").integer(); }
    excel::WorksheetPtr Item(int number) override { return item(number); }
    excel::WorksheetPtr Item(const std::string& name) override { return item(name); }

  private:
    excel::WorksheetPtr item(const Value& index) {
        return std::make_shared<ComWorksheet>(application_, sheets_.object("Worksheet", "Item", {index}));
    }

    AutomationObject application_;
    AutomationObject sheets_;
};

}  // namespace

excel::RangePtr ComWorksheet::Cells(int row, int column) {
    const excel::CellPosition cell{row, column};
    return std::make_shared<ComCellRange>(application_, sheet_, excel::CellArea{cell, cell});
}

excel::RangePtr ComWorksheet::Range(const std::string& address) {
    if (const std::optional<excel::CellPosition> cell = excel::parseCell(address))
        return Cells(cell->row, cell->column);
    throw AutomationError(kApplicationDefined, "'" + address + "' is no address of a cell.");
}

excel::RangePtr ComWorksheet::UsedRange() {
    return rangeOf(application_, sheet_.object("Range", "UsedRange"));
}

excel::ShapesPtr ComWorksheet::Shapes() {
    return makeShapes(application_, sheet_);
}

excel::PicturesPtr ComWorksheet::Pictures() {
    return makePictures(application_, sheet_);
}

excel::WorksheetsPtr makeWorksheets(const AutomationObject& application, const AutomationObject& workbook) {
    return std::make_shared<ComWorksheets>(application, workbook.object("Sheets", "Worksheets"));
}

}  // namespace mergeloom::com
