#include "base/Text.h"
#include "graft/Triple.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace mergeloom::graft {

namespace {

std::string mark(const std::string& type) {
    return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>";
}

std::string field(const std::string& code, const std::string& result) {
    return mark("begin") + "<w:r><w:instrText>" + code + "</w:instrText></w:r>" + mark("separate") +
           run(result) + mark("end");
}

/// Returns a field whose code contains a page number.
std::string nestedField(const std::string& page, const std::string& result) {
    return mark("begin") + "<w:r><w:instrText>IF </w:instrText></w:r>" + field("PAGE", page) +
           mark("separate") + run(result) + mark("end");
}

std::string simpleField(const std::string& code, const std::string& result) {
    return "<w:fldSimple w:instr=\"" + code + "\">" + run(result) + "</w:fldSimple>";
}

std::string control(const std::string& tag, const std::string& content) {
    return "<w:sdt><w:sdtPr><w:tag w:val=\"" + tag + "\"/></w:sdtPr><w:sdtContent>" + content +
           "</w:sdtContent></w:sdt>";
}

std::string link(const std::string& anchor, const std::string& content) {
    return "<w:hyperlink w:anchor=\"" + anchor + "\">" + content + "</w:hyperlink>";
}

std::string p(const std::string& content) {
    return "<w:p>" + content + "</w:p>";
}

std::string cell(const std::string& content) {
    return "<w:tc><w:tcPr><w:tcW w:w=\"100\" w:type=\"dxa\"/></w:tcPr>" + content + "</w:tc>";
}

std::string row(const std::string& cells) {
    return "<w:tr>" + cells + "</w:tr>";
}

std::string table(const std::string& rows) {
    return "<w:tbl><w:tblPr/><w:tblGrid><w:gridCol w:w=\"100\"/><w:gridCol w:w=\"100\"/></w:tblGrid>" + rows +
           "</w:tbl>";
}

const std::string kFirst = paragraph("First");
const std::string kCellA = cell(paragraph("a"));
const std::string kCellB = cell(paragraph("b"));
const std::string kRow = row(kCellA + kCellB);
const std::string kTable = table(kRow);
const std::string kOtherRow = row(cell(paragraph("c") + paragraph("d")) + cell(p("")));

std::string start(const std::string& id, const std::string& name) {
    return "<w:bookmarkStart w:id=\"" + id + "\" w:name=\"" + name + "\"/>";
}
std::string end(const std::string& id) {
    return "<w:bookmarkEnd w:id=\"" + id + "\"/>";
}

const std::string kShape = "<w:r><w:drawing><wp:anchor/></w:drawing></w:r>";

const std::string kBoxes =
    "<w:r><mc:AlternateContent "
    "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\"><mc:Choice "
    "Requires=\"wps\"><w:txbxContent>" +
    p(start("1", "A") + run("a") + end("1")) + "</w:txbxContent></mc:Choice><mc:Fallback><w:txbxContent>" +
    p(start("2", "A") + run("a") + end("2")) + "</w:txbxContent></mc:Fallback></mc:AlternateContent></w:r>";

/// An edit of a document whose export has the same XML.
struct Edit {
    std::string what;
    std::string before;
    std::string after;

