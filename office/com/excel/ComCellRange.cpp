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

}  // namespace

excel::WorksheetPtr ComCellRange::Worksheet() {
    return std::make_shared<ComWorksheet>(model_, sheet_);
}

excel::ColumnsPtr ComCellRange::Columns() {
    return std::make_shared<ComColumns>(cells(), area().columns());
}

excel::RangePtr ComCellRange::MergeArea() {
    return rangeAt(model_->mergeAreaOf(sheet_, area().first));
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
    model_->activate(sheet_);
    model_->forgetActiveCell();
    cells().call("Select");
    model_->setActive({sheet_, area()});
}

void ComCellRange::Activate() {
    model_->activate(sheet_);
    model_->forgetActiveCell();
    first().call("Activate");
    model_->setActive({sheet_, area()});
}

excel::RangePtr ComCellRange::rangeAt(const excel::CellArea& area) const {
    return std::make_shared<ComCellRange>(model_, sheet_, area);
}

AutomationObject ComCellRange::cells() const {
    return model_->rangeOf({sheet_, area()});
}

AutomationObject ComCellRange::first() const {
    return model_->rangeOf({sheet_, {area().first, area().first}});
}

excel::RangePtr rangeOf(const ComExcelModelPtr& model, const AutomationObject& range) {
    return std::make_shared<ComCellRange>(model, range.object("Worksheet", "Worksheet"), areaOf(range));
}

Value textValue(const std::string& text) {
    if (utf16Length(text) > excel::kMaxCellText)
        throw AutomationError(kApplicationDefined, "A cell cannot hold a text of that length.");
    // An apostrophe before it marks a text and is no part of it.
    return text.empty() ? text : "'" + text;
}

}  // namespace mergeloom::com
