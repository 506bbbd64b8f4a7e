#pragma once

#include "ui/dialogs/PasswordDialog.h"

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

/// Enters the given passwords. Cancels after the last one.
class ScriptedPasswords final : public PasswordDialog {
  public:
    std::optional<std::string> ask(const std::string& path, PasswordAttempt attempt) override {
        questions.emplace_back(path, attempt);
        if (answers.empty()) return {};
        std::string answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::deque<std::string> answers;
    std::vector<std::pair<std::string, PasswordAttempt>> questions;
};

}  // namespace mergeloom
