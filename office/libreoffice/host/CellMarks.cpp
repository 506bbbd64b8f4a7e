#include "office/libreoffice/host/CellMarks.h"

#include "office/libreoffice/host/HostPlaces.h"

#include <algorithm>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// A line of two pixels on a screen of usual size.
int lineWidthFor(const HostLook& look) {
    constexpr int kUsualDots = 96;
    constexpr int kUsualWidth = 2;
    return std::max(kUsualWidth, look.dotsPerInch * kUsualWidth / kUsualDots);
}

bool isWorkbook(const DocumentReference& document) {
    return Reference<css::sheet::XSpreadsheetDocument>(document, UNO_QUERY).is();
}

}  // namespace

CellMarks::CellMarks(OfficeConnection& connection, const WindowSystem& windows, const HostLook& look,
                     std::function<void()> painted)
    : connection_(connection), frames_(windows, lineWidthFor(look)), paint_(std::move(painted)) {}

/// Watches the window before it finds the cells, so that no painting in between is missed.
void CellMarks::update(xcb_window_t office, const DocumentReference& document) {
    const bool hasCells = isShown_ && connection_.call([&] { return isWorkbook(document); });
    if (!hasCells || office == XCB_WINDOW_NONE || !paint_.watch(office)) return frames_.hide();
    frames_.show(office, find(document));
}

std::vector<css::awt::Rectangle> CellMarks::find(const DocumentReference& document) {
    const std::vector<std::string> names = connection_.call([&] { return HostPlaces(document).names(); });
    return names.empty() ? std::vector<css::awt::Rectangle>() : connection_.namedCells(document, names);
}

}  // namespace mergeloom::libreoffice
