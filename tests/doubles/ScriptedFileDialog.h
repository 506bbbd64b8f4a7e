#pragma once

#include "ui/dialogs/FileDialog.h"

#include <functional>
#include <vector>

namespace mergeloom {

/// Answers each question with the next one of the test's answers, and with Cancel after the last one. Records
/// the questions.
class ScriptedFileDialog final : public FileDialog {
  public:
    /// Fills in a result. Returns false for the Cancel button.
    using Answer = std::function<bool(OpenFileName&, OpenFileTexts&)>;
    struct Question {
        FileDialogKind kind;
        OpenFileName record;
        OpenFileTexts texts;
    };

    explicit ScriptedFileDialog(std::vector<Answer> answers = {}) : answers_(std::move(answers)) {}

    std::uint32_t activeWindow() override { return kWindow; }
    bool show(FileDialogKind kind, OpenFileName& record, OpenFileTexts& texts) override {
        questions.push_back({kind, record, texts});
        const std::size_t number = questions.size() - 1;
        return number < answers_.size() && answers_[number](record, texts);
    }

    static constexpr std::uint32_t kWindow = 4711;
    std::vector<Question> questions;

  private:
    std::vector<Answer> answers_;
};

}  // namespace mergeloom
