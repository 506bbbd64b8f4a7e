#include "doubles/ScriptedFileDialog.h"
#include "ui/dialogs/OpenFileName.h"
#include "ui/dialogs/mComDlg.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;

ScriptedFileDialog::Answer choose(const std::vector<std::string>& paths) {
    return [=](OpenFileName& record, OpenFileTexts& texts) {
        if (paths.size() == 1) {
            fillWithFile(record, texts, paths.front());
        } else {
            fillWithFiles(record, texts, paths);
        }
        return true;
    };
}

TEST(SelectFile, AsksAndHandsBack) {
    ScriptedFileDialog dialog({choose({"/srv/a.docx", "/srv/b.docx"}), choose({"/srv/new.xml"})});
    FileQuestion question{.kind = FileDialogKind::Open,
                          .title = "Templates",
                          .extension = ".docx",
                          .directory = "/srv",
                          .filter = "Word|*.docx",
                          .fileName = "a.docx",
                          .filterIndex = 1,
                          .allowMultiSelect = true};
    std::string name;
    std::vector<std::string> names;
    ASSERT_TRUE(SelectFile(dialog, question, name, names));
    EXPECT_THAT(names, ElementsAre("/srv/a.docx", "/srv/b.docx"));
    const ScriptedFileDialog::Question asked = dialog.questions.at(0);
    EXPECT_EQ(asked.kind, FileDialogKind::Open);
    EXPECT_EQ(asked.record.Flags & OFN_ALLOWMULTISELECT, OFN_ALLOWMULTISELECT);
    EXPECT_EQ(asked.record.nFilterIndex, 1U);
    EXPECT_EQ(asked.texts.lpstrTitle, "Templates");
    EXPECT_EQ(asked.texts.lpstrDefExt, "doc");
    EXPECT_EQ(asked.texts.lpstrInitialDir, "/srv");
    EXPECT_EQ(asked.texts.lpstrFilter, std::string("Word\0*.docx\0", 12));
    EXPECT_EQ(asked.texts.lpstrFile.substr(0, 7), std::string("a.docx\0", 7));

    question.kind = FileDialogKind::Save;
    question.allowMultiSelect = false;
    ASSERT_TRUE(SelectFile(dialog, question, name, names));
    EXPECT_EQ(dialog.questions.at(1).kind, FileDialogKind::Save);
    EXPECT_EQ(name, "/srv/new.xml");
    EXPECT_EQ(names.size(), 2U) << "the list is for several files only";

    EXPECT_FALSE(SelectFile(dialog, question, name, names));
    EXPECT_EQ(name, "/srv/new.xml") << "the Cancel button changes nothing";
}

TEST(AddFilter, Entries) {
    EXPECT_EQ(AddFilter("", "All files"), "All files|*.*");
    EXPECT_EQ(AddFilter("Text|*.txt", "All files"), "Text|*.txt|All files|*.*");
    EXPECT_EQ(AddFilter("Text|*.txt|", "Web", "*.htm;*.html", PatternInDescription::Shown),
              "Text|*.txt|Web (*.htm;*.html)|*.htm;*.html");
}

}  // namespace
}  // namespace mergeloom
