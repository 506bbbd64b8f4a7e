#include "office/model/word/Range.h"
#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::IsEmpty;

/// Lets another window keep a copy of a document with the text "kept" and end.
class TemplateKeeping : public TemplateScene {
  protected:
    void leaveCopyOf(const std::string& original) {
        KeptCopies other(disk, folder / "kept");
        host().keepCopy(other.pathFor(original, "odt"));
    }
    bool hasCopies() { return !KeptCopies(disk, folder / "kept").left("odt").empty(); }
};

TEST_F(TemplateKeeping, ACopyIsKeptUntilTheChangesAreSaved) {
    const std::string document = makeTemplate("letter.docx");
    lifecycle->Start();
    lifecycle->KeepCopy();
    EXPECT_EQ(callCount("keepCopy"), 0) << "nothing has changed";
    lifecycle->OpenTemplate(document);
    change();
    lifecycle->KeepCopy();
    ASSERT_TRUE(keptCopies.own());
    EXPECT_EQ(keptCopies.own()->original, document);
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same));
    EXPECT_FALSE(keptCopies.own());
}

TEST_F(TemplateKeeping, DiscardedChangesAreNotKept) {
    lifecycle->Start();
    change();
    lifecycle->KeepCopy();
    messages.answers = {MessageAnswer::No};
    EXPECT_TRUE(lifecycle->Unload());
    EXPECT_FALSE(keptCopies.own());
    EXPECT_FALSE(hasCopies());
}

TEST_F(TemplateKeeping, AWantedCopyIsTheUnsavedDocument) {
    const std::string document = makeTemplate("letter.docx");
    leaveCopyOf(document);
    messages.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_THAT(messages.takeTexts(),
                testing::StartsWith("“letter.docx” was not saved when it was last open."));
    EXPECT_EQ(caption.text, "letter.docx");
    EXPECT_EQ(lifecycle->TemplatePath(), document);
    EXPECT_FALSE(host().hosted()->Saved());
    EXPECT_TRUE(keptCopies.own()) << "it is not saved yet";
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same));
    EXPECT_FALSE(caption.hasChanges);
    EXPECT_EQ(host().hostedName(), document);
    const word::SelectionPtr selection =
        startWord()->Documents()->Open(document)->ActiveWindow()->Selection();
    selection->EndKey(word::WdUnits::wdStory);
    EXPECT_EQ(selection->Range()->Start(), CharacterPosition(4)) << "the length of the kept text";
    EXPECT_FALSE(keptCopies.own());
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateKeeping, DecliningDeletesAndCancellingLeavesIt) {
    leaveCopyOf("");
    messages.answers = {MessageAnswer::Cancel, MessageAnswer::No};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_THAT(messages.takeTexts(), testing::StartsWith("A new template was not saved"));
    EXPECT_TRUE(hasCopies());
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_FALSE(hasCopies());
    EXPECT_EQ(caption.text, "New Template");
}

TEST_F(TemplateKeeping, AFileOfTheCommandLineAsksForItsOwnCopyAlone) {
    const std::string document = makeTemplate("letter.docx");
    leaveCopyOf("/elsewhere/other.docx");
    setCommandLine({"-usedocument", document});
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_EQ(messages.takeTexts(), "");
    EXPECT_EQ(host().hostedName(), document);

    makeLifecycle();
    leaveCopyOf(document);
    messages.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_EQ(lifecycle->TemplatePath(), document);
    EXPECT_FALSE(host().hosted()->Saved());
}

TEST_F(TemplateKeeping, ACopyThatCannotBeMadeIsToldInTheStatusLine) {
    folder.put("kept", "a file in the place of the folder");
    lifecycle->Start();
    change();
    lifecycle->KeepCopy();
    EXPECT_THAT(caption.status, testing::HasSubstr("could not be saved"));
    EXPECT_THAT(messages.messages, IsEmpty());
    EXPECT_THAT(errors.reports, IsEmpty());
}

}  // namespace
}  // namespace mergeloom
