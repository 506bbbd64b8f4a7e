#include "droppers/CellNavigation.h"

#include "base/AutomationError.h"
#include "office/model/excel/Range.h"

namespace mergeloom {

excel::RangePtr rangeOrNone(const std::function<excel::RangePtr()>& call) {
    try {
        return call();
    } catch (const AutomationError& error) {
        if (error.number() != kApplicationDefined) throw;
        return {};
    }
}

excel::RangePtr cellRightOf(excel::Range& cell) {
    return cell.Offset(0, cell.MergeArea()->Columns()->Count());
}

excel::RangePtr cellBelow(excel::Range& cell, int rows) {
    excel::RangePtr below = cell.Offset(rows, 0);
    const excel::RangePtr area = below->MergeArea();
    if (area->Row() == below->Row()) return below;
    return cell.Offset(area->Row() + area->Rows()->Count() - cell.Row(), 0);
}

int rowsOf(excel::Range& cell) {
    return cell.MergeArea()->Rows()->Count();
}

}  // namespace mergeloom
