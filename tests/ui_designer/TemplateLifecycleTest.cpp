#include "app/MergeloomErrorCodes.h"
#include "office/model/word/Range.h"
#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

using TemplateStart = TemplateScene;
using TemplateOpening = TemplateScene;
using TemplateSaving = TemplateScene;
using TemplateEnd = TemplateScene;

TEST_F(TemplateStart, WordsViewIsSetUp) {
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_THAT(host().calls, ElementsAre("CreateNew Word.Template.8", "show Standard", "show Formatting",
                                          "hide Web", "zoom 100", "focus"));
    EXPECT_EQ(caption.text, "New Template");
    EXPECT_TRUE(host().bookmarksShown);
    EXPECT_THAT(messages.messages, IsEmpty());
}

TEST_F(TemplateStart, TriesTheProgramsInTheirOrder) {
    host().unknownPrograms = {"Word.Template.8", "Word.Template"};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_EQ(callCount("CreateNew Word.Template.12"), 1);

    host().unknownPrograms.insert("Word.Template.12");
    makeLifecycle();
    EXPECT_FALSE(lifecycle->Start());
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text,
              "Word.Template.8 and Word.Template are not registered.\r\nTry to reinstall Microsoft Word.");
    EXPECT_EQ(messages.messages[0].icon, MessageIcon::Critical);
}

TEST_F(TemplateStart, TellsThatDraggingIsSwitchedOff) {
    host().dragAllowed = false;
    EXPECT_TRUE(lifecycle->Start());
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text,
              "For the Mergeloom to work it is necessary that in Microsoft Word \r\n"
              "you switch on the option \"Allow text to be dragged and dropped\"");
    EXPECT_EQ(messages.messages[0].icon, MessageIcon::Information);
}

TEST_F(TemplateStart, OpensWhatTheCommandLineNames) {
    const std::string document = makeTemplate("letter.docx");
    const std::string workbook = makeTemplate("budget.xltx");
    setCommandLine({"-usedocument", document});
    lifecycle->Start();
    EXPECT_EQ(host().hostedName(), document);
    EXPECT_EQ(caption.text, "letter.docx");

    useExcel();
    setCommandLine({"-excel", "-template", workbook, "-usedocument", document});
    lifecycle->Start();
    EXPECT_EQ(callCount("CreateNew Excel.Template"), 1);
    EXPECT_EQ(host().hostedName(), workbook);
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateStart, AnOfficeThatEndedIsNoMissingProgram) {
    host().ended = true;
    EXPECT_FALSE(lifecycle->Start());
    EXPECT_THAT(messages.messages, IsEmpty());
    EXPECT_THAT(errors.reports, ElementsAre("frmMain.Form_Load: The office has ended."));
}

TEST_F(TemplateStart, AnOfficeStartedAnewShowsWhatWasSavedLast) {
    const std::string document = makeTemplate("letter.docx");
    lifecycle->Start();
    EXPECT_TRUE(lifecycle->Restart());
    EXPECT_EQ(caption.text, "New Template");
    lifecycle->OpenTemplate(document);
    host().CreateNew("Word.Template.8");
    EXPECT_TRUE(lifecycle->Restart());
    EXPECT_EQ(host().hostedName(), document);
}

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
    EXPECT_THAT(host().calls, ElementsAre("Open", "beginEditing", "endEditing", "focus"));
    EXPECT_TRUE(disk.fileExists(path)) << "Excel's templates are not converted";
}

