#pragma once

#include "base/ErrorHandler.h"

#include <ostream>

namespace mergeloom {

/// Writes the unexpected errors of a run without a user: number, description, comment and the place at which
/// the error was caught.
class ConsoleErrorHandler final : public ErrorHandler {
  public:
    explicit ConsoleErrorHandler(std::ostream& stream) : stream_(stream) {}

    void report(const ErrorReport& report) override;

  private:
    std::ostream& stream_;
};

}  // namespace mergeloom
