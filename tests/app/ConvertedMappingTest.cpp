#include "AutoMappingTest.h"
#include "app/MergeloomErrorCodes.h"
#include "doubles/ExcelFiles.h"
#include "doubles/WordFiles.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::HasSubstr;

constexpr const char* kPlaced = "Customer: [Customer:Customer]\nDear \n";

/// Mappings from and to formats that the embedded office leaves to a converter.
class ConvertedMapping : public AutoMappingTest {
  protected:
    void putDocuments() override {
        converter.isInstalled = true;
        const std::string document = wordFile("<w:p><w:r><w:t>Dear </w:t></w:r></w:p>");
        folder.put("given.odt", LabellingConverter::labelled(23, document));
        folder.put("given.ott", LabellingConverter::labelled(0, document));
        folder.put("given.ods", LabellingConverter::labelled(60, workbookFile({{"Given"}})));
        folder.put("given.xlsb", LabellingConverter::labelled(50, workbookFile({{"Given"}})));
        folder.put("bad.odt", "bad");
    }

    /// Returns the text of a file in a format of Word.
    [[nodiscard]] std::string shownIn(const std::string& name, int format) const {
        const std::string bytes = folder.bytesOf(name);
        const std::string label = LabellingConverter::labelled(format, "");
        return bytes.starts_with(label) ? shownBody(bytes.substr(label.size())) : "no format " + bytes;
    }
    /// Returns the part with the names of a file in a format of Excel.
    [[nodiscard]] std::string namesIn(const std::string& name, int format) const {
        const std::string bytes = folder.bytesOf(name);
        const std::string label = LabellingConverter::labelled(format, "");
        if (!bytes.starts_with(label)) return "no format " + bytes;
        return opc::Package::read(bytes.substr(label.size()), name).readPart(kWorkbookPart);
    }
};

