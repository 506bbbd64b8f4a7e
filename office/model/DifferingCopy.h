#pragma once

#include "base/AutomationError.h"

#include <string>
#include <utility>

namespace mergeloom::model {

/// A save that would have written something else than the document holds. What stood at the path stays; the
/// bytes that were not written can be kept elsewhere.
class DifferingCopy final : public AutomationError {
  public:
    DifferingCopy(const std::string& sentence, std::string bytes)
        : AutomationError(kFileCouldNotBeSaved, sentence), bytes_(std::move(bytes)) {}

    [[nodiscard]] const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

}  // namespace mergeloom::model
