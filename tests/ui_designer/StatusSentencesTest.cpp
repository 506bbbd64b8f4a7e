#include "ui/designer/StatusSentences.h"
#include "ui_designer/DropScene.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(StatusSentences, TellTheNextStep) {
    EXPECT_EQ(nextStep(StructureState::Missing),
              QStringLiteral("Load a structure document or open a database first."));
    EXPECT_EQ(nextStep(StructureState::Shown),
              QStringLiteral("Drag a field into the document, or press Insert."));
}

TEST(StatusSentences, TellWhichRecordsAPreviewShows) {
    const struct {
        PreviewedRecords records;
        const char* sentence;
    } cases[] = {
        {{.first = 2, .last = 2, .count = 14}, "Record 2 of 14"},
        {{.first = 9, .last = 14, .count = 14}, "Records 9 to 14 of 14"},
        {{.areSamples = true}, "Sample values: the structure document has no records for this template."},
    };
    for (const auto& one : cases)
        EXPECT_EQ(previewSentence(one.records), QString::fromUtf8(one.sentence));
}

TEST(StatusSentences, NameTheObjectOfWhatWasInserted) {
    const std::shared_ptr<LoadedStructure> structure = letterStructure();
    const TreeNode& form = *structure->tree.First();
    EXPECT_EQ(insertedSentence(form, "body"), QStringLiteral("“Form \"Letter\"” was inserted in the text."));
    EXPECT_EQ(insertedSentence(*form.Child(), "header 12"),
              QStringLiteral("“Customer” was inserted in a header, from Form \"Letter\"."));
    EXPECT_EQ(insertedSentence(*form.Child(), "text box 1"),
              QStringLiteral("“Customer” was inserted in a text box, from Form \"Letter\"."));
    EXPECT_EQ(insertedSentence(*form.Child(), "My Sheet!B3"),
              QStringLiteral("“Customer” was inserted at My Sheet!B3, from Form \"Letter\"."));
}

TEST(StatusSentences, TellWhyNothingWasInserted) {
    const std::shared_ptr<LoadedStructure> structure = letterStructure();
    const struct {
        const TreeNode* node;
        StructureState structure;
        DropRefusal refusal;
        const char* reason;
    } cases[] = {
        {structure->tree.First(), StructureState::Shown, DropRefusal::None, ""},
        {nullptr, StructureState::Shown, DropRefusal::None, " Select a field in the tree first."},
        {nullptr, StructureState::Missing, DropRefusal::None,
         " Load a structure document or open a database first."},
        {structure->tree.First(), StructureState::Shown, DropRefusal::NoText,
         " There is no text and no cell at that place."},
        {structure->tree.First(), StructureState::Shown, DropRefusal::NotDraggable,
         " “Form \"Letter\"” only holds other nodes; insert one of them."},
        {structure->tree.First(), StructureState::Shown, DropRefusal::NothingChosen, " No field was chosen."},
        {structure->tree.First(), StructureState::Shown, DropRefusal::Preview,
         " Press F5 to return from the preview to the template first."},
        {structure->tree.First(), StructureState::Shown, DropRefusal::ReadOnly,
         " The template is open for reading only."},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(nothingInserted(one.node, one.structure, one.refusal),
                  QStringLiteral("Nothing was inserted.") + QString::fromUtf8(one.reason));
    }
}

}  // namespace
}  // namespace mergeloom
