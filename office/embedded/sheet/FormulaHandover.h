#pragma once

#include "office/embedded/sheet/SheetState.h"

#include <string>
#include <vector>

namespace mergeloom::embedded {

/// What has to change before the master of a shared formula loses it.
struct FormulaHandover {
    struct Heir {
        excel::CellPosition cell;
        std::string formula;  ///< the formula element that it gets
    };
    int group = 0;
    /// The last one becomes the new master when there is one; those before it leave the group, because the
    /// formula's references would leave the sheet there.
    std::vector<Heir> heirs{};
    bool hasNewMaster = false;
};

/// Nothing when the cell is no master of a shared formula (ECMA-376 Part 1, 18.3.1.40).
std::optional<FormulaHandover> planHandover(const SheetState& sheet, const excel::CellPosition& cell);

/// The formula of a cell, also where the master of its group has the text.
std::string formulaOf(const SheetState& sheet, const excel::CellPosition& cell, std::string_view cellXml);

}  // namespace mergeloom::embedded
