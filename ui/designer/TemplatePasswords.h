#pragma once

#include "office/model/DocumentHost.h"
#include "ui/designer/HostedOffice.h"
#include "ui/dialogs/PasswordDialog.h"

#include <string>

namespace mergeloom {

/// Opens files in the hosted office, and asks the user for the passwords of those that have one. Belongs to
/// the office's thread; errors of the host pass through, except PasswordRequired.
class TemplatePasswords {
  public:
    TemplatePasswords(HostAccess& access, PasswordDialog& dialog) : access_(access), dialog_(dialog) {}

    /// Opens the file. Returns false when the user gives no password; then the former document stays. The
    /// user is asked for the password of the shown path, if the file is a copy of that one.
    bool open(const std::string& path, FileAccess access, const std::string& shownPath);
    /// Moves the password to the file in which the document was saved, so that it can be opened anew without
    /// a question.
    void moveTo(const std::string& path) { path_ = path; }
    void forget();

  private:
    HostAccess& access_;
    PasswordDialog& dialog_;
    std::string path_;  ///< of the file that was opened last
    std::string password_;
};

}  // namespace mergeloom
