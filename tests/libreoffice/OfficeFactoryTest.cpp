#include "base/AutomationError.h"
#include "doubles/MemoryFileStore.h"
#include "doubles/WordFiles.h"
#include "libreoffice/OfficeProcesses.h"
#include "office/factory/OfficeFactory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace mergeloom {

namespace {

using ::testing::HasSubstr;

/// Objects and errors pass between the program and the module that it loads.
TEST(OfficeFactory, convertsThroughTheModule) {
    MemoryFileStore files(
        {{"/in.docx", wordFile("<w:p><w:r><w:t>text</w:t></w:r></w:p>")}, {"/bad.docx", "bad"}});
    const std::unique_ptr<FileConverter> converter = makeFileConverter(files);
    EXPECT_TRUE(converter->canWrite(word::WdSaveFormat{23}));
    EXPECT_FALSE(converter->canWrite(word::WdSaveFormat{18}));
    EXPECT_TRUE(converter->canWrite(excel::XlFileFormat::xlExcel8));
    EXPECT_FALSE(converter->canWrite(excel::XlFileFormat::xlExcel12));
    try {
        converter->convert("/bad.docx", "/out.rtf", word::WdSaveFormat{6});
        ADD_FAILURE() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kFileCouldNotBeRead);
        EXPECT_THAT(error.description(), HasSubstr("'/bad.docx'"));
    }
    converter->convert("/in.docx", "/out.rtf", word::WdSaveFormat{6});
    EXPECT_THAT(files.read("/out.rtf"), HasSubstr("text"));
}

/// Returns the number of running offices by their worker processes.
std::ptrdiff_t officesIn(const OwnTemporaryFolder& temporary) {
    return std::ranges::count_if(temporary.processes(), [](pid_t process) {
        return std::filesystem::path(commandLine(process).c_str()).filename() == "soffice.bin";
    });
}

TEST(OfficeFactory, allPartsShareOneOfficeAndTheNextOneWhenItDied) {
    const OwnTemporaryFolder temporary;
    MemoryFileStore files;
    files.files["/in.csv"] = "a,b\n";
    word::ApplicationPtr word = makeWordApplication(OfficeKind::LibreOffice, files);
    excel::ApplicationPtr excel = makeExcelApplication(OfficeKind::LibreOffice, files);
    const std::unique_ptr<FileConverter> converter = makeFileConverter(files);
    converter->convert("/in.csv", "/out.ods", excel::XlFileFormat{60});
    EXPECT_EQ(officesIn(temporary), 1);
    EXPECT_EQ(word->Version(), "16.0");
    EXPECT_EQ(excel->Version(), "16.0");

    temporary.killWorkers();
    // Only the cleanup process continues.
    EXPECT_TRUE(becomesTrue([&] { return temporary.processes().size() <= 1; }));
    word.reset();
    excel = makeExcelApplication(OfficeKind::LibreOffice, files);
    converter->convert("/in.csv", "/again.ods", excel::XlFileFormat{60});
    EXPECT_TRUE(files.fileExists("/again.ods"));
    EXPECT_EQ(officesIn(temporary), 1);
}

}  // namespace

}  // namespace mergeloom
