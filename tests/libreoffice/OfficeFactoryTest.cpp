#include "base/AutomationError.h"
#include "doubles/MemoryFileStore.h"
#include "doubles/WordFiles.h"
#include "libreoffice/OfficeProcesses.h"
#include "office/factory/OfficeFactory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace

}  // namespace mergeloom
