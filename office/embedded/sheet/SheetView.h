#pragma once

#include "office/embedded/sheet/SheetPart.h"

#include <vector>

namespace mergeloom::embedded {

/// What is selected in a sheet: one or more areas, one of whose cells is active.
struct SheetSelection {
    excel::CellPosition activeCell{};
    std::vector<excel::CellArea> areas{excel::CellArea{}};

    friend bool operator==(const SheetSelection&, const SheetSelection&) = default;
};

/// Reads the selection of the sheet's active pane (ECMA-376 Part 1, 18.3.1.78, 18.3.1.87); A1 where the sheet
/// says nothing or nonsense.
SheetSelection readSelection(const SheetPart& sheet);
/// Writes it there; a sheet without a view gets one. Nothing is changed when it is selected already.
void writeSelection(SheetPart& sheet, const SheetSelection& selection);
/// Whether the view shows the sheet's tab as selected (tabSelected), and the change of that.
bool isTabSelected(const SheetPart& sheet);
void setTabSelected(SheetPart& sheet, bool selected);

}  // namespace mergeloom::embedded