TEST_F(TemplateSaving, ANewTemplateAsksForItsFile) {
    chooseFiles({folder / "letter.dotx"});
    lifecycle->Start();
    change();
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same));
    EXPECT_EQ(dialog->questions[0].texts.lpstrTitle, "Save Template As");
    EXPECT_EQ(dialog->questions[0].texts.lpstrDefExt.substr(0, 3), "dot");
    EXPECT_THAT(dialog->questions[0].texts.lpstrFile, testing::StartsWith("New Template.dotx\0"s));
    EXPECT_THAT(dialog->questions[0].texts.lpstrFilter, testing::Not(testing::HasSubstr("*.dot\0"s)))
        << "the office does not write it";
    EXPECT_TRUE(disk.fileExists(folder / "letter.dotx"));
    EXPECT_TRUE(host().hosted()->Saved());
    EXPECT_EQ(caption.text, "letter.dotx");

    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same)) << "its file is known now";
    EXPECT_EQ(dialog->questions.size(), 1U);
    EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Asked)) << "the user cancels";
    ASSERT_EQ(dialog->questions.size(), 2U);
    EXPECT_THAT(dialog->questions[1].texts.lpstrFile, testing::StartsWith("letter.dotx\0"s));
}

TEST_F(TemplateSaving, TheExtensionDecidesTheFormat) {
    chooseFiles({folder / "letter.docm", folder / "letter.none"});
    lifecycle->Start();
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Asked));
    EXPECT_NO_THROW(startWord()->Documents()->Open(folder / "letter.docm"));
    EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Asked));
    EXPECT_THAT(errors.reports, ElementsAre("frmMain.SaveWordTemplate: The template '" + folder.path() +
                                            "/letter.none' could not be saved: Word has no format for its "
                                            "extension."));
    EXPECT_EQ(lifecycle->TemplatePath(), folder / "letter.docm");
}

TEST_F(TemplateSaving, AFormatWithoutPlacesIsAnExport) {
    const std::string path = makeTemplate("letter.docx");
    chooseFiles({folder / "letter.pdf", folder / "letter.txt", folder / "letter.htm"});
    lifecycle->Start();
    lifecycle->OpenTemplate(path);
    change();
    host().calls.clear();
    for (const char* const name : {"letter.pdf", "letter.txt", "letter.htm"}) {
        EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Asked));
        EXPECT_EQ(caption.status,
                  "“"s + name + "” was written as a copy. The template itself was not saved.");
    }
    EXPECT_EQ(callCount("export " + folder / "letter.pdf" + " 17"), 1);
    EXPECT_EQ(callCount("export " + folder / "letter.txt" + " 2"), 1);
    EXPECT_EQ(caption.text, "letter.docx");
    EXPECT_EQ(lifecycle->TemplatePath(), path);
    EXPECT_FALSE(host().hosted()->Saved());
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same));
    EXPECT_EQ(caption.status, "“letter.docx” was saved.");
}

TEST_F(TemplateSaving, AListOfCellsIsAnExport) {
    chooseFiles({folder / "budget.csv"});
    useExcel();
    lifecycle->Start();
    EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Asked));
    EXPECT_EQ(callCount("export " + folder / "budget.csv" + " 6"), 1);
    EXPECT_EQ(caption.text, "New Excel Template");
}

TEST_F(TemplateSaving, AFileThatIsOpenElsewhereStays) {
    const std::string open = makeTemplate("open.dotx");
    const std::string bytes = folder.bytesOf("open.dotx");
    folder.put(".~lock.open.dotx#", "");
    chooseFiles({open});
    lifecycle->Start();
    change();
    EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Asked));
    EXPECT_EQ(messages.takeTexts(),
              "Word cannot save the template " + open + " because this file is already open elsewhere.\n");
    EXPECT_EQ(folder.bytesOf("open.dotx"), bytes);
    EXPECT_FALSE(host().hosted()->Saved());
}

/// An office over this store always writes a file that differs from the document.
class DifferingStore final : public FileStore {
  public:
    explicit DifferingStore(FileStore& files) : files_(files) {}

    bool fileExists(const std::string& path) override { return files_.fileExists(path); }
    std::string read(const std::string& path) override { return files_.read(path); }
    void save(const std::string&, const std::function<void(ByteSink&)>&) override {
        throw model::DifferingCopy("It differs.", "written");
    }

  private:
    FileStore& files_;
};

