#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

using TemplateStart = TemplateScene;

TEST_F(TemplateStart, WordsViewIsSetUp) {
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_THAT(host().calls, ElementsAre("CreateNew Word.Template.8", "show Standard", "show Formatting",
                                          "hide Web", "zoom 100", "focusOpened"));
    EXPECT_EQ(caption.text, "New Template");
    EXPECT_TRUE(host().bookmarksShown);
    EXPECT_THAT(messages.messages, IsEmpty());
}

TEST_F(TemplateStart, TriesTheProgramsInTheirOrder) {
    host().unknownPrograms = {"Word.Template.8", "Word.Template"};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_EQ(callCount("CreateNew Word.Template.12"), 1);

    host().unknownPrograms.insert("Word.Template.12");
    makeLifecycle();
    EXPECT_FALSE(lifecycle->Start());
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text,
              "Word.Template.8 and Word.Template are not registered.\r\nTry to reinstall Microsoft Word.");
    EXPECT_EQ(messages.messages[0].icon, MessageIcon::Critical);
}

TEST_F(TemplateStart, TellsThatDraggingIsSwitchedOff) {
    host().dragAllowed = false;
    EXPECT_TRUE(lifecycle->Start());
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text,
              "For the Mergeloom to work it is necessary that in Microsoft Word \r\n"
              "you switch on the option \"Allow text to be dragged and dropped\"");
    EXPECT_EQ(messages.messages[0].icon, MessageIcon::Information);
}

TEST_F(TemplateStart, OpensWhatTheCommandLineNames) {
    const std::string document = makeTemplate("letter.docx");
    const std::string workbook = makeTemplate("budget.xltx");
    setCommandLine({"-usedocument", document});
    lifecycle->Start();
    EXPECT_EQ(host().hostedName(), document);
    EXPECT_EQ(caption.text, "letter.docx");

    useExcel();
    setCommandLine({"-excel", "-template", workbook, "-usedocument", document});
    lifecycle->Start();
    EXPECT_EQ(callCount("CreateNew Excel.Template"), 1);
    EXPECT_EQ(host().hostedName(), workbook);
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateStart, AnOfficeThatEndedIsNoMissingProgram) {
    host().ended = true;
    EXPECT_FALSE(lifecycle->Start());
    EXPECT_THAT(messages.messages, IsEmpty());
    EXPECT_THAT(errors.reports, ElementsAre("frmMain.Form_Load: The office has ended."));
}

TEST_F(TemplateStart, AnOfficeStartedAnewShowsWhatWasSavedLast) {
    const std::string document = makeTemplate("letter.docx");
    lifecycle->Start();
    EXPECT_TRUE(lifecycle->Restart());
    EXPECT_EQ(caption.text, "New Template");
    lifecycle->OpenTemplate(document);
    host().CreateNew("Word.Template.8");
    EXPECT_TRUE(lifecycle->Restart());
    EXPECT_EQ(host().hostedName(), document);
}

}  // namespace
}  // namespace mergeloom
