#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/libreoffice/session/LibreOfficeProcess.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/OfficeProgram.h"

namespace mergeloom::libreoffice {

/// A running office with its line and its documents: what an object model is built on. It ends with this
/// object, so whatever holds a reference into it has to hold the session, too.
class LibreOfficeSession {
  public:
    /// Starts an office; takes about a second. Raises kNotAvailable with a sentence that says what hinders
    /// it.
    explicit LibreOfficeSession(FileStore& store, TimeBounds bounds = {},
                                OfficeMode mode = OfficeMode::Hidden)
        : process_(findOfficeProgram(), mode),
          connection_(process_, bounds),
          files_(connection_, store, process_.workFolder()) {}

    [[nodiscard]] LibreOfficeProcess& process() { return process_; }
    [[nodiscard]] OfficeConnection& connection() { return connection_; }
    [[nodiscard]] LibreOfficeFiles& files() { return files_; }

  private:
    LibreOfficeProcess process_;
    OfficeConnection connection_;
    LibreOfficeFiles files_;
};

}  // namespace mergeloom::libreoffice
