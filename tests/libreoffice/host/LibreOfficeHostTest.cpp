#include "doubles/WordFiles.h"
#include "libreoffice/host/HostTest.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <gmock/gmock.h>

#include <cmath>
#include <set>

namespace mergeloom {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using namespace std::chrono_literals;

/// Where the first lines of a document stand in the pane, and the page below them.
constexpr HostPoint kBelowText{400, 600};
constexpr HostPoint kOtherCells[] = {{300, 300}, {500, 400}};

const std::string kField = "<db><Form Name='F'><Control Name='City'/></Form></db>";

ErrorNumber errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        EXPECT_THAT(error.description(), Not(IsEmpty()));
        return error.number();
    }
    return 0;
}

/// The first row of pixels, from the top, in which the caret finds the document.
int topOfDocument(DocumentHost& host) {
    for (int y = 0; y < TestWindow::kPaneHeight; y += 2)
        if (host.placeCaret({400, y})) return y;
    return TestWindow::kPaneHeight;
}

class HostedText : public HostTest {
  protected:
    void SetUp() override {
        host().CreateNew("Word.Template.8");
        window().clickInPane(kBelowText.x, kBelowText.y);
    }
};

class HostedCells : public HostTest {
  protected:
    void SetUp() override { host().CreateNew("Excel.Template"); }

    excel::RangePtr activeCell() { return workbook()->Application()->ActiveCell(); }
    std::string placedCell(HostPoint point) {
        EXPECT_TRUE(host().placeCaret(point));
        host().beginEditing();
        const std::string address = activeCell()->AddressLocal();
        host().endEditing();
        return address;
    }
};

TEST_F(HostedText, TakesKeysAfterAClick) {
    EXPECT_TRUE(document()->Saved());
    TestWindow::type("Dear");
    EXPECT_TRUE(becomesTrue([&] { return !document()->Saved(); }));
    EXPECT_TRUE(bodyBecomes("Dear\n"));
    EXPECT_TRUE(document()->Saved());
}

TEST_F(HostedText, LeavesTheKeyboardToTheWindowAroundIt) {
    TestWindow::type("a");
    ASSERT_TRUE(bodyBecomes("a\n"));
    window().keysTaken();
    window().click(TestWindow::kPaneX / 2, 400);
    TestWindow::press("b");
    EXPECT_TRUE(becomesTrue([&] { return window().keysTaken() == 1; }));
    host().focus();
    TestWindow::press("c");
    EXPECT_TRUE(bodyBecomes("ac\n"));
}

TEST_F(HostedText, TakesNeitherKeysNorClicksWhileEdited) {
    host().beginEditing();
    window().clickInPane(kBelowText.x, kBelowText.y);
    TestWindow::type("x");
    host().endEditing();
    window().clickInPane(kBelowText.x, kBelowText.y);
    TestWindow::type("y");
    EXPECT_TRUE(bodyBecomes("y\n"));
}

