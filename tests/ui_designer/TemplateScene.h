#pragma once

#include "app/mCommandLine.h"
#include "base/DiskFileStore.h"
#include "doubles/FakeDocumentHost.h"
#include "doubles/RecordingErrors.h"
#include "doubles/ScriptedFileDialog.h"
#include "doubles/ScriptedMessages.h"
#include "doubles/ScriptedPasswords.h"
#include "doubles/TemporaryFolder.h"
#include "ui/designer/ExcelTemplates.h"
#include "ui/designer/TemplateFiles.h"
#include "ui/designer/TemplateLifecycle.h"
#include "ui/designer/WordTemplates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom {

/// A designer without windows: the rules for templates over an invisible host and a folder on the disk.
class TemplateScene : public testing::Test {
  protected:
    struct FakeAccess final : HostAccess {
        explicit FakeAccess(FileStore& files) : fake(files) {}
        DocumentHost& host() override { return fake; }
        FakeDocumentHost fake;
    };
    struct Caption final : LifecycleView {
        void showCaption(const std::string& caption) override { text = caption; }
        void showChanges(bool areThere) override { hasChanges = areThere; }
        void noteFile(const std::string& path) override { used.push_back(path); }
        void showStatus(const std::string& sentence) override { status = sentence; }
        std::string text;
        std::string status;
        bool hasChanges = false;
        std::vector<std::string> used;
    };

    TemplateScene() { setCommandLine({}); }
    ~TemplateScene() override { setCommandLine({}); }

    static void setCommandLine(const std::vector<std::string>& arguments) {
        std::string text;
        GetCommandLineArguments(CommandLineText::fromArguments(arguments), text);
    }

    void useExcel() {
        office = std::make_unique<ExcelTemplates>(access);
        makeLifecycle();
    }
    /// The user chooses these files in the next dialogs, then Cancel.
    void chooseFiles(const std::vector<std::string>& paths) {
        std::vector<ScriptedFileDialog::Answer> answers;
        for (const std::string& path : paths) {
            answers.emplace_back([path](OpenFileName& record, OpenFileTexts& texts) {
                texts.lpstrFile = path;
                record.nMaxFile = static_cast<std::uint32_t>(path.size() + 1);
                return true;
            });
        }
        dialog = std::make_unique<ScriptedFileDialog>(std::move(answers));
        makeLifecycle();
    }
    void makeLifecycle() {
        lifecycle = std::make_unique<TemplateLifecycle>(TemplateLifecycle::Ports{
            access, *office, messages, errors, *dialog, passwords, files, caption, keptCopies});
    }
    void change() { host().hosted()->SetSaved(false); }
    FakeDocumentHost& host() { return access.fake; }
    /// Returns the number of calls of a host's function.
    long callCount(const std::string& name) {
        return std::count(host().calls.begin(), host().calls.end(), name);
    }

    /// Creates a file in the folder with only the contents that its kind needs.
    std::string makeTemplate(const std::string& name) {
        std::string path = folder / name;
        if (hasExcelExtension(path)) {
            const excel::ApplicationPtr excel = makeExcelApplication(OfficeKind::Embedded, disk);
            excel->Workbooks()->Add("")->SaveAs(path, excelFormatOf(path));
        } else {
            startWord()->Documents()->Add("")->SaveAs(path, wordFormatOf(path));
        }
        return path;
    }
    word::ApplicationPtr startWord() { return makeWordApplication(OfficeKind::Embedded, disk); }

    TemporaryFolder folder;
    DiskFileStore disk;
    FakeAccess access{disk};
    ScriptedMessages messages;
    RecordingErrors errors;
    std::unique_ptr<ScriptedFileDialog> dialog = std::make_unique<ScriptedFileDialog>();
    ScriptedPasswords passwords;
    DiskTemplateFiles files{disk};
    Caption caption;
    KeptCopies keptCopies{disk, folder / "kept"};
    std::unique_ptr<TemplateOffice> office =
        std::make_unique<WordTemplates>(access, messages, errors, files, [this] { return startWord(); });
    std::unique_ptr<TemplateLifecycle> lifecycle =
        std::make_unique<TemplateLifecycle>(TemplateLifecycle::Ports{
            access, *office, messages, errors, *dialog, passwords, files, caption, keptCopies});
};

}  // namespace mergeloom
