#include "base/AutomationError.h"
#include "base/Paths.h"
#include "doubles/MemoryFileStore.h"
#include "office/libreoffice/calls/CallValues.h"
#include "office/libreoffice/session/InsideLine.h"
#include "office/libreoffice/session/LibreOfficeSession.h"

#include <gtest/gtest.h>

#include <com/sun/star/uno/RuntimeException.hpp>

namespace mergeloom::libreoffice {

namespace {

InsideLine faultyLine(LibreOfficeSession& session) {
    const std::string library = joinPath(parentFolder(insideLibrary()), "test_faulty_inside.so");
    return {session.connection().context(), library, session.process().workFolder()};
}

std::string said(InsideLine& line, const std::string& request) {
    return checkedAnswer(line.ask(request)).text();
}

/// On the office's main thread any exception that leaves our library would end it.
TEST(InsideLine, EveryFaultComesBackAndTheOfficeLivesOn) {
    MemoryFileStore files;
    LibreOfficeSession session(files);
    InsideLine line = faultyLine(session);
    struct Case {
        const char* request;
        ErrorNumber number;
        const char* description;
    };
    const Case cases[] = {
        {"automation", kMemberNotFound, "There is no such place."},
        {"uno", kCommandFailed, "LibreOffice could not do it: refused"},
        {"disposed", kObjectDeleted, "The object has been deleted. (gone)"},
        {"standard", kCommandFailed, "A fault of the program in LibreOffice: too far"},
        {"other", kCommandFailed, "A fault of the program in LibreOffice."},
    };
    for (const Case& c : cases) {
        try {
            ADD_FAILURE() << c.request << ": " << said(line, c.request);
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), c.number) << c.request;
            EXPECT_EQ(error.description(), c.description);
        }
        EXPECT_EQ(said(line, "and on"), "and on") << c.request;
    }
    EXPECT_THROW(line.handOver({}), css::uno::RuntimeException);
    EXPECT_EQ(said(line, "and on"), "and on");
    line.rest();
    EXPECT_TRUE(session.connection().desktop()->getFrames().is());
}

/// The main thread goes on with its own work by itself when requests stay away.
TEST(InsideLine, ServesAgainAfterTheOfficeWasLeftAlone) {
    MemoryFileStore files;
    LibreOfficeSession session(files);
    InsideLine line = faultyLine(session);
    EXPECT_EQ(said(line, "first"), "first");
    // This call waits until the main thread is free.
    EXPECT_TRUE(session.connection().desktop()->getFrames().is());
    const std::string large(3'000'000, 'x');
    EXPECT_EQ(said(line, large), large);
    line.rest();
    line.rest();
    EXPECT_EQ(said(line, "last"), "last");
}

}  // namespace

}  // namespace mergeloom::libreoffice
