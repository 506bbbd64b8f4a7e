#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/model/excel/CellAddress.h"

#include <com/sun/star/frame/XController.hpp>
#include <cstddef>
#include <string_view>
#include <vector>

namespace mergeloom::libreoffice {

/// Where a document's view stands when it comes up.
struct CalcViewState {
    std::size_t activeSheet = 0;
    std::vector<excel::CellPosition> activeCells;  ///< of the first sheets; A1 in all others

    [[nodiscard]] excel::CellPosition cellOf(std::size_t sheet) const {
        return sheet < activeCells.size() ? activeCells[sheet] : excel::CellPosition{};
    }
};

/// Reads what the view tells of itself, a text such as "100/60/0;1;tw:270;3/6/0/0;2/3/0/0": the zoom, the
/// active sheet, the bar of the tabs, and for each sheet column and row of the cursor and more. Calc has no
/// other way to tell the cursor of a sheet that is not active. What cannot be read counts as A1.
CalcViewState parseViewState(std::string_view text);
/// Within a call.
CalcViewState readViewState(const Reference<css::frame::XController>& view);

}  // namespace mergeloom::libreoffice
