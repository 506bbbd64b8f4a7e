#include "office/com/excel/ComCellRange.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/com/excel/ComWorksheet.h"
#include "office/model/excel/Range.h"

#include <utility>

namespace mergeloom::com {

namespace {

class ComColumns final : public excel::Columns {
  public:
    ComColumns(AutomationObject range, int count) : range_(std::move(range)), count_(count) {}

    int Count() override { return count_; }
    void AutoFit() override { range_.object("Columns", "Columns").call("AutoFit"); }

  private:
    AutomationObject range_;
    int count_;
};

excel::CellArea areaOf(const AutomationObject& range) {
    const std::string address = range.get("Address").text();
    if (const std::optional<excel::CellArea> area = excel::parseArea(address)) return *area;
    throw AutomationError(kApplicationDefined, "'" + address + "' is no single area of cells.");
}

}  // namespace

excel::WorksheetPtr ComCellRange::Worksheet() {
    return std::make_shared<ComWorksheet>(application_, sheet_);
}

excel::ColumnsPtr ComCellRange::Columns() {
    return std::make_shared<ComColumns>(cells(), area().columns());
}

excel::RangePtr ComCellRange::MergeArea() {
    return rangeAt(areaOf(first().object("Range", "MergeArea")));
}

bool ComCellRange::MergeCells() {
    // Of cells that are merged only in part, Excel returns neither True nor False.
    const com::Value merged = cells().get("MergeCells");
    return merged.isMixed() || merged.truth();
}

std::string ComCellRange::Value() {
    const AutomationObject cell = first();
    const com::Value value = cell.get("Value2");
    if (value.isText() || value.isEmpty()) return value.text();
    return cell.get("Text").text();
}

void ComCellRange::SetValue(const std::string& text) {
    if (std::int64_t{area().rows()} * area().columns() > excel::kMaxFilledCells) {
        throw AutomationError(kApplicationDefined,
                              "The area " + addressOf(area()) + " has too many cells to fill.");
    }
    cells().put("Value2", textValue(text));
}

void ComCellRange::Select() {
    sheet_.call("Activate");
    cells().call("Select");
}

void ComCellRange::Activate() {
    sheet_.call("Activate");
    first().call("Activate");
}

excel::RangePtr ComCellRange::rangeAt(const excel::CellArea& area) const {
    return std::make_shared<ComCellRange>(application_, sheet_, area);
}

const AutomationObject& ComCellRange::cells() {
    if (!cells_) cells_ = sheet_.object("Range", "Range", {{"Cell1", absoluteAddressOf(area())}});
    return *cells_;
}

AutomationObject ComCellRange::first() {
    const excel::CellArea cell{area().first, area().first};
    if (area() == cell) return cells();
    return sheet_.object("Range", "Range", {{"Cell1", absoluteAddressOf(cell)}});
}

excel::RangePtr rangeOf(const AutomationObject& application, const AutomationObject& range) {
    return std::make_shared<ComCellRange>(application, range.object("Worksheet", "Worksheet"), areaOf(range));
}

Value textValue(const std::string& text) {
    if (utf16Length(text) > excel::kMaxCellText)
        throw AutomationError(kApplicationDefined, "A cell cannot hold a text of that length.");
    // An apostrophe before it marks a text and is no part of it.
    return text.empty() ? text : "'" + text;
}

}  // namespace mergeloom::com
