#include "app/modMain.h"
#include "office/model/excel/Names.h"
#include "office/model/word/Bookmarks.h"
#include "ui/designer/DropFlow.h"
#include "ui_designer/DropScene.h"
#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct UnusedFieldDialog final : FieldDialog {
    void Show(FieldSelection&) override {}
};

struct SilentProgress final : Progress {
    void advance(std::int64_t, std::int64_t) override {}
};

/// Runs jobs at once.
struct JobsAtOnce final : OfficeJobs {
    void run(const Job& job) override { job(); }
};

class Dropping : public TemplateScene {
  protected:
    Dropping() { lifecycle->Start(); }
    ~Dropping() override { gExcelMode = 0; }

    void showWorkbook() {
        gExcelMode = 1;
        useExcel();
        lifecycle->Start();
        host().calls.clear();
    }
    int placeCount() { return std::get<word::DocumentPtr>(host().ActiveDocument())->Bookmarks()->Count(); }

    JobsAtOnce jobs;
    FakeDropTree tree;
    SilentProgress progress;
    UnusedFieldDialog fieldDialog;
    int eventRuns = 0;
    DropFlow flow{{.jobs = jobs,
                   .access = access,
                   .tree = tree,
                   .errors = errors,
                   .messages = messages,
                   .progress = progress,
                   .fieldDialog = fieldDialog,
                   .runPendingEvents = [this] { ++eventRuns; }}};
};

TEST_F(Dropping, PutsTheNodeWhereTheMouseIs) {
    host().calls.clear();
    EXPECT_TRUE(flow.drop({12, 34}));
    EXPECT_THAT(host().calls, ElementsAre("placeCaret 12,34", "beginEditing", "endEditing"));
    EXPECT_EQ(placeCount(), 1);
    EXPECT_EQ(eventRuns, 1);
    EXPECT_EQ(tree.unhooked, 1);
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(Dropping, AnErrorNamesItsDocument) {
    const std::string path = makeTemplate("letter.docx");
    lifecycle->OpenTemplate(path);
    std::get<word::DocumentPtr>(host().ActiveDocument())->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    EXPECT_FALSE(flow.drop({12, 34}));
    ASSERT_FALSE(errors.comments.empty());
    EXPECT_THAT(errors.comments.front(), testing::EndsWith(path));
}

TEST_F(Dropping, WithoutAMouseTheCaretStays) {
    tree.lostFocus = false;
    host().calls.clear();
    EXPECT_TRUE(flow.insertAtCaret());
    EXPECT_THAT(host().calls, ElementsAre("beginEditing", "endEditing"));
    EXPECT_EQ(placeCount(), 1);
}

TEST_F(Dropping, APlaceForABlankNeedsNoElement) {
    TreeNode& special = tree.shown->tree.Add(0, 0, "Special");
    TreeNode& blank = tree.shown->tree.Add(special.Index(), 0, "Optional Space");
    blank.SetTag("Optional Space");
    tree.node = &blank;
    EXPECT_TRUE(flow.drop({}));
    tree.node = &special;
    EXPECT_FALSE(flow.drop({}));
    EXPECT_EQ(placeCount(), 1);
}

/// Drops that insert nothing, and the calls of the host that they may make.
TEST_F(Dropping, NothingIsDropped) {
    struct Case {
        const char* description;
        std::function<void()> prepare;
        std::vector<std::string> calls;
    };
    const std::vector<Case> cases = {
        {"the tree kept the keyboard", [&] { tree.lostFocus = false; }, {}},
        {"no node is selected", [&] { tree.node = nullptr; }, {}},
        {"no structure is shown", [&] { tree.shown = nullptr; }, {}},
        {"no text is at the point", [&] { host().hasTextAtPoint = false; }, {"placeCaret 0,0"}},
    };
    const auto shown = tree.shown;
    const TreeNode* const node = tree.node;
    for (const Case& one : cases) {
        tree.shown = shown;
        tree.node = node;
        tree.lostFocus = true;
        host().hasTextAtPoint = true;
        host().calls.clear();
        const int unhooked = tree.unhooked;
        one.prepare();
        EXPECT_FALSE(flow.drop({})) << one.description;
        EXPECT_EQ(host().calls, one.calls) << one.description;
        EXPECT_EQ(tree.unhooked, unhooked + 1) << one.description;
    }
    EXPECT_EQ(placeCount(), 0);
}

TEST_F(Dropping, AnOpenDialogOfTheOfficeComesFirst) {
    host().calls.clear();
    host().isDialogOpen = true;
    EXPECT_FALSE(flow.drop({}));
    EXPECT_FALSE(flow.insertAtCaret());
    EXPECT_EQ(messages.messages.size(), 2U);
    convertHostedFields(host(), disk, errors, messages);
    EXPECT_EQ(messages.messages.size(), 3U);
    EXPECT_THAT(host().calls, IsEmpty());
}

TEST_F(Dropping, InExcelTheTreeMayKeepTheKeyboard) {
    showWorkbook();
    tree.lostFocus = false;
    EXPECT_TRUE(flow.drop({}));
    EXPECT_EQ(std::get<excel::WorkbookPtr>(host().ActiveDocument())->Names()->Count(), 1);
}

TEST_F(Dropping, AnOfficeThatEndsIsReported) {
    host().ended = true;
    EXPECT_FALSE(flow.drop({}));
    EXPECT_THAT(errors.reports, ElementsAre("frmMain.NodeDrop: The office has ended."));
    EXPECT_EQ(tree.unhooked, 1);
}

}  // namespace
}  // namespace mergeloom
