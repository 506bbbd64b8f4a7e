#include "LabellingConverter.h"
#include "app/ConvertingExcel.h"
#include "app/ConvertingWord.h"
#include "base/DiskFileStore.h"
#include "doubles/ExcelFiles.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/WordFiles.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "office/model/word/Selection.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace mergeloom {
namespace {

using word::WdSaveFormat;
using word::WdSaveOptions;

constexpr WdSaveFormat kOpenDocument{23};
constexpr WdSaveFormat kXps{18};

class ConvertingOffice : public testing::Test {
  protected:
    void SetUp() override {
        const std::string text = wordFile("<w:p><w:r><w:t>Dear</w:t></w:r></w:p>");
        folder.put("letter.odt", LabellingConverter::labelled(23, text));
        folder.put("letter.docx", text);
        folder.put("book.ods", LabellingConverter::labelled(60, workbookFile({{"Data"}})));
    }
    word::ApplicationPtr word() {
        return std::make_shared<ConvertingWord>(makeWordApplication(OfficeKind::Embedded, disk), converter);
    }
    excel::ApplicationPtr excel() {
        return std::make_shared<ConvertingExcel>(makeExcelApplication(OfficeKind::Embedded, disk), converter);
    }
    /// Returns the number of the raised error; 0 for none.
    template <typename Body>
    static ErrorNumber errorOf(const Body& body) {
        try {
            body();
            return 0;
        } catch (const AutomationError& error) {
            return error.number();
        }
    }

    TemporaryFolder folder;
    DiskFileStore disk;
    FileStore* store = &disk;
    LabellingConverter converter{store};
};

TEST_F(ConvertingOffice, KnowsDocumentsByTheFilesOfTheUser) {
    const word::ApplicationPtr office = word();
    const word::DocumentPtr opened = office->Documents()->Open(folder / "letter.odt");
    EXPECT_EQ(opened->Name(), "letter.odt");
    EXPECT_EQ(opened->FullName(), folder / "letter.odt");
    const word::DocumentPtr added = office->Documents()->Add(folder / "letter.odt");
    EXPECT_EQ(added->FullName(), "Document1");
    EXPECT_EQ(office->Documents()->Count(), 2);
    EXPECT_EQ(office->Documents()->Item(1), opened);
    EXPECT_EQ(added->Application(), office);

    added->SaveAs(folder / "new.odt", kOpenDocument);
    EXPECT_EQ(added->FullName(), folder / "new.odt");
    EXPECT_TRUE(added->Saved());
    office->Selection()->TypeText("Hello ");
    EXPECT_FALSE(added->Saved());
    office->Quit(WdSaveOptions::wdSaveChanges);
    EXPECT_EQ(office->Documents()->Count(), 0);
    EXPECT_EQ(folder.bytesOf("new.odt").substr(0, 12), "format 23\nPK");
    EXPECT_EQ(shownBody(folder.bytesOf("new.odt").substr(10)), "Hello Dear\n");
    EXPECT_EQ(shownBody(folder.bytesOf("letter.odt").substr(10)), "Dear\n");
}

TEST_F(ConvertingOffice, ASaveThatFailsChangesNothingOfTheDocument) {
    const word::ApplicationPtr office = word();
    const word::DocumentPtr document = office->Documents()->Open(folder / "letter.docx");
    office->Selection()->TypeText("Hello ");
    converter.failsToWrite = true;
    EXPECT_EQ(errorOf([&] { document->SaveAs(folder / "new.odt", kOpenDocument); }), kFileCouldNotBeSaved);
    EXPECT_FALSE(document->Saved());
    EXPECT_EQ(document->FullName(), folder / "letter.docx");
    EXPECT_EQ(folder.entryCount(), 3);
    // The other office has the temporary file now, but the document is still saved to its own file.
    document->Save();
    EXPECT_EQ(shownBody(folder.bytesOf("letter.docx")), "Hello Dear\n");

    const word::DocumentPtr added = office->Documents()->Add("");
    EXPECT_EQ(errorOf([&] { added->SaveAs(folder / "new.odt", kOpenDocument); }), kFileCouldNotBeSaved);
    EXPECT_EQ(errorOf([&] { added->Save(); }), kFileCouldNotBeSaved);
    EXPECT_EQ(folder.entryCount(), 3);
}

TEST_F(ConvertingOffice, TellsWhatBothOfThemWrite) {
    EXPECT_TRUE(word()->canSaveAs(WdSaveFormat::wdFormatXMLTemplate));
    EXPECT_TRUE(word()->canSaveAs(kOpenDocument));
    EXPECT_FALSE(word()->canSaveAs(kXps));
    EXPECT_FALSE(excel()->canSaveAs(excel::XlFileFormat::xlExcel12));
    converter.isInstalled = false;
    EXPECT_TRUE(word()->canSaveAs(WdSaveFormat::wdFormatXMLTemplate));
    EXPECT_FALSE(word()->canSaveAs(kOpenDocument));
    EXPECT_TRUE(excel()->canSaveAs(excel::XlFileFormat::xlOpenXMLWorkbook));
    EXPECT_FALSE(excel()->canSaveAs(excel::XlFileFormat::xlExcel8));
    EXPECT_EQ(errorOf([&] { word()->Documents()->Open(folder / "letter.odt"); }), kNotAvailable);
}

TEST_F(ConvertingOffice, WorkbooksAreConvertedLikeDocuments) {
    const excel::ApplicationPtr office = excel();
    const excel::WorkbookPtr book = office->Workbooks()->Open(folder / "book.ods");
    EXPECT_EQ(book->Name(), "book.ods");
    book->Names()->Add("Place", "=Data!$B$2");
    EXPECT_FALSE(book->Saved());
    book->Close(excel::SaveChanges::Yes);
    EXPECT_EQ(office->Workbooks()->Count(), 0);
    const excel::WorkbookPtr again = office->Workbooks()->Add(folder / "book.ods");
    EXPECT_EQ(again->FullName(), "Book1");
    EXPECT_EQ(again->Names()->Item(1)->Name(), "Place");
    again->SaveAs(folder / "new.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
    EXPECT_EQ(folder.bytesOf("new.xlsx").substr(0, 2), "PK");
    EXPECT_EQ(folder.bytesOf("book.ods").substr(0, 12), "format 60\nPK");
    office->Quit();
    EXPECT_EQ(office->Workbooks()->Count(), 0);
    EXPECT_EQ(folder.entryCount(), 4);
}

}  // namespace
}  // namespace mergeloom
