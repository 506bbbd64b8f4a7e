#include "app/ConvertMailMergeFields.h"
#include "base/Text.h"
#include "doubles/WordFiles.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Selection.h"

#include <gmock/gmock.h>

#include <vector>

namespace mergeloom {
namespace {

class RecordingErrors final : public ErrorHandler {
  public:
    void report(const ErrorReport& report) override {
        reports.push_back(report.module + "." + report.procedure + ": " + report.description);
    }
    std::vector<std::string> reports;
};

std::string paragraph(const std::string& content) {
    return "<w:p>" + content + "</w:p>";
}
std::string run(const std::string& content, const std::string& formatting = "") {
    return "<w:r>" + (formatting.empty() ? "" : "<w:rPr>" + formatting + "</w:rPr>") + content + "</w:r>";
}
std::string text(const std::string& text, const std::string& formatting = "") {
    return run("<w:t>" + text + "</w:t>", formatting);
}
std::string code(const std::string& text, const std::string& formatting = "") {
    return run("<w:instrText xml:space=\"preserve\">" + text + "</w:instrText>", formatting);
}
std::string mark(const std::string& type, const std::string& formatting = "") {
    return run("<w:fldChar w:fldCharType=\"" + type + "\"/>", formatting);
}
const std::string kBegin = mark("begin");
const std::string kSeparate = mark("separate");
const std::string kEnd = mark("end");
std::string field(const std::string& codeText, const std::string& result = text("old")) {
    return kBegin + code(codeText) + kSeparate + result + kEnd;
}
std::string simple(const std::string& codeText, const std::string& result = text("old")) {
    return "<w:fldSimple w:instr=\"" + replaceAll(codeText, "\"", "&quot;") + "\">" + result +
           "</w:fldSimple>";
}

/// Returns an IF field with a condition and its two texts.
std::string ifOf(const std::string& looksAt, const std::string& then = code("\"Mr\""),
                 const std::string& otherwise = code("\"Ms\"")) {
    return kBegin + code(" IF ") + looksAt + code(" = \"M\" ") + then + code(" ") + otherwise + kSeparate +
           text("old") + kEnd;
}

class Conversion : public testing::Test {
  protected:
    word::DocumentPtr open(const std::string& body) {
        files.files["/letter.docx"] = wordFile(body);
        return office->Documents()->Open("/letter.docx");
    }
    /// Returns the body after both passes in the notation of `shownBody`.
    std::string converted(const std::string& body) {
        errors.reports.clear();
        const word::DocumentPtr document = open(body);
        ConvertMailMergeFields conversion{[this] { return office; }, files, errors};
        conversion.SetTemplate(document);
        conversion.Execute();
        result = conversion.result();
        return shown(*document, files);
    }
    /// Returns the XML of the body after both passes.
    std::string convertedXml(const std::string& body) {
        (void)converted(body);
        const std::string xml =
            opc::Package::read(files.files["/shown.docx"], "shown.docx").readPart(kMainPart);
        const std::size_t start = xml.find("<w:body>") + 8;
        return xml.substr(start, xml.find("</w:body>") - start);
    }

