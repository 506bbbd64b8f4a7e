#include "base/Paths.h"
#include "doubles/ChangedVariable.h"
#include "doubles/FaultyFileStore.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/WordFiles.h"
#include "office/model/word/Selection.h"
#include "ui/designer/TemplateConversion.h"
#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ConvertingTemplates : public TemplateScene {
  protected:
    /// Makes a template with a sentence in it.
    std::string makeLetter(const std::string& name, const std::string& sentence) {
        std::string path = folder / name;
        const word::DocumentPtr document = startWord()->Documents()->Add("");
        document->ActiveWindow()->Selection()->TypeText(sentence);
        document->SaveAs(path, wordFormatOf(path));
        return path;
    }
    [[nodiscard]] std::string bodyOf(const std::string& name) const {
        return shownBody(folder.bytesOf(name));
    }
    /// Returns the files of conversions in the folder for temporary files, which only this test uses.
    [[nodiscard]] long temporaryCopies() const {
        long count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(temporary.path())) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("mergeloom-") && name.ends_with(".dotx")) ++count;
        }
        return count;
    }

    TemporaryFolder temporary;
    ChangedVariable temporaryFolder{"TMPDIR", temporary.path()};
};

TEST_F(ConvertingTemplates, KnowsWhatIsConverted) {
    const TemplateConversion conversion{[this] { return startWord(); }, files, errors};
    const std::vector<std::pair<std::string, std::string>> targets = {
        {"/a.b/letter.dotx", "/a.b/letter.docx"},
        {"letter.DOTM", "letter.docm"},
        {"a.dotx.dotx", "a.dotx.docx"}};
    for (const auto& [path, target] : targets) {
        EXPECT_TRUE(TemplateConversion::isConverted(path)) << path;
        EXPECT_EQ(conversion.targetOf(path), target);
    }
    for (const char* path : {"letter.dot", "letter.docx", "dotx", "/letter.dotx/letter"})
        EXPECT_FALSE(TemplateConversion::isConverted(path)) << path;
}

