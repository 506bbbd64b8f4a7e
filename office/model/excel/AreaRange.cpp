#include "office/model/excel/AreaRange.h"

#include "base/AutomationError.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Worksheet.h"

#include <algorithm>
#include <cstdint>

namespace mergeloom::excel {

namespace {

class CountedRows final : public Counted {
  public:
    explicit CountedRows(int count) : count_(count) {}
    int Count() override { return count_; }

  private:
    int count_;
};

/// Returns the sum of two numbers, bounded because a caller may pass any number.
int sum(int a, std::int64_t b) {
    return static_cast<int>(std::clamp<std::int64_t>(a + b, -kLastRow, std::int64_t{2} * kLastRow));
}

CellPosition moved(const CellPosition& cell, std::int64_t rows, std::int64_t columns) {
    return {sum(cell.row, rows), sum(cell.column, columns)};
}

CellArea areaFrom(const CellPosition& first, std::int64_t rows, std::int64_t columns) {
    return {first, moved(first, rows - 1, columns - 1)};
}

CellArea areaOf(Range& range) {
    return areaFrom({range.Row(), range.Column()}, range.Rows()->Count(), range.Columns()->Count());
}

}  // namespace

AreaRange::AreaRange(const CellArea& area) : area_(area) {
    if (!isInSheet(area)) throw AutomationError(kApplicationDefined, "The sheet has no such cells.");
}

CountedPtr AreaRange::Rows() {
    return std::make_shared<CountedRows>(area_.rows());
}

RangePtr AreaRange::Cells(int row, int column) {
    return rangeAt(areaFrom(moved(area_.first, std::int64_t{row} - 1, std::int64_t{column} - 1), 1, 1));
}

RangePtr AreaRange::Resize(int rowSize, int columnSize) {
    return rangeAt(areaFrom(area_.first, rowSize, columnSize));
}

RangePtr AreaRange::Offset(int rowOffset, int columnOffset) {
    return rangeAt(areaFrom(moved(area_.first, rowOffset, columnOffset), area_.rows(), area_.columns()));
}

RangePtr intersect(Range& first, Range& second) {
    const WorksheetPtr sheet = first.Worksheet();
    if (sheet->Name() != second.Worksheet()->Name()) return {};
    const std::optional<CellArea> common = intersection(areaOf(first), areaOf(second));
    if (!common) return {};
    return sheet->Cells(common->first.row, common->first.column)->Resize(common->rows(), common->columns());
}

}  // namespace mergeloom::excel
