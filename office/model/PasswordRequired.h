#pragma once

#include "base/AutomationError.h"

#include <source_location>
#include <string>

namespace mergeloom::model {

/// Raised if a file cannot be opened with the given password.
class PasswordRequired final : public AutomationError {
  public:
    explicit PasswordRequired(const std::string& path,
                              const std::source_location& place = std::source_location::current())
        : AutomationError(kFileCouldNotBeRead,
                          "The file '" + path + "' could not be read: it is protected by a password.",
                          place) {}
};

}  // namespace mergeloom::model