    MemoryFileStore files;
    RecordingErrors errors;
    word::ApplicationPtr office = makeWordApplication(OfficeKind::Embedded, files);
    ConversionResult result;
};

TEST_F(Conversion, FieldShapes) {
    struct Case {
        std::string fields;
        std::string expected;
        int places;
        int removed;
    };
    const std::string nameInCode = kBegin + code(" QUOTE ") + field(" MERGEFIELD Inner ", text("Result")) +
                                   code(" ") + kSeparate + text("old") + kEnd;
    const std::vector<Case> cases{
        // the name and the text around it in the code
        {field(" MERGEFIELD Town "), "[Town:Town]", 1, 0},
        {field("MERGEFIELD \"Town\" \\* MERGEFORMAT"), "[Town:Town]", 1, 0},
        {field(" mergefield 2nd-Town \\b \"before\" "), "[x2ndTown:x2ndTown]", 1, 0},
        {field(" MERGEFIELD \"Post Code\" "), "[PostCode:PostCode]", 1, 0},
        {field(" MERGEFIELD  FirstName  \\* MERGEFORMAT "), "[FirstName:FirstName]", 1, 0},
        {field("\tMERGEFIELD\t Street"), "[Street:Street]", 1, 0},
        {field("MERGEFIELD\nTown"), "[Town:Town]", 1, 0},
        {field("QUOTE\"Land\""), "[Land:Land]", 1, 0},
        {field("QUOTE \"a \\\"b\\\" c\""), "[abc:abc]", 1, 0},
        {field("QUOTE \"Open end"), "[Openend:Openend]", 1, 0},
        {field(" IF  x = \"y z\" \"Home Town\" \"\" "), "[HomeTown:HomeTown]", 1, 0},
        {field("IF \"\" = \"\" Town"), "[Town:Town]", 1, 0},
        {field(" QUOTE \"Town\" "), "[Town:Town]", 1, 0},
        {field(" QUOTE Stra\u00DFe "), "[Stra\u00DFe:Stra\u00DFe]", 1, 0},
        {field(" IF x = y \"Town\" \"\" "), "[Town:Town]", 1, 0},
        // the shape
        {simple(" MERGEFIELD Town "), "[Town:Town]", 1, 0},
        {simple(" MERGEFIELD Town ", ""), "[Town:Town]", 1, 0},
        {kBegin + code(" MERGE") + code("FIELD To") + code("wn ") + kSeparate + text("o") + text("ld") + kEnd,
         "[Town:Town]", 1, 0},
        {kBegin + code(" MERGEFIELD Town ") + kEnd, "[Town:Town]", 1, 0},
        {run("<w:fldChar w:fldCharType=\"begin\"/><w:instrText>MERGEFIELD Town</w:instrText>"
             "<w:fldChar w:fldCharType=\"separate\"/><w:t>old</w:t><w:fldChar w:fldCharType=\"end\"/>"),
         "[Town:Town]", 1, 0},
        {field("MERGEFIELD A") + field("MERGEFIELD B"), "[A:A][B:B]", 2, 0},
        // fields in fields
        {nameInCode, "[Inner:Inner]", 1, 0},
        {ifOf(field("MERGEFIELD X", text("\u00ABX\u00BB"))), "[X:X]", 1, 0},
        {ifOf(field("MERGEFIELD X")) + simple("MERGEFIELD Y"), "[X:X][Y:Y]", 2, 0},
        {ifOf(field("MERGEFIELD X", text("two words")), field("MERGEFIELD Y"), field("MERGEFIELD x")),
         "[X:X] [Y:Y]", 2, 0},
        {ifOf(ifOf(field("MERGEFIELD X"), field("MERGEFIELD Y"))), "[X:X] [Y:Y]", 2, 0},
        {ifOf(simple("QUOTE Name", text("Bob"))), "[Name:Name]", 1, 0},
        {ifOf(field("PAGE", text("1"))), "[Mr:Mr]", 1, 0},
        {kBegin + code("SKIPIF ") + field("MERGEFIELD X") + code(" = 1") + kEnd, "[X:X]", 1, 0},
        {field("NEXTIF Count = 2"), "[Count:Count]", 1, 0},
        {kBegin + code("MERGEFIELD Name \\b \"") + field("MERGEFIELD X") + code("\"") + kEnd,
         "[Name:Name] [X:X]", 2, 0},
        {field("QUOTE Outer", text("a") + field("QUOTE Inner") + text("b")), "[Outer:Outer]", 1, 0},
        {field("PAGE", field("MERGEFIELD Inner")), "PAGE[Inner:Inner]", 1, 0},
        {simple("PAGE", field("MERGEFIELD Inner")), "[Inner:Inner]", 1, 0},
        {kBegin + code(" INCLUDEPICTURE ") + field("MERGEFIELD Path") + kSeparate + text("old") + kEnd,
         " INCLUDEPICTURE MERGEFIELD Patholdold", 0, 0},
        {kBegin + code("SET Mark ") + field("MERGEFIELD X") + kEnd, "SET Mark MERGEFIELD Xold", 0, 0},
        // what is no old field, or names nothing
        {field(" PAGE "), " PAGE old", 0, 0},
        {kBegin + code("MERGEFIELD Open"), "MERGEFIELD Open", 0, 0},
        {kBegin + code("MERGEFIELD Open") + field("MERGEFIELD Town"), "MERGEFIELD Open[Town:Town]", 1, 0},
        {field("MERGEFIELD Town") + kEnd, "[Town:Town]", 1, 0},
        {field("MERGEFIELD"), "", 0, 1},
        {field("NEXT"), "", 0, 1},
        {field("MERGEFIELD ***"), "", 0, 1},
        {field("MERGEFIELD \"\""), "MERGEFIELD \"\"old", 0, 0},
        // where a name occurs twice, the later place has the bookmark
        {field("MERGEFIELD A") + text(",") + field("MERGEFIELD a"), "A,[a:a]", 2, 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(converted(paragraph(text("&lt;") + c.fields + text("&gt;"))),
                  "&lt;" + c.expected + "&gt;\n")
            << c.fields;
        EXPECT_EQ(result.places, c.places) << c.fields;
        EXPECT_EQ(static_cast<int>(result.removed.size()), c.removed) << c.fields;
        EXPECT_THAT(errors.reports, testing::IsEmpty()) << c.fields;
    }
    EXPECT_THAT(result.movedBookmarks, testing::ElementsAre("a"));
}

TEST_F(Conversion, PlacesOfFields) {
    const std::string town = field("MERGEFIELD Town");
    const auto cell = [](const std::string& content) { return "<w:tc>" + paragraph(content) + "</w:tc>"; };
    const auto table = [](const std::string& cells) { return "<w:tbl><w:tr>" + cells + "</w:tr></w:tbl>"; };
    struct Case {
        std::string body;
        std::string expected;
    };
    const std::vector<Case> cases{
        {paragraph(town), "[Town:Town]\n"},
        {paragraph(kBegin + code("MERGEFIELD ")) + paragraph(code("Town")) +
             paragraph(kSeparate + text("old")) + paragraph(kEnd + text("b")),
         "[Town:Town]b\n"},
        {paragraph(kBegin + code("IF a = b Town") + kSeparate + text("x")) + table(cell(text("y"))) +
             paragraph(text("z") + kEnd),
         "[Town:Town]\n"},
        {table(cell(town) + cell(text("b"))) + paragraph(""), "[Town:Town]\n|b\n|\n"},
        // a field that begins and ends in different cells cannot go without the table
        {table(cell(kBegin + code("MERGEFIELD Town") + kSeparate) + cell(kEnd)) + paragraph(""),
         "MERGEFIELD Town\n|\n|\n"},
        // the place stays in what surrounds the field
        {paragraph("<w:hyperlink w:anchor=\"a\">" + town + "</w:hyperlink>"), "[Town:Town]\n"},
        {paragraph("<w:sdt><w:sdtContent>" + town + "</w:sdtContent></w:sdt>"), "[Town:Town]\n"},
        {paragraph("<w:del w:id=\"1\">" + text("a") + "</w:del>" + town + "<w:del w:id=\"2\">" + text("b") +
                   "</w:del>"),
         "a[Town:Town]b\n"},
        // a deleted field does not become a place
        {paragraph(text("a") + "<w:del w:id=\"1\">" + town + "</w:del>" + text("b")), "ab\n"},
        {paragraph("<w:del w:id=\"1\">" + text("a") + town + text("b") + "</w:del>"), "ab\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(converted(c.body), c.expected) << c.body;
        EXPECT_THAT(errors.reports, testing::IsEmpty()) << c.body;
    }
}

TEST_F(Conversion, TheTextTakesTheFormattingOfTheResult) {
    const std::string bold = "<w:b/>", italic = "<w:i/>";
    struct Case {
        std::string fields;
        std::string formatting;
    };
    const std::vector<Case> cases{
        {field("MERGEFIELD Town", text("old", bold)), bold},
        {kBegin + code("MERGEFIELD Town", italic) + kSeparate + text("o", bold) + text("ld") + kEnd, bold},
        {simple("MERGEFIELD Town", text("old", bold)), bold},
        {mark("begin", italic) + code("MERGEFIELD Town", italic) + kSeparate + text("old") +
             mark("end", italic),
         ""},
        // a field without a result has only its code
        {kBegin + code("MERGEFIELD Town", bold) + kEnd, bold},
        // the result of a field in the code is not that of the outer field
        {kBegin + code("QUOTE Town ") + field("QUOTE", text("x", italic)) + kSeparate + text("old", bold) +
             kEnd,
         bold},
        {field("MERGEFIELD Town", run("<w:tab/>", bold) + text("old")), bold},
    };
    for (const Case& c : cases) {
        const std::string properties = c.formatting.empty() ? "" : "<w:rPr>" + c.formatting + "</w:rPr>";
        EXPECT_THAT(convertedXml(paragraph(text("a", "<w:u/>") + c.fields + text("b", "<w:u/>"))),
                    testing::HasSubstr("<w:r>" + properties + "<w:t>Town</w:t></w:r>"))
            << c.fields;
    }
}

TEST_F(Conversion, ContainersKeepTheirPlaces) {
    const std::string town = field("MERGEFIELD Town");
    for (const char* container : {"hyperlink", "ins", "smartTag"}) {
        const std::string body = paragraph("<w:x>" + town + "</w:x>");
        EXPECT_THAT(convertedXml(replaceAll(body, "w:x", std::string("w:") + container)),
                    testing::HasSubstr(std::string(container) + "><w:r><w:t>Town</w:t></w:r></w:"));
    }
    EXPECT_THAT(convertedXml(paragraph("<w:sdt><w:sdtContent>" + town + "</w:sdtContent></w:sdt>")),
                testing::HasSubstr("<w:sdtContent><w:r>"));
}

TEST_F(Conversion, TellsEachFieldThatWentOrStayed) {
    const std::string inPicture =
        kBegin + code("INCLUDEPICTURE ") + field("MERGEFIELD  Path") + kSeparate + text("old") + kEnd;
    const std::string stays = field("ADDRESSBLOCK \\f  \"a  b\"") + field("GREETINGLINE") +
                              field("ASK Mark \"?\"") + simple("FILLIN \"?\"") + field("SET Mark 1") +
                              field("MERGEFIELD \"\"") + inPicture;
    (void)converted(paragraph(field("NEXT") + stays + simple(" NEXT ") + field("MERGEFIELD ***")));
    EXPECT_EQ(conversionReport(result),
              "0 fields became places, 3 were removed.\n"
              "Removed: NEXT (2 times)\n"
              "Removed: MERGEFIELD ***\n"
              "7 fields stayed.\n"
              "Stayed: ADDRESSBLOCK \\f \"a  b\"\n"
              "Stayed: GREETINGLINE\n"
              "Stayed: ASK Mark \"?\"\n"
              "Stayed: FILLIN \"?\"\n"
              "Stayed: SET Mark 1\n"
              "Stayed: MERGEFIELD \"\"\n"
              "Stayed: MERGEFIELD Path (in the code of another field)\n");
    (void)converted(paragraph(ifOf(field("MERGEFIELD X"), field("MERGEFIELD Y")) + field("MERGEFIELD Z")));
    EXPECT_EQ(conversionReport(result), "2 fields became 3 places, 0 were removed.\n");
}

/// Also tests a field that the office refuses to replace.
TEST_F(Conversion, WhatCannotBeConvertedStaysAsItWas) {
    const std::string split =
        "<w:tbl><w:tr><w:tc>" + paragraph(text("a") + kBegin + code("QUOTE Town") + kSeparate) +
        "</w:tc><w:tc>" + paragraph(text("b") + kEnd) + "</w:tc></w:tr></w:tbl>" + paragraph("");
    const std::string nameless = paragraph(text("a").append(field("MERGEFIELD \"\"")));
    const std::string nested = paragraph(kBegin + code("SET M ").append(field("QUOTE X")).append(kEnd));
    for (const std::string& body : {split, nameless, nested}) {
        const word::DocumentPtr document = open(body);
        ConvertMailMergeFields conversion{[this] { return office; }, files, errors};
        conversion.SetTemplate(document);
        conversion.Execute();
        EXPECT_TRUE(document->Saved()) << body;
        EXPECT_EQ(conversion.result().removed.size(), 0U);
        document->SaveAs("/same.docx", word::WdSaveFormat::wdFormatXMLDocument);
        EXPECT_EQ(opc::Package::read(files.files["/same.docx"], "same.docx").readPart(kMainPart),
                  opc::Package::read(files.files["/letter.docx"], "letter.docx").readPart(kMainPart));
    }
}

TEST_F(Conversion, TextInTheCodeOfAFieldIsCode) {
    const word::DocumentPtr document = open(paragraph(
        kBegin + code("INCLUDEPICTURE ") + field("MERGEFIELD Path") + kSeparate + text("old") + kEnd));
    document->Fields()->Item(2)->Select();
    document->ActiveWindow()->Selection()->TypeText("Path");
    document->SaveAs("/code.docx", word::WdSaveFormat::wdFormatXMLDocument);
    EXPECT_THAT(opc::Package::read(files.files["/code.docx"], "code.docx").readPart(kMainPart),
                testing::HasSubstr("<w:instrText>Path</w:instrText>"));
}

/// Returns a text box with its copy for older programs, as another program writes it.
std::string textBox(const std::string& content, const std::string& copy) {
    return run("<mc:AlternateContent xmlns:mc=\"m\"><mc:Choice><w:drawing><w:txbxContent>" + content +
               "</w:txbxContent></w:drawing></mc:Choice><mc:Fallback>" + copy +
               "</mc:Fallback></mc:AlternateContent>");
}
std::string picture(const std::string& content) {
    return "<w:pict><w:txbxContent>" + content + "</w:txbxContent></w:pict>";
}

TEST_F(Conversion, TheOtherBranchesOfTextBoxesFollow) {
    const std::string inside = paragraph(field("MERGEFIELD Town"));
    const std::string place = paragraph("<w:bookmarkStart w:id=\"0\" w:name=\"Town\"/>" + text("Town") +
                                        "<w:bookmarkEnd w:id=\"0\"/>");
    const std::string placeCopy = paragraph(text("Town"));
    const std::string inner = textBox(inside, picture(inside));
    struct Case {
        std::string body;
        std::string expected;
    };
    const std::vector<Case> cases{
        {textBox(inside, picture(inside)), textBox(place, picture(placeCopy))},
        {textBox(inside, "<w:pict/>"), textBox(place, "<w:pict/>")},
        {textBox(paragraph(inner), picture(paragraph(inner))),
         textBox(paragraph(textBox(place, picture(placeCopy))),
                 picture(paragraph(textBox(placeCopy, picture(placeCopy)))))},
        // copies that cannot be distinguished are removed
        {textBox(inside, picture(inside) + picture(inside)),
         replaceAll(textBox(place, ""), "<mc:Fallback></mc:Fallback>", "")},
        {replaceAll(textBox(inside, inside), "w:txbxContent", "w:other"),
         replaceAll(textBox(inside, inside), "w:txbxContent", "w:other")},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(convertedXml(paragraph(c.body)), paragraph(c.expected));
    }
    const std::string branches = "<mc:AlternateContent xmlns:mc=\"m\"><mc:Choice>" +
                                 field("MERGEFIELD Town") + "</mc:Choice><mc:Fallback>" +
                                 field("MERGEFIELD Town") + "</mc:Fallback></mc:AlternateContent>";
    EXPECT_THAT(convertedXml(paragraph(branches)), testing::Not(testing::HasSubstr("MERGEFIELD")));
}

TEST_F(Conversion, FieldsInTheTextBoxOfAFieldGoWithIt) {
    const std::string box = run("<w:drawing><w:txbxContent>" + paragraph(field("MERGEFIELD Town")) +
                                "</w:txbxContent></w:drawing>");
    EXPECT_EQ(converted(paragraph(field("QUOTE A", box) + field("MERGEFIELD Town"))), "[A:A][Town:Town]\n");
    EXPECT_EQ(result.places, 2);
    EXPECT_THAT(result.movedBookmarks, testing::IsEmpty());
}

TEST_F(Conversion, ACodeOfTooFewWordsEndsTheQuillbindPassOnly) {
    EXPECT_EQ(
        converted(paragraph(field("QUOTE A") + field("IF a = b") + field("QUOTE B") + field("MERGEFIELD C"))),
        "[A:A]IF a = boldQUOTE Bold[C:C]\n");
    EXPECT_TRUE(result.failed);
    EXPECT_THAT(errors.reports,
                testing::ElementsAre("ConvertMailMergeFields.ConvertQuillbindFields: The field "
                                     "'IF a = b' has too few words."));
}

TEST_F(Conversion, APagesNumberInTheCodeEndsNoPass) {
    const std::string page = kBegin + code("PAGE") + kEnd;
    EXPECT_EQ(converted(paragraph(kBegin + code("QUOTE ") + page + kEnd + field("QUOTE B") +
                                  field("MERGEFIELD C"))),
              "QUOTE PAGE[B:B][C:C]\n");
    EXPECT_FALSE(result.failed);
    EXPECT_EQ(result.left.size(), 1U);
    EXPECT_THAT(errors.reports, testing::IsEmpty());
}

/// Also tests a field between them that could not be replaced.
TEST_F(Conversion, IsOneStep) {
    const word::DocumentPtr document = open(paragraph(field("QUOTE A") + field("MERGEFIELD ***") + text(",") +
                                                      field("MERGEFIELD B") + field("NEXT")));
    const std::string before = shown(*document, files);
    document->SetSaved(false);
    ConvertMailMergeFields conversion{[this] { return office; }, files, errors};
    conversion.SetTemplate(document);
    conversion.Execute();
    EXPECT_EQ(shown(*document, files), "[A:A],[B:B]\n");
    EXPECT_EQ(conversion.result().removed.size(), 2U);
    ASSERT_TRUE(document->Undo(1));
    EXPECT_EQ(shown(*document, files), before);
    EXPECT_FALSE(document->Undo(1));
}

TEST_F(Conversion, ADocumentThatWasHandedInIsNotClosed) {
    const word::DocumentPtr document = open(paragraph(field("MERGEFIELD A")));
    const std::string before = files.files["/letter.docx"];
    {
        ConvertMailMergeFields conversion{[this] { return office; }, files, errors};
        conversion.SetTemplate(document);
        conversion.Execute();
    }
    EXPECT_EQ(office->Documents()->Count(), 1);
    EXPECT_EQ(files.files["/letter.docx"], before);
    EXPECT_FALSE(document->Saved());
}

TEST_F(Conversion, ADocumentThatWasNamedIsSavedAndClosed) {
    for (const bool runs : {true, false}) {
        const word::DocumentPtr other = runs ? office->Documents()->Add("") : nullptr;
        files.files["/letter.docx"] = wordFile(paragraph(field("MERGEFIELD A")));
        {
            ConvertMailMergeFields conversion{[this] { return office; }, files, errors};
            conversion.SetTemplatePath("/letter.docx");
            conversion.Template();
            if (runs) conversion.Execute();
        }
        EXPECT_EQ(shownBody(files.files["/letter.docx"]), runs ? "[A:A]\n" : "MERGEFIELD Aold\n");
        EXPECT_EQ(office->Documents()->Count(), runs ? 1 : 0);
        office->Quit(word::WdSaveOptions::wdDoNotSaveChanges);
    }
}

TEST_F(Conversion, ATemplateThatCannotBeOpenedIsNotFound) {
    files.files["/broken.docx"] = "no document";
    for (const char* path : {"/missing.docx", "/broken.docx", ""}) {
        ConvertMailMergeFields conversion{[this] { return office; }, files, errors};
        conversion.SetTemplatePath(path);
        try {
            conversion.Execute();
            ADD_FAILURE() << path;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kTemplateNotFound);
            EXPECT_EQ(error.description(), "Template is not found");
        }
    }
    EXPECT_EQ(files.files["/broken.docx"], "no document");
    EXPECT_THAT(errors.reports, testing::IsEmpty());
}

}  // namespace
}  // namespace mergeloom
