#include "doubles/ScriptedFileDialog.h"
#include "ui/dialogs/ComDlg.h"

#include <gmock/gmock.h>

#include <string_view>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes the text and its NUL into a buffer as a common dialog does. The bytes after them remain.
void overwrite(std::string& buffer, std::string_view text) {
    buffer.resize(std::max(buffer.size(), text.size() + 2));
    buffer.replace(0, text.size() + 1, std::string(text) + '\0');
}

ScriptedFileDialog::Answer oneFile(const std::string& folder, const std::string& title) {
    return [=](OpenFileName& record, OpenFileTexts& texts) {
        overwrite(texts.lpstrFile, folder + title + '\0');
        overwrite(texts.lpstrFileTitle, title);
        record.nFileOffset = static_cast<std::uint16_t>(folder.size());
        const std::size_t dot = title.rfind('.');
        record.nFileExtension =
            static_cast<std::uint16_t>(dot == std::string::npos ? 0 : folder.size() + dot + 1);
        return true;
    };
}

ScriptedFileDialog::Answer severalFiles(std::string_view list, std::size_t offset) {
    return [=](OpenFileName& record, OpenFileTexts& texts) {
        overwrite(texts.lpstrFile, std::string(list) + '\0');
        record.nFileOffset = static_cast<std::uint16_t>(offset);
        record.nFileExtension = 0;
        return true;
    };
}

TEST(ComDlg, PropertiesAreBitsOfTheRecord) {
    ScriptedFileDialog dialog;
    ComDlg comDlg(dialog);
    EXPECT_EQ(comDlg.Record().Flags, 0x280004U);
    comDlg.SetAllowMultiSelect(true);
    comDlg.SetRestoreCurDir(true);
    comDlg.SetCheckBoxVisible(true);
    comDlg.SetCheckBoxSelected(true);
    comDlg.SetExistFlags(0x1000);
    comDlg.SetExistFlags(0x800);
    EXPECT_EQ(comDlg.Record().Flags, 0x281A09U);
    EXPECT_TRUE(comDlg.CheckBoxSelected());
    comDlg.SetAllowMultiSelect(false);
    comDlg.SetRestoreCurDir(false);
    comDlg.SetCheckBoxVisible(false);
    comDlg.SetCheckBoxSelected(false);
    comDlg.SetExistFlags(0);
    EXPECT_EQ(comDlg.Record().Flags, 0x281804U) << "flags for what must exist are never taken away";
    EXPECT_FALSE(comDlg.CheckBoxSelected());
}

TEST(ComDlg, WhatTheDialogIsAsked) {
    ScriptedFileDialog dialog;
    ComDlg comDlg(dialog);
    comDlg.SetDialogTitle("Pick");
    comDlg.SetDirectory("/srv");
    comDlg.SetFileName("offer.docx");
    comDlg.SetFilterIndex(2);
    EXPECT_FALSE(comDlg.ShowOpen());
    comDlg.SetAllowMultiSelect(true);
    comDlg.ShowOpen();
    comDlg.ShowSave();
    ASSERT_EQ(dialog.questions.size(), 3U);

    const ScriptedFileDialog::Question& open = dialog.questions[0];
    EXPECT_EQ(open.kind, FileDialogKind::Open);
    EXPECT_EQ(open.record.lStructSize, 76U);
    EXPECT_EQ(open.record.hwndOwner, ScriptedFileDialog::kWindow);
    EXPECT_EQ(open.record.nFilterIndex, 2U);
    EXPECT_EQ(open.record.nMaxFile, 261U);
    EXPECT_EQ(open.texts.lpstrFile, "offer.docx" + std::string(250, '\0'));
    EXPECT_EQ(open.record.nMaxFileTitle, 261U);
    EXPECT_EQ(open.texts.lpstrFileTitle, std::string(260, '\0'));
    EXPECT_EQ(open.texts.lpstrTitle, "Pick");
    EXPECT_EQ(open.texts.lpstrInitialDir, "/srv");

    EXPECT_EQ(dialog.questions[1].record.nMaxFile, 13001U);
    EXPECT_EQ(dialog.questions[1].texts.lpstrFile.size(), 13000U);

    EXPECT_EQ(dialog.questions[2].kind, FileDialogKind::Save);
    EXPECT_EQ(dialog.questions[2].record.Flags, 0x280806U) << "one file, an existing folder, a question";
    EXPECT_EQ(dialog.questions[2].record.nMaxFile, 261U);
}

