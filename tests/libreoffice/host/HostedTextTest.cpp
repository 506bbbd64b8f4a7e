#include "doubles/WordFiles.h"
#include "libreoffice/host/HostTest.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <gmock/gmock.h>

#include <set>

namespace mergeloom {

namespace {

using ::testing::IsEmpty;

TEST_F(HostedText, TakesKeysAfterAClick) {
    EXPECT_TRUE(document()->Saved());
    TestWindow::type("Dear");
    EXPECT_TRUE(becomesTrue([&] { return !document()->Saved(); }));
    EXPECT_TRUE(bodyBecomes("Dear\n"));
    EXPECT_TRUE(document()->Saved());
}

TEST_F(HostedText, TypingDuringAnExportIsAChange) {
    std::string typed;
    while (typed.size() < 24) {
        ASSERT_TRUE(bodyBecomes(typed + "\n"));
        typed += 'x';
        TestWindow::type("x");
        ASSERT_TRUE(becomesTrue([&] { return shownBody(host().exportedPackage()) == typed + "\n"; }));
        ASSERT_FALSE(document()->Saved()) << typed.size();
    }
}

TEST_F(HostedText, LeavesTheKeyboardToTheWindowAroundIt) {
    TestWindow::type("a");
    ASSERT_TRUE(bodyBecomes("a\n"));
    window().keysTaken();
    window().click(TestWindow::kPaneX / 2, 400);
    TestWindow::press("b");
    EXPECT_TRUE(becomesTrue([&] { return window().keysTaken() == 1; }));
    giveKeyboard();
    TestWindow::press("c");
    EXPECT_TRUE(bodyBecomes("ac\n"));
}

TEST_F(HostedText, TheKeyboardOfTheWindowItselfIsPassedOn) {
    ASSERT_FALSE(window().hasKeyboard());
    window().giveKeyboard();
    EXPECT_TRUE(becomesTrue([&] { return window().hasKeyboard(); }));
    window().keysTaken();
    TestWindow::press("b");
    EXPECT_TRUE(becomesTrue([&] { return window().keysTaken() == 1; }));
}

TEST_F(HostedText, AnOpenedDocumentLeavesTheKeyboardToALaterClick) {
    const auto isTypedBesideAfterAClick = [&] {
        window().keysTaken();
        window().click(TestWindow::kPaneX / 2, 400);
        TestWindow::press("b");
        return becomesTrue([&] { return window().keysTaken() == 1; });
    };
    ASSERT_TRUE(isTypedBesideAfterAClick());
    openBody("<w:p/>");
    ASSERT_TRUE(isTypedBesideAfterAClick());
    host().focusOpened();
    TestWindow::press("b");
    EXPECT_TRUE(becomesTrue([&] { return window().keysTaken() == 1; }));
    openBody("<w:p/>");
    host().focusOpened();
    TestWindow::press("c");
    EXPECT_TRUE(bodyBecomes("c\n"));
}

/// The office handles a request for the keyboard in steps, which may take long. The user leaves the document
/// during one of them, by a click or by a key.
TEST_F(HostedText, ARequestForTheKeyboardIsGivenUpWhenTheDocumentIsLeft) {
    const auto clickBeside = [] { window().click(TestWindow::kPaneX / 2, 400); };
    for (const bool isLeftByClick : {true, false}) {
        for (const int step : {1, 2, 3}) {
            clickBeside();
            ASSERT_TRUE(becomesTrue([] { return window().hasKeyboard(); }));
            int steps = 0;
            host().focus([&] {
                if (++steps == step && isLeftByClick) clickBeside();
                return isLeftByClick || steps < step;
            });
            EXPECT_GE(steps, step);
            EXPECT_TRUE(becomesTrue([] { return window().hasKeyboard(); })) << isLeftByClick << step;
            giveKeyboard();
            EXPECT_FALSE(window().hasKeyboard());
        }
    }
}

/// A dialog may be opened during each of the steps.
TEST_F(HostedText, ADocumentDoesNotTakeTheKeyboardOfADialog) {
    for (const int step : {1, 2}) {
        giveKeyboard();
        int steps = 0;
        host().focus([&] {
            if (++steps == step) window().giveKeyboardToDialog();
            return true;
        });
        ASSERT_GE(steps, step);
        EXPECT_TRUE(window().hasDialogKeyboard()) << step;
        host().focusOpened();
        EXPECT_TRUE(window().hasDialogKeyboard()) << step;
        window().giveKeyboard();
        host().focusAgain([] { return true; });
        EXPECT_FALSE(window().hasDialogKeyboard());
        TestWindow::press("c");
        EXPECT_TRUE(bodyBecomes(std::string(static_cast<std::size_t>(step), 'c') + "\n"));
    }
}

/// The click on the document comes before the mouse is known to be there, so it is grabbed twice.
TEST_F(HostedText, AClickAtOnceAfterTheMouseCameFreezesNothing) {
    window().click(TestWindow::kPaneX / 2, 400);
    TestWindow::press("b");
    ASSERT_TRUE(becomesTrue([&] { return window().keysTaken() > 0; }));
    window().clickInPaneAndTypeAtOnce(kBelowText.x, kBelowText.y, "typed");
    ASSERT_TRUE(becomesTrue([] {
        giveKeyboard();
        TestWindow::press("c");
        return body().find('c') != std::string::npos;
    }));
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
        {"ruler", {400, topOfDocument() - 4}},
        {"scroll bar", {TestWindow::kPaneWidth - 54, 400}},
        {"status bar", {300, TestWindow::kPaneHeight - 6}},
        {"outside", {TestWindow::kPaneWidth + 50, 400}},
    };
    for (const Case& c : cases)
        EXPECT_FALSE(host().placeCaret(c.point)) << c.what;
}

/// Drops into a paragraph, between paragraphs and into a cell.
TEST_F(HostedText, DropsWhereThePointIs) {
    load(kField);
    openBody(
        "<w:p><w:r><w:t>one</w:t></w:r></w:p><w:p><w:r><w:t>two</w:t></w:r></w:p><w:tbl><w:tblPr/>"
        "<w:tblGrid><w:gridCol w:w='4000'/></w:tblGrid><w:tr><w:tc><w:tcPr><w:tcW w:w='4000' w:type='dxa'/>"
        "</w:tcPr><w:p><w:r><w:t>in</w:t></w:r></w:p></w:tc></w:tr></w:tbl><w:p/>");
    std::set<std::string> missing{"one*\ntwo\nin\n|\n", "one\ntwo*\nin\n|\n", "one\ntwo\nin*\n|\n"};
    std::set<std::int64_t> seen;
    // The points are from top to bottom over all lines.
    for (int y = topOfDocument(); y < TestWindow::kPaneHeight / 2 && !missing.empty(); y += 6) {
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

TEST_F(HostedText, DropsThatAreUndoneAndRedoneAreUnsavedChanges) {
    load(kField);
    for (const bool isTypedBefore : {true, false}) {
        openBody("<w:p><w:r><w:t>given</w:t></w:r></w:p>");
        giveKeyboard();
        if (isTypedBefore) TestWindow::type("typed");
        ASSERT_TRUE(becomesTrue([&] { return document()->Saved() != isTypedBefore; }));
        ASSERT_TRUE(drop(node("2k")));
        EXPECT_FALSE(document()->Saved());
        giveKeyboard();
        // Polls without beginEditing(), during which keys are not taken.
        TestWindow::press("ctrl+z");
        ASSERT_TRUE(becomesTrue([] { return host().placeNames().empty(); }));
        EXPECT_EQ(document()->Saved(), !isTypedBefore);
        TestWindow::press("ctrl+y");
        ASSERT_TRUE(becomesTrue([] { return host().placeNames().size() == 1; }));
        EXPECT_FALSE(document()->Saved());
    }
}

}  // namespace

}  // namespace mergeloom
