#include "app/ConsoleErrorHandler.h"
#include "app/ConvertFieldsCommand.h"
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

/// Converts in place; an error's description where one is raised, else what was reported.
std::string convert(const std::string& file, FileStore& files) {
    std::ostringstream errors, report;
    ConsoleErrorHandler errorHandler{errors};
    const word::ApplicationPtr office = makeWordApplication(OfficeKind::Embedded, files);
    try {
        ConvertFieldsCommand(*office, files, errorHandler).run(file, "", report);
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
                                       mergeField(" Name") + mergeField("TOWN")));
    const std::string kept = "The file as it was is kept in '" + folder / "letter.docx.bak" + "'.\n";
    EXPECT_EQ(convert(folder / "letter.docx", files),
              "3 fields became places, 1 was removed.\n"
              "1 field has no usable name and stayed.\n"
              "The bookmark 'TOWN' stands around the last place of that name; the others are plain text.\n" +
                  kept);
    // What is kept already is not kept twice.
    const std::string original = folder.bytesOf("letter.docx.bak");
    folder.put("letter.docx", original);
    EXPECT_THAT(convert(folder / "letter.docx", files), testing::EndsWith(kept));
}

}  // namespace
}  // namespace mergeloom