TEST_F(TemplateSaving, WhatDiffersIsOfferedAsACopyUnderAnotherName) {
    struct Case {
        MessageAnswer answer;
        std::string chosen;
        std::string kept;
    };
    const std::string path = makeTemplate("letter.docx");
    const std::string before = folder.bytesOf("letter.docx");
    DifferingStore store(disk);
    FakeAccess differing(store);
    WordTemplates templates(differing, messages, errors, files, [this] { return startWord(); });
    const Case cases[] = {
        {MessageAnswer::No, "", ""},
        {MessageAnswer::Yes, "", ""},
        {MessageAnswer::Yes, "letter.docx", ""},
        {MessageAnswer::Yes, "copy.docx", "copy.docx"},
        {MessageAnswer::Yes, "copy.dotx", "copy.dotx.docx"},
    };
    for (const Case& c : cases) {
        chooseFiles(c.chosen.empty() ? std::vector<std::string>() : std::vector{folder / c.chosen});
        TemplateLifecycle saving(
            {differing, templates, messages, errors, *dialog, files, caption, keptCopies});
        ASSERT_TRUE(saving.OpenTemplate(path));
        differing.fake.hosted()->SetSaved(false);
        messages.answers.push_back(c.answer);
        messages.messages.clear();
        EXPECT_FALSE(saving.SaveTemplate(SaveTarget::Same));
        EXPECT_EQ(messages.messages.front().text,
                  "It differs.\r\nDo you want to save this as a copy under another name?");
        EXPECT_FALSE(differing.fake.hosted()->Saved());
        EXPECT_EQ(folder.bytesOf("letter.docx"), before);
        if (!c.kept.empty()) {
            EXPECT_EQ(folder.bytesOf(c.kept), "written");
        }
        const int templateAndItsLock = 2;
        EXPECT_EQ(folder.entryCount(), templateAndItsLock + (c.kept.empty() ? 0 : 1));
        if (!c.kept.empty()) files.remove(folder / c.kept);
    }
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateSaving, TheOfficesOwnLockIsNone) {
    const std::string path = makeTemplate("letter.docx");
    lifecycle->Start();
    lifecycle->OpenTemplate(path);
    folder.put(".~lock.letter.docx#", "");
    change();
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same));
    EXPECT_THAT(messages.messages, IsEmpty());
}

/// The result for unsaved changes, by the user's answer and the file that is chosen then.
struct Question {
    const char* description;
    bool isChanged;
    MessageAnswer answer;
    bool choosesFile;
    bool goes;
    bool isSaved;
};

void PrintTo(const Question& question, std::ostream* out) {
    *out << question.description;
}

class UnsavedChanges : public TemplateScene, public testing::WithParamInterface<Question> {
  protected:
    void prepare() {
        if (GetParam().choosesFile) chooseFiles({folder / "letter.dotx"});
        lifecycle->Start();
        messages.answers = {GetParam().answer};
        if (GetParam().isChanged) change();
    }
    void expectQuestion() {
        EXPECT_EQ(messages.messages.size(), GetParam().isChanged ? 1U : 0U);
        if (!GetParam().isChanged) return;
        EXPECT_EQ(messages.messages[0].text, "Do you want to save changes to Document1");
        EXPECT_EQ(messages.messages[0].icon, MessageIcon::Question);
        EXPECT_EQ(messages.messages[0].buttons, MessageButtons::YesNoCancel);
        EXPECT_EQ(disk.fileExists(folder / "letter.dotx"), GetParam().isSaved);
    }
};

TEST_P(UnsavedChanges, BeforeANewTemplate) {
    prepare();
    lifecycle->Execute(HostCommand::New);
    expectQuestion();
    EXPECT_EQ(callCount("CreateNew Word.Template.8"), GetParam().goes ? 2 : 1);
}

TEST_P(UnsavedChanges, BeforeAnotherIsOpened) {
    prepare();
    lifecycle->Execute(HostCommand::Open);
    expectQuestion();
    const std::size_t asked = dialog->questions.size();
    const bool askedToSave = GetParam().isChanged && GetParam().answer == MessageAnswer::Yes;
    EXPECT_EQ(asked, (askedToSave ? 1U : 0U) + (GetParam().goes ? 1U : 0U));
}

