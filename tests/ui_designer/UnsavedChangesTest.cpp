#include "ui_designer/TemplateScene.h"

namespace mergeloom {
namespace {

using namespace std::string_literals;

/// The result for unsaved changes, by the user's answer and the file that is chosen then.
struct Question {
    const char* description;
    bool isChanged;
    MessageAnswer answer;
    bool choosesFile;
    bool goes;
    bool isSaved;
};

void PrintTo(const Question& question, std::ostream* out) {
    *out << question.description;
}

class UnsavedChanges : public TemplateScene, public testing::WithParamInterface<Question> {
  protected:
    void prepare() {
        if (GetParam().choosesFile) chooseFiles({folder / "letter.dotx"});
        lifecycle->Start();
        messages.answers = {GetParam().answer};
        if (GetParam().isChanged) change();
    }
    void expectQuestion() {
        EXPECT_EQ(messages.messages.size(), GetParam().isChanged ? 1U : 0U);
        if (!GetParam().isChanged) return;
        EXPECT_EQ(messages.messages[0].text, "Do you want to save changes to Document1");
        EXPECT_EQ(messages.messages[0].icon, MessageIcon::Question);
        EXPECT_EQ(messages.messages[0].buttons, MessageButtons::YesNoCancel);
        EXPECT_EQ(disk.fileExists(folder / "letter.dotx"), GetParam().isSaved);
    }
};

TEST_P(UnsavedChanges, BeforeANewTemplate) {
    prepare();
    lifecycle->Execute(HostCommand::New);
    expectQuestion();
    EXPECT_EQ(callCount("CreateNew Word.Template.8"), GetParam().goes ? 2 : 1);
}

TEST_P(UnsavedChanges, BeforeAnotherIsOpened) {
    prepare();
    lifecycle->Execute(HostCommand::Open);
    expectQuestion();
    const std::size_t asked = dialog->questions.size();
    const bool askedToSave = GetParam().isChanged && GetParam().answer == MessageAnswer::Yes;
    EXPECT_EQ(asked, (askedToSave ? 1U : 0U) + (GetParam().goes ? 1U : 0U));
}

TEST_P(UnsavedChanges, BeforeTheWindowCloses) {
    prepare();
    host().bookmarksShown = true;
    EXPECT_EQ(lifecycle->Unload(), GetParam().goes);
    expectQuestion();
    EXPECT_EQ(host().bookmarksShown, !GetParam().goes) << "the view is what it was before the start";
}

INSTANTIATE_TEST_SUITE_P(
    Answers, UnsavedChanges,
    testing::Values(Question{"saved", false, MessageAnswer::Cancel, false, true, false},
                    Question{"yes", true, MessageAnswer::Yes, true, true, true},
                    Question{"yes, then no file", true, MessageAnswer::Yes, false, false, false},
                    Question{"no", true, MessageAnswer::No, false, true, false},
                    Question{"cancel", true, MessageAnswer::Cancel, true, false, false}));

}  // namespace
}  // namespace mergeloom
