#include "doubles/WordFiles.h"
#include "libreoffice/host/HostTest.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <gmock/gmock.h>
#include <signal.h>

#include <algorithm>
#include <functional>
#include <thread>

namespace mergeloom {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using namespace std::chrono_literals;

std::vector<pid_t> officeProcesses() {
    std::vector<pid_t> processes = processesNaming("mergeloom-office-");
    std::erase_if(processes, [](pid_t process) {
        return commandLine(process).find("-" + std::to_string(::getpid()) + ";") == std::string::npos;
    });
    return processes;
}

void signalOffice(int number) {
    for (const pid_t process : officeProcesses())
        ::kill(process, number);
}

bool stopOffice() {
    signalOffice(SIGSTOP);
    return becomesTrue([] { return std::ranges::all_of(officeProcesses(), isStopped); });
}

ErrorNumber errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        EXPECT_THAT(error.description(), Not(IsEmpty()));
        return error.number();
    }
    return 0;
}

TEST_F(HostedText, TellsTheWindowWhatItAnswers) {
    struct Case {
        const char* key;
        HostCommand command;
    };
    const Case cases[] = {
        {"ctrl+s", HostCommand::Save},   {"ctrl+shift+s", HostCommand::SaveAs},
        {"ctrl+n", HostCommand::New},    {"ctrl+o", HostCommand::Open},
        {"ctrl+w", HostCommand::Close},  {"ctrl+q", HostCommand::Close},
        {"ctrl+F4", HostCommand::Close}, {"ctrl+shift+o", HostCommand::PrintPreview},
    };
    for (const Case& c : cases) {
        TestWindow::press(c.key);
        std::vector<HostCommand> told;
        EXPECT_TRUE(becomesTrue([&] { return !(told = stage().listener.takeCommands()).empty(); })) << c.key;
        EXPECT_THAT(told, ElementsAre(c.command)) << c.key;
    }
    EXPECT_TRUE(document() != nullptr) << "the office did nothing by itself";
}

/// A drop may follow at once.
TEST_F(HostedText, FollowsTheSizeOfItsWindow) {
    struct Size {
        int width, height;
    };
    const Size sizes[] = {{700, 500}, {800, 600},
                          {500, 400}, {TestWindow::kPaneWidth, TestWindow::kPaneHeight},
                          {600, 450}, {TestWindow::kPaneWidth, TestWindow::kPaneHeight}};
    for (const auto& [width, height] : sizes) {
        window().resizePane(width, height);
        host().resize(width, height);
        EXPECT_FALSE(host().placeCaret({300, height - 6})) << "the status bar at " << height;
        EXPECT_TRUE(host().placeCaret({width - 100, height - 100})) << "the text at " << height;
        EXPECT_EQ(window().widthInside(), width);
    }
}

TEST_F(HostedText, RestoresItsSizeAfterAnotherOne) {
    host().resize(TestWindow::kPaneWidth, TestWindow::kPaneHeight);
    window().resizeInside(300, 200);
    EXPECT_TRUE(host().placeCaret({TestWindow::kPaneWidth - 100, TestWindow::kPaneHeight - 100}));
    EXPECT_EQ(window().widthInside(), TestWindow::kPaneWidth);
}

/// The office lays out nothing in such a window. If each of these calls waited for that, the test would time
/// out.
TEST_F(HostedText, FindsNoTextInAWindowWithoutRoom) {
    host().resize(20, 20);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; x += 4)
            EXPECT_FALSE(host().placeCaret({x, y})) << x << ", " << y;
    host().resize(TestWindow::kPaneWidth, TestWindow::kPaneHeight);
    EXPECT_TRUE(host().placeCaret(kBelowText));
}

