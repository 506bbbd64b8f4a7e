#pragma once

#include "office/libreoffice/host/CommandInterceptor.h"
#include "office/libreoffice/host/HostFrame.h"
#include "office/libreoffice/host/WindowSystem.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/model/DocumentHost.h"

#include <list>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// The frames of one window of ours. The newest one covers the others. All members are to be called within a
/// call of the connection.
class HostFrames {
  public:
    /// The arguments must outlive it. The sink receives the commands of all frames.
    HostFrames(OfficeConnection& connection, const WindowSystem& windows, CommandSink commands)
        : connection_(connection), windows_(windows), commands_(std::move(commands)) {}

    /// Makes a frame that fills the window.
    Reference<css::frame::XFrame> make(const HostWindow& window);
    /// Moves the document of the frame in front to a new frame; does nothing without a document.
    void renewFront(const HostWindow& window);
    [[nodiscard]] bool areEmpty() const { return frames_.empty(); }
    /// Returns the frame that the user sees; null without a document. Removes those whose documents are
    /// closed.
    [[nodiscard]] HostFrame* front();
    /// Returns the document of that frame; null without one.
    [[nodiscard]] DocumentReference frontDocument();
    /// Returns the documents of all frames, without those that are closed.
    [[nodiscard]] std::vector<DocumentReference> documents() const;

    void resize(int width, int height);
    void setEnabled(bool enabled) const;

  private:
    OfficeConnection& connection_;
    const WindowSystem& windows_;
    const CommandSink commands_;
    std::list<HostFrame> frames_;  ///< the last one is in front
};

}  // namespace mergeloom::libreoffice
