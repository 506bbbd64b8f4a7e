#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/WordFiles.h"
#include "office/graft/PackageGraft.h"
#include "office/libreoffice/readback/GraftingOffice.h"
#include "office/opc/ZipReader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <string>

namespace mergeloom::libreoffice {

namespace {

std::string mainPartOf(const std::string& bytes) {
    return opc::Package::read(bytes, "export").readPart(kMainPart);
}

class GraftingOfficeTest : public ::testing::Test {
  protected:
    [[nodiscard]] HiddenExport file(const std::string& bytes) {
        const std::string path = folder / "letter.docx";
        return {path,
                std::make_shared<const std::string>(bytes),
                path,
                word::WdSaveFormat::wdFormatXMLDocument,
                {}};
    }
    [[nodiscard]] HiddenExport letter(const std::string& text) {
        return file(wordFile("<w:p><w:r><w:t>" + text + "</w:t></w:r></w:p>"));
    }

    TemporaryFolder folder;
    DiskFileStore disk;
    const std::unique_ptr<model::PackageGraft> graft = graft::makePackageGraft();
    std::unique_ptr<GraftingOffice> office = std::make_unique<GraftingOffice>(*graft, disk);
};

TEST_F(GraftingOfficeTest, MakesTheSameExportBesideTheCaller) {
    const std::shared_future<std::string> begun = office->beginExport(letter("Dear customer"));
    ASSERT_TRUE(begun.valid());
    // The export is not finished yet, since its office has to start first.
    EXPECT_FALSE(office->beginExport(letter("another")).valid());
    const std::string own = mainPartOf(office->exportOf(letter("Dear customer")));
    EXPECT_EQ(begun.wait_for(std::chrono::seconds(0)), std::future_status::ready);
    EXPECT_EQ(mainPartOf(begun.get()), own);
    EXPECT_NE(own.find("Dear customer"), std::string::npos);
    EXPECT_EQ(folder.entryCount(), 0);

    const std::shared_future<std::string> failing = office->beginExport(file("damaged"));
    ASSERT_TRUE(failing.valid());
    EXPECT_THROW((void)failing.get(), AutomationError);
    EXPECT_TRUE(office->beginExport(letter("after it")).valid());
}

/// The export of this document would take a long time.
TEST_F(GraftingOfficeTest, EndsTheExportThatWasBegun) {
    std::string text = "Dear";
    for (int word = 0; word < 2'000'000; ++word)
        text += " customer";
    (void)office->exportOf(letter("its office is there"));
    const std::shared_future<std::string> begun = office->beginExport(letter(text));
    office.reset();
    EXPECT_THROW((void)begun.get(), AutomationError);
    EXPECT_EQ(folder.entryCount(), 0);
}

}  // namespace

}  // namespace mergeloom::libreoffice
