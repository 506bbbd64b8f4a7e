#pragma once

#include "ui/dialogs/PasswordDialog.h"

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

/// Enters passwords that were set before; cancels when none is left.
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
