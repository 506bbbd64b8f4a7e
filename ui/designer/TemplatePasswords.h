#pragma once

#include "office/model/DocumentHost.h"
#include "ui/designer/HostedOffice.h"
#include "ui/dialogs/PasswordDialog.h"

#include <string>

namespace mergeloom {

/// Opens files in the hosted office, and asks the user for their passwords. Must be used by the office's
/// thread. Passes on the errors of the host, except PasswordRequired.
class TemplatePasswords {
  public:
    TemplatePasswords(HostAccess& access, PasswordDialog& dialog) : access_(access), dialog_(dialog) {}

    /// Opens the file. Returns false, and keeps the former document, if the user enters no password. The
    /// question names the shown path, which differs from the path for a copy.
    bool open(const std::string& path, FileAccess access, const std::string& shownPath);
    /// Moves the password to the file in which the document was saved, so that it can be opened anew without
    /// a question.
    void moveTo(const std::string& path) { path_ = path; }
    void forget();

  private:
    HostAccess& access_;
    PasswordDialog& dialog_;
    std::string path_;  ///< the file that was opened last
    std::string password_;
};

}  // namespace mergeloom
