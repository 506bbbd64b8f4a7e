#include "app/ConsoleProgress.h"

namespace mergeloom {

namespace {

constexpr const char* kEraseToEndOfLine = "\x1b[K";

}  // namespace

ConsoleProgress::~ConsoleProgress() {
    if (isShown_) terminal_ << kEraseToEndOfLine << std::flush;
}

void ConsoleProgress::advance(std::int64_t done, std::int64_t total) {
    const Clock::time_point now = Clock::now();
    if (now < next_) return;
    next_ = now + kPause;
    isShown_ = true;
    // The cursor goes back to the line's start, so that a message in between does not continue this line.
    terminal_ << done << " of " << total << " done" << kEraseToEndOfLine << "\r" << std::flush;
}

}  // namespace mergeloom
