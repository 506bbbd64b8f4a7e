#include "excel/WorkbookTest.h"

#include "office/embedded/excel/WorkbookContent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>

namespace mergeloom {
namespace {

using excel::XlFileFormat;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string kMacros(3000, '\x7F');

std::string sample(const std::string& name) {
    std::ifstream stream(std::string(MERGELOOM_SAMPLES) + "/pictures/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Workbook, isWrittenInTheFormatsOfTheEngine) {
    struct Case {
        XlFileFormat format;
        const char* type;
        bool takesMacros;
    };
    const std::vector<Case> cases{
        {XlFileFormat::xlOpenXMLWorkbook,
         "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml", false},
        {XlFileFormat::xlOpenXMLTemplate,
         "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml", false},
        {XlFileFormat::xlOpenXMLWorkbookMacroEnabled, "application/vnd.ms-excel.sheet.macroEnabled.main+xml",
         true},
        {XlFileFormat::xlOpenXMLTemplateMacroEnabled,
         "application/vnd.ms-excel.template.macroEnabled.main+xml", true},
    };
    opc::Package package = workbookPackage({{"One"}});
    package.addPart("/xl/vbaProject.bin", "application/vnd.ms-office.vbaProject", kMacros);
    package.relationshipsOf(kWorkbookPart)
        .addPart("http://schemas.microsoft.com/office/2006/relationships/vbaProject", "/xl/vbaProject.bin");
    for (const Case& test : cases) {
        OpenWorkbook book{packageBytes(package)};
        book.files.files["/target"] = "precious";
        const std::string error = errorOf([&] { book.workbook->SaveAs("/target", test.format); });
        if (!test.takesMacros) {
            EXPECT_THAT(error, AllOf(HasSubstr("the workbook holds macros"), HasSubstr("xlsm or xltm")));
            EXPECT_EQ(book.files.files["/target"], "precious");
            continue;
        }
        EXPECT_EQ(error, "no error");
        const opc::Package saved = opc::Package::read(book.files.files["/target"], "/target");
        EXPECT_EQ(saved.readPart("/xl/vbaProject.bin"), kMacros);
        EXPECT_EQ(saved.contentTypes().of(kWorkbookPart), test.type);
    }
    for (const Case& test : cases) {
        OpenWorkbook book;
        book.workbook->SaveAs("/target", test.format);
        const opc::Package saved = opc::Package::read(book.files.files["/target"], "/target");
        EXPECT_EQ(saved.contentTypes().of(saved.mainPart()), test.type);
        EXPECT_TRUE(book.application->canSaveAs(test.format));
    }
    EXPECT_FALSE(OpenWorkbook().application->canSaveAs(XlFileFormat::xlExcel8));
}

TEST(Workbook, isRefusedWhenNobodyCouldDropIntoIt) {
    struct Case {
        std::string bytes;
        const char* reason;
    };
    opc::Package noPart = workbookPackage({{"One"}});
    noPart.removePart(sheetPart(1));
    const std::vector<Case> cases{
        {workbookFile({{"One", "", "state=\"hidden\""}, {"Two", "", "state=\"veryHidden\""}}), "visible"},
        {workbookFile({}), "visible"},
        {packageBytes(noPart), "\"One\" is missing"},
        {workbookFile({{"One", "<sheetData><row r=\"1\"><c r=\"A1\"></row></sheetData>"}}), "sheet1.xml"},
        {workbookFile({{"One", "<sheetData><row r=\"2\"/><row r=\"1\"/></sheetData>"}}), "sheet1.xml"},
    };
    for (std::size_t index = 0; index < cases.size(); ++index) {
        const std::string error = errorOf([&] { const OpenWorkbook book(cases[index].bytes); });
        EXPECT_THAT(error, AllOf(HasSubstr("/book.xlsx"), HasSubstr(cases[index].reason))) << index;
    }
}

TEST(Workbook, knowsWhenItsActiveSheetHasNoCells) {
    const std::string active = "<bookViews><workbookView activeTab=\"1\"/></bookViews>";
    OpenWorkbook book{workbookFile({{"One"}, {"Sales", "", "", "chartsheet"}}, "", active)};
    EXPECT_EQ(book.application->Selection()->TypeName(), "ChartArea");
    EXPECT_THAT(errorOf([&] { book.application->ActiveCell(); }), HasSubstr("'Sales' has no cells"));
    EXPECT_THAT(errorOf([&] { book.application->Selection()->SetValue2("x"); }), HasSubstr("no cells"));
    EXPECT_THAT(errorOf([&] { book.workbook->Names()->Add("a", "=$A$1"); }), HasSubstr("no cells"));
    EXPECT_EQ(book.workbook->Worksheets()->Count(), 1);
    book.workbook->Worksheets()->Item("one")->Activate();
    EXPECT_EQ(book.application->ActiveCell()->AddressLocal(), "$A$1");
}

void editEverything(OpenWorkbook& book) {
    book.files.files["/p.png"] = sample("letterhead.png");
    book.cell(2, 2)->SetValue("text");
    book.cell(1, 1)->SetValue("over a formula");
    book.cell(9, 9)->Activate();
    book.workbook->Names()->Add("ammNew", "=$B$2");
    book.workbook->Names()->Add("Old", "=$B$2");
    book.cell(1, 1)->Resize(2, 2)->Columns()->AutoFit();
    book.cell(4, 4)->SetColumnWidth({33});
    book.cell(4, 4)->SetRowHeight({99});
    const excel::PicturePtr picture = book.workbook->Worksheets()->Item(1)->Pictures()->Insert("/p.png");
    picture->SetName("ammNew");
    picture->SetWidth({50});
    picture->SetLeft({10});
    book.workbook->Worksheets()->Item(1)->Shapes()->Item("AMMNEW")->Delete();
    book.workbook->Worksheets()->Item(1)->Pictures()->Insert("/p.png");
    book.cell(3, 3, 2)->Select();
}

/// Returns the parts of the saved workbook with their contents.
std::map<std::string, std::string> partsOf(OpenWorkbook& book) {
    const opc::Package saved = opc::Package::read(book.files.files["/book.xlsx"], "/book.xlsx");
    std::map<std::string, std::string> parts;
    for (const std::string& name : saved.partNames())
        parts[name] = saved.readPart(name);
    return parts;
}

TEST(Workbook, takesAStepBackAltogether) {
    const std::string formula = "<sheetData><row r=\"1\"><c r=\"A1\"><f>B1</f><v>0</v></c></row></sheetData>";
    opc::Package package =
        workbookPackage({{"One", formula}, {"Two"}},
                        "<definedNames><definedName name=\"Old\">1</definedName></definedNames>");
    package.addPart("/xl/calcChain.xml", kSpreadsheetType + "calcChain+xml",
                    "<calcChain xmlns=\"" + kSpreadsheet + "\"><c r=\"A1\" i=\"1\"/></calcChain>");
    package.relationshipsOf(kWorkbookPart).addPart(officeType("calcChain"), "/xl/calcChain.xml");
    OpenWorkbook untouched{packageBytes(package)};
    untouched.workbook->Save();
    OpenWorkbook book{packageBytes(package)};
    const excel::UndoRecordPtr record = book.application->UndoRecord();
    record->StartCustomRecord("Drop");
    editEverything(book);
    EXPECT_TRUE(record->EndCustomRecord());
    EXPECT_FALSE(book.workbook->Saved());
    EXPECT_TRUE(book.workbook->Undo(1));
    EXPECT_FALSE(book.workbook->Undo(1));
    book.workbook->Save();
    EXPECT_EQ(partsOf(book), partsOf(untouched));

    editEverything(book);
    book.workbook->Save();
    const opc::Package saved = opc::Package::read(book.files.files["/book.xlsx"], "/book.xlsx");
    EXPECT_FALSE(saved.hasPart("/xl/calcChain.xml"));
    const OpenWorkbook again{book.files.files["/book.xlsx"]};
    EXPECT_EQ(again.workbook->Worksheets()->Item(1)->Shapes()->Item(1)->Type(),
              excel::MsoShapeType::msoPicture);
    const std::string once = book.files.files["/book.xlsx"];
    book.workbook->Save();
    EXPECT_EQ(book.files.files["/book.xlsx"], once);
}

TEST(Workbook, thatGaveUpUndoKeepsWhatARecordedStepChanged) {
    OpenWorkbook book;
    book.workbook->giveUpUndo();
    const excel::UndoRecordPtr record = book.application->UndoRecord();
    record->StartCustomRecord("Drop");
    book.cell(1, 1)->SetValue("x");
    EXPECT_FALSE(record->EndCustomRecord());
    EXPECT_FALSE(book.workbook->Undo(1));
    EXPECT_EQ(book.cell(1, 1)->Value(), "x");
}

TEST(Workbook, hasItsFormulasCalculatedAgain) {
    opc::Package package = workbookPackage({{"One"}});
    package.addPart("/xl/calcChain.xml", kSpreadsheetType + "calcChain+xml",
                    "<calcChain xmlns=\"" + kSpreadsheet + "\"><c r=\"C1\" i=\"1\"/></calcChain>");
    package.relationshipsOf(kWorkbookPart).addPart(officeType("calcChain"), "/xl/calcChain.xml");
    OpenWorkbook book{packageBytes(package)};
    book.workbook->Names()->Add("a", "=$A$1");
    EXPECT_THAT(book.savedPart(kWorkbookPart), Not(HasSubstr("fullCalcOnLoad")));
    book.cell(1, 1)->SetValue("x");
    EXPECT_THAT(book.savedPart(kWorkbookPart), HasSubstr("</definedNames><calcPr fullCalcOnLoad=\"1\"/>"));
    EXPECT_THAT(OpenWorkbook().savedPart(kWorkbookPart), Not(HasSubstr("fullCalcOnLoad")));
}

TEST(Workbook, isUnchangedWhenTheHeaderOfATableRefusesANumber) {
    opc::Package package = workbookPackage({{"One"}});
    package.addPart("/xl/tables/table1.xml", kSpreadsheetType + "table+xml",
                    "<table xmlns=\"" + kSpreadsheet +
                        "\" id=\"1\" name=\"T\" ref=\"A1:A2\"><tableColumns><tableColumn id=\"1\" "
                        "name=\"Town\"/></tableColumns></table>");
    package.relationshipsOf(sheetPart(1)).addPart(officeType("table"), "/xl/tables/table1.xml");
    MemoryFileStore files;
    embedded::WorkbookContent content(std::move(package), files);
    EXPECT_EQ(errorOf([&] {
                  content.setContent(0, {1, 1}, {"", "<v>1</v>"});
              }),
              "The cell A1 of the sheet 'One' is in the header of a table, which has to be a text.");
    EXPECT_TRUE(content.isSaved());
    content.setContent(0, {2, 1}, {"", "<v>1</v>"});
    EXPECT_FALSE(content.isSaved());
}

TEST(Pictures, standWhereTheyArePut) {
    OpenWorkbook book;
    book.files.files["/p.png"] = sample("letterhead.png");
    book.files.files["/no.png"] = "this is no picture";
    book.cell(3, 2)->Select();
    const excel::WorksheetPtr sheet = book.workbook->Worksheets()->Item(1);
    EXPECT_THAT(errorOf([&] { sheet->Pictures()->Insert("/no.png"); }), HasSubstr("/no.png"));
    EXPECT_EQ(sheet->Shapes()->Count(), 0);

    const excel::PicturePtr picture = sheet->Pictures()->Insert("/p.png");
    picture->SetName("ammLogo");
    EXPECT_EQ(picture->Left().value, book.cell(3, 2)->Left().value);
    EXPECT_EQ(picture->Top().value, book.cell(3, 2)->Top().value);
    picture->SetWidth({120});
    picture->SetHeight({60});
    picture->SetLeft({100});
    const excel::ShapePtr shape = sheet->Shapes()->Item("AMMLOGO");
    EXPECT_EQ(shape->Type(), excel::MsoShapeType::msoPicture);
    EXPECT_EQ(shape->Width().value, 120);
    EXPECT_EQ(shape->Height().value, 60);
    EXPECT_EQ(shape->Left().value, 100);
    EXPECT_EQ(shape->TopLeftCell()->AddressLocal(), "$C$3");
    shape->Delete();
    EXPECT_THAT(errorOf([&] { picture->Width(); }), HasSubstr("deleted"));
    EXPECT_THAT(errorOf([&] { sheet->Shapes()->Item("ammLogo"); }), HasSubstr("ammLogo"));
}

TEST(Pictures, ofOthersKeepTheirSizesWhenColumnsAndRowsChange) {
    const std::string drawing =
        "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\">"
        "<xdr:twoCellAnchor "
        "editAs=\"oneCell\"><xdr:from><xdr:col>1</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>1"
        "</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:from><xdr:to><xdr:col>3</xdr:col><xdr:colOff>0</"
        "xdr:colOff>"
        "<xdr:row>4</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:to><xdr:sp><xdr:nvSpPr><xdr:cNvPr id=\"2\" "
        "name=\"Box\"/></xdr:nvSpPr></xdr:sp><xdr:clientData/></xdr:twoCellAnchor></xdr:wsDr>";
    const std::string link =
        "<sheetData/><drawing xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/"
        "relationships\" r:id=\"rId1\"/>";
    opc::Package package = workbookPackage({{"One", link}});
    package.addPart("/xl/drawings/drawing1.xml", "application/vnd.openxmlformats-officedocument.drawing+xml",
                    drawing);
    package.relationshipsOf(sheetPart(1)).addPart(officeType("drawing"), "/xl/drawings/drawing1.xml");
    const OpenWorkbook book{packageBytes(package)};
    const excel::ShapePtr box = book.workbook->Worksheets()->Item(1)->Shapes()->Item("Box");
    const Points width = box->Width();
    const Points height = box->Height();
    book.cell(2, 2)->SetColumnWidth({40});
    book.cell(3, 3)->SetRowHeight({90});
    book.cell(1, 3)->SetValue("a text that is wider than the column was");
    book.cell(1, 3)->Columns()->AutoFit();
    EXPECT_NEAR(box->Width().value, width.value, 0.01);
    EXPECT_NEAR(box->Height().value, height.value, 0.01);
}

TEST(Pictures, stayAsTheyAreOnSheetsWithProtectedObjects) {
    OpenWorkbook book{workbookFile({{"Shut", "<sheetData/><sheetProtection sheet=\"1\" objects=\"1\"/>"}})};
    book.files.files["/p.png"] = sample("letterhead.png");
    EXPECT_THAT(errorOf([&] { book.workbook->Worksheets()->Item(1)->Pictures()->Insert("/p.png"); }),
                HasSubstr("'Shut' is protected"));
    EXPECT_TRUE(book.workbook->Saved());
}

}  // namespace
}  // namespace mergeloom
