#pragma once

#include "automation/Faults.h"
#include "base/AutomationError.h"
#include "doubles/MemoryFileStore.h"
#include "office/com/automation/OfficeServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace mergeloom {

/// Tests of an office over calls of automation that fail as planned, in this program.
template <typename ApplicationPtr>
class OfficeFaults : public testing::Test {
  protected:
    /// Takes the file that write() saves, and the text that shows what it holds.
    OfficeFaults(std::string file, std::string content)
        : file_(std::move(file)), content_(std::move(content)) {}

    void SetUp() override { start(); }
    void TearDown() override { automation::faults().clear(); }

    virtual ApplicationPtr makeInner() = 0;
    virtual com::DispatchPtr makeDouble(std::function<void()> quit) = 0;
    /// Makes a document with a label and a place in an office of its own, and saves it.
    virtual void write() = 0;
    /// Returns the content of the saved file.
    virtual std::string content() = 0;
    /// Returns the number of documents that are open.
    virtual int openDocuments() = 0;

    /// Starts an office without documents and faults, over a former file.
    void start() {
        automation::faults().clear();
        ends = 0;
        files.files = {{file_, kFormer}};
        inner = makeInner();
        server = {.patience = {.attempts = 4, .pauseMilliseconds = 0},
                  .application = makeDouble([this] { ++ends; })};
    }

    AutomationError errorOfWriting() {
        try {
            write();
        } catch (const AutomationError& error) {
            return error;
        }
        return {0, "no error"};
    }

    void expectThatBusyCallsAreRepeated() {
        using automation::FaultKind;
        for (const FaultKind kind : {FaultKind::Busy, FaultKind::Rejected}) {
            int call = 1;
            for (int made = call; made >= call; ++call) {
                start();
                automation::faults().plan(kind, call, 3);
                EXPECT_EQ(errorOfWriting().number(), 0U) << call;
                EXPECT_EQ(content(), content_) << call;
                EXPECT_EQ(ends, 1);
                made = automation::faults().calls();
            }
            EXPECT_GT(call, 15) << "the last call was not reached";
        }
    }

    void expectThatAnOfficeThatStaysBusyIsTold(automation::FaultKind kind, int call,
                                               const std::string& sentence) {
        automation::faults().plan(kind, call, 1000);
        const AutomationError error = errorOfWriting();
        EXPECT_EQ(error.number(), kNotAvailable);
        EXPECT_THAT(error.description(), testing::HasSubstr(sentence));
        EXPECT_EQ(files.files[file_], kFormer);
    }

    /// Lets each call fail in one run. The error must be reported, the file must be the former or the new
    /// one, and the office must end without documents.
    void expectThatAnErrorLeavesAFileAndEndsTheOffice() {
        write();
        const int calls = automation::faults().calls();
        bool isWritten = false;
        for (int call = 1; call <= calls; ++call) {
            start();
            automation::faults().plan(automation::FaultKind::Error, call, 1);
            EXPECT_NE(errorOfWriting().number(), 0U) << call;
            isWritten = files.files[file_] != kFormer;
            EXPECT_EQ(isWritten ? content() : content_, content_) << call;
            EXPECT_EQ(ends, 1) << call;
            EXPECT_EQ(openDocuments(), 0) << call;
        }
        EXPECT_TRUE(isWritten) << "calls after the save failed, too";
    }

    MemoryFileStore files;
    ApplicationPtr inner;
    com::OfficeServer server;
    int ends = 0;

  private:
    static constexpr const char* kFormer = "the former file";

    std::string file_;
    std::string content_;
};

}  // namespace mergeloom