TEST_P(UnsavedChanges, BeforeTheWindowCloses) {
    prepare();
    host().bookmarksShown = true;
    EXPECT_EQ(lifecycle->Unload(), GetParam().goes);
    expectQuestion();
    EXPECT_EQ(host().bookmarksShown, !GetParam().goes) << "the view is what it was before the start";
}

INSTANTIATE_TEST_SUITE_P(
    Answers, UnsavedChanges,
    testing::Values(Question{"saved", false, MessageAnswer::Cancel, false, true, false},
                    Question{"yes", true, MessageAnswer::Yes, true, true, true},
                    Question{"yes, then no file", true, MessageAnswer::Yes, false, false, false},
                    Question{"no", true, MessageAnswer::No, false, true, false},
                    Question{"cancel", true, MessageAnswer::Cancel, true, false, false}));

TEST_F(TemplateEnd, DeletesTheStructureDocument) {
    folder.put("structure.xml", "<Structure/>");
    setCommandLine({"-xmlfile", folder / "structure.xml", "-deletexmlfile"});
    lifecycle->Start();
    change();
    EXPECT_FALSE(lifecycle->Unload());
    EXPECT_TRUE(disk.fileExists(folder / "structure.xml")) << "the window stays";
    messages.answers = {MessageAnswer::No};
    EXPECT_TRUE(lifecycle->Unload());
    EXPECT_FALSE(disk.fileExists(folder / "structure.xml"));
    lifecycle->Terminate();
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateEnd, AnOfficeThatEndedKeepsNoWindowOpen) {
    lifecycle->Start();
    change();
    host().ended = true;
    EXPECT_TRUE(lifecycle->Unload());
    EXPECT_THAT(errors.reports, IsEmpty());
    EXPECT_THAT(messages.messages, IsEmpty());
}

TEST_F(TemplateEnd, AnOpenDialogOfTheOfficeComesFirst) {
    const auto sentence = [](const std::string& program) {
        return "Another " + program + " Application has an open dialog, please close that and then retry\n";
    };
    lifecycle->Start();
    change();
    host().calls.clear();
    host().isDialogOpen = true;
    for (const HostCommand command : {HostCommand::New, HostCommand::Open, HostCommand::Save,
                                      HostCommand::SaveAs, HostCommand::PrintPreview}) {
        lifecycle->Execute(command);
        EXPECT_EQ(messages.takeTexts(), sentence("Word"));
    }
    EXPECT_FALSE(lifecycle->Unload());
    EXPECT_EQ(messages.takeTexts(), sentence("Word"));
    EXPECT_THAT(host().calls, IsEmpty());

    useExcel();
    lifecycle->Start();
    EXPECT_FALSE(lifecycle->Unload());
    EXPECT_EQ(messages.takeTexts(), sentence("Excel"));
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateEnd, ADialogThatOpensDuringTheQuestionComesFirst) {
    lifecycle->Start();
    change();
    messages.answers = {MessageAnswer::No};
    messages.whileShown = [this] { host().isDialogOpen = true; };
    lifecycle->Execute(HostCommand::New);
    EXPECT_EQ(callCount("CreateNew Word.Template.8"), 1);
}

TEST_F(TemplateEnd, CommandsThatAreDisabled) {
    lifecycle->Start();
    lifecycle->Execute(HostCommand::PrintPreview);
    EXPECT_EQ(messages.messages.back().icon, MessageIcon::Exclamation);
    EXPECT_EQ(messages.takeTexts(), "PrintPreview is disabled.\n");

    setCommandLine({"-template", folder / "letter.dotx"});
    host().calls.clear();
    lifecycle->Execute(HostCommand::New);
    lifecycle->Execute(HostCommand::Open);
    EXPECT_EQ(messages.messages.back().icon, MessageIcon::Exclamation);
    EXPECT_EQ(messages.takeTexts(),
              "The operation is disabled in this context.\nThe operation is disabled in this context.\n");
    EXPECT_THAT(host().calls, IsEmpty());
    EXPECT_THAT(dialog->questions, IsEmpty());
}

