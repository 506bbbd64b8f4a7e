#include "LabellingConverter.h"
#include "app/ConvertFieldsCommand.h"
#include "app/ConvertingWord.h"
#include "base/ConsoleOutput.h"
#include "base/DiskFileStore.h"
#include "doubles/FaultyFileSystemCalls.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/WordFiles.h"
#include "office/factory/OfficeFactory.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <sstream>

namespace mergeloom {
namespace {

std::string mergeField(const std::string& name) {
    return "<w:p><w:fldSimple w:instr=\"MERGEFIELD " + name + "\"/></w:p>";
}

/// Converts in place. Returns the description of an error, otherwise the report.
std::string convert(const std::string& file, FileStore& files, const std::string& output = "") {
    std::ostringstream errors, report;
    ConsoleErrorHandler errorHandler{errors};
    FileStore* store = &files;
    LabellingConverter converter{store};
    const OfficeFormats formats{OfficeKind::Embedded, files, converter};
    const auto startWord = [&] {
        return std::make_shared<ConvertingWord>(makeWordApplication(OfficeKind::Embedded, files), converter);
    };
    try {
        ConvertFieldsCommand(startWord, formats, files, errorHandler).run(file, output, report);
    } catch (const AutomationError& error) {
        return error.description();
    }
    return report.str() + errors.str();
}

TEST(ConvertFieldsCommand, LeavesEveryFileWholeWhenTheDiskFails) {
    const std::string original = wordFile(mergeField("Town"));
    bool failed = true;
    for (int call = 1; failed; ++call) {
        const TemporaryFolder folder;
        folder.put("letter.docx", original);
        FaultyFileSystemCalls calls(call, EIO);
        DiskFileStore files(calls);
        const std::string told = convert(folder / "letter.docx", files);
        failed = calls.hasFailed();

        const std::string now = folder.bytesOf("letter.docx");
        const std::string backup = folder.bytesOf("letter.docx.bak");
        const bool isConverted = now != original;
        EXPECT_EQ(shownBody(now), isConverted ? "[Town:Town]\n" : "\n") << call;
        EXPECT_TRUE(backup == original || (backup.empty() && !isConverted)) << call;
        EXPECT_LE(folder.entryCount(), 2 + (failed ? 1 : 0)) << "an unlink that fails may leave a file";
        EXPECT_TRUE(isConverted || told.find("letter.docx") != std::string::npos) << told;
        EXPECT_TRUE(isConverted || failed) << told;
    }
}

TEST(ConvertFieldsCommand, TellsWhatBecameOfTheFields) {
    const TemporaryFolder folder;
    DiskFileStore files;
    folder.put("letter.docx", wordFile(mergeField("Town") + mergeField("town") + mergeField("") +
                                       mergeField("&quot;&quot;") + mergeField("TOWN")));
    const std::string kept = "The file as it was is kept in '" + folder / "letter.docx.bak" + "'.\n";
    EXPECT_EQ(convert(folder / "letter.docx", files),
              "3 fields became places, 1 was removed.\n"
              "Removed: MERGEFIELD\n"
              "1 field stayed.\n"
              "Stayed: MERGEFIELD \"\"\n"
              "The bookmark 'TOWN' stands around the last place of that name; the others are plain text.\n" +
                  kept);
    // A second conversion keeps no further copy of the original.
    const std::string original = folder.bytesOf("letter.docx.bak");
    folder.put("letter.docx", original);
    EXPECT_THAT(convert(folder / "letter.docx", files), testing::EndsWith(kept));
}

TEST(ConvertFieldsCommand, ConvertsFilesOfOtherFormatsAndKeepsThem) {
    const TemporaryFolder folder;
    DiskFileStore files;
    const std::string original = LabellingConverter::labelled(23, wordFile(mergeField("Town")));
    folder.put("letter.odt", original);
    folder.put("letter.ott", original);
    EXPECT_THAT(convert(folder / "letter.odt", files, folder / "new.rtf"), testing::StartsWith("1 field"));
    EXPECT_EQ(shownBody(folder.bytesOf("new.rtf").substr(9)), "[Town:Town]\n");
    EXPECT_EQ(folder.bytesOf("letter.odt"), original);
    EXPECT_THAT(convert(folder / "letter.odt", files), testing::StartsWith("1 field"));
    EXPECT_EQ(shownBody(folder.bytesOf("letter.odt").substr(10)), "[Town:Town]\n");
    EXPECT_EQ(folder.bytesOf("letter.odt.bak"), original);

    for (const std::string target : {"letter.ott", "new.xps", "new.foo"}) {
        const std::string told = convert(folder / "letter.ott", files, folder / target);
        EXPECT_THAT(told, testing::StartsWith("The file '" + folder / target +
                                              "' cannot be saved: its format is not available. "));
        EXPECT_THAT(told, testing::HasSubstr("Choose docx, docm, dotx or dotm"));
    }
    EXPECT_EQ(folder.entryCount(), 4);
}

TEST(ConvertFieldsCommand, TellsWhatTheDocumentProtects) {
    const TemporaryFolder folder;
    const std::string protection = "<w:documentProtection w:edit='readOnly' w:enforcement='1'/>";
    const std::string original = fileWithSettings(mergeField("Town") + mergeField("Street"), protection);
    folder.put("letter.docx", original);
    DiskFileStore files;
    EXPECT_EQ(convert(folder / "letter.docx", files),
              "0 fields became places, 0 were removed.\n"
              "2 fields stayed.\n"
              "Stayed: MERGEFIELD Town\n"
              "Stayed: MERGEFIELD Street\n"
              "The document '" +
                  (folder / "letter.docx") +
                  "' is protected: it may only be read. Take the document's protection off first.\n");
    EXPECT_EQ(folder.bytesOf("letter.docx"), original);
}

}  // namespace
}  // namespace mergeloom
