#include "base/Paths.h"
#include "doubles/WordFiles.h"
#include "ui/designer/DesignerSession.h"
#include "ui/services/GuiThread.h"
#include "ui_designer/DropScene.h"
#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <semaphore>
#include <stdexcept>
#include <utility>

namespace mergeloom {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

struct NoFieldDialog final : FieldDialog {
    void Show(FieldSelection&) override {}
};

/// A session over invisible hosts, which the office's thread starts.
class Session : public TemplateScene {
  protected:
    Session() {
        QObject::connect(&session, &DesignerSession::stateChanged, &session,
                         [this] { states.push_back(session.state()); });
        QObject::connect(&session, &DesignerSession::closeRequested, &session, [this] { ++closings; });
        QObject::connect(&session, &DesignerSession::captionChanged, &session,
                         [this](const QString& text) { shownCaption = text.toStdString(); });
    }

    void waitFor(OfficeState state) {
        QElapsedTimer waiting;
        waiting.start();
        while (session.state() != state && waiting.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        ASSERT_EQ(session.state(), state);
        settle();
    }
    /// Waits until the office's thread is idle and its events are handled.
    void settle() {
        session.worker().run([] {});
        QCoreApplication::processEvents();
    }
    bool waitForCall(const std::string& name) {
        QElapsedTimer waiting;
        waiting.start();
        bool isMade = false;
        while (!isMade && waiting.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            session.worker().run([&] { isMade = std::ranges::count(running->calls, name) > 0; });
        }
        return isMade;
    }
    /// Waits until the timers of the view, which are due first, have ended.
    static void waitForEarlierTimers() {
        bool isOver = false;
        QTimer::singleShot(std::chrono::milliseconds(400), [&] { isOver = true; });
        while (!isOver)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::unique_ptr<DocumentHost> startHost(HostListener& heard) {
        ++starts;
        begun.release();
        if (!startFailure.empty()) throw AutomationError(kNotAvailable, startFailure);
        if (holdsStart) goOn.acquire();
        auto started = std::make_unique<FakeDocumentHost>(disk);
        running = started.get();
        listener = &heard;
        return started;
    }

    FakeDropTree tree;
    NoFieldDialog fieldDialog;
    std::string startFailure;
    bool holdsStart = false;
    std::counting_semaphore<> begun{0};
    std::binary_semaphore goOn{0};
    int starts = 0;
    FakeDocumentHost* running = nullptr;
    HostListener* listener = nullptr;
    std::vector<std::string> logged;
    std::vector<OfficeState> states;
    int closings = 0;
    std::string shownCaption;
    DesignerSession session{DocumentKind::Word,
                            {.startHost = [this](const HostWindow&, DocumentKind,
                                                 HostListener& heard) { return startHost(heard); },
                             .log = [this](const std::string& line) { logged.push_back(line); },
                             .messages = messages,
                             .errors = errors,
                             .fileDialog = *dialog,
                             .passwordDialog = passwords,
                             .fieldDialog = fieldDialog,
                             .tree = tree,
                             .files = disk,
                             .keptFolder = folder / "kept",
                             .keepInterval = std::chrono::milliseconds(1)}};
};

TEST_F(Session, StartsInTheBackground) {
    session.start({});
    EXPECT_EQ(session.state(), OfficeState::Starting);
    waitFor(OfficeState::Running);
    EXPECT_THAT(states, ElementsAre(OfficeState::Starting, OfficeState::Opening, OfficeState::Running));
    EXPECT_EQ(shownCaption, "New Template");
    EXPECT_EQ(session.officeBuild(), "4711");
    EXPECT_THAT(logged, ElementsAre(testing::MatchesRegex("Size of mergeloom_libreoffice.so: [0-9]+"),
                                    "LibreOffice Build: 4711"));
}

TEST_F(Session, TellsWhyThereIsNoOffice) {
    startFailure = "Install LibreOffice.";
    session.start({});
    waitFor(OfficeState::Stopped);
    EXPECT_EQ(session.stopReason().toStdString(), "Install LibreOffice.");
    EXPECT_THAT(errors.reports, IsEmpty());
    startFailure.clear();
    session.start({});
    waitFor(OfficeState::Running);
}

TEST_F(Session, AStartCanBeGivenUp) {
    holdsStart = true;
    session.start({});
    begun.acquire();
    session.cancelStart();
    EXPECT_EQ(session.state(), OfficeState::Stopped);
    goOn.release();
    settle();
    EXPECT_EQ(session.state(), OfficeState::Stopped);
    EXPECT_THAT(logged, IsEmpty()) << "the office that was given up is not used";

    holdsStart = false;
    session.start({});
    waitFor(OfficeState::Running);
    EXPECT_EQ(starts, 2);
}

TEST_F(Session, AnOfficeThatEndsIsStartedAgainWithWhatWasSaved) {
    const std::string letter = makeTemplate("letter.docx");
    setCommandLine({"-usedocument", letter});
    session.start({});
    waitFor(OfficeState::Running);
    std::thread([this] { listener->officeEnded(); }).join();
    waitFor(OfficeState::Stopped);
    EXPECT_FALSE(session.insertAtCaret());
    EXPECT_TRUE(session.unload()) << "nothing can be saved";

    session.start({});
    waitFor(OfficeState::Running);
    EXPECT_EQ(running->hostedName(), letter);
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(Session, CarriesOutWhatTheOfficesMenusAskFor) {
    session.start({});
    waitFor(OfficeState::Running);
    std::thread([this] { listener->fileCommand(HostCommand::PrintPreview); }).join();
    EXPECT_THAT(messages.messages, IsEmpty()) << "the office waits for its thread meanwhile";
    QCoreApplication::processEvents();
    EXPECT_EQ(messages.takeTexts(), "PrintPreview is disabled.\n");
    listener->fileCommand(HostCommand::Close);
    QCoreApplication::processEvents();
    EXPECT_EQ(closings, 1);
}

TEST_F(Session, ACommandOfTheDocumentFollowsTheOneThatRuns) {
    session.start({});
    waitFor(OfficeState::Running);
    std::vector<HostKey> keys;
    const QObject receiver;
    QObject::connect(&session, &DesignerSession::keyPressed, &receiver,
                     [&](HostKey key) { keys.push_back(key); });
    session.worker().run([&] {
        listener->fileCommand(HostCommand::PrintPreview);
        listener->keyPressed(HostKey::NextPart);
        listener->fileCommand(HostCommand::Close);
        callOnGuiThread([&] { EXPECT_THAT(keys, IsEmpty()); });
        EXPECT_THAT(messages.messages, IsEmpty());
    });
    EXPECT_THAT(messages.messages, IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(messages.takeTexts(), "PrintPreview is disabled.\n");
    EXPECT_THAT(keys, ElementsAre(HostKey::NextPart));
    EXPECT_EQ(closings, 1);
}

TEST_F(Session, ACommandOfTheDocumentBelowAQuestionIsIgnored) {
    session.start({});
    waitFor(OfficeState::Running);
    session.worker().run([&] {
        callOnGuiThread([&] {
            QDialog question;
            question.open();
            listener->fileCommand(HostCommand::PrintPreview);
            QCoreApplication::processEvents();
        });
    });
    settle();
    EXPECT_THAT(messages.messages, IsEmpty());
}

TEST_F(Session, DropsAndUnhooks) {
    EXPECT_FALSE(session.drop({}));
    EXPECT_EQ(tree.unhooked, 1) << "no office runs";
    session.start({});
    waitFor(OfficeState::Running);
    EXPECT_TRUE(session.drop({}));
    EXPECT_EQ(tree.unhooked, 2);
    session.convertFields();
    EXPECT_EQ(messages.takeTexts(), "0 fields became places, 0 were removed.\n");
}

TEST_F(Session, ShowsChangesOnceForManyEventsOfACommand) {
    session.start({});
    waitFor(OfficeState::Running);
    int shown = 0;
    const QObject receiver;
    QObject::connect(&session, &DesignerSession::changesShown, &receiver, [&] { ++shown; });
    const auto fireEvents = [&] {
        for (int event = 0; event < 3; ++event) {
            listener->changesBeganOrEnded();
            callOnGuiThread([] { QCoreApplication::processEvents(); });
        }
    };
    for (const int expected : {1, 2}) {
        session.worker().run(fireEvents);
        settle();
        EXPECT_EQ(shown, expected);
    }
}

class Preview : public Session {
  protected:
    /// Starts an office with a template of one place, and a preview of two letters.
    void startPreview() {
        session.start({});
        waitFor(OfficeState::Running);
        session.worker().run([this] {
            running->package = wordFile(
                "<w:p><w:bookmarkStart w:id=\"1\" w:name=\"Customer\"/><w:r><w:t>Customer</w:t></w:r>"
                "<w:bookmarkEnd w:id=\"1\"/></w:p>");
        });
        for (const char* const name : {"Ada", "Bert"}) {
            Record& record = tree.shown->records.emplace_back();
            record.controls.push_back({.name = "Customer", .displayValue = name, .records = {}});
        }
        session.startPreview();
    }
    std::string shown() { return running->preview.empty() ? "" : shownBody(running->preview); }
};

TEST_F(Preview, ShowsTheLettersOfTheRecords) {
    startPreview();
    EXPECT_EQ(shown(), "[Customer:Ada]\n");
    session.goInPreview(PreviewStep::Next);
    session.goInPreview(PreviewStep::Next);
    EXPECT_EQ(shown(), "[Customer:Bert]\n");
    EXPECT_EQ(session.previewed()->first, 2U);
    EXPECT_FALSE(session.drop({}));
    EXPECT_FALSE(session.insertAtCaret());
    EXPECT_EQ(session.dropReport().refusal, DropRefusal::Preview);
    EXPECT_EQ(tree.unhooked, 2);
    session.goInPreview(PreviewStep::Previous);
    EXPECT_EQ(shown(), "[Customer:Ada]\n");
    session.endPreview();
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(session.insertAtCaret());
}

TEST_F(Preview, EndsBeforeOtherCommands) {
    const std::function<void()> commands[] = {
        [this] { session.convertFields(); },
        [this] { listener->fileCommand(HostCommand::PrintPreview); },
        [this] { listener->fileCommand(HostCommand::Close); },
        [this] { session.goToPlace("Customer"); },
    };
    startPreview();
    for (const auto& command : commands) {
        session.startPreview();
        EXPECT_TRUE(session.previewed());
        command();
        QCoreApplication::processEvents();
        EXPECT_FALSE(session.previewed());
        EXPECT_EQ(shown(), "");
    }
    EXPECT_EQ(closings, 0) << "a preview that is closed is not the window";
}

TEST_F(Preview, TheViewOfTheTemplateIsUpdatedAfterIt) {
    startPreview();
    session.worker().run([this] { running->calls.clear(); });
    HostLook dark;
    dark.dotsPerInch = 192;
    session.view().setLook(dark);
    listener->marksMayHaveMoved();
    waitForEarlierTimers();
    session.worker().run(
        [this] { EXPECT_THAT(running->calls, Not(Contains(AnyOf("updateMarks", "setLook")))); });
    session.endPreview();
    EXPECT_TRUE(waitForCall("updateMarks"));
    EXPECT_TRUE(waitForCall("setLook"));
}

TEST_F(Preview, ALetterThatCannotBeShownEndsIt) {
    startPreview();
    session.worker().run([this] { running->previewRefusal = "It is damaged."; });
    session.goInPreview(PreviewStep::Next);
    EXPECT_EQ(messages.takeTexts(), "It is damaged.\n");
    EXPECT_FALSE(session.previewed());
    EXPECT_EQ(shown(), "");
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(Preview, EndsWithTheOffice) {
    startPreview();
    std::thread([this] { listener->officeEnded(); }).join();
    waitFor(OfficeState::Stopped);
    EXPECT_FALSE(session.previewed());
}

TEST_F(Session, KeepsChangesAside) {
    session.start({});
    waitFor(OfficeState::Running);
    session.worker().run([this] { running->hosted()->SetSaved(false); });
    QElapsedTimer waiting;
    waiting.start();
    while (!folderExists(folder / "kept") && waiting.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        settle();
    }
    EXPECT_TRUE(folderExists(folder / "kept"));
}

TEST_F(Session, WorksOnPlacesAndTellsThem) {
    session.start({});
    waitFor(OfficeState::Running);
    QStringList found;
    // The session emits signals until its end, which is after that of the local variables.
    const QObject receiver;
    QObject::connect(&session, &DesignerSession::placesFound, &receiver,
                     [&](const QStringList& names) { found = names; });
    session.worker().run([this] { running->places = {"Town", "Customer"}; });
    session.findPlaces();
    settle();
    EXPECT_EQ(found, QStringList({"Town", "Customer"}));

    session.renamePlace("Town", "City");
    session.goToPlace("City");
    session.removePlace("Customer");
    settle();
    EXPECT_EQ(found, QStringList({"City"}));
    EXPECT_THAT(running->calls, testing::Contains("showPlace City"));

    session.worker().run([this] { running->placeRefusal = "There is a place of that name."; });
    session.renamePlace("City", "Town");
    EXPECT_EQ(messages.takeTexts(), "There is a place of that name.\n");
    EXPECT_THAT(errors.reports, IsEmpty());

    session.worker().run([this] { running->isOpenReadOnly = true; });
    session.removePlace("City");
    settle();
    EXPECT_THAT(messages.takeTexts(), testing::HasSubstr("open for reading only"));
    EXPECT_EQ(found, QStringList({"City"}));
}

}  // namespace
}  // namespace mergeloom
