#include "automation/WordDouble.h"
#include "com/OfficeFaults.h"
#include "doubles/WordFiles.h"
#include "office/com/automation/AutomationObject.h"
#include "office/com/automation/ErrorNumbers.h"
#include "office/com/word/ComWord.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace mergeloom {
namespace {

using automation::FaultKind;
using automation::faults;
using testing::HasSubstr;

constexpr auto kDocx = word::WdSaveFormat::wdFormatXMLDocument;

class WordFaults : public OfficeFaults<word::ApplicationPtr> {
  protected:
    WordFaults() : OfficeFaults("/letter.docx", "Dear [Name:Name]\n") {}

    word::ApplicationPtr makeInner() override { return embedded::makeWordApplication(files); }
    com::DispatchPtr makeDouble(std::function<void()> quit) override {
        return automation::makeWordDouble(inner, {}, std::move(quit));
    }
    void write() override {
        const word::ApplicationPtr office = com::makeWordApplication(server);
        const word::DocumentPtr document = office->Documents()->Add("");
        const word::SelectionPtr selection = office->Selection();
        office->UndoRecord()->StartCustomRecord("Drop");
        selection->TypeText("Dear ");
        const word::RangePtr place = selection->Range();
        place->SetText("Name");
        document->Bookmarks()->Add("Name", *place);
        office->UndoRecord()->EndCustomRecord();
        document->SaveAs("/letter.docx", kDocx);
        office->Quit(word::WdSaveOptions::wdDoNotSaveChanges);
    }
    std::string content() override { return shownBody(files.files["/letter.docx"]); }
    int openDocuments() override { return inner->Documents()->Count(); }
};

TEST_F(WordFaults, ABusyOfficeIsAskedAgain) {
    expectThatBusyCallsAreRepeated();
}

TEST_F(WordFaults, AnOfficeThatStaysBusyIsTold) {
    expectThatAnOfficeThatStaysBusyIsTold(FaultKind::Busy, 6, "Word is busy");
}

TEST_F(WordFaults, AnErrorAtAnyCallLeavesTheFileAndEndsTheOffice) {
    expectThatAnErrorLeavesAFileAndEndsTheOffice();
}

TEST_F(WordFaults, AnOlderOfficeNeedsNoUndoRecord) {
    faults().remove("UndoRecord");
    EXPECT_EQ(errorOfWriting().number(), 0U);
    EXPECT_EQ(content(), "Dear [Name:Name]\n");
}

TEST_F(WordFaults, AMissingMemberIsNamed) {
    faults().remove("Collapse");
    const AutomationError error = errorOfWriting();
    EXPECT_EQ(error.number(), com::kMemberUnknown);
    EXPECT_THAT(error.description(), HasSubstr("Selection.Collapse"));
    EXPECT_EQ(ends, 1);
}

TEST_F(WordFaults, AFileThatMustNotBeChangedIsNotSaved) {
    files.files["/given.docx"] = wordFile("<w:p/>");
    const word::ApplicationPtr office = com::makeWordApplication(server);
    const word::DocumentPtr document = office->Documents()->Open("/given.docx");
    faults().setReadOnly(true);
    try {
        document->Save();
        ADD_FAILURE() << "it was saved";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kFileCouldNotBeSaved);
        EXPECT_THAT(error.description(), HasSubstr("/given.docx"));
    }
}

TEST_F(WordFaults, DocumentsOfTheUserStay) {
    word::ApplicationPtr office = com::makeWordApplication(server);
    const word::DocumentPtr own = office->Documents()->Add("");
    inner->Documents()->Add("");
    EXPECT_EQ(office->Documents()->Count(), 1) << "the user's is not counted";
    office->Quit(word::WdSaveOptions::wdDoNotSaveChanges);
    office.reset();
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(inner->Documents()->Count(), 1);
    const auto session = std::make_shared<com::AutomationSession>("Word", com::Patience{}, nullptr);
    EXPECT_TRUE(com::AutomationObject(session, server.application, "Application").get("Visible").truth());
}

}  // namespace
}  // namespace mergeloom
