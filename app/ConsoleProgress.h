#pragma once

#include "base/Progress.h"

#include <chrono>
#include <ostream>

namespace mergeloom {

/// Shows in one line on a terminal how much of long work is done; short work shows nothing. The line is
/// removed at the end.
class ConsoleProgress final : public Progress {
  public:
    using Clock = std::chrono::steady_clock;

    /// The stream has to be a terminal's.
    explicit ConsoleProgress(std::ostream& terminal) : terminal_(terminal) {}
    ~ConsoleProgress() override;

    void advance(std::int64_t done, std::int64_t total) override;

  private:
    static constexpr std::chrono::milliseconds kPause{200};

    std::ostream& terminal_;
    Clock::time_point next_ = Clock::now() + kPause;
    bool isShown_ = false;
};

/// Shows nothing, for work that nobody watches.
class NoProgress final : public Progress {
  public:
    void advance(std::int64_t, std::int64_t) override {}
};

}  // namespace mergeloom