TEST_F(ConvertedMapping, TheExtensionOfTheTemplateDecidesItsFormat) {
    const std::vector<std::pair<std::string, int>> cases{
        {"new.doc", 0},  {"new.dot", 1},  {"new.txt", 2},  {"new.rtf", 6},  {"new.htm", 8},
        {"new.PDF", 17}, {"new.xml", 19}, {"new.odt", 23}, {"new.html", 8}, {"new.mhtml", 9},
    };
    for (const auto& [name, format] : cases) {
        run({"-xmlfile", "%/letter.xml", "-template", "%/" + name});
        EXPECT_TRUE(made) << name << messages.texts();
        EXPECT_EQ(shownIn(name, format), "Customer: [Customer:Customer]\n\n") << name;
    }
    EXPECT_EQ(folder.entryCount(), entriesBefore + static_cast<int>(cases.size())) << "nothing passing stays";

    gExcelMode = 1;
    for (const auto& [name, format] : {std::pair{"new.xls", 56}, {"new.ods", 60}, {"new.csv", 6}}) {
        run({"-xmlfile", "%/letter.xml", "-template", std::string("%/") + name});
        EXPECT_TRUE(made) << name << messages.texts();
        EXPECT_THAT(namesIn(name, format), HasSubstr("ammCustomer")) << name;
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ConvertedMapping, BuildsOnFilesOfOtherFormats) {
    const std::string given = folder.bytesOf("given.odt");
    run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.odt", "-template", "%/new.docx"});
    EXPECT_EQ(shownBody(folder.bytesOf("new.docx")), kPlaced);
    run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.ott", "-template", "%/new.rtf"});
    EXPECT_EQ(shownIn("new.rtf", 6), kPlaced);
    run({"-hidden", "-xmlfile", "%/sheet.xml", "-label", "%/given.odt", "-template", "%/labels.docx"});
    EXPECT_EQ(shownBody(folder.bytesOf("labels.docx")), "[A:A] Dear \n");
    EXPECT_EQ(folder.bytesOf("given.odt"), given);
    EXPECT_EQ(folder.entryCount(), entriesBefore + 3);
}

TEST_F(ConvertedMapping, WhatIsChangedInPlaceKeepsItsFormat) {
    run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.odt"});
    EXPECT_EQ(shownIn("given.odt", 23), kPlaced);
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/given.odt"}), kTemplateAlreadyExists);
    run({"-xmlfile", "%/letter.xml", "-template", "%/given.odt"}, true);
    EXPECT_THAT(shownIn("given.odt", 23), HasSubstr("[Customer_ref1:Customer]"));

    gExcelMode = 1;
    run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.ods"});
    EXPECT_THAT(namesIn("given.ods", 60), HasSubstr("Given!$B$1"));
    EXPECT_EQ(folder.entryCount(), entriesBefore);
    EXPECT_EQ(messages.texts(), "");
}

TEST_F(ConvertedMapping, RefusesBeforeAnythingIsStarted) {
    enum class Converter { Installed, Missing };
    struct Case {
        Converter converter;
        int excelMode;
        std::vector<std::string> arguments;
        std::string sentence;  ///< "%" is replaced by the test's folder
    };
    const std::string choice = " Choose docx, docm, dotx or dotm otherwise.";
    const std::string excelChoice = " Choose xlsx, xlsm, xltx or xltm otherwise.";
    const std::vector<Case> cases{
        {Converter::Installed,
         0,
         {"-template", "%/new.xps"},
         "The template '%/new.xps' cannot be written: saving as \"XPS Document\" is not available. "
         "Nobody writes that." +
             choice},
        {Converter::Missing,
         0,
         {"-template", "%/new.pdf"},
         "The template '%/new.pdf' cannot be written: saving as \"PDF\" is not available. Install the "
         "converter." +
             choice},
        {Converter::Missing,
         0,
         {"-template", "%/new.docx", "-usedocument", "%/given.odt"},
         "The file '%/given.odt' cannot be opened without being converted. Install the converter. Choose "
         "docx "
         "otherwise."},
        {Converter::Missing,
         0,
         {"-template", "%/new.docx", "-label", "%/given.odt"},
         "The file '%/given.odt' cannot be opened without being converted. Install the converter. Choose "
         "docx "
         "otherwise."},
        {Converter::Installed,
         0,
         {"-usedocument", "%/given.ott"},
         "The document '%/given.ott' cannot be changed in place: Word does not save in its format. Let "
         "-template name the file to write."},
        {Converter::Missing,
         0,
         {"-usedocument", "%/given.odt"},
         "The document '%/given.odt' cannot be changed in place: saving as \"OpenDocument Text\" is not "
         "available. Install the converter." +
             choice},
        {Converter::Installed,
         1,
         {"-template", "%/new.xlsb"},
         "The template '%/new.xlsb' cannot be written: saving as \"Excel Binary Workbook\" is not available. "
         "Nobody writes that." +
             excelChoice},
        {Converter::Installed,
         1,
         {"-usedocument", "%/given.xlsb"},
         "The document '%/given.xlsb' cannot be changed in place: saving as \"Excel Binary Workbook\" is not "
         "available. Nobody writes that." +
             excelChoice},
        {Converter::Missing,
         1,
         {"-template", "%/new.xlsx", "-usedocument", "%/given.ods"},
         "The file '%/given.ods' cannot be opened without being converted. Install the converter. Choose "
         "xlsx "
         "otherwise."},
    };
    for (const Case& c : cases) {
        converter.isInstalled = c.converter == Converter::Installed;
        gExcelMode = c.excelMode;
        messages.messages.clear();
        std::vector<std::string> arguments{"-xmlfile", "%/sheet.xml"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        EXPECT_EQ(run(arguments), 0U);
        EXPECT_FALSE(made);
        std::string sentence = c.sentence + "\n";
        sentence.replace(sentence.find('%'), 1, folder.path());
        EXPECT_EQ(messages.texts(), sentence);
        EXPECT_EQ(startedWords + startedExcels, 0);
    }
    EXPECT_EQ(folder.entryCount(), entriesBefore);
}

TEST_F(ConvertedMapping, ErrorsNameTheUsersFile) {
    EXPECT_EQ(run({"-xmlfile", "%/sheet.xml", "-template", "%/new.docx", "-hidden", "-label", "%/bad.odt"}),
              kLabelDocumentIncorrect);
    EXPECT_EQ(messages.texts(), "The file '" + folder / "bad.odt" + "' could not be read: damaged.\n");
    folder.put("inside.odt", LabellingConverter::labelled(23, "PK, but no package"));
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-usedocument", "%/inside.odt"}), 0U);
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_THAT(errors.reports[0].description, HasSubstr(folder / "inside.odt" + "\""));
    EXPECT_EQ(folder.entryCount(), entriesBefore + 1);
}

TEST_F(ConvertedMapping, AFailingDiskLosesNothing) {
    const auto namesTheUsersFile = [&] {
        EXPECT_THAT(errors.reports[0].description,
                    testing::AllOf(HasSubstr("given.odt"), testing::Not(HasSubstr(".mergeloom"))));
    };
    EXPECT_GT(failAtEachCall("given.odt", namesTheUsersFile), 6);
}

}  // namespace
}  // namespace mergeloom
