#include "base/AutomationError.h"
#include "doubles/MemoryFileStore.h"
#include "libreoffice/OfficeProcesses.h"
#include "office/libreoffice/session/LateAnswers.h"
#include "office/libreoffice/session/LibreOfficeSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

namespace mergeloom::libreoffice {

namespace {

using ::testing::HasSubstr;
using namespace std::chrono_literals;

class OfficeConnectionTest : public ::testing::Test {
  protected:
    /// The limit of a call. It is long enough for making a document on a busy machine, and the test of an
    /// office that hangs takes that long.
    static constexpr std::chrono::seconds kCallBound = 10s;

    /// Requests the text of the document.
    void ask() {
        session.connection().call([this] {
            return Reference<css::text::XTextDocument>(document, UNO_QUERY_THROW)->getText()->getString();
        });
    }
    AutomationError errorOfAsking() {
        try {
            ask();
        } catch (const AutomationError& error) {
            return error;
        }
        return {0, "no error"};
    }

    OwnTemporaryFolder temporary;
    MemoryFileStore files;
    LibreOfficeSession session{files, {60s, kCallBound}};
    DocumentReference document = session.files().create(DocumentKind::Word);
};

TEST_F(OfficeConnectionTest, tellsOfAnOfficeThatWasKilled) {
    temporary.killWorkers();
    const AutomationError error = errorOfAsking();
    EXPECT_EQ(error.number(), kNotAvailable);
    EXPECT_THAT(error.description(), HasSubstr("LibreOffice ended unexpectedly."));
    EXPECT_EQ(errorOfAsking().number(), kNotAvailable) << "and stays so";
}

/// UNO leaves an answer that arrives together with the end of its connection in the queue of the thread.
TEST_F(OfficeConnectionTest, leavesNoAnswerToAnotherOffice) {
    LibreOfficeSession other{files, {60s, kCallBound}};
    ThreadAnswers answers;
    // A call to an office that is ending removes up to two answers.
    for (int number = 0; number < 3; ++number)
        answers.put(nullptr);
    ::kill(-session.process().group(), SIGKILL);
    EXPECT_EQ(errorOfAsking().number(), kNotAvailable);
    EXPECT_TRUE(other.files().create(DocumentKind::Word).is());
}

TEST_F(OfficeConnectionTest, endsAnOfficeThatHangs) {
    EXPECT_EQ(errorOfAsking().number(), 0U);
    const pid_t group = session.process().group();
    ::kill(-group, SIGSTOP);
    // The process that removes what an ended office leaves names the folder too. It is in a group of its own.
    ASSERT_TRUE(becomesTrue([&] {
        return std::ranges::all_of(temporary.processes(), [group](pid_t process) {
            return ::getpgid(process) != group || isStopped(process);
        });
    }));
    const auto start = std::chrono::steady_clock::now();
    const AutomationError error = errorOfAsking();
    EXPECT_EQ(error.number(), kNotAvailable);
    EXPECT_THAT(error.description(), HasSubstr("did not answer within 10 seconds and was ended"));
    EXPECT_GE(std::chrono::steady_clock::now() - start, kCallBound);
    EXPECT_FALSE(session.process().isRunning());
}

TEST_F(OfficeConnectionTest, tellsErrorsOfAnOfficeThatLivesApart) {
    try {
        session.connection().call([this] {
            const Reference<css::beans::XPropertySet> properties(document, UNO_QUERY_THROW);
            return properties->getPropertyValue("Nonsense");
        });
        ADD_FAILURE() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kCommandFailed);
        EXPECT_THAT(error.description(), HasSubstr("Nonsense"));
    }
    session.files().close(document);
    EXPECT_EQ(errorOfAsking().number(), kObjectDeleted);
    document = session.files().create(DocumentKind::Word);
    EXPECT_EQ(errorOfAsking().number(), 0U) << "it goes on";
}

}  // namespace

}  // namespace mergeloom::libreoffice
