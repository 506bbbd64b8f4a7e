#include "contract/word/WordFixture.h"

#include <fstream>
#include <iterator>

namespace mergeloom {
namespace {

class OfficeFields : public WordOffice {
  protected:
    void putPicture() {
        std::ifstream stream(std::string(MERGELOOM_SAMPLES) + "/pictures/letterhead.png", std::ios::binary);
        files.files["/letterhead.png"] = {std::istreambuf_iterator<char>(stream), {}};
    }
};
INSTANTIATE_TEST_SUITE_P(Offices, OfficeFields, kOffices, nameOfOffice);

std::string trimmed(std::string text) {
    text.erase(0, text.find_first_not_of(' '));
    return text.erase(text.find_last_not_of(' ') + 1);
}

TEST_P(OfficeFields, TellWhatTheyAre) {
    struct Case {
        std::string code;
        word::WdFieldType type;
        bool isOfMailMerge;
    };
    const std::vector<Case> cases{
        {"MERGEFIELD Name", word::WdFieldType::wdFieldMergeField, true},
        {"NEXT", word::WdFieldType::wdFieldNext, true},
        {"SKIPIF 1 = 2", word::WdFieldType::wdFieldSkipIf, true},
        {"MERGEREC", word::WdFieldType::wdFieldMergeRec, true},
        {"MERGESEQ", word::WdFieldType::wdFieldMergeSeq, true},
        {"QUOTE abc", word::WdFieldType::wdFieldQuote, false},
    };
    std::string given;
    for (const Case& c : cases)
        given += "<w:p>" + run("a") + fieldXml(" " + c.code + " ", "result") + run("b") + "</w:p>";
    open(given + "<w:p>" + marked(1, "Behind", run("end")) + "</w:p>");
    const word::FieldsPtr fields = document->Fields();
    ASSERT_EQ(fields->Count(), 6);
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const word::FieldPtr field = fields->Item(static_cast<int>(i) + 1);
        EXPECT_EQ(field->Type(), cases[i].type) << cases[i].code;
        EXPECT_EQ(trimmed(field->Code()->Text()), cases[i].code);
    }
    EXPECT_EQ(document->MailMerge()->Fields()->Count(), 5);
    EXPECT_EQ(bookmark("Behind")->Range()->Text(), "end");
    EXPECT_EQ(errorOf([&] { fields->Item(7); }), kMemberNotFound);
}

TEST_P(OfficeFields, AreSelectedAndGo) {
    open("<w:p>" + run("Dear ") + fieldXml(" MERGEFIELD Name ", "Name") + run(",") + "</w:p><w:p>" +
         run("x") + fieldXml(" QUOTE abc ", "abc") + marked(1, "Behind", run("y")) + "</w:p>");
    const word::FieldsPtr fields = document->Fields();
    fields->Item(1)->Select();
    EXPECT_EQ(selection->Fields()->Count(), 1);
    selection->TypeText("you");
    EXPECT_EQ(errorOf([&] { fields->Item(1)->Type(); }), kObjectDeleted);
    EXPECT_EQ(errorOf([&] { fields->Item(1)->Delete(); }), kObjectDeleted);
    fields->Item(2)->Delete();
    EXPECT_EQ(document->Fields()->Count(), 0);
    EXPECT_EQ(body(), "Dear you,\nx[Behind:y]\n");
}

TEST_P(OfficeFields, MoveWithTheText) {
    open("<w:p>" + marked(1, "Here", "") + run("a") + fieldXml(" MERGEFIELD Name ", "Name") + "</w:p>");
    goTo("Here");
    selection->TypeText("many characters\r");
    document->Fields()->Item(1)->Select();
    selection->TypeText("b");
    EXPECT_EQ(body(), "[Here:]many characters\nab\n");
}

TEST_P(OfficeFields, PicturesTakeOneCharacter) {
    putPicture();
    add();
    selection->TypeText("before behind");
    const word::RangePtr range = mark("Place", 7, 8)->Range();
    range->InlineShapes()->AddPicture("/letterhead.png");
    EXPECT_EQ(at(*range), "7-8");
    EXPECT_EQ(range->InlineShapes()->Count(), 1);
    selection->TypeText("!");
    EXPECT_EQ(body(), "before <picture>ehind!\n");
    mark("All", 0, 14)->Select();
    EXPECT_EQ(selection->InlineShapes()->Count(), 1);
    EXPECT_EQ(selection->ShapeRange()->Count(), 0);
    mark("Beside", 8, 14)->Select();
    EXPECT_EQ(selection->InlineShapes()->Count(), 0);
    files.files["/broken.png"] = "no picture";
    for (const std::string file : {"/none.png", "/broken.png"})
        EXPECT_EQ(errorOf([&] { selection->InlineShapes()->AddPicture(file); }), kFileCouldNotBeRead) << file;
    document->SaveAs("/picture.docx", word::WdSaveFormat::wdFormatXMLDocument);
    document = application->Documents()->Open("/picture.docx");
    selection = application->Selection();
    mark("Picture", 7, 8)->Select();
    EXPECT_EQ(selection->InlineShapes()->Count(), 1);
    selection->TypeText("-");
    EXPECT_EQ(body().find("<picture>"), std::string::npos);
}

}  // namespace
}  // namespace mergeloom
