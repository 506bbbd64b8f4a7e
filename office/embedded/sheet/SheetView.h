#pragma once

#include "office/embedded/sheet/SheetPart.h"

namespace mergeloom::embedded {

/// Reads the selection of the sheet's active pane (ECMA-376 Part 1, 18.3.1.78, 18.3.1.87); A1 if the sheet
/// contains none or an invalid one.
excel::CellSelection readSelection(const SheetPart& sheet);
/// Writes the selection of the sheet's active pane; creates a view if the sheet has none. Does not change the
/// sheet if the selection is the same.
void writeSelection(SheetPart& sheet, const excel::CellSelection& selection);
/// Reads or writes whether the sheet's tab is selected (tabSelected).
bool isTabSelected(const SheetPart& sheet);
void setTabSelected(SheetPart& sheet, bool selected);

/// The protection of a sheet (ECMA-376 Part 1, 18.3.1.85). Set members are forbidden changes; none is set if
/// the sheet is not protected.
struct SheetProtection {
    bool contents = false;  ///< cells whose format is locked
    bool objects = false;
    bool formatColumns = false;
    bool formatRows = false;
};

SheetProtection readProtection(const SheetPart& sheet);

}  // namespace mergeloom::embedded