TEST(ComDlg, DefaultExtension) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {".DOCX", "doc"}, {"*.x.Y", "*xy"}, {"xml", "xml"}, {".", ""}, {"äöüß", "äöü"}};
    for (const auto& [extension, expected] : cases) {
        ScriptedFileDialog dialog;
        ComDlg comDlg(dialog);
        comDlg.SetExtension(extension);
        comDlg.ShowOpen();
        EXPECT_EQ(dialog.questions[0].texts.lpstrDefExt, expected) << extension;
        EXPECT_EQ(comDlg.Extension(), "") << "what is read is the result";
    }
}

TEST(ComDlg, Filter) {
    ScriptedFileDialog dialog;
    ComDlg comDlg(dialog);
    comDlg.SetFilter("Text|*.txt|All|*.*");
    comDlg.ShowOpen();
    EXPECT_EQ(dialog.questions[0].texts.lpstrFilter, std::string("Text\0*.txt\0All\0*.*\0", 19));
    EXPECT_EQ(comDlg.Filter(), "Text|*.txt|All|*.*|");
    comDlg.SetFilterParts({"Text", "*.txt"});
    EXPECT_EQ(comDlg.Filter(), "Text|*.txt|");
}

TEST(ComDlg, OneFile) {
    ScriptedFileDialog dialog({oneFile("/srv/in/", "a.b.docx"), oneFile("/", "x")});
    ComDlg comDlg(dialog);
    comDlg.SetFileName("a name that is longer than the result, of which a part stays in the buffer");
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(comDlg.FileName(), "/srv/in/a.b.docx");
    EXPECT_EQ(comDlg.FileTitle(), "a.b.docx");
    EXPECT_EQ(comDlg.Directory(), "/srv/in");
    EXPECT_EQ(comDlg.Extension(), "docx");
    EXPECT_THAT(comDlg.FileNames(), ElementsAre("/srv/in/a.b.docx"));

    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(comDlg.FileName(), "/x");
    EXPECT_EQ(comDlg.Directory(), "/") << "the root keeps its separator";
    EXPECT_EQ(comDlg.Extension(), "") << "of the file before";

    EXPECT_FALSE(comDlg.ShowOpen()) << "the Cancel button";
    EXPECT_EQ(comDlg.FileName(), "/x");
    EXPECT_THAT(comDlg.FileTitles(), ElementsAre("x"));
}

TEST(ComDlg, SeveralFiles) {
    using std::string_view_literals::operator""sv;
    ScriptedFileDialog dialog({severalFiles("/srv/in\0a.docx\0b c.docx"sv, 8), severalFiles("/\0a\0b"sv, 2),
                               severalFiles("/ab\0a\0b"sv, 4)});
    ComDlg comDlg(dialog);
    comDlg.SetAllowMultiSelect(true);
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(comDlg.FileTitle(), "");
    EXPECT_EQ(comDlg.Directory(), "/srv/in");
    EXPECT_EQ(comDlg.Extension(), "");
    EXPECT_THAT(comDlg.FileTitles(), ElementsAre("a.docx", "b c.docx"));
    EXPECT_THAT(comDlg.FileNames(), ElementsAre("/srv/in/a.docx", "/srv/in/b c.docx"));
    EXPECT_EQ(comDlg.FileName(), "/srv/in\0a.docx\0b c.docx"sv);

    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_THAT(comDlg.FileNames(), ElementsAre("/a", "/b")) << "of the root, and none of the files before";
    EXPECT_EQ(comDlg.Directory(), "/");
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_THAT(comDlg.FileNames(), ElementsAre("/ab/a", "/ab/b"));
    EXPECT_EQ(comDlg.Directory(), "/ab");
}

TEST(ComDlg, PathsBeyondTheBuffersAreWhole) {
    const std::string folder = "/" + std::string(300, 'f') + "/";
    const std::string title = std::string(240, 't') + ".docx";
    ScriptedFileDialog dialog({oneFile(folder, title)});
    ComDlg comDlg(dialog);
    comDlg.SetFileName(std::string(400, 'n'));
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(dialog.questions[0].record.nMaxFile, 401U);
    EXPECT_EQ(dialog.questions[0].texts.lpstrFile, std::string(400, 'n'));
    EXPECT_EQ(comDlg.FileName(), folder + title);
    EXPECT_EQ(comDlg.FileTitle(), title);
}

}  // namespace
}  // namespace mergeloom
