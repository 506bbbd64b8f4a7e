#include "office/libreoffice/host/CellMarks.h"

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
                     std::function<void()> haveMoved)
    : connection_(connection),
      frames_(windows, lineWidthFor(look)),
      haveMoved_(std::move(haveMoved)),
      paint_(haveMoved_) {}

/// Watches the window before it finds the cells, so that no painting in between is missed.
void CellMarks::update(xcb_window_t office, const DocumentReference& document) {
    const bool hasCells = isShown_ && connection_.call([&] { return isWorkbook(document); });
    if (!hasCells || office == XCB_WINDOW_NONE || !paint_.watch(office)) return frames_.hide();
    NamedCells cells = connection_.namedCells(document);
    frames_.show(office, std::move(cells.bounds));
    if (!cells.isComplete) haveMoved_();
}

}  // namespace mergeloom::libreoffice