TEST_F(HostedText, ShowsBarsAndBookmarksAsItIsTold) {
    const int top = topOfDocument();
    for (const char* const bar : {"Standard", "Formatting", "Web"})
        host().setCommandBarVisible(bar, false);
    EXPECT_TRUE(becomesTrue([&] { return topOfDocument() < top - 30; }));
    for (const char* const bar : {"Standard", "Formatting"})
        host().setCommandBarVisible(bar, true);
    EXPECT_TRUE(becomesTrue([&] { return topOfDocument() == top; }));
    for (const bool shown : {true, false, true}) {
        host().setShowsBookmarks(shown);
        EXPECT_EQ(host().showsBookmarks(), shown);
    }
    host().setZoom(150);
    EXPECT_THAT(host().build(), Not(IsEmpty()));
    EXPECT_TRUE(host().allowsDragAndDrop());
}

TEST_F(HostedText, LeavesTheKeysOfTheWindowToTheWindow) {
    const std::pair<const char*, HostKey> keys[] = {{"F1", HostKey::Help},
                                                    {"F5", HostKey::Preview},
                                                    {"F6", HostKey::NextPart},
                                                    {"shift+F6", HostKey::PreviousPart}};
    giveKeyboard();
    for (const auto& [key, meaning] : keys) {
        std::vector<HostKey> reported;
        TestWindow::press(key);
        ASSERT_TRUE(becomesTrue([&] {
            reported = stage().listener.takeKeys();
            return !reported.empty();
        })) << key;
        EXPECT_EQ(reported, std::vector{meaning}) << key;
    }
    TestWindow::type("kept");
    EXPECT_TRUE(bodyBecomes("kept\n"));
}

TEST_F(HostedText, APreviewLeavesTheDocumentAsItIs) {
    openBody("<w:p><w:r><w:t>Dear</w:t></w:r></w:p>");
    host().setShowsBookmarks(true);
    giveKeyboard();
    TestWindow::press("End");
    TestWindow::type(" all");
    ASSERT_TRUE(becomesTrue([] { return shownBody(host().exportedPackage()) == "Dear all\n"; }));

    const std::string filled = wordFile("<w:p><w:r><w:t>Dear Ada</w:t></w:r></w:p>");
    const std::pair<const char*, HostKey> keys[] = {{"alt+Right", HostKey::NextRecord},
                                                    {"alt+Left", HostKey::PreviousRecord}};
    for (const auto& [key, meaning] : keys) {
        host().showPreview(DocumentKind::Word, filled);
        giveKeyboard();
        TestWindow::type("not taken");
        TestWindow::press(key);
        std::vector<HostKey> reported;
        ASSERT_TRUE(becomesTrue([&] {
            reported = stage().listener.takeKeys();
            return !reported.empty();
        })) << key;
        EXPECT_EQ(reported, std::vector{meaning});
    }
    EXPECT_FALSE(host().isReadOnly()) << "the document is still the template";
    host().endPreview();
    EXPECT_FALSE(document()->Saved());
    EXPECT_EQ(body(), "Dear all\n");
    EXPECT_TRUE(host().showsBookmarks());
    giveKeyboard();
    TestWindow::press("End");
    TestWindow::type("!");
    EXPECT_TRUE(bodyBecomes("Dear all!\n"));
    ASSERT_THROW(host().showPreview(DocumentKind::Word, "damaged"), AutomationError);
    host().endPreview();
    EXPECT_EQ(body(), "Dear all!\n");
}

TEST_F(HostedText, KnowsDialogsThatKeepTheUserFromTheDocument) {
    EXPECT_FALSE(host().hasOpenDialog());
    TestWindow::press("ctrl+F12");  // for a new table
    ASSERT_TRUE(becomesTrue([] { return host().hasOpenDialog(); }));
    // The dialog may not have the keyboard yet.
    EXPECT_TRUE(becomesTrue([] {
        TestWindow::press("Escape");
        return !host().hasOpenDialog();
    }));
    EXPECT_TRUE(bodyBecomes("\n"));
}

