#pragma once

#include "office/libreoffice/host/HostFrame.h"
#include "office/libreoffice/host/PaintWatch.h"
#include "office/libreoffice/host/PlaceFrames.h"

#include <functional>

namespace mergeloom::libreoffice {

/// The frames around the cells of a workbook that have names. Calc itself has no marks for names, and a
/// change of the document that shows them would be saved, or undone by the user. The members must not be
/// called within a call of the connection.
class CellMarks {
  public:
    /// The sink is called by another thread when the office painted something after an update, so that the
    /// cells may be elsewhere. The look is that of the desktop. The window system and the connection must
    /// outlive it.
    CellMarks(OfficeConnection& connection, const WindowSystem& windows, const HostLook& look,
              std::function<void()> painted);

    void setShown(bool shown) { isShown_ = shown; }
    /// Moves the marks to the present places of the cells in the office's window; shows none for no document
    /// and for texts.
    void update(xcb_window_t office, const DocumentReference& document);

  private:
    [[nodiscard]] std::vector<css::awt::Rectangle> find(const DocumentReference& document);

    OfficeConnection& connection_;
    bool isShown_ = true;
    PlaceFrames frames_;
    PaintWatch paint_;
};

}  // namespace mergeloom::libreoffice
