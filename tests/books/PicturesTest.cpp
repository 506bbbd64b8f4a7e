#include "books/BookTest.h"
#include "doubles/PackageBytes.h"
#include "doubles/TurnedPicture.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::string kDrawing = "/xl/drawings/drawing1.xml";
const std::string kRelationships = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

RecordControl image(const std::string& name, const std::string& path) {
    return {.name = name, .image = path, .records = {}};
}

/// A workbook with a picture at B2, in the row that lists the lines of an order or in no table.
class BookPictures : public BookTest {
  protected:
    BookPictures() {
        names("ammLines", "$A$1:$B$2");
        names("ammLinesX", "$A$2");
        names("ammPicture", "$B$2");
        takes("ammPicture", {{"Picture"}});
        settings.findPicture = [this](const std::string& path) { return files.fileExists(path) ? path : ""; };
        // The picture is twice as high as wide.
        files.files["/tall.bmp"] = bitmap(10, 20);
        files.files["/wide.bmp"] = bitmap(20, 10);
    }

    void inTable() {
        lists("ammLines", {"Lines"});
        takes("ammLinesX", {{"Lines", "X"}});
        takes("ammPicture", {{"Lines", "Picture"}});
    }

    static std::string bitmap(int width, int height) {
        std::string bytes(54, '\0');
        bytes[0] = 'B';
        bytes[1] = 'M';
        bytes[14] = 40;
        bytes[18] = static_cast<char>(width);
        bytes[22] = static_cast<char>(height);
        bytes[26] = 1;
        bytes[28] = 24;
        return bytes;
    }

    [[nodiscard]] std::string file() const {
        opc::Package package = workbookPackage(
            {{"Sheet1", "<sheetData>" + sheetRow(1, textCell("A1", "X")) +
                            sheetRow(2, textCell("A2", "[X]"), " ht=\"15\" customHeight=\"1\"") +
                            sheetRow(3, textCell("A3", "foot")) + "</sheetData><drawing xmlns:r=\"" +
                            kRelationships + "\" r:id=\"rId1\"/>"}},
            allNames());
        package.addPart(
            kDrawing, "application/vnd.openxmlformats-officedocument.drawing+xml",
            "<d:wsDr xmlns:d='http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing' "
            "xmlns:a='http://schemas.openxmlformats.org/drawingml/2006/main' xmlns:r='" +
                kRelationships +
                "'><d:twoCellAnchor "
                "editAs='oneCell'><d:from><d:col>1</d:col>"
                "<d:colOff>0</d:colOff><d:row>1</d:row><d:rowOff>0</d:rowOff></"
                "d:from><d:to><d:row>1</d:row></d:to>"
                "<d:pic><d:nvPicPr><d:cNvPr id='2' "
                "name='ammPicture'/></d:nvPicPr><d:blipFill><a:blip r:embed='rId1'/>"
                "<a:srcRect l='5'/></d:blipFill><d:spPr><a:xfrm><a:ext cx='127000' "
                "cy='127000'/></a:xfrm></d:spPr></d:pic>"
                "<d:clientData/></d:twoCellAnchor></d:wsDr>");
        package.relationshipsOf(sheetPart(1)).addPart(officeType("drawing"), kDrawing);
        package.addPart("/xl/media/image1.bmp", "image/bmp", bitmap(10, 10));
        package.relationshipsOf(kDrawing).addPart(officeType("image"), "/xl/media/image1.bmp");
        return packageBytes(package);
    }
};

