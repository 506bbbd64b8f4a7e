#pragma once

#include "base/AutomationError.h"

#include <source_location>
#include <string>

namespace mergeloom::model {

/// Raised when a file can be opened with another password only.
class PasswordRequired final : public AutomationError {
  public:
    explicit PasswordRequired(const std::string& path,
                              const std::source_location& place = std::source_location::current())
        : AutomationError(kFileCouldNotBeRead,
                          "The file '" + path + "' could not be read: it is protected by a password.",
                          place) {}
};

}  // namespace mergeloom::model
