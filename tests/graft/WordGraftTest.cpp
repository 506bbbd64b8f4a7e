#include "base/Text.h"
#include "graft/Triple.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::graft {

namespace {

using ::testing::HasSubstr;

const std::string kOld = "<w:p w:rsidR=\"00A1\">" + run("Old text", kOwn) + "</w:p>";
const std::string kOldShown = "<w:p>" + run("Old text", kShown) + "</w:p>";

std::string pageField(const std::string& result) {
    return "<w:fldSimple w:instr=\"PAGE\">" + run(result) + "</w:fldSimple>";
}

std::string listed(const std::string& number, const std::string& text) {
    return "<w:p><w:pPr><w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"" + number + "\"/></w:numPr></w:pPr>" +
           run(text) + "</w:p>";
}

std::string sectionEnd(const std::string& text) {
    return "<w:p><w:pPr><w:sectPr><w:pgMar w:left=\"1\"/></w:sectPr></w:pPr>" + run(text) + "</w:p>";
}

const std::vector<GraftCase> kCases = {
    {"nothing", kOld, kOldShown, kOldShown, "nothing changed"},
    {"a part of a link", "<w:p><w:hyperlink w:anchor=\"a\">" + run("xy", kOwn) + "</w:hyperlink></w:p>",
     "<w:p><w:hyperlink w:anchor=\"a\">" + run("xy", kShown) + "</w:hyperlink></w:p>",
     "<w:p><w:hyperlink w:anchor=\"a\">" + run("x", kShown) + "</w:hyperlink>" + run("y", kShown) + "</w:p>",
     "refused: a part of a link was changed"},
    {"ids and revisions only", kOld, "<w:p w:rsidR=\"1\">" + run("Old text", kShown) + "</w:p>",
     "<w:p w:rsidR=\"2\">" + run("Old text", kShown) + "</w:p>", "nothing changed"},
    {"a word typed", kOld + kLast, kOldShown + kLast,
     "<w:p>" + run("Old new text", kShown) + "</w:p>" + kLast,
     "<w:p w:rsidR=\"00A1\">" + run("Old new text", kOwn) + "</w:p>" + kLast},
    {"a word erased", kOld, kOldShown, "<w:p>" + run("Old", kShown) + "</w:p>",
     "<w:p w:rsidR=\"00A1\">" + run("Old", kOwn) + "</w:p>"},
    {"a place dropped", kOld, kOldShown,
     "<w:p>" + run("Old ", kShown) + marked("City", run("[City]", kShown)) + run("text", kShown) + "</w:p>",
     "<w:p w:rsidR=\"00A1\">" + run("Old ", kOwn) + "<w:bookmarkStart w:id=\"0\" w:name=\"City\"/>" +
         run("[City]", kOwn) + "<w:bookmarkEnd w:id=\"0\"/>" + run("text", kOwn) + "</w:p>"},
    {"a place removed", "<w:p>" + marked("City", run("Old", kOwn)) + "</w:p>",
     "<w:p>" + marked("City", run("Old", kShown)) + "</w:p>", "<w:p>" + run("Old", kShown) + "</w:p>",
     "<w:p>" + run("Old", kOwn) + "</w:p>"},
    {"a place that the office reads elsewhere stays",
     "<w:p>" + marked("City", run("Old", kOwn)) + "</w:p>" + paragraph("b"),
     "<w:p>" + run("O", kShown) + marked("City", run("ld", kShown)) + "</w:p>" + paragraph("b"),
     "<w:p>" + run("O", kShown) + marked("City", run("ld", kShown)) + "</w:p>" + paragraph("bc"),
     "<w:p>" + marked("City", run("Old", kOwn)) + "</w:p>" + paragraph("bc")},
    {"a paragraph inserted", kOld + kLast, kOldShown + kLast,
     kOldShown + "<w:p>" + run("New", kShown) + "</w:p>" + kLast,
     kOld + "<w:p>" + run("New", kOwn) + "</w:p>" + kLast},
    {"a paragraph removed", kOld + kLast, kOldShown + kLast, kLast, kLast},
    {"a word in bold", kOld, kOldShown,
     "<w:p>" + run("Old ", kShown) + run("text", "<w:b/>" + kShown) + "</w:p>",
     "<w:p w:rsidR=\"00A1\">" + run("Old ", kOwn) + run("text", "<w:b/>" + kOwn) + "</w:p>"},
    {"a colour in place of the theme's", kOld, kOldShown,
     "<w:p>" + run("Old text", "<w:color w:val=\"FF0000\"/><w:kern w:val=\"0\"/>") + "</w:p>",
     "<w:p w:rsidR=\"00A1\">" + run("Old text", "<w:color w:val=\"FF0000\"/>") + "</w:p>"},
    {"a paragraph centred",
     "<w:p><w:pPr><w:keepNext/><w:spacing w:after=\"1\"/></w:pPr>" + run("a") + "</w:p>",
     "<w:p><w:pPr><w:spacing w:before=\"0\" w:after=\"1\"/></w:pPr>" + run("a") + "</w:p>",
     "<w:p><w:pPr><w:spacing w:before=\"0\" w:after=\"1\"/><w:jc w:val=\"center\"/></w:pPr>" + run("a") +
         "</w:p>",
     "<w:p><w:pPr><w:keepNext/><w:spacing w:after=\"1\"/><w:jc w:val=\"center\"/></w:pPr>" + run("a") +
         "</w:p>"},
    {"a property gone that only the export had", kOld,
     "<w:p><w:pPr><w:spacing w:before=\"0\"/></w:pPr>" + run("Old text", kShown) + "</w:p>", kOldShown, kOld},
    {"margins", paragraph("a") + "<w:sectPr w:rsidR=\"1\"><w:pgMar w:left=\"10\" w:right=\"20\"/></w:sectPr>",
     paragraph("a") + "<w:sectPr><w:pgMar w:left=\"10\" w:right=\"20\" w:gutter=\"0\"/></w:sectPr>",
     paragraph("a") + "<w:sectPr><w:pgMar w:left=\"99\" w:right=\"20\" w:gutter=\"0\"/></w:sectPr>",
     paragraph("a") + "<w:sectPr w:rsidR=\"1\"><w:pgMar w:left=\"99\" w:right=\"20\"/></w:sectPr>"},
    {"text in a content control of blocks that the export lacks",
     "<w:sdt><w:sdtPr><w:tag w:val=\"t\"/></w:sdtPr><w:sdtContent>" + kOld + "</w:sdtContent></w:sdt>" +
         kLast,
     kOldShown + kLast, "<w:p>" + run("Old texts", kShown) + "</w:p>" + kLast,
     "<w:sdt><w:sdtPr><w:tag w:val=\"t\"/></w:sdtPr><w:sdtContent><w:p w:rsidR=\"00A1\">" +
         run("Old texts", kOwn) + "</w:p></w:sdtContent></w:sdt>" + kLast},
    {"text in one of two formats", "<w:p>" + run("Red", kOwn) + run("; plain", "<w:noProof/>") + "</w:p>",
     "<w:p>" + run("Red", kShown) + run("; plain") + "</w:p>",
     "<w:p>" + run("Red hot", kShown) + run("; plain text") + "</w:p>",
     "<w:p>" + run("Red hot", kOwn) + run("; plain text", "<w:noProof/>") + "</w:p>"},
    {"text in the format of another paragraph",
     "<w:p>" + run("Old", kOwn) + "</w:p><w:p>" + run("b", "<w:noProof/>") + "</w:p>",
     "<w:p>" + run("Old", kShown) + "</w:p>" + paragraph("b"),
     "<w:p>" + run("Old", kShown) + "</w:p><w:p>" + run("b") + run("c", kShown) + "</w:p>",
     "<w:p>" + run("Old", kOwn) + "</w:p><w:p>" + run("b", "<w:noProof/>") +
         run("c", "<w:noProof/>" + kShown) + "</w:p>"},
    {"text beside a field with another result", "<w:p>" + run("on ") + pageField("7") + "</w:p>",
     "<w:p>" + run("on ") + pageField("1") + "</w:p>", "<w:p>" + run("on page ") + pageField("2") + "</w:p>",
     "<w:p>" + run("on page ") + pageField("7") + "</w:p>"},
    {"a paragraph in a list that has another number", listed("7", "a") + paragraph("b"),
     listed("2", "a") + paragraph("b"), listed("2", "a") + listed("2", "b"),
     listed("7", "a") + listed("7", "b")},
    {"a list that is new", paragraph("a"), paragraph("a"), listed("2", "a"), "refused: a list was begun"},
    {"a paragraph after a section's end", sectionEnd("a") + kLast, sectionEnd("a") + kLast,
     sectionEnd("a") + paragraph("New") + kLast, sectionEnd("a") + paragraph("New") + kLast},
    {"an inserted object", kOld, kOldShown,
     "<w:p>" + run("Old text", kShown) + "<w:r><w:object/></w:r></w:p>", "refused: an object was inserted"},
    {"text where the office reads another text", kOld, paragraph("Other"), paragraph("Other new"),
     "refused: LibreOffice reads the paragraph differently from the file"},
};

TEST(WordGraftTest, RepeatsTheChangesAndNothingElse) {
    for (const GraftCase& row : kCases)
        EXPECT_EQ(row.result(), row.expected) << row.what;
}

/// The graft of equal exports changes nothing in any original.
TEST(WordGraftTest, MakesNothingOfNothing) {
    for (const GraftCase& row : kCases) {
        const Triple triple{wordFile(row.original), wordFile(row.baseline), wordFile(row.baseline)};
        EXPECT_EQ(resultOf(triple.graft()), "nothing changed") << row.what;
    }
}

TEST(WordGraftTest, KeepsOtherEntriesAsTheyArePacked) {
    opc::Package package = opc::Package::read(wordFile(kOld), "test.docx");
    package.addPart("/customXml/item1.xml", "application/xml", "<own/>");
    const Triple triple{packageBytes(package), wordFile(kOldShown),
                        wordFile("<w:p>" + run("Old new text", kShown) + "</w:p>")};
    const model::GraftResult result = triple.graft();
    ASSERT_TRUE(std::holds_alternative<model::GraftedPackage>(result)) << resultOf(result);
    const auto kept =
        makePackageGraft()->keptEntries(triple.original, std::get<model::GraftedPackage>(result).bytes);
    EXPECT_EQ(kept.all - kept.unchanged, 1);
    EXPECT_GE(kept.all, 4);
}

TEST(WordGraftTest, NamesTheFeaturesThatAnExportLacks) {
    opc::Package package =
        opc::Package::read(wordFile("<w:sdt><w:sdtContent>" + kOld + "</w:sdtContent></w:sdt>"), "test.docx");
    package.addPart("/customXml/item1.xml", "application/xml", "<own/>");
    const std::string original = packageBytes(package);
    const std::string exported = wordFile(kOldShown);
    const auto lossesOf = [&](const std::string& bytes) {
        return makePackageGraft()->lossesOf({DocumentKind::Word, 12, "test.docx", bytes, exported, exported});
    };
    EXPECT_EQ(lossesOf(original), "content controls, theme colours, custom XML");
    EXPECT_EQ(lossesOf(exported), "");
    EXPECT_EQ(lossesOf("damaged"), "");
}

/// Documents of another kind have another content type and the same text.
TEST(WordGraftTest, WritesAnotherKindWithoutAChange) {
    const std::string original = wordFile(kOld);
    const std::string exported = wordFile(kOldShown);
    constexpr int kTemplate = 14;
    const model::GraftResult result =
        makePackageGraft()->graft({DocumentKind::Word, kTemplate, "test.dotx", original, exported, exported});
    EXPECT_EQ(resultOf(result), kOld);
    const std::string bytes = std::get<model::GraftedPackage>(result).bytes;
    const opc::Package package = opc::Package::read(bytes, "test.dotx");
    EXPECT_THAT(package.contentTypes().of(kMainPart), HasSubstr("template"));
}

/// A header of the original that the export has twice.
TEST(WordGraftTest, ChangesAHeaderOnceThatIsExportedTwice) {
    const auto header = [](const std::string& text) {
        return "<w:hdr " + kNamespaces + ">" + paragraph(text) + "</w:hdr>";
    };
    const auto twice = [&](const std::string& first, const std::string& second) {
        return fileWith(kOldShown, {{"header", "/word/header1.xml", header(first)},
                                    {"header", "/word/header2.xml", header(second)}});
    };
    const std::string original = fileWith(kOld, {{"header", "/word/header7.xml", header("Head")}});
    const Triple same{original, twice("Head", "Head"), twice("Heads", "Heads")};
    const model::GraftResult result = same.graft();
    ASSERT_TRUE(std::holds_alternative<model::GraftedPackage>(result)) << resultOf(result);
    const opc::Package made = opc::Package::read(std::get<model::GraftedPackage>(result).bytes, "test.docx");
    EXPECT_EQ(made.readPart("/word/header7.xml"), header("Heads"));
    EXPECT_EQ(made.readPart(kMainPart), opc::Package::read(original, "test.docx").readPart(kMainPart));
    const Triple differing{original, twice("Head", "Head"), twice("Heads", "Header")};
    EXPECT_EQ(resultOf(differing.graft()), "refused: two headers that are one in the file were changed");
}

/// Page breaks and objects that the office reads at another place than that in the file.
TEST(WordGraftTest, EditsBesideBreaksAndObjectsThatAreReadDifferently) {
    const std::string page = "<w:r><w:br w:type=\"page\"/></w:r>";
    const std::string picture = "<w:r><w:drawing><wp:inline/></w:drawing></w:r>";
    const std::string symbol = "<w:r><w:sym w:font=\"Wingdings\" w:char=\"F04A\"/></w:r>";
    const std::string font = "<w:rFonts w:ascii=\"Wingdings\"/>";
    const auto p = [](const std::string& content) { return "<w:p>" + content + "</w:p>"; };
    const std::string former = p(run("a") + page) + p(run("b"));
    const GraftCase cases[] = {
        {"after the break", p(run("a")) + p(page + run("b")), former, p(run("a") + page) + p(run("bx")),
         p(run("a")) + p(page + run("bx"))},
        {"at the paragraph's start", p(run("a")) + p(page + run("b")), former,
         p(run("a") + page) + p(run("xb")), p(run("a")) + p(page + run("x") + run("b"))},
        {"before the break", p(run("a")) + p(page + run("b")), former, p(run("ax") + page) + p(run("b")),
         p(run("ax")) + p(page + run("b"))},
        {"a symbol", p(symbol + run("a")), p(run("\xEF\x81\x8A") + run("a")),
         p(run("\xEF\x81\x8A") + run("ax")), p(symbol + run("ax"))},
        {"text in the font of a symbol", p(symbol + run("a")), p(run("\xEF\x81\x8A", font) + run("a")),
         p(run("\xEF\x81\x8Ax", font) + run("a")), p(symbol + run("x", font) + run("a"))},
        {"an object that is lost", p(picture + run("a")), p(run("a")), p(run("ax")), p(picture + run("ax"))},
        {"a place", p(picture + run("a")), p(run("a")), p(marked("City", run("a"))),
         p(picture + replaceAll(marked("City", run("a")), "\"1\"", "\"0\""))},
    };
    for (const GraftCase& each : cases)
        EXPECT_EQ(each.result(), each.expected) << each.what;
}

/// Plants faults in a result.
TEST(WordProofTest, SeesWhatIsNotAsTheUserMadeIt) {
    const std::string place = marked("City", run("[City]"));
    const std::string edited = "<w:p>" + run("Old ") + place + run(" text", "<w:b/>") + "</w:p>" + kLast;
    const Triple triple{wordFile(kOld + kLast), wordFile(kOld + kLast), wordFile(edited)};
    struct Fault {
        std::string proof;
        std::string found;
    };
    const Fault faults[] = {
        {edited, ""},
        {"<w:p w:rsidR=\"7\">" + run("O") + run("ld ") + place + run(" text", "<w:b/>") + "</w:p>" + kLast,
         ""},
        {"<w:p>" + run("Olt ") + place + run(" text", "<w:b/>") + "</w:p>" + kLast,
         "the text of the result would differ"},
        {"<w:p>" + run("Old ") + run("[City]") + run(" text", "<w:b/>") + "</w:p>" + kLast,
         "a place would be elsewhere in the result"},
        {"<w:p>" + run("Old") + marked("City", run(" [City]")) + run(" text", "<w:b/>") + "</w:p>" + kLast,
         "a place would be elsewhere in the result"},
        {"<w:p>" + run("Old ") + place + run(" text") + "</w:p>" + kLast, "the result would look different"},
        {"<w:p>" + run("Old ") + place + run(" text", "<w:b/>") + "</w:p>",
         "the result would have more or fewer paragraphs"},
        {"<w:p><w:pPr><w:jc w:val=\"end\"/></w:pPr>" + run("Old ") + place + run(" text", "<w:b/>") +
             "</w:p>" + kLast,
         "the result would look different"},
        {edited + "<w:sectPr><w:pgMar w:left=\"1\"/></w:sectPr>", "the page would differ in the result"},
    };
    for (const Fault& row : faults)
        EXPECT_EQ(triple.fault(wordFile(row.proof)), row.found) << row.proof;
}

/// The office does not read all properties that it writes itself.
TEST(WordProofTest, TakesABlockAsTheOfficeReadsItAgain) {
    const std::string again = "<w:p>" + run("Old new text", "<w:i/>") + "</w:p>";
    const Triple triple{wordFile(kOld), wordFile(kOldShown),
                        wordFile("<w:p>" + run("Old new text") + "</w:p>")};
    EXPECT_EQ(triple.fault(wordFile(again)), "the result would look different");
    EXPECT_EQ(triple.fault(wordFile(again), wordFile(again)), "");
}

/// The office does not read blanks at the ends of cells, and reads places in another form than it has written
/// them.
TEST(WordProofTest, TakesTextsAndPlacesAsTheOfficeReadsThemAgain) {
    const auto cell = [](const std::string& text) {
        return "<w:tbl><w:tr><w:tc><w:p>" + text + "</w:p></w:tc></w:tr></w:tbl>" + kLast;
    };
    const auto fault = [&](const std::string& edited, const std::string& again, const std::string& proof) {
        const std::string opened = wordFile(cell(run("Old")));
        return Triple{opened, opened, wordFile(cell(edited))}.fault(wordFile(cell(proof)),
                                                                    wordFile(cell(again)));
    };
    const std::string place = marked("City", run("New"));
    EXPECT_EQ(fault(run("New "), run("New"), run("New")), "");
    EXPECT_EQ(fault(run("New "), run("New "), run("New")), "the text of the result would differ");
    EXPECT_EQ(fault(run("New"), run("Ne"), run("Ne")), "the text of the result would differ");
    EXPECT_EQ(fault(place + run("x"), marked("City", run("Newx")), marked("City", run("Newx"))), "");
    EXPECT_EQ(fault(place + run("x"), place + run("x"), marked("City", run("Newx"))),
              "a place would be elsewhere in the result");
    EXPECT_EQ(fault(place, run("New"), run("New")), "a place would be elsewhere in the result");
}

std::string stylesPart(const std::string& styles) {
    return "<w:styles " + kNamespaces + ">" + styles + "</w:styles>";
}

std::string style(const std::string& id, const std::string& name, const std::string& rest) {
    return "<w:style w:type=\"character\" w:styleId=\"" + id + "\"><w:name w:val=\"" + name + "\"/>" + rest +
           "</w:style>";
}

/// The body and the styles of the original after a word got a style.
struct StyleCase {
    std::string what;
    std::string own;       ///< the original's styles
    std::string exported;  ///< the new styles of the export
    std::string id;        ///< of the style that the word has in the export
    std::string body;      ///< what the result contains, or the refusal
    std::string styles;    ///< likewise
};

TEST(WordGraftTest, AddsStylesThatTheOriginalDoesNotHave) {
    const std::string emphasis = style("E", "Emphasis", "<w:rPr><w:i/></w:rPr>");
    const std::vector<StyleCase> cases{
        {"known by its name", style("Own", "hyperlink", ""), style("I", "Hyperlink", "<w:rPr/>"), "I",
         "<w:rStyle w:val=\"Own\"/>", stylesPart(style("Own", "hyperlink", ""))},
        {"new", style("Own", "Other", ""), style("I", "Big Link", "<w:rPr><w:b/></w:rPr>"), "I",
         "<w:rStyle w:val=\"I\"/>",
         style("Own", "Other", "") + style("I", "Big Link", "<w:rPr><w:b/></w:rPr>")},
        {"its id is taken", style("I", "Other", "") + style("I1", "Another", ""), style("I", "Hyperlink", ""),
         "I", "<w:rStyle w:val=\"I2\"/>", style("I2", "Hyperlink", "")},
        {"a default one", "",
         "<w:style w:type=\"character\" w:default=\"1\" w:styleId=\"I\"><w:name w:val=\"New\"/></w:style>",
         "I", "<w:rStyle w:val=\"I\"/>", "w:default=\"0\" w:styleId=\"I\"><w:name w:val=\"New\"/>"},
        {"based on a known one", style("Own", "Emphasis", ""),
         emphasis +
             style("I", "New", "<w:basedOn w:val=\"E\"/><w:next w:val=\"I\"/><w:link w:val=\"gone\"/>"),
         "I", "<w:rStyle w:val=\"I\"/>",
         style("I", "New", "<w:basedOn w:val=\"Own\"/><w:next w:val=\"I\"/>")},
        {"based on a new one", "", emphasis + style("I", "New", "<w:basedOn w:val=\"E\"/>"), "I",
         "<w:rStyle w:val=\"I\"/>", style("E", "Emphasis", "<w:rPr><w:i/></w:rPr>")},
        {"of a list", "", style("I", "New", "<w:pPr><w:numPr><w:numId w:val=\"1\"/></w:numPr></w:pPr>"), "I",
         "refused: the style “New” is not in the file", ""},
    };
    for (const StyleCase& each : cases) {
        const auto file = [](const std::string& body, const std::string& styles) {
            return fileWith(body, {{"styles", "/word/styles.xml", stylesPart(styles)}});
        };
        const Triple triple{
            file(paragraph("word"), each.own), file(paragraph("word"), ""),
            file("<w:p>" + run("word", "<w:rStyle w:val=\"" + each.id + "\"/>") + "</w:p>", each.exported)};
        const model::GraftResult result = triple.graft();
        EXPECT_THAT(resultOf(result), HasSubstr(each.body)) << each.what;
        const auto* const grafted = std::get_if<model::GraftedPackage>(&result);
        if (grafted == nullptr) continue;
        EXPECT_THAT(opc::Package::read(grafted->bytes, "result").readPart("/word/styles.xml"),
                    HasSubstr(each.styles))
            << each.what;
    }
    const Triple none{wordFile(paragraph("word")), fileWith(paragraph("word"), {}),
                      fileWith("<w:p>" + run("word", "<w:rStyle w:val=\"I\"/>") + "</w:p>",
                               {{"styles", "/word/styles.xml", stylesPart(style("I", "New", ""))}})};
    EXPECT_EQ(resultOf(none.graft()), "refused: the style “New” is not in the file");
}

}  // namespace

}  // namespace mergeloom::graft
