#pragma once

#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/Uno.h"
#include "office/model/excel/CellAddress.h"

#include <com/sun/star/frame/XController.hpp>
#include <cstddef>
#include <string_view>
#include <vector>

namespace mergeloom::libreoffice {

/// Deselects cells and ends typing in the active one, which stays active. Must run within a call.
void deselectCells(const Reference<css::uno::XComponentContext>& office,
                   const Reference<css::frame::XController>& view);

/// Shows again what the active cell contains: Calc reads that into its input line when the cell becomes the
/// active one, but not when the API changes the cell. Must run within a call or in the office's own.
void showActiveCell(const Reference<css::uno::XComponentContext>& office,
                    const Reference<css::frame::XController>& view);

/// Makes the sheet of that name the active one; does nothing when there is none. Must run within a call.
void showSheet(const Reference<css::frame::XController>& view, const rtl::OUString& name);

/// The state of a document's view when it is opened.
struct CalcViewState {
    std::size_t activeSheet = 0;
    std::vector<excel::CellPosition> activeCells;  ///< cells of the first sheets; A1 in all others

    [[nodiscard]] excel::CellPosition cellOf(std::size_t sheet) const {
        return sheet < activeCells.size() ? activeCells[sheet] : excel::CellPosition{};
    }
};

/// Parses the view's data, a text such as "100/60/0;1;tw:270;3/6/0/0;2/3/0/0": the zoom, the active sheet,
/// the tab bar, and for each sheet column and row of the cursor and more. Calc offers no other way to read
/// the cursor of a sheet that is not active. An unreadable cursor counts as A1.
CalcViewState parseViewState(std::string_view text);
/// Must run within a call.
CalcViewState readViewState(const Reference<css::frame::XController>& view);

}  // namespace mergeloom::libreoffice
