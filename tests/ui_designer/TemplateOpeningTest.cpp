#include "app/MergeloomErrorCodes.h"
#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

using TemplateOpening = TemplateScene;

TEST_F(TemplateOpening, AsksInTheTemplatesFolder) {
    chooseFiles({makeTemplate("letter.docx")});
    lifecycle->SetDocumentsFolder("/documents");
    lifecycle->SetTemplatesFolder("/templates");
    lifecycle->Start();
    EXPECT_TRUE(lifecycle->OpenTemplate());
    ASSERT_EQ(dialog->questions.size(), 1U);
    const ScriptedFileDialog::Question& question = dialog->questions[0];
    EXPECT_EQ(question.kind, FileDialogKind::Open);
    EXPECT_EQ(question.texts.lpstrTitle, "Open");
    EXPECT_EQ(question.texts.lpstrInitialDir, "/templates");
    EXPECT_THAT(question.texts.lpstrFilter,
                testing::MatchesRegex("Word Template \\(\\*.dotx;\\*.dotm;\\*.dot;.*\\*.docx;.*"
                                      "\0All Files \\(\\*\\)\0.*"s));
    EXPECT_FALSE(lifecycle->OpenTemplate()) << "the user cancels";
    EXPECT_EQ(dialog->questions[1].texts.lpstrInitialDir, folder.path()) << "that of the last file";
    lifecycle->SetTemplatesFolder("/others");
    EXPECT_FALSE(lifecycle->OpenTemplate());
    EXPECT_EQ(dialog->questions[2].texts.lpstrInitialDir, "/others") << "another structure document names it";
    EXPECT_THAT(caption.used, ElementsAre(folder / "letter.docx"));
    EXPECT_EQ(caption.text, "letter.docx");
}

TEST_F(TemplateOpening, ShowsMappingErrors) {
    lifecycle->Start();
    const std::string missing = folder / "missing.docx";
    EXPECT_FALSE(lifecycle->OpenTemplate(missing));
    EXPECT_EQ(messages.messages.back().icon, MessageIcon::Exclamation);
    EXPECT_EQ(messages.takeTexts(), "File '" + missing + "' does not exist.\n");

    const std::string locked = makeTemplate("locked.docx");
    folder.put(".~lock.locked.docx#", "");
    EXPECT_FALSE(lifecycle->OpenTemplate(locked));
    EXPECT_THAT(messages.takeTexts(),
                testing::StartsWith(GetMappingErrorText(kTemplateAlreadyOpened, {locked})));

    folder.put("damaged.dotx", "no package");
    const std::string damaged = folder / "damaged.dotx";
    EXPECT_FALSE(lifecycle->OpenTemplate(damaged));
    EXPECT_EQ(messages.takeTexts(), GetMappingErrorText(kTemplateFormatNotSupported, {damaged}) + "\n");
    EXPECT_EQ(folder.bytesOf("damaged.dotx"), "no package");
    EXPECT_EQ(caption.text, "New Template");
    EXPECT_EQ(callCount("Open"), 0);
}

constexpr const char* kLocked = ".~lock.letter.docx#";

TEST_F(TemplateOpening, ATemplateIsLockedWhileItIsOpen) {
    const std::string path = makeTemplate("letter.docx");
    chooseFiles({folder / "other.docx", folder / "other.pdf"});
    lifecycle->Start();
    ASSERT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_THAT(folder.bytesOf(kLocked), testing::MatchesRegex("[^,]*,[^,]*,[^,]*,[^,]*,mergeloom:[0-9]+;"));
    EXPECT_TRUE(lifecycle->OpenTemplate(path)) << "by the same window";
    EXPECT_TRUE(disk.fileExists(folder / kLocked));

    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Asked));
    EXPECT_FALSE(disk.fileExists(folder / kLocked));
    EXPECT_TRUE(disk.fileExists(folder / ".~lock.other.docx#"));
    EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Asked)) << "an export locks nothing";
    EXPECT_FALSE(disk.fileExists(folder / ".~lock.other.pdf#"));

    lifecycle->Execute(HostCommand::New);
    EXPECT_FALSE(disk.fileExists(folder / ".~lock.other.docx#"));
    ASSERT_TRUE(lifecycle->OpenTemplate(path));
    lifecycle.reset();
    EXPECT_FALSE(disk.fileExists(folder / kLocked));
}