/// Stops the office until it is interrupted, so that calls without an interruption do not return.
TEST_F(HostedText, CallsThatWaitInterruptIdleTasks) {
    const word::DocumentPtr shown = document();
    struct Case {
        const char* name;
        std::function<void()> call;
    };
    const Case cases[] = {
        {"hasOpenDialog", [] { host().hasOpenDialog(); }}, {"isReadOnly", [] { host().isReadOnly(); }},
        {"placeNames", [] { host().placeNames(); }},       {"Saved", [&] { (void)shown->Saved(); }},
        {"beginEditing", [] { host().beginEditing(); }},   {"endEditing", [] { host().endEditing(); }},
    };
    window().watchPaintingInside();
    for (const Case& c : cases) {
        ASSERT_TRUE(stopOffice());
        std::thread caller(c.call);
        const bool interrupts = becomesTrue([] { return window().wasSentPainting(); });
        signalOffice(SIGCONT);
        caller.join();
        ASSERT_TRUE(interrupts) << c.name;
    }
}

TEST_F(HostedText, ReadingTheStoryAtTheCaretChangesNothing) {
    openBody("<w:p><w:r><w:t>given</w:t></w:r></w:p>");
    EXPECT_FALSE(host().isReadOnly());
    const int before = stage().listener.changeEvents;
    EXPECT_EQ(document()->ActiveWindow()->Selection()->Range()->storyName(), "body");
    EXPECT_FALSE(host().isReadOnly());
    EXPECT_EQ(stage().listener.changeEvents, before);
    EXPECT_TRUE(document()->Saved());
}

TEST_F(HostedText, KeepsTheFormerDocumentWhenAFileCannotBeRead) {
    TestWindow::type("Kept");
    ASSERT_TRUE(bodyBecomes("Kept\n"));
    stage().files.files["/damaged.docx"] = std::string(3000, '\1');
    EXPECT_EQ(errorOf([] { host().Open("/damaged.docx", FileAccess::Edit, {}); }), kFileCouldNotBeRead);
    EXPECT_EQ(errorOf([] { host().Open("/missing.xlsx", FileAccess::Edit, {}); }), kFileCouldNotBeRead);
    EXPECT_EQ(errorOf([] { host().CreateNew("Paint.Picture"); }), kCommandFailed);
    giveKeyboard();
    TestWindow::type("!");
    EXPECT_TRUE(bodyBecomes("Kept!\n"));
}

TEST_F(HostedText, ShowsTheDocumentThatCameLast) {
    const word::ApplicationPtr application = document()->Application();
    openBody("<w:p><w:r><w:t>opened</w:t></w:r></w:p>");
    EXPECT_EQ(document()->FullName(), "/given.docx");
    EXPECT_EQ(application->Documents()->Count(), 1);
    const word::DocumentPtr added = application->Documents()->Add("/given.docx");
    EXPECT_EQ(document(), added);
    added->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    EXPECT_EQ(document()->FullName(), "/given.docx");
    document()->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(host().ActiveDocument()));
    EXPECT_FALSE(host().placeCaret(kBelowText));
}

class EndOfOffice : public HostedText {};

/// Must be the last test, since it ends the office.
TEST_F(EndOfOffice, IsToldOnce) {
    signalOffice(SIGKILL);
    EXPECT_TRUE(becomesTrue([&] { return stage().listener.ends == 1; }));
    EXPECT_EQ(errorOf([] { host().CreateNew("Word.Template"); }), kNotAvailable);
    EXPECT_EQ(errorOf([] { host().placeCaret(kBelowText); }), kNotAvailable);
    EXPECT_EQ(errorOf([] { host().ActiveDocument(); }), kNotAvailable);
    const auto start = std::chrono::steady_clock::now();
    endOffice();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
    EXPECT_EQ(stage().listener.ends, 1);
}

/// All tests share one office, since its start takes a second.
class Office final : public testing::Environment {
  public:
    void SetUp() override { HostTest::startOffice(); }
    void TearDown() override { HostTest::endOffice(); }
};

const testing::Environment* const kOffice = testing::AddGlobalTestEnvironment(new Office);

}  // namespace

}  // namespace mergeloom
