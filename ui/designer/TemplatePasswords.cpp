#include "ui/designer/TemplatePasswords.h"

#include "office/model/PasswordRequired.h"

#include <optional>

namespace mergeloom {

bool TemplatePasswords::open(const std::string& path, FileAccess access, const std::string& shownPath) {
    std::string password = path == path_ ? password_ : std::string();
    for (PasswordAttempt attempt = PasswordAttempt::First;; attempt = PasswordAttempt::Again) {
        try {
            access_.host().Open(path, access, password);
            path_ = path;
            password_ = password;
            return true;
        } catch (const model::PasswordRequired&) {
            const std::optional<std::string> entered = dialog_.ask(shownPath, attempt);
            if (!entered) return false;
            password = *entered;
        }
    }
}

void TemplatePasswords::forget() {
    path_.clear();
    password_.clear();
}

}  // namespace mergeloom
