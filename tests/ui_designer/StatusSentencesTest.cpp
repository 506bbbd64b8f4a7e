#include "ui/designer/StatusSentences.h"
#include "ui_designer/DropScene.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(StatusSentences, TellTheNextStep) {
    EXPECT_EQ(nextStep(StructureState::Missing), QStringLiteral("Load a structure document first."));
    EXPECT_EQ(nextStep(StructureState::Shown),
              QStringLiteral("Drag a field into the document, or press Insert."));
}

TEST(StatusSentences, NameTheObjectOfWhatWasInserted) {
    const std::shared_ptr<LoadedStructure> structure = letterStructure();
    const TreeNode& form = *structure->tree.First();
    EXPECT_EQ(insertedSentence(form), QStringLiteral("“Form \"Letter\"” was inserted."));
    EXPECT_EQ(insertedSentence(*form.Child()),
              QStringLiteral("“Customer” was inserted, from Form \"Letter\"."));
}

TEST(StatusSentences, TellWhyNothingWasInserted) {
    const std::shared_ptr<LoadedStructure> structure = letterStructure();
    EXPECT_EQ(nothingInserted(structure->tree.First(), StructureState::Shown),
              QStringLiteral("Nothing was inserted."));
    EXPECT_EQ(nothingInserted(nullptr, StructureState::Shown),
              QStringLiteral("Nothing was inserted. Select a field in the tree first."));
    EXPECT_EQ(nothingInserted(nullptr, StructureState::Missing),
              QStringLiteral("Nothing was inserted. Load a structure document first."));
}

}  // namespace
}  // namespace mergeloom
