#pragma once

#include "office/libreoffice/session/OfficeConnection.h"
#include "office/model/DocumentHost.h"

#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/frame/XFrame.hpp>

namespace mergeloom::libreoffice {

/// A frame of the office that fills a window of ours and shows one document with menus and bars. Its members
/// are to be called within a call of the connection.
class HostFrame {
  public:
    HostFrame(OfficeConnection& connection, const HostWindow& window);

    [[nodiscard]] const Reference<css::frame::XFrame>& uno() const { return frame_; }
    /// Whether it shows a document still; it goes with its document.
    [[nodiscard]] bool isOpen() const;
    void resize(int width, int height) const;
    void setVisible(bool visible) const { container_->setVisible(visible); }

  private:
    Reference<css::awt::XWindow> container_;
    Reference<css::frame::XFrame> frame_;
};

}  // namespace mergeloom::libreoffice