TEST_F(ConvertingTemplates, TheDocumentTakesTheTemplatesPlace) {
    const std::string path = makeLetter("letter.dotx", "the letter");
    const std::string bytes = folder.bytesOf("letter.dotx");
    folder.put("letter.docx", "an earlier one");
    const long copies = temporaryCopies();
    TemplateConversion conversion{[this] { return startWord(); }, files, errors};
    EXPECT_TRUE(conversion.convert(path, folder / "letter.docx"));
    EXPECT_EQ(bodyOf("letter.docx"), "the letter\n");
    EXPECT_FALSE(disk.fileExists(path));
    EXPECT_EQ(folder.bytesOf("letter.dotx.bak"), bytes);
    EXPECT_EQ(temporaryCopies(), copies);
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(ConvertingTemplates, OtherFilesOfItsNamesStay) {
    const std::string path = makeLetter("letter.dotx", "the letter");
    const std::string bytes = folder.bytesOf("letter.dotx");
    const std::vector<std::string> others = {"letter.docx", "letter_2.docx", "letter.dotx.bak"};
    for (const std::string& other : others)
        folder.put(other, "other");
    WordTemplates templates{access, messages, errors, files, [this] { return startWord(); }};
    EXPECT_EQ(templates.fileToOpen(path), folder / "letter_3.docx");
    EXPECT_EQ(bodyOf("letter_3.docx"), "the letter\n");
    EXPECT_EQ(folder.bytesOf("letter.dotx.bak1"), bytes);
    for (const std::string& other : others)
        EXPECT_EQ(folder.bytesOf(other), "other") << other;
}

TEST_F(ConvertingTemplates, TheNextTemplateTakesTheNameThatWasSet) {
    const std::string first = makeLetter("first.dotx", "first");
    const std::string second = makeLetter("second.dotx", "second");
    WordTemplates templates{access, messages, errors, files, [this] { return startWord(); }};
    templates.SetSavedAsName(folder / "named.docm");
    EXPECT_EQ(templates.fileToOpen(first), folder / "named.docm");
    EXPECT_EQ(templates.fileToOpen(second), folder / "second.docx");
    EXPECT_EQ(bodyOf("named.docm"), "first\n");
}

TEST_F(ConvertingTemplates, ATargetThatIsTheTemplateItselfStays) {
    const std::string path = makeLetter("letter.dotx", "the letter");
    TemplateConversion conversion{[this] { return startWord(); }, files, errors};
    EXPECT_TRUE(conversion.convert(path, path));
    EXPECT_EQ(bodyOf("letter.dotx"), "the letter\n");
}

/// The disk fails at each step in turn.
TEST_F(ConvertingTemplates, NothingIsLostWhenAStepFails) {
    const std::string path = makeLetter("letter.dotx", "the letter");
    const std::string bytes = folder.bytesOf("letter.dotx");
    folder.put("letter.docx", "an earlier one");
    const long copies = temporaryCopies();
    int failures = 0;
    for (int step = 1;; ++step) {
        FaultyFileStore store(disk, step);
        DiskTemplateFiles faultyFiles(store);
        TemplateConversion conversion{[&] { return makeWordApplication(OfficeKind::Embedded, store); },
                                      faultyFiles, errors};
        const bool converted = conversion.convert(path, folder / "letter.docx");
        EXPECT_EQ(temporaryCopies(), copies) << step;
        if (!store.hasFailed()) {
            EXPECT_TRUE(converted);
            break;
        }
        ++failures;
        EXPECT_FALSE(converted) << step;
        EXPECT_EQ(folder.bytesOf("letter.dotx"), bytes) << step;
        EXPECT_EQ(folder.bytesOf("letter.docx"), "an earlier one") << step;
        EXPECT_EQ(errors.reports.size(), static_cast<std::size_t>(failures)) << step;
    }
    EXPECT_GT(failures, 5);
    EXPECT_EQ(folder.bytesOf("letter.dotx.bak"), bytes);
}

/// Files that cannot be removed.
class StayingFiles final : public TemplateFiles {
  public:
    explicit StayingFiles(TemplateFiles& files) : files_(files) {}
    bool exists(const std::string& path) override { return files_.exists(path); }
    bool isLocked(const std::string& path) override { return files_.isLocked(path); }
    std::optional<LockOwner> lockOwner(const std::string& path) override { return files_.lockOwner(path); }
    bool isEncrypted(const std::string& path) override { return files_.isEncrypted(path); }
    std::string copyToTemporaryFolder(const std::string& path) override {
        copies.push_back(files_.copyToTemporaryFolder(path));
        return copies.back();
    }
    void copy(const std::string& from, const std::string& to) override { files_.copy(from, to); }
    std::string keepBackup(const std::string& path) override { return files_.keepBackup(path); }
    void write(const std::string& path, const std::string& bytes) override { files_.write(path, bytes); }
    void remove(const std::string& path) override {
        throw AutomationError(kPermissionDenied, "The file '" + path + "' could not be deleted.");
    }
    std::vector<std::string> copies;

  private:
    TemplateFiles& files_;
};

TEST_F(ConvertingTemplates, ATemplateThatCannotGoIsTold) {
    const std::string path = makeLetter("letter.dotx", "the letter");
    StayingFiles staying(files);
    TemplateConversion conversion{[this] { return startWord(); }, staying, errors};
    EXPECT_TRUE(conversion.convert(path, folder / "letter.docx"));
    EXPECT_EQ(bodyOf("letter.docx"), "the letter\n");
    ASSERT_EQ(staying.copies.size(), 1U);
    EXPECT_THAT(
        errors.reports,
        ElementsAre("frmMain.ConvertTemplate: The file '" + staying.copies[0] + "' could not be deleted.",
                    "frmMain.ConvertTemplate: The file '" + path + "' could not be deleted."));
    files.remove(staying.copies[0]);
}

}  // namespace
}  // namespace mergeloom
