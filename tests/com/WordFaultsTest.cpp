#include "automation/Faults.h"
#include "automation/WordDouble.h"
#include "base/AutomationError.h"
#include "doubles/MemoryFileStore.h"
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

/// A Word over calls of automation that fail as planned, in this program.
class WordFaults : public testing::Test {
  protected:
    void SetUp() override { start(); }
    void TearDown() override { faults().clear(); }

    void start() {
        faults().clear();
        ends = 0;
        files.files = {{"/letter.docx", "the former file"}};
        inner = embedded::makeWordApplication(files);
        server = {.patience = {.attempts = 4, .pauseMilliseconds = 0},
                  .application = automation::makeWordDouble(inner, {}, [this] { ++ends; })};
    }
    /// A letter with a place, in an office of its own.
    void write() {
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
    AutomationError errorOfWriting() {
        try {
            write();
        } catch (const AutomationError& error) {
            return error;
        }
        return {0, "no error"};
    }
    std::string letter() { return shownBody(files.files["/letter.docx"]); }

    MemoryFileStore files;
    word::ApplicationPtr inner;
    com::OfficeServer server;
    int ends = 0;
};

TEST_F(WordFaults, ABusyOfficeIsAskedAgain) {
    for (const FaultKind kind : {FaultKind::Busy, FaultKind::Rejected}) {
        int call = 1;
        for (int made = call; made >= call; ++call) {
            start();
            faults().plan(kind, call, 3);
            EXPECT_EQ(errorOfWriting().number(), 0U) << call;
            EXPECT_EQ(letter(), "Dear [Name:Name]\n") << call;
            EXPECT_EQ(ends, 1);
            made = faults().calls();
        }
        EXPECT_GT(call, 15) << "the last call was not reached";
    }
}

TEST_F(WordFaults, AnOfficeThatStaysBusyIsTold) {
    faults().plan(FaultKind::Busy, 6, 1000);
    const AutomationError error = errorOfWriting();
    EXPECT_EQ(error.number(), kNotAvailable);
    EXPECT_THAT(error.description(), HasSubstr("Word is busy"));
    EXPECT_EQ(files.files["/letter.docx"], "the former file");
}

TEST_F(WordFaults, AnErrorAtAnyCallLeavesTheFileAndEndsTheOffice) {
    write();
    const int calls = faults().calls();
    bool isWritten = false;
    for (int call = 1; call <= calls; ++call) {
        start();
        faults().plan(FaultKind::Error, call, 1);
        EXPECT_NE(errorOfWriting().number(), 0U) << call;
        isWritten = files.files["/letter.docx"] != "the former file";
        EXPECT_EQ(isWritten ? letter() : "Dear [Name:Name]\n", "Dear [Name:Name]\n") << call;
        EXPECT_EQ(ends, 1) << call;
        EXPECT_EQ(inner->Documents()->Count(), 0) << call;
    }
    EXPECT_TRUE(isWritten) << "calls after the save failed, too";
}

TEST_F(WordFaults, AnOlderOfficeNeedsNoUndoRecord) {
    faults().remove("UndoRecord");
    EXPECT_EQ(errorOfWriting().number(), 0U);
    EXPECT_EQ(letter(), "Dear [Name:Name]\n");
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
