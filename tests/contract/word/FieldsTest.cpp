#include "base/Text.h"
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
        {"QUOTE\"abc\"", word::WdFieldType::wdFieldQuote, false},
        {"ADDRESSBLOCK \\f", word::WdFieldType::wdFieldAddressBlock, false},
        {"GREETINGLINE", word::WdFieldType::wdFieldGreetingLine, false},
        {"ASK Mark \"Who?\"", word::WdFieldType::wdFieldAsk, false},
        {"FILLIN \"Who is it?\"", word::WdFieldType::wdFieldFillIn, false},
        {"SET Mark \"a value\"", word::WdFieldType::wdFieldSet, false},
    };
    for (const Case& c : cases) {
        open("<w:p>" + run("a") + fieldXml(" " + c.code + " ", "result") + run("b") + "</w:p><w:p>" +
             marked(1, "Behind", run("end")) + "</w:p>");
        const word::FieldsPtr fields = document->Fields();
        ASSERT_EQ(fields->Count(), 1) << c.code;
        EXPECT_EQ(fields->Item(1)->Type(), c.type) << c.code;
        EXPECT_EQ(trimmed(fields->Item(1)->Code()->Text()), c.code);
        EXPECT_EQ(document->MailMerge()->Fields()->Count(), c.isOfMailMerge ? 1 : 0) << c.code;
        EXPECT_EQ(bookmark("Behind")->Range()->Text(), "end") << c.code;
        EXPECT_EQ(errorOf([&] { fields->Item(2); }), kMemberNotFound);
    }
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

/// Tests fields that the office knows and fields that it keeps with their code, with and without a result.
TEST_P(OfficeFields, BecomePlaces) {
    const auto withoutResult = [](const std::string& code) {
        return "<w:r><w:fldChar w:fldCharType='begin'/></w:r><w:r><w:instrText xml:space='preserve'>" + code +
               "</w:instrText></w:r><w:r><w:fldChar w:fldCharType='end'/></w:r>";
    };
    const std::string nested =
        "<w:r><w:fldChar w:fldCharType='begin'/></w:r><w:r><w:instrText>QUOTE "
        "</w:instrText></w:r>" +
        fieldXml(" MERGEFIELD X ", "inner") + "<w:r><w:fldChar w:fldCharType='separate'/></w:r>" +
        run("shown") + "<w:r><w:fldChar w:fldCharType='end'/></w:r>";
    const std::string bold =
        replaceAll(fieldXml(" QUOTE word ", "word"), "<w:r><w:t", "<w:r><w:rPr><w:b/></w:rPr><w:t");
    const std::string simple = "<w:fldSimple w:instr=' QUOTE \"word\" '>" + run("word") + "</w:fldSimple>";
    for (const std::string& field :
         {fieldXml(" MERGEFIELD  Town \\* MERGEFORMAT ", "Town"), fieldXml(" QUOTE \"word\" ", "word"),
          withoutResult(" QUOTE word "), simple, bold, nested, fieldXml(" SKIPIF 1 = 2 ", "shown"),
          withoutResult(" SKIPIF 1 = 2 "), fieldXml(" MERGESEQ ", "1"),
          fieldXml(" QUOTE word ", "&#x1F600;")}) {
        open("<w:p>" + run("a ") + field + run(" b ") + fieldXml(" MERGEFIELD Name ", "Name") + run(" c ") +
             marked(1, "Behind", run("end")) + "</w:p>");
        const word::FieldsPtr fields = document->Fields();
        for (const auto& [number, name] : {std::pair(1, "First"), std::pair(fields->Count(), "Last")}) {
            fields->Item(number)->Select();
            selection->SetText(name);
            document->Bookmarks()->Add(name, *selection->Range());
        }
        EXPECT_EQ(errorOf([&] { fields->Item(1)->Type(); }), kObjectDeleted) << field;
        EXPECT_EQ(document->Fields()->Count(), 0) << field;
        EXPECT_EQ(body(), "a [First:First] b [Last:Last] c [Behind:end]\n") << field;
    }
}

TEST_P(OfficeFields, ComeBackWhenTheirReplacementIsTakenBack) {
    open("<w:p>" + run("a ") + fieldXml(" QUOTE word ", "shown") + run(" b ") +
         fieldXml(" MERGEFIELD Name ", "Name") + run(" c") + "</w:p>");
    const model::UndoRecordPtr record = application->UndoRecord();
    record->StartCustomRecord("Convert");
    document->Fields()->Item(1)->Select();
    selection->SetText("Place");
    document->Bookmarks()->Add("Place", *selection->Range());
    record->EndCustomRecord();
    ASSERT_TRUE(document->Undo(1));
    EXPECT_FALSE(document->Bookmarks()->Exists("Place"));
    const word::FieldsPtr fields = document->Fields();
    ASSERT_EQ(fields->Count(), 2);
    EXPECT_EQ(trimmed(fields->Item(1)->Code()->Text()), "QUOTE word");
    for (const auto& [number, name] : {std::pair(1, "First"), std::pair(2, "Last")}) {
        fields->Item(number)->Select();
        selection->SetText(name);
    }
    EXPECT_EQ(body(), "a First b Last c\n");
}

TEST_P(OfficeFields, InTheCodeOfAnother) {
    open("<w:p><w:r><w:fldChar w:fldCharType='begin'/></w:r><w:r><w:instrText>QUOTE </w:instrText></w:r>" +
         fieldXml(" MERGEFIELD \"First Name\" ", "x") + "<w:r><w:fldChar w:fldCharType='separate'/></w:r>" +
         run("shown") + "<w:r><w:fldChar w:fldCharType='end'/></w:r>" +
         fieldXml("\tmergefield\tStreet", "Street") + "</w:p>");
    const word::FieldsPtr fields = document->Fields();
    ASSERT_EQ(fields->Count(), 3);
    const word::FieldsPtr nested = fields->Item(1)->Code()->Fields();
    ASSERT_EQ(nested->Count(), 1);
    EXPECT_EQ(trimmed(nested->Item(1)->Code()->Text()), "MERGEFIELD \"First Name\"");
    EXPECT_FALSE(fields->Item(1)->isInCode());
    EXPECT_TRUE(fields->Item(2)->isInCode());
    EXPECT_FALSE(fields->Item(3)->isInCode());
    EXPECT_EQ(fields->Item(3)->Code()->Fields()->Count(), 0);
    EXPECT_EQ(fields->Item(3)->Type(), word::WdFieldType::wdFieldMergeField);
    EXPECT_EQ(document->MailMerge()->Fields()->Count(), 2);
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
