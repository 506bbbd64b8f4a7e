#pragma once

#include <optional>
#include <string>

namespace mergeloom {

/// The attempts to enter a password: the first one, or one after a wrong password.
enum class PasswordAttempt { First, Again };

/// Asks the user for the passwords of files.
class PasswordDialog {
  public:
    PasswordDialog() = default;
    PasswordDialog(const PasswordDialog&) = delete;
    PasswordDialog& operator=(const PasswordDialog&) = delete;
    virtual ~PasswordDialog() = default;

    /// Asks for the password of a file and returns it. Returns none if the user cancels.
    virtual std::optional<std::string> ask(const std::string& path, PasswordAttempt attempt) = 0;
};

}  // namespace mergeloom
