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
    /// The sink is called, also by another thread, if the cells may have moved after an update or if the
    /// update did not find all of them. The look is that of the desktop. The window system and the connection
    /// must outlive it.
    CellMarks(OfficeConnection& connection, const WindowSystem& windows, const HostLook& look,
              std::function<void()> haveMoved);

    void setShown(bool shown) { isShown_ = shown; }
    /// Moves the marks to the present places of the cells in the office's window; shows none for no document
    /// and for texts.
    void update(xcb_window_t office, const DocumentReference& document);

  private:
    OfficeConnection& connection_;
    bool isShown_ = true;
    PlaceFrames frames_;
    std::function<void()> haveMoved_;
    PaintWatch paint_;
};

}  // namespace mergeloom::libreoffice
