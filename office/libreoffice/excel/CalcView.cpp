#include "office/libreoffice/excel/CalcView.h"

#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"

#include <charconv>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/frame/DispatchHelper.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr std::size_t kActiveSheetField = 1;
constexpr std::size_t kFirstSheetField = 3;

int numberOf(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

excel::CellPosition cursorOf(std::string_view text) {
    // The office separates large numbers by "+" instead.
    const auto parts = split(text, text.find('/') == std::string_view::npos ? '+' : '/');
    if (parts.size() < 2) return {};
    const excel::CellPosition cell{numberOf(parts[1]) + 1, numberOf(parts[0]) + 1};
    return excel::isInSheet({cell, cell}) ? cell : excel::CellPosition{};
}

}  // namespace

void deselectCells(const Reference<css::uno::XComponentContext>& office,
                   const Reference<css::frame::XController>& view) {
    const Reference<css::frame::XDispatchProvider> commands(view->getFrame(), UNO_QUERY_THROW);
    css::frame::DispatchHelper::create(office)->executeDispatch(commands, ".uno:Deselect", {}, 0, {});
}

void showActiveCell(const Reference<css::uno::XComponentContext>& office,
                    const Reference<css::frame::XController>& view) {
    const Reference<css::view::XSelectionSupplier> supplier(view, UNO_QUERY_THROW);
    const css::uno::Any selection = supplier->getSelection();
    supplier->select(selection);
    // A single cell is shown as the active one, not as selected.
    if (Reference<css::sheet::XCellAddressable>(selection, UNO_QUERY).is()) deselectCells(office, view);
}

void showSheet(const Reference<css::frame::XController>& view, const OUString& name) {
    const Reference<css::sheet::XSpreadsheetDocument> document(view->getModel(), UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
    if (!sheets->hasByName(name)) return;
    const Reference<css::sheet::XSpreadsheet> sheet(sheets->getByName(name), UNO_QUERY_THROW);
    Reference<css::sheet::XSpreadsheetView>(view, UNO_QUERY_THROW)->setActiveSheet(sheet);
}

CalcViewState parseViewState(std::string_view text) {
    const auto fields = split(text, ';');
    CalcViewState state;
    if (fields.size() <= kFirstSheetField) return state;
    state.activeSheet = static_cast<std::size_t>(std::max(0, numberOf(fields[kActiveSheetField])));
    for (std::size_t field = kFirstSheetField; field < fields.size(); ++field)
        state.activeCells.push_back(cursorOf(fields[field]));
    return state;
}

CalcViewState readViewState(const Reference<css::frame::XController>& view) {
    OUString text;
    if (view.is()) view->getViewData() >>= text;
    return parseViewState(fromUno(text));
}

}  // namespace mergeloom::libreoffice
