#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"

#include <string>
#include <utility>

namespace mergeloom {

/// Shows messages about one of many objects: each begins with the object's title.
class ObjectMessages final : public Messages {
  public:
    ObjectMessages(Messages& messages, std::string title) : messages_(messages), title_(std::move(title)) {}

    MessageAnswer show(const Message& message) override {
        Message titled = message;
        titled.text.insert(0, title_ + ": ");
        return messages_.show(titled);
    }

  private:
    Messages& messages_;
    std::string title_;
};

/// Reports errors at one of many objects: each has the object's title in its comment.
class ObjectErrors final : public ErrorHandler {
  public:
    ObjectErrors(ErrorHandler& errors, std::string title) : errors_(errors), title_(std::move(title)) {}

    void report(const ErrorReport& report) override {
        ErrorReport titled = report;
        titled.comment.insert(0, report.comment.empty() ? title_ : title_ + ": ");
        errors_.report(titled);
    }

  private:
    ErrorHandler& errors_;
    std::string title_;
};

}  // namespace mergeloom
