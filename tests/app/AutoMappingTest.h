#pragma once

#include "LabellingConverter.h"
#include "app/CAutoMapping.h"
#include "app/ConvertingExcel.h"
#include "app/ConvertingWord.h"
#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/ConsoleOutput.h"
#include "base/DiskFileStore.h"
#include "doubles/FaultyFileStore.h"
#include "doubles/RecordingMessages.h"
#include "doubles/TemporaryFolder.h"
#include "office/factory/OfficeFactory.h"
#include "xml/RecordingErrorHandler.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace mergeloom {

/// Mappings in a folder of structure documents.
class AutoMappingTest : public testing::Test {
  protected:
    void SetUp() override {
        folder.put(
            "letter.xml",
            "<db><Form Name='Letter' CurrentView='1'><Control Name='Customer'/></Form>"
            "<Options><FileLocations DocumentsFolder='/docs' TemplatesFolder='/templates'/></Options></db>");
        folder.put("sheet.xml", "<db><Table Name='Sheet' CurrentView='2'><Control Name='A'/></Table></db>");
        folder.put("design.xml", "<db><Form Name='F' CurrentView='0'><Control Name='A'/></Form></db>");
        folder.put("broken.xml", "<db><Form></db>");
        folder.put("empty.xml", "<db/>");
        folder.put("exists.dotx", "precious");
        converter.isInstalled = false;
        putDocuments();
        entriesBefore = folder.entryCount();
    }
    void TearDown() override { gExcelMode = 0; }

    /// Puts the documents that the mappings use into the folder.
    virtual void putDocuments() = 0;

    /// Runs a mapping; "%" in an argument is replaced by the test's folder. Returns the mapping error that it
    /// raises, or 0.
    ErrorNumber run(std::vector<std::string> arguments, bool allowExisting = false) {
        for (std::string& argument : arguments) {
            if (argument.starts_with("%")) argument.replace(0, 1, folder.path());
        }
        std::string commandLine;
        GetCommandLineArguments(CommandLineText::fromArguments(arguments), commandLine);
        CAutoMapping mapping{[this] { return startWord(); },
                             [this] { return startExcel(); },
                             formats,
                             errors,
                             messages,
                             progress};
        mapping.SetAllowExistingTemplate(allowExisting);
        mapping.SetOptions(options);
        made = false;
        startedWords = 0;
        startedExcels = 0;
        try {
            mapping.ReadArguments();
            made = options.mapsAll() ? mapping.ExecuteAll(isStopped) : mapping.Execute();
        } catch (const AutomationError& error) {
            return error.number();
        }
        templatesFolder = mapping.TemplatesFolder();
        documentsFolder = mapping.DocumentsFolder();
        return 0;
    }

    word::ApplicationPtr startWord() {
        ++startedWords;
        lastWord = makeWordApplication(OfficeKind::Embedded, *store);
        return wrap(std::make_shared<ConvertingWord>(lastWord, converter));
    }

    excel::ApplicationPtr startExcel() {
        ++startedExcels;
        whenExcelStarts();
        lastExcel = makeExcelApplication(OfficeKind::Embedded, *store);
        return std::make_shared<ConvertingExcel>(lastExcel, converter);
    }

    /// Maps into a document of the folder, and each time another call of the run's reading and writing fails.
    /// No new file may remain, and no former file may change. Returns the number of calls.
    int failAtEachCall(
        const std::string& document, const std::function<void()>& whenFailed = [] {}) {
        const std::string given = folder.bytesOf(document);
        int failingCall = 1;
        for (bool failed = true; failed && failingCall < 1000; ++failingCall) {
            FaultyFileStore faulty{disk, failingCall};
            store = &faulty;
            errors.reports.clear();
            EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-usedocument", "%/" + document}), 0U);
            store = &disk;
            failed = faulty.hasFailed();
            EXPECT_EQ(made, !failed) << failingCall;
            EXPECT_EQ(errors.reports.size(), failed ? 1U : 0U) << failingCall;
            EXPECT_EQ(folder.entryCount(), entriesBefore);
            EXPECT_EQ(folder.bytesOf(document) == given, failed) << failingCall;
            if (failed) whenFailed();
        }
        EXPECT_TRUE(made);
        return failingCall;
    }

    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(folder / name);
    }

    TemporaryFolder folder;
    int entriesBefore = 0;
    DiskFileStore disk;
    FileStore* store = &disk;
    LabellingConverter converter{store};
    OfficeFormats formats{OfficeKind::Embedded, disk, converter};
    std::function<word::ApplicationPtr(word::ApplicationPtr)> wrap = [](auto office) { return office; };
    std::function<void()> whenExcelStarts = [] {};
    MappingOptions options;
    std::function<bool()> isStopped = [] { return false; };
    RecordingErrorHandler errors;
    RecordingMessages messages;
    NoProgress progress;
    word::ApplicationPtr lastWord;
    excel::ApplicationPtr lastExcel;
    bool made = false;
    int startedWords = 0;
    int startedExcels = 0;
    std::string templatesFolder, documentsFolder;
};

}  // namespace mergeloom
