#include "AutoMappingTest.h"
#include "doubles/ExcelFiles.h"
#include "doubles/WordFiles.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Workbook.h"

namespace mergeloom {
namespace {

class MappingStart : public AutoMappingTest {
  protected:
    void putDocuments() override {}

    /// Maps into a document with the body. Returns its new body, or the messages.
    std::string mapInto(const std::string& body, const std::string& structure, const std::string& place) {
        folder.put("given.docx", wordFile(body));
        messages.messages.clear();
        options.at = place;
        EXPECT_EQ(run({"-xmlfile", "%/" + structure, "-usedocument", "%/given.docx"}), 0U);
        EXPECT_TRUE(errors.reports.empty());
        return made ? shownBody(folder.bytesOf("given.docx")) : messages.texts();
    }
};

std::string para(const std::string& content) {
    return "<w:p>" + content + "</w:p>";
}
std::string textRun(const std::string& content) {
    return "<w:r><w:t>" + content + "</w:t></w:r>";
}
std::string marked(const std::string& name, const std::string& content) {
    return "<w:bookmarkStart w:id='7' w:name=\"" + name + "\"/>" + content + "<w:bookmarkEnd w:id='7'/>";
}
std::string tableOf(const std::string& block) {
    return "<w:tbl><w:tblPr/><w:tblGrid><w:gridCol w:w='2000'/></w:tblGrid><w:tr><w:tc><w:tcPr/>" + block +
           "</w:tc></w:tr></w:tbl>";
}
std::string controlOf(const std::string& content) {
    return "<w:sdt><w:sdtPr/><w:sdtContent>" + content + "</w:sdtContent></w:sdt>";
}

const std::string kField = "<w:fldSimple w:instr='DATE'>" + textRun("today") + "</w:fldSimple>";
const std::string kSection = "<w:sectPr><w:pgSz w:w='11906' w:h='16838'/></w:sectPr>";

TEST_F(MappingStart, TheEndOfADocumentAlwaysTakesWhatIsDropped) {
    const struct {
        std::string body, before;  ///< before: what the document shows before what is dropped
    } cases[] = {
        {"", ""},
        {para(""), ""},
        {para(textRun("a")) + kSection, "a\n"},
        {tableOf(para(textRun("a"))) + para(textRun("b")) + kSection, "a\n|b\n"},
        {tableOf(para("")) + kSection, "\n|"},
        {para(kField), "today\n"},
        {para(textRun("a")) + controlOf(para(textRun("in"))) + kSection, "a\nin\n"},
        {para(textRun("a") + controlOf(textRun("in"))) + kSection, "ain\n"},
        {para(marked("_GoBack", "")), "[_GoBack:]"},
        {para(textRun("a") + marked("_GoBack", "")), "a[_GoBack:]\n"},
        {marked("All", para(textRun("a"))) + kSection, "[All:a\n]\n"},
        {para("<w:pPr>" + kSection + "</w:pPr>" + textRun("a")) + kSection, "a\n"},
    };
    for (const auto& [body, before] : cases) {
        EXPECT_EQ(mapInto(body, "letter.xml", "end"), before + "Customer: [Customer:Customer]\n\n") << body;
        EXPECT_EQ(mapInto(body, "sheet.xml", "end"), before + "\n[SheetT:A\n|[A:A] \n|]\n") << body;
    }
}

TEST_F(MappingStart, ABookmarkIsFollowedByWhatIsDropped) {
    const std::string dropped = "Customer: [Customer:Customer]\n";
    const struct {
        std::string body, place, expected;
    } cases[] = {
        {para(textRun("a")) + para(marked("Here", "")) + para(textRun("b")), "here",
         "a\n[Here:]\n" + dropped + "\nb\n"},
        {para(textRun("a") + marked("Here", textRun("N")) + textRun(", b")), "Here",
         "a[Here:N]\n" + dropped + ", b\n"},
        {marked("End", para(textRun("a"))) + para(textRun("b")), "End", "[End:a\n]\n" + dropped + "b\n"},
        {para(textRun("a")), "start", dropped + "a\n"},
        {para(textRun("a")), "Nowhere",
         "The mapping cannot begin at 'Nowhere': the document '" + (folder / "given.docx") +
             "' has no bookmark of that name.\n"},
        {tableOf(para(marked("Here", textRun("a")))) + para(""), "Here",
         "The mapping cannot begin at 'Here': that bookmark ends in a table. Choose one outside of "
         "tables.\n"},
    };
    for (const auto& [body, place, expected] : cases)
        EXPECT_EQ(mapInto(body, "letter.xml", place), expected) << body;
}

TEST_F(MappingStart, ARefusedStartIsToldWithTheWayOut) {
    const std::string refusal = "It is impossible to insert the form into current selection.\n";
    const std::string wayOut =
        "The document begins with a table, a field or a place, where nothing can be inserted. Option '--at "
        "end' "
        "begins the mapping at its end.\n";
    EXPECT_EQ(mapInto(tableOf(para("")) + para(""), "letter.xml", ""), refusal + wayOut);
    EXPECT_EQ(mapInto(para(""), "design.xml", ""), "Support for Design view is not realised yet.\n");
}

TEST_F(MappingStart, NeedsADocument) {
    options.at = "end";
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/new.dotx"}), 0U);
    EXPECT_FALSE(made);
    EXPECT_EQ(messages.texts(), "Option '--at' needs a document to build on; name it with -usedocument.\n");
}

TEST_F(MappingStart, ACellOrANameOfAWorkbook) {
    gExcelMode = 1;
    const std::string cells =
        "<sheetData><row r='2'><c r='B2'><v>7</v></c></row><row r='5'><c r='D5' s='0'/></row></sheetData>";
    const std::string names =
        "<definedNames><definedName name='Spot'>Data!$C$3:$D$4</definedName>"
        "<definedName name='Rate'>0.25</definedName>"
        "<definedName name='Own' localSheetId='1'>'Bob''s'!$E$1</definedName></definedNames>";
    const std::string nothing = "': the workbook '" + (folder / "given.xlsx") +
                                "' has no such cell and no cells of "
                                "that name.\n";
    const struct {
        std::string place, expected;
    } cases[] = {
        {"", "=Data!$B$1"},
        {"start", "=Data!$B$1"},
        {"end", "=Data!$B$6"},
        {"B7", "=Data!$C$7"},
        {"$c$9", "=Data!$D$9"},
        {"bob's!D1", "='Bob''s'!$E$1"},
        {"'Bob''s'!D1", "='Bob''s'!$E$1"},
        {"spot", "=Data!$D$3"},
        {"Bob's!Own", "='Bob''s'!$F$1"},
        {"Rate", "The mapping cannot begin at 'Rate" + nothing},
        {"XFE1", "The mapping cannot begin at 'XFE1" + nothing},
        {"None!A1", "The mapping cannot begin at 'None!A1" + nothing},
        {"Hidden!A1", "The mapping cannot begin at 'Hidden!A1': The sheet 'Hidden' is hidden.\n"},
    };
    for (const auto& [place, expected] : cases) {
        folder.put("given.xlsx",
                   workbookFile({{"Data", cells}, {"Bob's"}, {"Hidden", "", "state='hidden'"}}, names));
        messages.messages.clear();
        options.at = place;
        EXPECT_EQ(run({"-excel", "-xmlfile", "%/letter.xml", "-usedocument", "%/given.xlsx"}), 0U);
        const excel::ApplicationPtr office = makeExcelApplication(OfficeKind::Embedded, disk);
        const excel::WorkbookPtr workbook = office->Workbooks()->Open(folder / "given.xlsx");
        EXPECT_EQ(made ? workbook->Names()->Item("ammCustomer")->RefersToLocal() : messages.texts(), expected)
            << place;
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(MappingStart, TheEndOfAnEmptySheetIsItsFirstCell) {
    gExcelMode = 1;
    folder.put("given.xlsx", workbookFile({{"Data"}}));
    options.at = "end";
    EXPECT_EQ(run({"-excel", "-xmlfile", "%/letter.xml", "-usedocument", "%/given.xlsx"}), 0U);
    const excel::ApplicationPtr office = makeExcelApplication(OfficeKind::Embedded, disk);
    EXPECT_EQ(office->Workbooks()->Open(folder / "given.xlsx")->Names()->Item("ammCustomer")->RefersToLocal(),
              "=Data!$B$1");
}

}  // namespace
}  // namespace mergeloom
