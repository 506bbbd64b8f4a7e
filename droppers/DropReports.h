#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"

#include <functional>
#include <source_location>
#include <string>

namespace mergeloom {

/// The names under which a procedure's errors are reported.
struct Procedure {
    const char* module;
    const char* name;
};

/// Where the procedures of one drop tell the user and report errors. It remembers whether any of them met an
/// error, or the user cancelled, since the drop is taken back then.
class DropReports : public ErrorHandler {
  public:
    DropReports(ErrorHandler& errors, Messages& messages) : errors_(errors), messages_(messages) {}

    /// Passes the error on to the program's error handler.
    void report(const ErrorReport& report) override;

    /// Tells why something is not dropped. A refusal is no error: nothing was changed. Answers false, as the
    /// procedure that refuses does.
    bool refuse(const std::string& text, MessageIcon icon = MessageIcon::Exclamation);
    /// Tells what was done other than the user may expect.
    void tell(const std::string& text);
    /// Asks a question that is answered with yes or no.
    bool ask(const std::string& question);
    /// Announces what is about to happen; false when the user cancels.
    bool confirm(const std::string& announcement);
    /// The user called the drop off, which ends it as an error does.
    void cancel() { failed_ = true; }

    /// Runs a procedure's body under its trap and returns the body's answer. An error goes to the error
    /// handler with the comment as it reads then, and the answer is false.
    bool trap(const Procedure& procedure, const std::function<bool()>& body, const std::string& comment = {},
              const std::source_location& place = std::source_location::current());

    /// Whether any procedure met an error or the user called the drop off. Whoever drops several places stops
    /// then.
    [[nodiscard]] bool failed() const { return failed_; }

    /// Whether the user knows of a reason why something was not dropped: a refusal, an error or a
    /// cancellation.
    [[nodiscard]] bool hasTold() const { return hasTold_ || failed_; }

  private:
    ErrorHandler& errors_;
    Messages& messages_;
    bool failed_ = false;
    bool hasTold_ = false;
};

}  // namespace mergeloom
