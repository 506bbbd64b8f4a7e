#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Progress.h"

#include <chrono>
#include <ostream>
#include <string>
#include <string_view>

namespace mergeloom {

/// Writes a text to a terminal as the program's own: after its name, with further lines indented to the first
/// one's text. A line may end with CR LF, CR or LF.
void writeConsoleText(std::ostream& stream, std::string_view text, std::string_view program = "mergeloom");

/// Writes the messages of a run without a user, a line each. A question gets its default button's answer,
/// which is written after it.
class ConsoleMessages final : public Messages {
  public:
    explicit ConsoleMessages(std::ostream& stream) : stream_(stream) {}

    MessageAnswer show(const Message& message) override;

  private:
    std::ostream& stream_;
};

/// Writes the unexpected errors of a run without a user: number, description, comment and the place at which
/// the error was caught.
class ConsoleErrorHandler final : public ErrorHandler {
  public:
    explicit ConsoleErrorHandler(std::ostream& stream) : stream_(stream) {}

    void report(const ErrorReport& report) override;

  private:
    std::ostream& stream_;
};

/// Shows in one line on a terminal how much of long work is done; short work shows nothing. The line is
/// removed at the end.
class ConsoleProgress : public Progress {
  public:
    using Clock = std::chrono::steady_clock;

    /// The stream has to be a terminal's.
    explicit ConsoleProgress(std::ostream& terminal) : terminal_(terminal) {}
    ~ConsoleProgress() override;

    void advance(std::int64_t done, std::int64_t total) override;

  protected:
    /// Returns the line's text.
    [[nodiscard]] virtual std::string text(std::int64_t done, std::int64_t total) const;

  private:
    static constexpr std::chrono::milliseconds kPause{200};

    std::ostream& terminal_;
    Clock::time_point next_ = Clock::now() + kPause;
    bool isShown_ = false;
};

/// Shows how many records are filled, how many a second, and the time that is left.
class ConsoleRecordProgress final : public ConsoleProgress {
  public:
    using ConsoleProgress::ConsoleProgress;

  private:
    [[nodiscard]] std::string text(std::int64_t done, std::int64_t total) const override;

    Clock::time_point start_ = Clock::now();
};

/// Returns the line for records that were filled in some milliseconds: "1200 of 5000 records, 600 a second, 7
/// s left".
std::string recordProgress(std::int64_t done, std::int64_t total, std::int64_t milliseconds);

/// Shows nothing, for work without a terminal.
class NoProgress final : public Progress {
  public:
    void advance(std::int64_t, std::int64_t) override {}
};

}  // namespace mergeloom