/// Lets another window keep a copy of a document with the text "kept" and end.
class TemplateKeeping : public TemplateScene {
  protected:
    void leaveCopyOf(const std::string& original) {
        KeptCopies other(disk, folder / "kept");
        host().keepCopy(other.pathFor(original, "odt"));
    }
    bool hasCopies() { return !KeptCopies(disk, folder / "kept").left("odt").empty(); }
};

TEST_F(TemplateKeeping, ACopyIsKeptUntilTheChangesAreSaved) {
    const std::string document = makeTemplate("letter.docx");
    lifecycle->Start();
    lifecycle->KeepCopy();
    EXPECT_EQ(callCount("keepCopy"), 0) << "nothing has changed";
    lifecycle->OpenTemplate(document);
    change();
    lifecycle->KeepCopy();
    ASSERT_TRUE(keptCopies.own());
    EXPECT_EQ(keptCopies.own()->original, document);
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same));
    EXPECT_FALSE(keptCopies.own());
}

TEST_F(TemplateKeeping, DiscardedChangesAreNotKept) {
    lifecycle->Start();
    change();
    lifecycle->KeepCopy();
    messages.answers = {MessageAnswer::No};
    EXPECT_TRUE(lifecycle->Unload());
    EXPECT_FALSE(keptCopies.own());
    EXPECT_FALSE(hasCopies());
}

TEST_F(TemplateKeeping, AWantedCopyIsTheUnsavedDocument) {
    const std::string document = makeTemplate("letter.docx");
    leaveCopyOf(document);
    messages.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_THAT(messages.takeTexts(),
                testing::StartsWith("“letter.docx” was not saved when it was last open."));
    EXPECT_EQ(caption.text, "letter.docx");
    EXPECT_EQ(lifecycle->TemplatePath(), document);
    EXPECT_FALSE(host().hosted()->Saved());
    EXPECT_TRUE(keptCopies.own()) << "it is not saved yet";
    EXPECT_TRUE(lifecycle->SaveTemplate(SaveTarget::Same));
    EXPECT_FALSE(caption.hasChanges);
    EXPECT_EQ(host().hostedName(), document);
    const word::SelectionPtr selection =
        startWord()->Documents()->Open(document)->ActiveWindow()->Selection();
    selection->EndKey(word::WdUnits::wdStory);
    EXPECT_EQ(selection->Range()->Start(), CharacterPosition(4)) << "the length of the kept text";
    EXPECT_FALSE(keptCopies.own());
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateKeeping, DecliningDeletesAndCancellingLeavesIt) {
    leaveCopyOf("");
    messages.answers = {MessageAnswer::Cancel, MessageAnswer::No};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_THAT(messages.takeTexts(), testing::StartsWith("A new template was not saved"));
    EXPECT_TRUE(hasCopies());
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_FALSE(hasCopies());
    EXPECT_EQ(caption.text, "New Template");
}

TEST_F(TemplateKeeping, AFileOfTheCommandLineAsksForItsOwnCopyAlone) {
    const std::string document = makeTemplate("letter.docx");
    leaveCopyOf("/elsewhere/other.docx");
    setCommandLine({"-usedocument", document});
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_EQ(messages.takeTexts(), "");
    EXPECT_EQ(host().hostedName(), document);

    makeLifecycle();
    leaveCopyOf(document);
    messages.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_EQ(lifecycle->TemplatePath(), document);
    EXPECT_FALSE(host().hosted()->Saved());
}

TEST_F(TemplateKeeping, ACopyThatCannotBeMadeIsToldInTheStatusLine) {
    folder.put("kept", "a file in the place of the folder");
    lifecycle->Start();
    change();
    lifecycle->KeepCopy();
    EXPECT_THAT(caption.status, testing::HasSubstr("could not be saved"));
    EXPECT_THAT(messages.messages, IsEmpty());
    EXPECT_THAT(errors.reports, IsEmpty());
}

}  // namespace
}  // namespace mergeloom
