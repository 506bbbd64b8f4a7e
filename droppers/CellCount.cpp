#include "droppers/CellCount.h"

#include "base/AutomationError.h"
#include "office/model/word/Cells.h"
#include "office/model/word/Tables.h"

namespace mergeloom {

int cellCount(word::Range& range) {
    try {
        return range.Cells()->Count();
    } catch (const AutomationError&) {
        return 0;
    }
}

bool coversSeveralCells(word::Range& range) {
    return range.Tables()->Count() > 0 && cellCount(range) > 1;
}

}  // namespace mergeloom
