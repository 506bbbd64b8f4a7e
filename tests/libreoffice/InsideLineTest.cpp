#include "base/AutomationError.h"
#include "base/Paths.h"
#include "doubles/MemoryFileStore.h"
#include "libreoffice/OfficeProcesses.h"
#include "office/libreoffice/calls/CallMethods.h"
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

TEST(InsideLine, SaysThatTheOfficeDiedInACall) {
    MemoryFileStore files;
    LibreOfficeSession session(files);
    InsideLine line = faultyLine(session);
    // UNO's bridge or the pipe notices it first.
    EXPECT_ANY_THROW(line.ask("death"));
    EXPECT_ANY_THROW(line.ask("and on"));
    EXPECT_TRUE(becomesTrue([&] { return !session.process().isRunning(); }));
}

/// Returns the first three values of a request.
CallWriter request(std::size_t method, std::int64_t object) {
    CallWriter writer;
    writer.number(static_cast<std::int64_t>(method));
    writer.number(object);
    writer.number(1000);
    return writer;
}

TEST(InsideLine, RefusesRequestsThatAreNone) {
    MemoryFileStore files;
    LibreOfficeSession session(files);
    InsideLine line(session.connection().context(), insideLibrary(), session.process().workFolder());
    const std::int64_t document = line.handOver(session.files().create(DocumentKind::Word));
    constexpr std::size_t kSaved = numberOfMethod<Method<DocumentEditor, &DocumentEditor::Saved>>();
    constexpr std::size_t kTakeFile = numberOfMethod<Method<DocumentEditor, &DocumentEditor::takeFile>>();
    constexpr std::size_t kText = numberOfMethod<Method<word::Range, &word::Range::Text>>();
    const auto withNumber = [](CallWriter writer, std::int64_t number) {
        writer.number(number);
        return writer;
    };
    struct Case {
        const char* what;
        CallWriter request;
    };
    const Case cases[] = {
        {"a method that there is not", request(kRelease + 1, document)},
        {"a method below the first one", request(static_cast<std::size_t>(-1), document)},
        {"an object that there is not", request(kSaved, document + 1)},
        {"an object of another kind", request(kText, document)},
        {"no arguments", request(kTakeFile, document)},
        {"a text of more bytes than the request has", withNumber(request(kTakeFile, document), 1 << 20)},
        {"a text of less than no bytes", withNumber(request(kTakeFile, document), -1)},
        {"a call after the one that is answered", withNumber(request(kSaved, document), kSaved)},
    };
    for (const Case& c : cases) {
        try {
            (void)checkedAnswer(line.ask(c.request.bytes()));
            ADD_FAILURE() << c.what;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kCommandFailed) << c.what;
            EXPECT_TRUE(error.description().starts_with("A fault of the program in LibreOffice: ")) << c.what;
        }
        CallReader answer = checkedAnswer(line.ask(request(kSaved, document).bytes()));
        EXPECT_TRUE(takeValue<bool>(answer)) << c.what;
    }
    line.rest();
}

/// The main thread continues its own work by itself after the last request.
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