    [[nodiscard]] Triple triple() const { return {wordFile(before), wordFile(before), wordFile(after)}; }
};

/// The attributes of a link in two exports, and those in the result or the refusal.
struct LinkCase {
    std::string former;
    std::string now;
    std::string expected;
};

/// A document with a link, for which r1 and r2 are addresses and r3 is a part.
std::string linkedFile(const std::string& attributes) {
    opc::Package package = opc::Package::read(
        wordFile(p("<w:hyperlink " + attributes + ">" + run("x") + "</w:hyperlink>")), "a.docx");
    opc::Relationships& relationships = package.relationshipsOf(kMainPart);
    const std::string type = opc::officeRelationshipType("hyperlink", opc::Conformance::Transitional);
    const std::string address = relationships.addExternal(type, "http://former/");
    const std::string other = relationships.addExternal(type, "http://now/");
    const std::string part = relationships.addPart(type, kMainPart);
    std::string xml = replaceAll(
        package.readPart(kMainPart), "<w:document ",
        "<w:document xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" ");
    const std::pair<std::string, std::string> ids[] = {
        {"r:id=\"r1\"", address}, {"r:id=\"r2\"", other}, {"r:id=\"r3\"", part}};
    for (const auto& [written, id] : ids)
        xml = replaceAll(xml, written, std::string("r:id=\"").append(id).append("\""));
    package.writePart(kMainPart, xml);
    return packageBytes(package);
}

TEST(WordStructureTest, SetsTheTargetOfLinks) {
    const LinkCase cases[] = {
        {"w:anchor=\"a\"", "r:id=\"r2\"", "http://now/"},
        {"r:id=\"r1\"", "r:id=\"r2\"", "http://now/"},
        {"r:id=\"r1\"", "w:anchor=\"a\"", "w:anchor=\"a\""},
        {"r:id=\"r1\" w:anchor=\"a\"", "r:id=\"r2\" w:tooltip=\"tip\"", "w:tooltip=\"tip\" http://now/"},
        {"r:id=\"r1\"", "r:id=\"r3\"", "refused: a link to a part of the file was set"},
    };
    for (const LinkCase& each : cases) {
        const Triple triple{linkedFile(each.former), linkedFile(each.former), linkedFile(each.now)};
        const model::GraftResult result = triple.graft();
        const auto* const grafted = std::get_if<model::GraftedPackage>(&result);
        if (grafted == nullptr) {
            EXPECT_EQ(resultOf(result), each.expected);
            continue;
        }
        opc::Package package = opc::Package::read(grafted->bytes, "a.docx");
        const std::string body = bodyOf(grafted->bytes);
        const std::size_t start = body.find("<w:hyperlink ") + 13;
        std::string shown = body.substr(start, body.find('>', start) - start);
        for (const opc::Relationship& relationship : package.relationshipsOf(kMainPart).all())
            shown = replaceAll(shown, "r:id=\"" + relationship.id + "\"", relationship.target);
        EXPECT_EQ(shown, each.expected) << each.former << " to " << each.now;
    }
}

TEST(WordStructureTest, RepeatsChangesOfFieldsPlacesAndTables) {
    const Edit edits[] = {
        {"the text of a link", p(field("HYPERLINK \"x\"", "old")), p(field("HYPERLINK \"x\"", "old new"))},
        {"the text of a link of one element", p(simpleField("HYPERLINK x", "old")),
         p(simpleField("HYPERLINK x", "old new"))},
        {"text beside a field", p(run("on ") + field("PAGE", "1")), p(run("on page ") + field("PAGE", "4"))},
        {"text between fields", p(field("PAGE", "1") + run(" ") + field("DATE", "2")),
         p(field("PAGE", "1") + run(" of ") + field("DATE", "3"))},
        {"a place that grows", p(marked("City", run("Old")) + run(" text")),
         p(marked("City", run("Old") + run(" text")))},
        {"a place that shrinks at its start", p(marked("City", run("Old text"))),
         p(run("Old ") + marked("City", run("text")))},
        {"a place in another paragraph", p(marked("City", run("Old"))) + kLast,
         p(run("Old")) + p(marked("City", run("Last")))},
        {"an empty place", p(run("ab")), p(marked("City", "") + run("ab"))},
        {"a place in an empty paragraph", p("") + kLast, p(marked("City", "")) + kLast},
        {"text after an empty place", p(marked("City", "") + run("ab")), p(marked("City", "") + run("abc"))},
        {"text before a place", p(marked("City", run("ab")) + run("c")),
         p(run("x") + marked("City", run("ab")) + run("c"))},
        {"text after a place", p(marked("City", run("ab")) + run("c")),
         p(marked("City", run("ab")) + run("xc"))},
        {"text in a place", p(marked("City", run("ab")) + run("c")),
         p(marked("City", run("axb")) + run("c"))},
        {"a table", kFirst + kLast, kFirst + table(kOtherRow + kRow) + kLast},
        {"a table at the end", kFirst, kFirst + kTable + p("")},
        {"text and a table at the end", kFirst, paragraph("First too") + kTable + p("")},
        {"another end of a text and a table", kFirst + paragraph("ab"),
         kFirst + paragraph("ac") + kTable + p("")},
        {"a table at the end after a new paragraph", kFirst, kFirst + kLast + kTable + p("")},
        {"a paragraph after a new table", kFirst + kLast, kFirst + kTable + paragraph("x") + kLast},
        {"a table over which a place reaches", kFirst,
         kFirst + table(row(cell(p(start("1", "T") + run("a"))) + kCellB)) + end("1") + p("")},
        {"a row at the end", kFirst + kTable + kLast, kFirst + table(kRow + kOtherRow) + kLast},
        {"two rows at the end", kTable + kLast, table(kRow + kOtherRow + kRow) + kLast},
        {"a table gone", kFirst + kTable + kLast, kFirst + kLast},
        {"a word in a cell", kTable + kLast, table(row(kCellA + cell(paragraph("bc")))) + kLast},
        {"a paragraph at the end of a cell", kTable + kLast,
         table(row(cell(paragraph("a") + paragraph("x")) + kCellB)) + kLast},
        {"a paragraph at the start of a cell", kTable + kLast,
         table(row(cell(paragraph("x") + paragraph("a")) + kCellB)) + kLast},
        {"a paragraph after a table", kTable + kLast, kTable + paragraph("x") + kLast},
        {"a paragraph before a table", kFirst + kTable + kLast, kFirst + paragraph("x") + kTable + kLast},
        {"two paragraphs in one", kFirst + kLast, paragraph("FirstLast")},
        {"one paragraph in two", paragraph("FirstLast"), kFirst + kLast},
        {"a link around the same text", p(run("x")), p(link("a", run("x")))},
        {"a link around a word", p(run("a word more")), p(run("a ") + link("a", run("word")) + run(" more"))},
        {"a link around two formats", p(run("a") + run("b", "<w:b/>")),
         p(link("a", run("a") + run("b", "<w:b/>")))},
        {"a link around a place", p(run("a ") + marked("City", run("b"))),
         p(run("a ") + link("a", marked("City", run("b"))))},
        {"a link before a floating shape", p(run("x") + kShape + run("y")),
         p(link("a", run("x")) + kShape + run("y"))},
        {"a link after a floating shape", p(run("y") + kShape + run("x")),
         p(run("y") + kShape + link("a", run("x")))},
        {"a link to something else", p(link("a", run("x")) + run("y")), p(link("b", run("x")) + run("y"))},
        {"a link gone", p(run("a") + link("a", run("x")) + run("y")), p(run("axy"))},
        {"a new text with a link", p(run("x")), p(run("x") + link("a", run("new")))},
        {"a new paragraph with a link", kFirst + kLast, kFirst + p(link("a", run("new"))) + kLast},
        {"text in a link", p(link("a", run("xy")) + run("z")), p(link("a", run("xny")) + run("z"))},
        {"two links side by side", p(run("ab")), p(link("a", run("a")) + link("b", run("b")))},
        {"two links", p(run("a b")), p(link("a", run("a")) + run(" ") + link("b", run("b")))},
        {"text across paragraphs", kFirst + paragraph("Mid") + kLast, paragraph("Fine") + kLast},
    };
    for (const Edit& edit : edits) {
        const Triple triple = edit.triple();
        const model::GraftResult result = triple.graft();
        const auto* const grafted = std::get_if<model::GraftedPackage>(&result);
        ASSERT_NE(grafted, nullptr) << edit.what << ": " << resultOf(result);
        EXPECT_EQ(triple.fault(grafted->bytes), "") << edit.what << ": " << bodyOf(grafted->bytes);
        EXPECT_NE(triple.fault(triple.original), "") << edit.what;
    }
}

/// Texts that the office computes, and comments in its XML.
std::string floating(const std::string& name, const std::string& content) {
    return "<w:r><w:drawing><wp:anchor behindDoc=\"0\" wp14:anchorId=\"7\"><wp14:sizeRelH/><wp:docPr "
           "id=\"3\" name=\"" +
           name + "\"/><a:graphic><a:graphicData>" + content +
           "</a:graphicData></a:graphic></wp:anchor></w:drawing></w:r>";
}

/// A document with a picture as a part, which the body may show.
std::string illustratedFile(const std::string& body) {
    const std::string gif = std::string("GIF89a\x10\0\x10\0\0\0\0;", 14);
    opc::Package package = opc::Package::read(wordFile(body), "a.docx");
    package.addPart("/word/media/image9.gif", "image/gif", gif);
    const std::string id = package.relationshipsOf(kMainPart).addPart(
        opc::officeRelationshipType("image", opc::Conformance::Transitional), "/word/media/image9.gif");
    package.writePart(kMainPart, replaceAll(package.readPart(kMainPart), "PICTURE", id));
    return packageBytes(package);
}

TEST(WordStructureTest, InsertsFloatingPictures) {
    const std::string picture =
        floating("New", "<pic:pic><pic:cNvPr id=\"3\"/><a:blip r:embed=\"PICTURE\"/></pic:pic>");
    const std::string shape = floating("Old", "<wps:wsp/>");
    const std::string changed = floating("Old", "<wps:wsp><wps:spPr/></wps:wsp>");
    const auto graft = [](const std::string& former, const std::string& now) {
        return resultOf(Triple{wordFile(former), wordFile(former), illustratedFile(now)}.graft());
    };
    const auto bodyBeside = [&](const std::string& other) {
        return graft(p(other + run("ab")) + kLast, p(other + run("a") + picture + run("bc")) + kLast);
    };
    for (const std::string& body : {bodyBeside(""), bodyBeside(shape)}) {
        const std::size_t start = body.find("<wp:anchor", body.find("<w:t>a</w:t>"));
        ASSERT_NE(start, std::string::npos) << body;
        const std::string form = body.substr(start, body.find("</wp:anchor>") - start);
        EXPECT_NE(form.find("behindDoc=\"0\""), std::string::npos) << form;
        EXPECT_NE(form.find("name=\"New\""), std::string::npos) << form;
        EXPECT_EQ(form.find("wp14:"), std::string::npos) << form;
        EXPECT_LT(start, body.find("<w:t>bc</w:t>")) << body;
    }
    // Its object is in another paragraph after a split.
    EXPECT_EQ(graft(p(run("a") + shape + run("b")), p(run("a") + shape) + p(run("b"))),
              p(run("a") + shape) + p(run("b")));
    EXPECT_EQ(graft(p(shape + run("a")), p(changed + run("a") + picture)),
              "refused: an object was inserted and another one changed");
    EXPECT_EQ(graft(p(run("a")), p(run("a") + shape)), "refused: an object was inserted");
}

TEST(WordStructureTest, IgnoresWhatNoUserChanged) {
    const Edit edits[] = {
        {"a page number", p(field("PAGE", "1")), p(field("PAGE", "2"))},
        {"a page number of one element", p(simpleField("PAGE", "1")), p(simpleField("PAGE", "2"))},
        {"a number in a code", p(nestedField("1", "x")), p(nestedField("2", "y"))},
        {"a comment", p(run("x")), p("<!-- y -->" + run("x"))},
        {"a place written as one for each paragraph",
         p(start("1", "A") + run("x")) + p(start("2", "A") + run("y") + end("2")),
         p(start("1", "A") + run("x")) + p(run("y") + end("1"))},
        {"a place in a text box that is written twice", p(kBoxes) + p(start("7", "B") + run("x") + end("7")),
         p(kBoxes) + p(run("") + start("7", "B") + run("x") + end("7"))},
        {"a place over a table written as one to its last cell",
         table(row(cell(p(start("1", "T") + run("a"))) + cell(p(start("2", "T") + run("b") + end("2"))))) +
             kLast,
         table(row(cell(p(start("1", "T") + run("a"))) + kCellB)) + end("1") + kLast},
    };
    for (const Edit& edit : edits)
        EXPECT_EQ(resultOf(edit.triple().graft()), "nothing changed") << edit.what;
}

/// Changes without a rule are refused, or the proof of the result fails.
TEST(WordStructureTest, RefusesOtherChanges) {
    const Edit edits[] = {
        {"the code of a field", p(field("PAGE", "1")), p(field("NUMPAGES", "1"))},
        {"the code of one element", p(simpleField("PAGE", "1")), p(simpleField("NUMPAGES", "1"))},
        {"a new field", p(run("x")), p(run("x") + field("PAGE", "1"))},
        {"a control's properties", p(control("a", run("x"))), p(control("b", run("x")))},
        {"a control around the same text", p(control("a", run("x"))), p(run("x"))},
        {"a control around other text", p(control("a", run("x")) + run("y")),
         p(run("x") + control("a", run("y")))},
        {"a part of a link gone", p(link("a", run("xy"))), p(link("a", run("x")) + run("y"))},
        {"a link around a control", p(control("a", run("x")) + run("y")),
         p(link("a", control("a", run("x")) + run("y")))},
        {"a row at the start", kTable + kLast, table(kOtherRow + kRow) + kLast},
        {"the properties of a row", kTable + kLast,
         table(row("<w:trPr><w:tblHeader/></w:trPr>" + kCellA + kCellB)) + kLast},
        {"a paragraph before the first table", kTable + kLast, paragraph("x") + kTable + kLast},
        {"a table in a table", kFirst + kLast, kFirst + table(row(cell(kTable + p("")) + kCellB)) + kLast},
    };
    for (const Edit& edit : edits) {
        const Triple triple = edit.triple();
        const model::GraftResult result = triple.graft();
        EXPECT_FALSE(std::holds_alternative<model::NothingChanged>(result)) << edit.what;
        const auto* const grafted = std::get_if<model::GraftedPackage>(&result);
        if (grafted == nullptr) continue;
        EXPECT_NE(triple.fault(grafted->bytes), "") << edit.what << ": " << bodyOf(grafted->bytes);
    }
}

}  // namespace

}  // namespace mergeloom::graft
