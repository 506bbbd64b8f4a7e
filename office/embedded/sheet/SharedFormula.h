#pragma once

#include "office/embedded/sheet/SheetState.h"

#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

struct ShiftedFormula {
    std::string text;
    /// Set if a reference left the sheet; it is #REF! in the text.
    bool leftSheet = false;
};

/// Returns a formula as it reads in a cell so many rows below and columns to the right: relative references
/// move, everything else stays.
ShiftedFormula shiftFormula(std::string_view formula, int rows, int columns);

/// The changes that are needed before the master of a shared formula is overwritten: another cell becomes the
/// master.
struct SharedFormulaPromotion {
    struct Successor {
        excel::CellPosition cell;
        std::string formula;  ///< its new formula element
    };
    int group = 0;
    /// The last successor becomes the new master if hasNewMaster is set. Those before it leave the group,
    /// because there the formula's references would be outside of the sheet.
    std::vector<Successor> successors{};
    bool hasNewMaster = false;
};

/// Returns nothing if the cell is not the master of a shared formula (ECMA-376 Part 1, 18.3.1.40).
std::optional<SharedFormulaPromotion> planPromotion(const SheetState& sheet, const excel::CellPosition& cell);

/// Returns the formula of a cell, also if its text is in the master of its group.
std::string formulaOf(const SheetState& sheet, const excel::CellPosition& cell, std::string_view cellXml);

}  // namespace mergeloom::embedded