TEST_F(HostedText, ADropIsOneStepForUserAndModel) {
    load(kField);
    TestWindow::type("Dear ");
    ASSERT_TRUE(bodyBecomes("Dear \n"));
    EXPECT_TRUE(drop(node("2k")));
    EXPECT_FALSE(document()->Saved());
    EXPECT_TRUE(bodyBecomes("Dear [City:City] \n"));
    TestWindow::type("!");
    ASSERT_TRUE(bodyBecomes("Dear [City:City] !\n"));
    TestWindow::press("ctrl+z");
    TestWindow::press("ctrl+z");
    EXPECT_TRUE(bodyBecomes("Dear \n"));
    EXPECT_TRUE(drop(node("2k")));
    EXPECT_TRUE(document()->Undo(1));
    EXPECT_TRUE(bodyBecomes("Dear \n"));
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(HostedText, DropsBesideWhatTheUserTypedMeanwhile) {
    load(kField);
    ASSERT_TRUE(drop(node("2k")));
    TestWindow::type("and ");
    ASSERT_TRUE(bodyBecomes("[City:City] and \n"));
    EXPECT_TRUE(drop(node("2k")));
    EXPECT_TRUE(bodyBecomes("[City:City] and [City_ref1:City] \n"));
}

TEST_F(HostedText, TheCaretGoesOnlyWhereTextIs) {
    EXPECT_TRUE(host().placeCaret(kBelowText));
    struct Case {
        const char* what;
        HostPoint point;
    };
    const Case cases[] = {
        {"menu", {60, 8}},
        {"bar", {200, 40}},
        {"ruler", {400, topOfDocument(host()) - 4}},
        {"scroll bar", {TestWindow::kPaneWidth - 54, 400}},
        {"status bar", {300, TestWindow::kPaneHeight - 6}},
        {"outside", {TestWindow::kPaneWidth + 50, 400}},
    };
    for (const Case& c : cases)
        EXPECT_FALSE(host().placeCaret(c.point)) << c.what;
}

/// In a cell, in a header and between paragraphs.
TEST_F(HostedText, DropsWhereThePointIs) {
    load(kField);
    openBody(
        "<w:p><w:r><w:t>one</w:t></w:r></w:p><w:p><w:r><w:t>two</w:t></w:r></w:p><w:tbl><w:tblPr/>"
        "<w:tblGrid><w:gridCol w:w='4000'/></w:tblGrid><w:tr><w:tc><w:tcPr><w:tcW w:w='4000' w:type='dxa'/>"
        "</w:tcPr><w:p><w:r><w:t>in</w:t></w:r></w:p></w:tc></w:tr></w:tbl><w:p/>");
    std::set<std::string> missing{"one*\ntwo\nin\n|\n", "one\ntwo*\nin\n|\n", "one\ntwo\nin*\n|\n"};
    std::set<std::int64_t> seen;
    // Each line is met somewhere on the way down.
    for (int y = topOfDocument(host()); y < TestWindow::kPaneHeight / 2 && !missing.empty(); y += 6) {
        ASSERT_TRUE(host().placeCaret({250, y}));
        host().beginEditing();
        const word::SelectionPtr caret = document()->Application()->Selection();
        EXPECT_EQ(caret->Range()->storyName(), "body");
        const bool isNew = seen.insert(caret->Range()->Start().value).second;
        if (isNew) caret->TypeText("*");
        host().endEditing();
        if (!isNew) continue;
        missing.erase(body());
        ASSERT_TRUE(document()->Undo(1));
    }
    EXPECT_THAT(missing, IsEmpty());
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

/// A drop may come right after it.
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
    const int top = topOfDocument(host());
    for (const char* const bar : {"Standard", "Formatting", "Web"})
        host().setCommandBarVisible(bar, false);
    EXPECT_TRUE(becomesTrue([&] { return topOfDocument(host()) < top - 30; }));
    for (const char* const bar : {"Standard", "Formatting"})
        host().setCommandBarVisible(bar, true);
    EXPECT_TRUE(becomesTrue([&] { return topOfDocument(host()) == top; }));
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
    host().focus();
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
    host().focus();
    TestWindow::press("End");
    TestWindow::type(" all");
    ASSERT_TRUE(becomesTrue([] { return shownBody(host().exportedPackage()) == "Dear all\n"; }));

    const std::string filled = wordFile("<w:p><w:r><w:t>Dear Ada</w:t></w:r></w:p>");
    const std::pair<const char*, HostKey> keys[] = {{"alt+Right", HostKey::NextRecord},
                                                    {"alt+Left", HostKey::PreviousRecord}};
    for (const auto& [key, meaning] : keys) {
        host().showPreview(DocumentKind::Word, filled);
        host().focus();
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
    host().focus();
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
    TestWindow::press("Escape");
    EXPECT_TRUE(becomesTrue([] { return !host().hasOpenDialog(); }));
    EXPECT_TRUE(bodyBecomes("\n"));
}

TEST_F(HostedText, DropsThatAreUndoneAndRedoneAreUnsavedChanges) {
    load(kField);
    const auto places = [] {
        host().beginEditing();
        const int count = document()->Bookmarks()->Count();
        host().endEditing();
        return count;
    };
    for (const bool isTypedBefore : {true, false}) {
        openBody("<w:p><w:r><w:t>given</w:t></w:r></w:p>");
        host().focus();
        if (isTypedBefore) TestWindow::type("typed");
        ASSERT_TRUE(becomesTrue([&] { return document()->Saved() != isTypedBefore; }));
        ASSERT_TRUE(drop(node("2k")));
        EXPECT_FALSE(document()->Saved());
        host().focus();
        TestWindow::press("ctrl+z");
        ASSERT_TRUE(becomesTrue([&] { return places() == 0; }));
        EXPECT_EQ(document()->Saved(), !isTypedBefore);
        TestWindow::press("ctrl+y");
        ASSERT_TRUE(becomesTrue([&] { return places() == 1; }));
        EXPECT_FALSE(document()->Saved());
    }
}

TEST_F(HostedText, KeepsTheFormerDocumentWhenAFileCannotBeRead) {
    TestWindow::type("Kept");
    ASSERT_TRUE(bodyBecomes("Kept\n"));
    stage().files.files["/damaged.docx"] = std::string(3000, '\1');
    EXPECT_EQ(errorOf([] { host().Open("/damaged.docx", FileAccess::Edit); }), kFileCouldNotBeRead);
    EXPECT_EQ(errorOf([] { host().Open("/missing.xlsx", FileAccess::Edit); }), kFileCouldNotBeRead);
    EXPECT_EQ(errorOf([] { host().CreateNew("Paint.Picture"); }), kCommandFailed);
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

TEST_F(HostedCells, TheCellCursorGoesToThePoint) {
    EXPECT_NE(placedCell(kOtherCells[0]), placedCell(kOtherCells[1]));
    EXPECT_FALSE(host().placeCaret({10, 400})) << "the rows' numbers";
    EXPECT_FALSE(host().placeCaret({60, 8})) << "the menu";
}

TEST_F(HostedCells, PlacingLeavesTheKeyboardWhereItIs) {
    window().click(TestWindow::kPaneX / 2, 400);
    window().keysTaken();
    ASSERT_TRUE(host().placeCaret(kOtherCells[0]));
    TestWindow::press("b");
    EXPECT_TRUE(becomesTrue([] { return window().keysTaken() == 1; }));
}

TEST_F(HostedCells, ADropIsOneStepForUserAndModel) {
    load(kField);
    EXPECT_TRUE(workbook()->Saved());
    ASSERT_TRUE(dropAt(kOtherCells[0], node("2k")));
    EXPECT_FALSE(workbook()->Saved());
    EXPECT_EQ(workbook()->Names()->Count(), 1);
    window().clickInPane(kOtherCells[1].x, kOtherCells[1].y);
    TestWindow::press("ctrl+z");
    const auto count = [] {
        host().beginEditing();
        const int names = workbook()->Names()->Count();
        host().endEditing();
        return names;
    };
    EXPECT_TRUE(becomesTrue([&] { return count() == 0; }));
    ASSERT_TRUE(dropAt(kOtherCells[0], node("2k")));
    EXPECT_EQ(count(), 1);
    EXPECT_TRUE(workbook()->Undo(1));
    EXPECT_EQ(count(), 0);
    TestWindow::press("ctrl+y");
    EXPECT_FALSE(placedCell(kOtherCells[1]).empty());
    EXPECT_EQ(count(), 0) << "what the model takes back is not redone";
}

/// Undoing and redoing bring back texts, names, sizes and pictures, as often as the user likes.
TEST_F(HostedCells, ADropThatIsUndoneCanBeRedone) {
    load(
        "<db><Form Name='F' CurrentView='1'><Control Name='A'/><Control Name='D' "
        "Image='d.gif'/></Form></db>");
    pictures["d.gif"] = "/d.gif";
    stage().files.files["/d.gif"] = "GIF89a\x1e" + std::string(1, '\0') + "\x3c" + std::string(4, '\0') + ";";
    const auto state = [] {
        host().beginEditing();
        std::string shown;
        for (int number = 1; number <= workbook()->Names()->Count(); ++number) {
            const excel::DefinedNamePtr name = workbook()->Names()->Item(number);
            shown += name->Name() + "=" + name->RefersToRange()->Value() + " ";
        }
        const excel::WorksheetPtr sheet = workbook()->Worksheets()->Item(1);
        const excel::ShapesPtr shapes = sheet->Shapes();
        for (int number = 1; number <= shapes->Count(); ++number) {
            const excel::ShapePtr shape = shapes->Item(number);
            shown += shape->Name() + ":" + shape->TopLeftCell()->AddressLocal() + " " +
                     std::to_string(std::lround(shape->TopLeftCell()->RowHeight().value)) + "/" +
                     std::to_string(std::lround(shape->Height().value)) + " ";
        }
        host().endEditing();
        return shown;
    };
    ASSERT_TRUE(dropAt(kOtherCells[0], node("1k")));
    const std::string dropped = state();
    EXPECT_NE(dropped.find("ammA=[A] "), std::string::npos) << dropped;
    EXPECT_NE(dropped.find("ammD:"), std::string::npos) << dropped;
    window().clickInPane(kOtherCells[1].x, kOtherCells[1].y);
    for (int round = 0; round < 2; ++round) {
        TestWindow::press("ctrl+z");
        ASSERT_TRUE(becomesTrue([] { return host().placeNames().empty(); }));
        EXPECT_EQ(state(), "");
        TestWindow::press("ctrl+y");
        ASSERT_TRUE(becomesTrue([] { return host().placeNames().size() == 2; }));
        EXPECT_EQ(state(), dropped);
    }
    EXPECT_FALSE(workbook()->Saved());
}

TEST_F(HostedCells, WhatACellIsStillTakingIsAChange) {
    ASSERT_TRUE(host().placeCaret(kOtherCells[1]));
    workbook()->SaveAs("/saved.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
    window().clickInPaneAndTypeAtOnce(kOtherCells[0].x, kOtherCells[0].y, "typed");
    TestWindow::press("ctrl+s");
    ASSERT_TRUE(becomesTrue([] { return !stage().listener.takeCommands().empty(); }));
    EXPECT_TRUE(workbook()->Saved());
    host().endInput();
    EXPECT_FALSE(workbook()->Saved());
}

TEST_F(HostedCells, SavesWhatACellIsStillTaking) {
    // Waits for the layout: before that, another cell may be at the point.
    ASSERT_TRUE(host().placeCaret(kOtherCells[1]));
    window().clickInPaneAndTypeAtOnce(kOtherCells[0].x, kOtherCells[0].y, "typed");
    TestWindow::press("ctrl+s");
    ASSERT_TRUE(becomesTrue([] { return !stage().listener.takeCommands().empty(); }));
    workbook()->SaveAs("/saved.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
    host().Open("/saved.xlsx", FileAccess::Edit);
    ASSERT_TRUE(host().placeCaret(kOtherCells[0]));
    host().beginEditing();
    EXPECT_EQ(activeCell()->Value(), "typed");
    host().endEditing();
}

/// What may be opened is what the program's documentation promises; what is saved again keeps its text.
TEST_F(HostedCells, OpensWorkbooksOfOtherFormats) {
    struct Case {
        const char* path;
        std::string bytes;
        bool isSavedAgain;
    };
    const Case cases[] = {
        {"/given.slk", "ID;PWXL;N;E\nC;Y1;X1;K\"kept\"\nE\n", true},
        {"/given.dif",
         "TABLE\n0,1\n\"\"\nVECTORS\n0,1\n\"\"\nTUPLES\n0,1\n\"\"\nDATA\n0,0\n\"\"\n-1,0\nBOT\n1,"
         "0\n\"kept\"\n"
         "-1,0\nEOD\n",
         true},
        {"/given.FODS",
         "<?xml version='1.0' encoding='UTF-8'?><office:document "
         "xmlns:office='urn:oasis:names:tc:opendocument:xmlns:office:1.0' "
         "xmlns:table='urn:oasis:names:tc:opendocument:xmlns:table:1.0' "
         "xmlns:text='urn:oasis:names:tc:opendocument:xmlns:text:1.0' office:version='1.3' "
         "office:mimetype=\"application/"
         "vnd.oasis.opendocument.spreadsheet\"><office:body><office:spreadsheet>"
         "<table:table table:name='One'><table:table-row><table:table-cell "
         "office:value-type='string'><text:p>"
         "kept</text:p></table:table-cell></table:table-row></table:table></office:spreadsheet></office:body>"
         "</office:document>",
         false},
    };
    for (const Case& c : cases) {
        stage().files.files[c.path] = c.bytes;
        host().Open(c.path, FileAccess::Edit);
        ASSERT_TRUE(std::holds_alternative<excel::WorkbookPtr>(host().ActiveDocument())) << c.path;
        host().beginEditing();
        EXPECT_EQ(activeCell()->Value(), "kept") << c.path;
        host().endEditing();
        if (!c.isSavedAgain) continue;
        workbook()->Save();
        EXPECT_THAT(stage().files.read(c.path), ::testing::HasSubstr("kept")) << c.path;
    }
}

class EndOfOffice : public HostedText {};

/// The last one: it takes the office away.
TEST_F(EndOfOffice, IsToldOnce) {
    const std::vector<pid_t> processes = processesNaming("mergeloom-office-");
    for (const pid_t process : processes)
        if (commandLine(process).find("-" + std::to_string(::getpid()) + ";") != std::string::npos)
            ::kill(process, SIGKILL);
    EXPECT_TRUE(becomesTrue([&] { return stage().listener.ends == 1; }));
    EXPECT_EQ(errorOf([] { host().CreateNew("Word.Template"); }), kNotAvailable);
    EXPECT_EQ(errorOf([] { host().placeCaret(kBelowText); }), kNotAvailable);
    EXPECT_EQ(errorOf([] { host().ActiveDocument(); }), kNotAvailable);
    const auto start = std::chrono::steady_clock::now();
    endOffice();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
    EXPECT_EQ(stage().listener.ends, 1);
}

/// All tests share one office, for one takes a second to start.
class Office final : public testing::Environment {
  public:
    void SetUp() override { HostTest::startOffice(); }
    void TearDown() override { HostTest::endOffice(); }
};

const testing::Environment* const kOffice = testing::AddGlobalTestEnvironment(new Office);

}  // namespace

}  // namespace mergeloom
