#include "contract/word/WordFixture.h"

namespace mergeloom {
namespace {

class OfficeTyping : public WordOffice {};
INSTANTIATE_TEST_SUITE_P(Offices, OfficeTyping, kOffices, nameOfOffice);

TEST_P(OfficeTyping, BreaksAndWideCharactersCountAsInWord) {
    struct Case {
        std::string typed;
        std::string expectedBody;
        std::int64_t expectedCaret;
    };
    const std::vector<Case> cases{
        {"", "\n", 0},
        {"one", "one\n", 3},
        {"a\rb", "a\nb\n", 3},
        {"a\nb\r\nc", "a\nb\nc\n", 5},
        {"tab\there", "tabhere\n", 8},
        {"line\vbreak", "linebreak\n", 10},
        {"😀x", "😀x\n", 3},
        {"Größe 名前", "Größe 名前\n", 8},
        {" two  blanks ", " two  blanks \n", 13},
    };
    for (const Case& c : cases) {
        add();
        selection->TypeText(c.typed);
        EXPECT_EQ(body(), c.expectedBody) << c.typed;
        EXPECT_EQ(selection->Range()->Start().value, c.expectedCaret) << c.typed;
        EXPECT_EQ(selection->Range()->End().value, c.expectedCaret) << c.typed;
    }
}

TEST_P(OfficeTyping, WideCharactersKeepTheirPlaces) {
    add();
    selection->TypeText("a😀b😀c");
    mark("Second", 4, 6);
    EXPECT_EQ(bookmark("Second")->Range()->Text(), "😀");
    mark("First", 1, 3);
    bookmark("First")->Range()->SetText("12");
    EXPECT_EQ(body(), "a12b[Second:😀]c\n");
    goToEnd("Second");
    selection->TypeText("!");
    EXPECT_EQ(body(), "a12b[Second:😀]!c\n");
}

TEST_P(OfficeTyping, ReplacesWhatIsSelected) {
    add();
    selection->TypeText("one two three");
    mark("Two", 4, 7)->Select();
    selection->SetText("2");
    EXPECT_EQ(at(*selection->Range()), "4-5");
    EXPECT_FALSE(document->Bookmarks()->Exists("Two"));
    selection->TypeText("zwei");
    EXPECT_EQ(body(), "one zwei three\n");
    mark("All", 0, 14)->Select();
    selection->SetText("");
    EXPECT_EQ(body(), "\n");
    EXPECT_EQ(at(*selection->Range()), "0-0");
}

TEST_P(OfficeTyping, TheEndOfTheStoryIsBeforeItsLastMark) {
    const struct {
        std::string body, typed;
    } cases[] = {
        {para("one") + para("two"), "one\ntwo!\n"},
        {"<w:p>" + run("a") + marked(1, "End", "") + "</w:p>", "a[End:]!\n"},
        {tableXml({cellXml(para("a"))}, 1) + "<w:p/>", "a\n|!\n"},
    };
    for (const auto& [bodyXml, typed] : cases) {
        open(bodyXml);
        selection->EndKey(word::WdUnits::wdStory);
        EXPECT_EQ(selection->Tables()->Count(), 0);
        selection->TypeText("!");
        EXPECT_EQ(body(), typed);
    }
}

TEST_P(OfficeTyping, AStorysLastMarkStays) {
    add();
    selection->TypeText("one\rtwo");
    mark("All", 0, 8)->Range()->SetText("x");
    EXPECT_EQ(bookmark("All")->Range()->Text(), "x\r");
    EXPECT_EQ(at("All"), "0-2");
}

TEST_P(OfficeTyping, TakesTheFormattingThatStandsThere) {
    open("<w:p>" + run("plain") + "<w:r><w:rPr><w:b/></w:rPr><w:t>bold</w:t></w:r>" + marked(1, "Here", "") +
         "</w:p>");
    goTo("Here");
    selection->TypeText("er");
    document->SaveAs("/typed.docx", word::WdSaveFormat::wdFormatXMLDocument);
    const std::string xml = opc::Package::read(files.files["/typed.docx"], "typed.docx").readPart(kMainPart);
    EXPECT_LT(xml.rfind("<w:b/>"), xml.find("er</w:t>")) << xml;
    EXPECT_EQ(xml.find("plainer"), std::string::npos);
    EXPECT_EQ(xml.find("<w:b/>", xml.find("er</w:t>")), std::string::npos);
}

TEST_P(OfficeTyping, FontSizesGoToWhatIsSelected) {
    add();
    selection->TypeText("small big");
    mark("Big", 6, 9)->Select();
    selection->Font()->SetSize(20.5);
    document->SaveAs("/sized.docx", word::WdSaveFormat::wdFormatXMLDocument);
    const std::string xml = opc::Package::read(files.files["/sized.docx"], "sized.docx").readPart(kMainPart);
    EXPECT_LT(xml.find("small "), xml.find("<w:sz w:val=\"41\"/>"));
    EXPECT_LT(xml.find("<w:sz w:val=\"41\"/>"), xml.find(">big<"));
}

}  // namespace
}  // namespace mergeloom
