#pragma once

#include "office/libreoffice/host/CaretPlacer.h"
#include "office/libreoffice/host/CommandInterceptor.h"
#include "office/libreoffice/host/EmbedWindow.h"
#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/model/DocumentHost.h"

#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/frame/XLayoutManager.hpp>
#include <com/sun/star/util/URL.hpp>
#include <optional>
#include <rtl/ref.hxx>
#include <string>

namespace mergeloom::libreoffice {

/// A frame of the office that fills a window of ours and shows one document with menus and bars. All members
/// are to be called within a call of the connection.
class HostFrame {
  public:
    /// The window system must outlive it.
    HostFrame(OfficeConnection& connection, const WindowSystem& windows, const HostWindow& window,
              CommandSink commands);

    [[nodiscard]] const Reference<css::frame::XFrame>& uno() const { return frame_; }
    /// Returns the document; none when it is closed, which closes the frame, too.
    [[nodiscard]] DocumentReference document() const;
    [[nodiscard]] DocumentKind kind() const;
    /// Returns true if a dialog is open that keeps the user from the document.
    [[nodiscard]] bool hasOpenDialog() const;
    [[nodiscard]] CaretPlacer& caret() { return *caret_; }

    /// Moves the document from another frame, which is closed, to this one. The undo list and the position of
    /// the view are kept, the selection is not.
    void takeDocument(const HostFrame& former);

    void resize(int width, int height);
    /// Returns true if the bars and the document are laid out since their last change.
    [[nodiscard]] bool isLaidOut() const { return isLaidOut_; }
    /// Waits until they are laid out after a change of the window or a load.
    void waitForLayout();
    /// Waits until the office paints in the window.
    void waitUntilNoticed() const;
    void setEnabled(bool enabled) const { container_->setEnable(enabled); }
    /// Passes the keys that the frame's window receives to the document.
    void focus() const { frame_->getComponentWindow()->setFocus(); }
    [[nodiscard]] bool showsBookmarks() const;
    void setShowsBookmarks(bool shown) const;
    void setZoom(int percent);
    /// Shows or hides a bar, which has Word's name. Does nothing for a bar that the office does not have.
    void setBarVisible(const std::string& name, bool visible);

  private:
    [[nodiscard]] Reference<css::beans::XPropertySet> viewSettings() const;
    [[nodiscard]] Reference<css::frame::XLayoutManager> layoutManager() const;
    void beginLayout();
    bool layOut();
    void fillWindow() const;

    Reference<css::uno::XComponentContext> office_;
    const WindowSystem& windows_;
    EmbedWindow embedWindow_;
    int width_ = 0;
    int height_ = 0;
    bool isLaidOut_ = false;
    int roundsWithoutRoom_ = 0;
    Reference<css::awt::XWindow> container_;
    Reference<css::frame::XFrame> frame_;
    css::util::URL quit_;
    rtl::Reference<CommandInterceptor> interceptor_;
    std::optional<CaretPlacer> caret_;
};

}  // namespace mergeloom::libreoffice
