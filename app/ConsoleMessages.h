#pragma once

#include "base/Messages.h"

#include <ostream>

namespace mergeloom {

/// Writes the messages of a run without a user, a line each. A question gets its default button's answer,
/// which is written after it.
class ConsoleMessages final : public Messages {
  public:
    explicit ConsoleMessages(std::ostream& stream) : stream_(stream) {}

    MessageAnswer show(const Message& message) override;

  private:
    std::ostream& stream_;
};

}  // namespace mergeloom
