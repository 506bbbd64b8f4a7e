#pragma once

#include "base/AutomationError.h"
#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/libreoffice/session/LibreOfficeProcess.h"
#include "office/libreoffice/session/OfficeConnection.h"

namespace mergeloom::libreoffice {

/// A running office with the connection to it and its documents: the base of an object model. The office ends
/// with this object, so every owner of a reference into the office must own the session, too.
class LibreOfficeSession {
  public:
    /// Starts an office, which takes about a second. Raises kNotAvailable with a sentence that says why it
    /// cannot be started.
    explicit LibreOfficeSession(FileStore& store, TimeBounds bounds = {},
                                OfficeMode mode = OfficeMode::Hidden, const HostLook& look = {})
        : process_(findOfficeProgram(), mode, look),
          connection_(process_, bounds),
          files_(connection_, store, process_.workFolder()) {
        if (mode == OfficeMode::Hidden) connection_.expect(RequestPattern::Series);
    }

    /// Returns true if the office answers calls. Its process may still run for a moment after it has ended.
    [[nodiscard]] bool isAlive() try {
        if (!process_.isRunning()) return false;
        return connection_.call([this] { return connection_.desktop()->getFrames().is(); });
    } catch (const AutomationError&) {
        return false;
    }
    [[nodiscard]] LibreOfficeProcess& process() { return process_; }
    [[nodiscard]] OfficeConnection& connection() { return connection_; }
    [[nodiscard]] LibreOfficeFiles& files() { return files_; }

  private:
    LibreOfficeProcess process_;
    OfficeConnection connection_;
    LibreOfficeFiles files_;
};

}  // namespace mergeloom::libreoffice
