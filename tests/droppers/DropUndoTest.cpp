#include "DropTest.h"
#include "doubles/FaultyWord.h"

namespace mergeloom {
namespace {

constexpr const char* kForm = R"(<db><Form Name="F" CurrentView="1">
  <Control Name="A" ControlType="Textbox"/>
  <Control Name="B" ControlType="Subform"><Form><Control Name="C" Caption="See"/></Form></Control>
  <Control Name="D" ControlType="Textbox" Image="d.png"/>
  <Control Name="E" ControlType="Textbox" Image="d.png"/>
</Form></db>)";

class DropUndo : public DropTest {
  protected:
    void SetUp() override {
        load(kForm);
        open();
        placeAtCaret("Before", "kept");
        selection()->TypeParagraph();
        document->SetSaved(true);
    }
};

/// After a failure of any step, the document is unchanged, and no earlier step of the user is undone.
TEST_F(DropUndo, AFailureAtAnyStepChangesNothing) {
    const std::string before = body();
    int failingCall = 1;
    for (bool failed = true; failed; ++failingCall) {
        ASSERT_LT(failingCall, 100) << "the drop never ends";
        CallCounter counter{failingCall};
        const word::DocumentPtr whole = document;
        document = std::make_shared<FaultyDocument>(whole, counter);
        errors.reports.clear();
        document->SetSaved(true);

        const bool dropped = drop(node("1k"));
        failed = counter.hasFailed();
        EXPECT_EQ(dropped, !failed) << failingCall;
        EXPECT_EQ(errors.reports.size(), failed ? 1U : 0U) << failingCall;
        EXPECT_EQ(document->Saved(), failed) << failingCall;
        document = whole;
        if (failed) {
            EXPECT_EQ(body(), before) << failingCall;
        }
    }
    EXPECT_GT(failingCall, 10);
    EXPECT_EQ(body(), "[Before:kept]\nA: [A:A]\nB: \nSee: [BC:C]\nD: [D:D]\nE: [E:E]\n\n");
}

/// An error in the middle of a form undoes the earlier fields, and the later ones are not tried.
TEST_F(DropUndo, APictureThatIsNoneEndsTheForm) {
    pictures["d.png"] = "/d.png";
    files.files["/d.png"] = "no picture";
    const std::string before = body();
    EXPECT_FALSE(drop(node("1k")));
    EXPECT_EQ(body(), before);
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].number, kFileCouldNotBeRead);
    EXPECT_NE(errors.reports[0].description.find("/d.png"), std::string::npos);
    EXPECT_EQ(errors.reports[0].procedure, "rWordBookmarkAdd");
    EXPECT_EQ(progress.last, (std::pair<std::int64_t, std::int64_t>(2, 4)));
}

TEST_F(DropUndo, ADropIsOneStep) {
    const std::string before = body();
    ASSERT_TRUE(drop(node("1k")));
    EXPECT_FALSE(document->Saved());
    ASSERT_NE(body(), before);
    EXPECT_TRUE(document->Undo(1));
    EXPECT_EQ(body(), before);
}

TEST_F(DropUndo, ARefusalIsNoChange) {
    ASSERT_TRUE(drop(node("2k")));
    const std::string dropped = body();
    goTo("A", word::WdCollapseDirection::wdCollapseEnd);
    document->SetSaved(true);
    EXPECT_FALSE(drop(node("4k", "Value")));
    EXPECT_TRUE(document->Saved());
    EXPECT_EQ(body(), dropped);
    EXPECT_EQ(messages.messages.size(), 1U);
}

}  // namespace
}  // namespace mergeloom
