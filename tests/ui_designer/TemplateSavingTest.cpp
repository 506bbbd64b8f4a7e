#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

using TemplateSaving = TemplateScene;

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

/// A store whose office always writes a file that differs from the document.
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
            {differing, templates, messages, errors, *dialog, passwords, files, caption, keptCopies});
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

/// A store whose office cannot repeat the changes on the original at its first save.
class LossyStore final : public FileStore {
  public:
    explicit LossyStore(FileStore& files) : files_(files) {}

    bool fileExists(const std::string& path) override { return files_.fileExists(path); }
    std::string read(const std::string& path) override { return files_.read(path); }
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override {
        if (std::exchange(isLossy_, false)) throw model::LossySave("It loses much.", "lossy");
        files_.save(path, writer);
    }

  private:
    FileStore& files_;
    bool isLossy_ = true;
};

TEST_F(TemplateSaving, WhatWouldBeLostIsAskedBeforeAnythingIsWritten) {
    struct Case {
        MessageAnswer answer;
        bool isSaved;
        std::string made;  ///< beside the template
        bool isFormer;     ///< holds the bytes of the template before
    };
    const Case cases[] = {
        {MessageAnswer::Cancel, false, "", false},
        {MessageAnswer::No, false, "copy.docx", false},
        {MessageAnswer::Yes, true, "letter.docx.bak", true},
    };
    const std::string path = makeTemplate("letter.docx");
    const std::string before = folder.bytesOf("letter.docx");
    for (const Case& c : cases) {
        chooseFiles({folder / "copy.docx"});
        LossyStore store(disk);
        FakeAccess lossy(store);
        WordTemplates templates(lossy, messages, errors, files, [this] { return startWord(); });
        TemplateLifecycle saving(
            {lossy, templates, messages, errors, *dialog, passwords, files, caption, keptCopies});
        ASSERT_TRUE(saving.OpenTemplate(path));
        std::get<word::DocumentPtr>(lossy.fake.ActiveDocument())
            ->ActiveWindow()
            ->Selection()
            ->TypeText("new");
        messages.answers.push_back(c.answer);
        messages.messages.clear();
        EXPECT_EQ(saving.SaveTemplate(SaveTarget::Same), c.isSaved);
        ASSERT_EQ(messages.messages.size(), 1U);
        EXPECT_TRUE(messages.messages.front().text.starts_with("It loses much."));
        EXPECT_EQ(defaultAnswer(messages.messages.front()), MessageAnswer::Cancel);
        EXPECT_EQ(lossy.fake.hosted()->Saved(), c.isSaved);
        EXPECT_EQ(folder.bytesOf("letter.docx") != before, c.isSaved);
        const int templateAndItsLock = 2;
        EXPECT_EQ(folder.entryCount(), templateAndItsLock + (c.made.empty() ? 0 : 1));
        if (c.made.empty()) continue;
        EXPECT_EQ(folder.bytesOf(c.made), c.isFormer ? before : "lossy");
        files.remove(folder / c.made);
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

}  // namespace
}  // namespace mergeloom
