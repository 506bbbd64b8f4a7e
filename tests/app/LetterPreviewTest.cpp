#include "app/LetterPreview.h"
#include "base/AutomationError.h"
#include "doubles/ExcelFiles.h"
#include "doubles/WordFiles.h"
#include "droppers/StructureTest.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

/// A template in memory that is previewed with two objects, Orders and Buyers.
class PreviewTest : public StructureTest {
  protected:
    PreviewTest() {
        load(
            "<db><Form Name='Orders'><Control Name='No' Caption='Order &amp;No.:'/>"
            "<Control Name='Lines' ControlType='Subform'><Form Name='L' HasRecordset='1'>"
            "<Control Name='Item' Caption='Item'/></Form></Control></Form>"
            "<Form Name='Buyers'><Control Name='Town'/><Control Name='No'/></Form></db>");
        for (const TreeNode* object = tree.First(); object != nullptr; object = object->Next())
            objects.push_back(object);
    }

    static std::string place(const std::string& name) {
        return "<w:bookmarkStart w:id=\"" + name + "\" w:name=\"" + name + "\"/><w:r><w:t>" + name +
               "</w:t></w:r><w:bookmarkEnd w:id=\"" + name + "\"/>";
    }
    void addRecord(const std::string& control, const std::string& value) {
        Record& record = records.emplace_back();
        record.controls.push_back({.name = control, .displayValue = value, .records = {}});
    }
    LetterPreview preview(const std::string& body) {
        return {files, DocumentKind::Word, "letter.docx", wordFile("<w:p>" + body + "</w:p>"), source()};
    }
    [[nodiscard]] PreviewSource source() const {
        return {xmlNodes, objects, records, [](const std::string&) { return std::string(); }};
    }

    std::vector<const TreeNode*> objects;
    std::vector<Record> records;
};

TEST_F(PreviewTest, EachRecordHasALetter) {
    addRecord("No", "7");
    addRecord("No", "8");
    LetterPreview letters = preview(place("No"));
    EXPECT_EQ(letters.count(), 2U);
    EXPECT_EQ(shownBody(letters.write(1)), "[No:8]\n");
    EXPECT_EQ(shownBody(letters.write(0)), "[No:7]\n");
    const PreviewedRecords shown = letters.recordsOf(1);
    EXPECT_EQ(shown.first, 2U);
    EXPECT_EQ(shown.last, 2U);
    EXPECT_EQ(shown.count, 2U);
    EXPECT_FALSE(shown.areSamples);
}

TEST_F(PreviewTest, SamplesAreMadeOfCaptions) {
    const struct {
        const char* recordControl;  ///< of the only record; empty for no record
        std::string body;
        const char* letter;
    } cases[] = {
        {"", place("No"), "[No:Order No.]\n"},
        {"", place("LinesItem"), "[LinesItem:Item 1]\n"},
        // The records are of another object than the one with the most places.
        {"Item", place("No"), "[No:Order No.]\n"},
        {"Item", place("Town") + place("No"), "[Town:Town][No:No]\n"},
    };
    for (const auto& one : cases) {
        records.clear();
        if (*one.recordControl != '\0') addRecord(one.recordControl, "x");
        LetterPreview letters = preview(one.body);
        EXPECT_EQ(shownBody(letters.write(0)), one.letter);
        EXPECT_EQ(letters.count(), 1U);
        EXPECT_TRUE(letters.recordsOf(0).areSamples);
    }
}

TEST_F(PreviewTest, OneLetterHoldsTheRecordsThatATableLists) {
    addRecord("No", "7");
    addRecord("No", "8");
    const std::string table = "<w:tbl><w:tr><w:tc><w:p>" + place("No") + "</w:p></w:tc></w:tr></w:tbl>";
    LetterPreview letters{files, DocumentKind::Word, "list.docx",
                          wordFile("<w:bookmarkStart w:id=\"1\" w:name=\"OrdersT\"/>" + table +
                                   "<w:bookmarkEnd w:id=\"1\"/><w:p/>"),
                          source()};
    EXPECT_EQ(letters.count(), 1U);
    EXPECT_EQ(letters.recordsOf(0).last, 2U);
}

TEST_F(PreviewTest, NamesOfCellsAreFilled) {
    addRecord("No", "7");
    const std::string book =
        workbookFile({{"Sheet1", "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>[No]</t></is></c></row>"}},
                     "<definedNames><definedName name=\"ammNo\">Sheet1!$A$1</definedName></definedNames>");
    LetterPreview books{files, DocumentKind::Excel, "book.xlsx", book, source()};
    const std::string sheet = opc::Package::read(books.write(0), "book.xlsx").readPart(sheetPart(1));
    EXPECT_NE(sheet.find("<t>7</t>"), std::string::npos) << sheet;
}

TEST_F(PreviewTest, ATemplateWithoutPlacesIsRefused) {
    try {
        (void)preview(place("Other"));
        ADD_FAILURE();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kNotAvailable);
        EXPECT_EQ(error.description(),
                  "The template has no place that a field of the structure document fills.");
    }
}

}  // namespace
}  // namespace mergeloom