TEST_F(BookPictures, AreReplacedAtTheWidthOfThePlace) {
    const std::string source = file();
    const std::string book = filled(source, {{{image("Picture", "/tall.bmp")}}});
    const std::string drawing = partOf(book, kDrawing);
    EXPECT_THAT(drawing, HasSubstr("<d:oneCellAnchor><d:from>"));
    EXPECT_THAT(drawing, HasSubstr("</d:from><d:ext cx=\"127000\" cy=\"254000\"/><d:pic>"));
    EXPECT_THAT(drawing, Not(HasSubstr("srcRect")));
    opc::Package package = opc::Package::read(book, "book.xlsx");
    const opc::Relationship* const link = package.relationshipsOf(kDrawing).find("rId2");
    ASSERT_NE(link, nullptr);
    EXPECT_THAT(drawing, HasSubstr("r:embed=\"rId2\""));
    EXPECT_EQ(package.readPart(package.relationshipsOf(kDrawing).targetPart(*link)),
              files.files["/tall.bmp"]);
    // The row is as high as the picture.
    EXPECT_THAT(shownRows(book), HasSubstr("<2 ht=\"20\" customHeight=\"1\">"));
    EXPECT_EQ(partOf(filled(source, {{}}), kDrawing), partOf(source, kDrawing));
}

/// A rotated picture keeps the width of its place.
TEST_F(BookPictures, TurnAsTheirFilesSay) {
    files.files["/turned.jpg"] = turnedPicture(6);
    const std::string drawing = partOf(filled(file(), {{{image("Picture", "/turned.jpg")}}}), kDrawing);
    EXPECT_THAT(drawing, HasSubstr("<a:xfrm rot=\"5400000\">"));
    EXPECT_THAT(drawing, HasSubstr("<a:ext cx=\"254000\" cy=\"127000\"/>"));
}

TEST_F(BookPictures, AreRepeatedWithTheRowsOfATable) {
    inTable();
    const std::vector<Record> records{
        {{subform("Lines", {{{shown("X", "a"), image("Picture", "/tall.bmp")}},
                            {{shown("X", "b")}},
                            {{shown("X", "c"), image("Picture", "/wide.bmp")}}})}}};
    const std::string once = filled(file(), records);
    const std::string drawing = partOf(once, kDrawing);
    std::vector<std::string> found;
    for (const char* const text : {"<d:row>1<", "<d:row>2<", "<d:row>3<"})
        found.push_back(drawing.find(text) == std::string::npos ? "missing" : "there");
    EXPECT_THAT(found, ElementsAre("there", "there", "there"));
    EXPECT_THAT(drawing, HasSubstr("id=\"3\" name=\"_MergeloomPicture3\""));
    EXPECT_THAT(drawing, HasSubstr("id=\"4\" name=\"_MergeloomPicture4\""));
    EXPECT_THAT(drawing, HasSubstr("cx=\"127000\" cy=\"63500\""));
    EXPECT_EQ(shownRows(once),
              "<1><A1>X\n<2 ht=\"20\" customHeight=\"1\"><A2>a\n"
              "<3 ht=\"15\" customHeight=\"1\"><A3>b\n"
              "<4 ht=\"5\" customHeight=\"1\"><A4>c\n<5><A5>foot");
    // A second filling removes the repetitions of the picture.
    const std::string again = partOf(filled(once, {{{subform("Lines", {{{shown("X", "d")}}})}}}), kDrawing);
    EXPECT_THAT(again, Not(HasSubstr("_MergeloomPicture")));
}

TEST_F(BookPictures, OfATableWithoutRecordsAreHidden) {
    inTable();
    const std::string empty = filled(file(), {{}});
    EXPECT_THAT(partOf(empty, kDrawing), HasSubstr("name=\"ammPicture\" hidden=\"1\""));
    const std::string again = filled(empty, {{{subform("Lines", {{{shown("X", "d")}}})}}});
    EXPECT_THAT(partOf(again, kDrawing), Not(HasSubstr("hidden")));
}

TEST_F(BookPictures, ThatCannotBeReadAreTold) {
    files.files["/text.png"] = "no picture";
    const auto letters = compiled(file());
    for (const char* const path : {"/none.png", "/text.png"}) {
        const Record record{{image("Picture", path)}};
        files.save("/book.xlsx", [&](ByteSink& sink) { letters->write({&record, 1}, sink); });
        EXPECT_THAT(partOf(files.files["/book.xlsx"], kDrawing), HasSubstr("rId1"));
    }
    EXPECT_THAT(letters->remarks(), ElementsAre(HasSubstr("/text.png"), "There is no picture '/none.png'."));
}

}  // namespace
}  // namespace mergeloom