TEST_F(TemplateOpening, AFailedOpenKeepsTheFormerLock) {
    const std::string path = makeTemplate("letter.docx");
    folder.put("damaged.docx", "no package");
    lifecycle->Start();
    lifecycle->OpenTemplate(path);
    EXPECT_FALSE(lifecycle->OpenTemplate(folder / "damaged.docx"));
    EXPECT_FALSE(disk.fileExists(folder / ".~lock.damaged.docx#"));
    EXPECT_TRUE(disk.fileExists(folder / kLocked));
}

TEST_F(TemplateOpening, AFileThatIsOpenElsewhereIsReadOnly) {
    const std::string path = makeTemplate("letter.docx");
    folder.put(kLocked, "Ada\\, Countess,ada,engine,10.12.2026 08:15,file:///home/ada/profile;");
    chooseFiles({path, folder / "mine.docx"});
    lifecycle->Start();
    messages.answers = {MessageAnswer::Yes};
    ASSERT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_EQ(messages.takeTexts(),
              GetMappingErrorText(kTemplateAlreadyOpened, {path}) +
                  "\r\n\r\nIt is open for Ada, Countess on engine since 10.12.2026 08:15.\r\n"
                  "Do you want to open it for reading only? No opens a copy of it.\n");
    EXPECT_TRUE(host().isReadOnly());
    EXPECT_EQ(caption.text, "letter.docx (read-only)");

    EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Same)) << "the other one is still there";
    EXPECT_THAT(messages.takeTexts(), testing::HasSubstr("already open elsewhere"));
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same));
    EXPECT_EQ(caption.text, "mine.docx");
    EXPECT_FALSE(host().isReadOnly());
    EXPECT_TRUE(disk.fileExists(folder / ".~lock.mine.docx#"));
    EXPECT_THAT(folder.bytesOf(kLocked), testing::StartsWith("Ada")) << "others' locks stay";
}

TEST_F(TemplateOpening, AFileThatIsOpenElsewhereCanBeCopied) {
    const std::string path = makeTemplate("letter.docx");
    folder.put(kLocked, "");
    chooseFiles({folder / "mine.docx"});
    lifecycle->Start();
    messages.answers = {MessageAnswer::No};
    ASSERT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_EQ(caption.text, "letter.docx (copy)");
    EXPECT_EQ(lifecycle->TemplatePath(), "");
    change();
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same)) << "under a name that is asked for";
    EXPECT_EQ(caption.text, "mine.docx");
}

TEST_F(TemplateOpening, OtherErrorsGoToTheErrorHandler) {
    lifecycle->Start();
    folder.put("damaged.docx", "no package");
    EXPECT_FALSE(lifecycle->OpenTemplate(folder / "damaged.docx"));
    EXPECT_THAT(messages.messages, IsEmpty());
    EXPECT_THAT(errors.reports, ElementsAre(testing::StartsWith("frmMain.OpenWordTemplate: ")));
}

TEST_F(TemplateOpening, BringsTheFormerDocumentBack) {
    const std::string document = makeTemplate("letter.docx");
    const std::string workbook = makeTemplate("budget.xlsx");
    lifecycle->Start();
    EXPECT_FALSE(lifecycle->OpenTemplate(workbook));
    EXPECT_EQ(messages.takeTexts(), "The file selected is not Word file.\n");
    EXPECT_EQ(callCount("CreateNew Word.Template.8"), 2);

    lifecycle->OpenTemplate(document);
    EXPECT_FALSE(lifecycle->OpenTemplate(workbook));
    EXPECT_EQ(host().hostedName(), document);
    EXPECT_EQ(lifecycle->TemplatePath(), document);

    useExcel();
    lifecycle->Start();
    EXPECT_FALSE(lifecycle->OpenTemplate(document));
    EXPECT_EQ(messages.takeTexts(),
              "The file selected is not Word file.\nThe file selected is not Excel file.\n");
}

TEST_F(TemplateOpening, ATemplateBecomesADocument) {
    const std::string path = makeTemplate("Letter.DOTX");
    lifecycle->Start();
    EXPECT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_EQ(host().hostedName(), folder / "Letter.docx");
    EXPECT_FALSE(disk.fileExists(path));
    EXPECT_TRUE(disk.fileExists(path + ".bak"));
}

TEST_F(TemplateOpening, AWorkbookComesUpAtItsFirstCell) {
    const std::string path = makeTemplate("budget.xltx");
    useExcel();
    lifecycle->Start();
    host().calls.clear();
    EXPECT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_THAT(host().calls, ElementsAre("Open", "beginEditing", "endEditing", "focusOpened"));
    EXPECT_TRUE(disk.fileExists(path)) << "Excel's templates are not converted";
}

}  // namespace
}  // namespace mergeloom
