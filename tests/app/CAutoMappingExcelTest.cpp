#include "AutoMappingTest.h"
#include "app/MergeloomErrorCodes.h"
#include "doubles/ExcelFiles.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

namespace mergeloom {
namespace {

std::string sheetWith(const std::string& text) {
    return "<sheetData><row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>" + text +
           "</t></is></c></row></sheetData>";
}

class AutoMappingExcel : public AutoMappingTest {
  protected:
    void SetUp() override {
        AutoMappingTest::SetUp();
        gExcelMode = 1;
    }
    void putDocuments() override {
        folder.put("given.xlsx", workbookFile({{"Given", sheetWith("Dear")}}));
        folder.put("chart.xlsx", workbookFile({{"Chart", "", "", "chartsheet"}, {"Cells"}}));
    }

    /// The block of three rows and columns in a file's first sheet, row by row, and then the names.
    std::string shown(const std::string& name) {
        const excel::ApplicationPtr office = makeExcelApplication(OfficeKind::Embedded, disk);
        const excel::WorkbookPtr workbook = office->Workbooks()->Open(folder / name);
        const excel::WorksheetPtr sheet = workbook->Worksheets()->Item(1);
        std::string text;
        for (int row = 1; row <= 3; ++row) {
            for (int column = 1; column <= 3; ++column)
                text += sheet->Cells(row, column)->Value() + (column < 3 ? "|" : "\n");
        }
        for (int number = 1; number <= workbook->Names()->Count(); ++number) {
            const excel::DefinedNamePtr defined = workbook->Names()->Item(number);
            text += defined->Name() + defined->RefersToLocal() + "\n";
        }
        return text;
    }
};

const std::string kLetterShown = "Customer|[Customer]|\n||\n||\nammCustomer=Sheet1!$B$1\n";
const std::string kGivenShown = "Customer|[Customer]|\n||\n||\nammCustomer=Given!$B$1\n";

TEST_F(AutoMappingExcel, MakesATemplate) {
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/NEW.XLTX"}), 0U);
    EXPECT_TRUE(made) << messages.texts();
    EXPECT_EQ(startedExcels, 1);
    EXPECT_EQ(startedWords, 0);
    EXPECT_EQ(shown("NEW.XLTX"), kLetterShown);
    EXPECT_EQ(messages.texts(), "");
    EXPECT_EQ(lastExcel->Workbooks()->Count(), 0) << "the workbook is closed";
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(AutoMappingExcel, TheExtensionDecidesTheFormat) {
    const struct {
        std::string name, type;
    } cases[] = {
        {"new.xlsx", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"},
        {"new.xltx", "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml"},
        {"new.xlsm", "application/vnd.ms-excel.sheet.macroEnabled.main+xml"},
        {"new.xltm", "application/vnd.ms-excel.template.macroEnabled.main+xml"},
    };
    for (const auto& [name, type] : cases) {
        run({"-xmlfile", "%/letter.xml", "-template", "%/" + name});
        ASSERT_TRUE(made) << name;
        const opc::Package package = opc::Package::read(folder.bytesOf(name), name);
        EXPECT_EQ(package.contentTypes().of(kWorkbookPart), type) << name;
    }
}

TEST_F(AutoMappingExcel, BuildsOnAWorkbook) {
    const std::string given = folder.bytesOf("given.xlsx");
    run({"-xmlfile", "%/letter.xml", "-template", "%/new.xlsx", "-usedocument", "%/given.xlsx"});
    EXPECT_TRUE(made) << messages.texts();
    EXPECT_EQ(folder.bytesOf("given.xlsx"), given);
    EXPECT_EQ(shown("new.xlsx"), kGivenShown);

    run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.xlsx"});
    EXPECT_TRUE(made) << messages.texts();
    EXPECT_EQ(shown("given.xlsx"), kGivenShown);
}

TEST_F(AutoMappingExcel, AnExistingTemplateIsBuiltOnWhereThatIsAllowed) {
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/given.xlsx"}), kTemplateAlreadyExists);
    run({"-xmlfile", "%/letter.xml", "-template", "%/given.xlsx"}, true);
    EXPECT_TRUE(made) << messages.texts();
    EXPECT_EQ(shown("given.xlsx"), kGivenShown);
}

TEST_F(AutoMappingExcel, TheSwitchesChooseWhatIsMade) {
    const std::string form = "A|[A]|\n||\n||\nammA=Sheet1!$B$1\n";
    const std::string table = "A||\n[A]||\n||\nammSheetT=Sheet1!$A$1:$A$2\nammA=Sheet1!$A$2\n";
    const struct {
        std::vector<std::string> switches;
        std::string expected;
    } cases[] = {
        {{"-hidden"}, table},
        {{"-hidden", "-listing"}, table},
        {{"-hidden", "FormView"}, form},
        {{"-hidden", "-directory"}, form},
        {{"-hidden", "-listing", "-label", "%/given.xlsx"}, table},
    };
    int number = 0;
    for (const auto& [switches, expected] : cases) {
        const std::string target = "made" + std::to_string(++number) + ".xltx";
        std::vector<std::string> arguments{"-xmlfile", "%/sheet.xml", "-template", "%/" + target};
        arguments.insert(arguments.end(), switches.begin(), switches.end());
        EXPECT_EQ(run(arguments), 0U);
        ASSERT_TRUE(made) << testing::PrintToString(switches) << messages.texts();
        EXPECT_EQ(shown(target), expected) << testing::PrintToString(switches);
    }
}

TEST_F(AutoMappingExcel, AFieldListChoosesTheColumns) {
    folder.put("abc.xml",
               "<db><Table Name='T' CurrentView='2'><Control Name='A'/><Control Name='B'/>"
               "<Control Name='C'/></Table></db>");
    const std::vector<std::string> listing{"-xmlfile", "%/abc.xml", "-template", "%/abc.xltx", "-listing"};
    const auto with = [&](const std::string& fields) {
        std::vector<std::string> arguments = listing;
        arguments.insert(arguments.end(), {"-fields", fields});
        return arguments;
    };
    EXPECT_EQ(run(with("none;X")), kFieldListIncorrect);
    EXPECT_EQ(run(with(" ; ,")), kFieldListNotDefined);
    EXPECT_FALSE(exists("abc.xltx"));
    EXPECT_EQ(run(with("C;a")), 0U);
    EXPECT_EQ(shown("abc.xltx"),
              "C|A|\n[C]|[A]|\n||\nammTT=Sheet1!$A$1:$B$2\nammC=Sheet1!$A$2\nammA=Sheet1!$B$2\n");
}

TEST_F(AutoMappingExcel, RefusesBeforeAnythingIsStarted) {
    const struct {
        std::vector<std::string> arguments;
        std::string sentence;
    } cases[] = {
        {{"-template", "%/new.dotx"},
         "The template '" + folder / "new.dotx" + "' has no file extension that Excel knows.\n"},
        {{"-template", "%/new"},
         "The template '" + folder / "new" + "' has no file extension that Excel knows.\n"},
        {{"-template", "%/new.xlsx", "-label", "%/given.xlsx"},
         "Excel makes no labels; leave out -label or make them with Word.\n"},
        {{"-usedocument", "%/given.xlsx", "-label", "%/given.xlsx"},
         "Excel makes no labels; leave out -label or make them with Word.\n"},
    };
    for (const auto& [arguments, sentence] : cases) {
        messages.messages.clear();
        std::vector<std::string> all{"-xmlfile", "%/letter.xml"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        EXPECT_EQ(run(all), 0U);
        EXPECT_FALSE(made);
        EXPECT_EQ(messages.texts(), sentence);
        EXPECT_EQ(startedExcels, 0);
    }
    EXPECT_EQ(folder.entryCount(), entriesBefore);
}

TEST_F(AutoMappingExcel, RefusesFormatsThatTheOfficeCannotWrite) {
    run({"-xmlfile", "%/letter.xml", "-template", "%/new.xls"});
    EXPECT_FALSE(made);
    EXPECT_EQ(messages.texts(), "The template '" + folder / "new.xls" +
                                    "' cannot be written: saving as \"Excel 97-2003 Workbook\" is not "
                                    "available. Install the converter. Choose xlsx, xlsm, xltx or xltm "
                                    "otherwise.\n");
    for (const char* name : {"new.xlsb", "new.xlt", "new.ods", "new.csv", "new.txt"}) {
        run({"-xmlfile", "%/letter.xml", "-template", std::string("%/") + name});
        EXPECT_FALSE(made) << name;
    }
    EXPECT_EQ(messages.messages.size(), 6U) << messages.texts();
    EXPECT_EQ(folder.entryCount(), entriesBefore);
}

TEST_F(AutoMappingExcel, AWorkbookThatShowsNoCellsIsRefused) {
    const std::string chart = folder.bytesOf("chart.xlsx");
    const std::string sentence = "Nothing can be put into the workbook '" + folder / "chart.xlsx" +
                                 "': the sheet that it shows has no cells. Choose another sheet in it and "
                                 "save it.\n";
    run({"-xmlfile", "%/letter.xml", "-usedocument", "%/chart.xlsx"});
    EXPECT_FALSE(made);
    EXPECT_EQ(messages.texts(), sentence);
    run({"-xmlfile", "%/letter.xml", "-template", "%/chart.xlsx"}, true);
    EXPECT_FALSE(made);
    EXPECT_EQ(messages.texts(), sentence + sentence);
    EXPECT_TRUE(errors.reports.empty());
    EXPECT_EQ(folder.bytesOf("chart.xlsx"), chart);
}

TEST_F(AutoMappingExcel, AWorkbookThatCannotBeReadEndsTheRun) {
    folder.put("bad.xlsx", "no zip");
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-usedocument", "%/bad.xlsx"}), 0U);
    EXPECT_FALSE(made);
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].number, kFileCouldNotBeRead);
    EXPECT_NE(errors.reports[0].description.find("bad.xlsx"), std::string::npos);
    EXPECT_EQ(folder.bytesOf("bad.xlsx"), "no zip");
}

TEST_F(AutoMappingExcel, ADropThatIsRefusedWritesNothing) {
    run({"-xmlfile", "%/design.xml", "-template", "%/new.xltx"});
    EXPECT_FALSE(made);
    EXPECT_EQ(messages.texts(), "Support for Design view is not realised yet.\n");
    EXPECT_EQ(folder.entryCount(), entriesBefore);
}

TEST_F(AutoMappingExcel, AFailingDiskLosesNothing) {
    EXPECT_GT(failAtEachCall("given.xlsx"), 3);
}

TEST_F(AutoMappingExcel, FilesOfOthersStay) {
    whenExcelStarts = [&] { folder.put("new.xltx", "another's"); };
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/new.xltx"}), kTemplateAlreadyExists);
    EXPECT_EQ(folder.bytesOf("new.xltx"), "another's");

    const std::string given = folder.bytesOf("given.xlsx");
    folder.put(".~lock.given.xlsx#", "");
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.xlsx"}), 0U);
    EXPECT_FALSE(made);
    EXPECT_EQ(messages.texts(),
              "Excel cannot save the template given.xlsx because this file is already open elsewhere.\n");
    EXPECT_EQ(folder.bytesOf("given.xlsx"), given);
}

}  // namespace
}  // namespace mergeloom
