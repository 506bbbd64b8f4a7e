#pragma once

#include "office/libreoffice/host/CommandInterceptor.h"
#include "office/libreoffice/host/HostFrames.h"
#include "office/libreoffice/host/WindowSystem.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/DocumentHost.h"

#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// A document that is shown for reading over the one that is edited, in a frame of its own.
class HostPreview {
  public:
    /// The arguments must outlive it. The sink receives the commands of the frame.
    HostPreview(LibreOfficeSession& session, const WindowSystem& windows, CommandSink commands)
        : session_(session), frames_(session.connection(), windows, std::move(commands)) {}

    /// Returns the document as it is now, as a docx or xlsx. Errors as for LibreOfficeFiles::exportedBytes.
    std::string packageOf(const DocumentReference& document, DocumentKind kind);
    /// Shows the bytes in place of the preview before, which stays until they are shown. Errors as for
    /// LibreOfficeFiles::open.
    void show(const HostWindow& window, const std::string& bytes, DocumentKind kind);
    /// Closes the preview; does nothing without one.
    void end();
    /// Returns the frame of the preview; null without one. Must be called within OfficeConnection::call.
    HostFrame* frame() { return frames_.front(); }

  private:
    void closeAllBut(const DocumentReference& kept);

    LibreOfficeSession& session_;
    HostFrames frames_;
};

}  // namespace mergeloom::libreoffice
