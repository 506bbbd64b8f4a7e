#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/sheet/SheetDrawing.h"
#include "sheet/DrawnSheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace mergeloom::embedded {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::vector<double> numbers(const ShapeFrame& frame) {
    return {frame.left.value, frame.top.value, frame.width.value, frame.height.value};
}

/// A sheet of another program: a picture of 100 by 50 pixels, 10 pixels to the right of and 5 below the
/// corner of B3, in a sheet whose column B has 75 pixels, and a chart of 480 by 288 pixels at B10. The
/// program has also written the frame of the picture into a:xfrm.
const std::string kForeignColumns =
    R"(<cols><col min="2" max="2" width="10.7109375" customWidth="1"/></cols>)";
const std::string kForeignDrawing =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<xdr:wsDr xmlns:xdr="http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing" xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main"><xdr:twoCellAnchor editAs="oneCell"><xdr:from><xdr:col>1</xdr:col><xdr:colOff>95250</xdr:colOff><xdr:row>2</xdr:row><xdr:rowOff>47625</xdr:rowOff></xdr:from><xdr:to><xdr:col>2</xdr:col><xdr:colOff>333375</xdr:colOff><xdr:row>4</xdr:row><xdr:rowOff>142875</xdr:rowOff></xdr:to><xdr:pic><xdr:nvPicPr><xdr:cNvPr id="2" name="Picture 1" descr="logo.png"/><xdr:cNvPicPr><a:picLocks noChangeAspect="1"/></xdr:cNvPicPr></xdr:nvPicPr><xdr:blipFill><a:blip xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" r:embed="rId1"/><a:stretch><a:fillRect/></a:stretch></xdr:blipFill><xdr:spPr><a:xfrm><a:off x="704850" y="428625"/><a:ext cx="952500" cy="476250"/></a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom></xdr:spPr></xdr:pic><xdr:clientData/></xdr:twoCellAnchor><xdr:twoCellAnchor><xdr:from><xdr:col>1</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>9</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:from><xdr:to><xdr:col>8</xdr:col><xdr:colOff>200025</xdr:colOff><xdr:row>23</xdr:row><xdr:rowOff>76200</xdr:rowOff></xdr:to><xdr:graphicFrame macro=""><xdr:nvGraphicFramePr><xdr:cNvPr id="5" name="Chart 4"/><xdr:cNvGraphicFramePr/></xdr:nvGraphicFramePr><xdr:xfrm><a:off x="0" y="0"/><a:ext cx="0" cy="0"/></xdr:xfrm><a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/chart"><c:chart xmlns:c="http://schemas.openxmlformats.org/drawingml/2006/chart" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" r:id="rId2"/></a:graphicData></a:graphic></xdr:graphicFrame><xdr:clientData/></xdr:twoCellAnchor></xdr:wsDr>)";

/// A drawing without a prefix, as another program writes it.
const std::string kPlainDrawing =
    R"(<wsDr xmlns="http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing"><oneCellAnchor><from><col>2</col><colOff>0</colOff><row>3</row><rowOff>0</rowOff></from><ext cx="952500" cy="476250"/><pic><nvPicPr><cNvPr id="11" name="Image 1" descr="Picture"/><cNvPicPr/></nvPicPr><blipFill><a:blip xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" cstate="print" r:embed="rId1"/></blipFill><spPr/></pic><clientData/></oneCellAnchor></wsDr>)";

TEST(SheetDrawing, readsWhatAnotherProgramDrew) {
    DrawnSheet sheet(kForeignDrawing, kForeignColumns);
    const std::vector<SheetDrawing::ShapeId> shapes = sheet.drawing.shapes();
    ASSERT_EQ(shapes.size(), 2U);
    EXPECT_EQ(sheet.drawing.name(shapes[0]), "Picture 1");
    EXPECT_EQ(sheet.drawing.kind(shapes[0]), ShapeKind::Picture);
    EXPECT_THAT(numbers(sheet.drawing.frame(shapes[0])), ElementsAre(55.5, 33.75, 75, 37.5));
    EXPECT_EQ(sheet.drawing.topLeftCell(shapes[0]), at("B3"));
    EXPECT_EQ(sheet.drawing.name(shapes[1]), "Chart 4");
    EXPECT_EQ(sheet.drawing.kind(shapes[1]), ShapeKind::Chart);
    EXPECT_THAT(numbers(sheet.drawing.frame(shapes[1])), ElementsAre(48, 135, 360, 216));
    EXPECT_FALSE(sheet.drawing.isDirty());

    DrawnSheet plain(kPlainDrawing);
    EXPECT_THAT(numbers(plain.drawing.frame(plain.shape("IMAGE 1"))), ElementsAre(96, 45, 75, 37.5));
}

TEST(SheetDrawing, tellsKindsOfShapes) {
    const auto object = [](const std::string& element, const std::string& properties,
                           const std::string& rest) {
        return "<xdr:" + element + "><xdr:" + properties +
               "><xdr:cNvPr id=\"3\" name=\"Box\"/></xdr:" + properties + ">" + rest + "</xdr:" + element +
               ">";
    };
    const auto graphic = [&](const std::string& uri) {
        return object("graphicFrame", "nvGraphicFramePr",
                      "<a:graphic><a:graphicData uri=\"" + uri + "\"/></a:graphic>");
    };
    const auto choice = [](const std::string& newer, const std::string& older) {
        return "<mc:AlternateContent><mc:Choice Requires=\"x\">" + newer + "</mc:Choice><mc:Fallback>" +
               older + "</mc:Fallback></mc:AlternateContent>";
    };
    const std::string shape = object("sp", "nvSpPr", "");
    const std::string laterChart = graphic("http://schemas.microsoft.com/office/drawing/2014/chartex");
    const std::pair<std::string, ShapeKind> cases[] = {
        {oneCell(shape), ShapeKind::Other},
        {twoCells(object("cxnSp", "nvCxnSpPr", "")), ShapeKind::Other},
        {oneCell(object("grpSp", "nvGrpSpPr", pictureXml("Inner"))), ShapeKind::Other},
        {oneCell(object("contentPart", "nvContentPartPr", "")), ShapeKind::Other},
        {oneCell(graphic("http://schemas.openxmlformats.org/drawingml/2006/diagram")), ShapeKind::Other},
        {oneCell(graphic("http://purl.oclc.org/ooxml/drawingml/chart")), ShapeKind::Chart},
        {twoCells(choice(laterChart, shape)), ShapeKind::Chart},
        {choice(oneCell(shape), oneCell(pictureXml("Box"))), ShapeKind::Other},
        {"<xdr:absoluteAnchor><xdr:pos x=\"1\" y=\"2\"/><xdr:ext cx=\"3\" cy=\"4\"/>" + pictureXml("Box") +
             "</xdr:absoluteAnchor>",
         ShapeKind::Picture},
    };
    for (const auto& [xml, kind] : cases) {
        DrawnSheet sheet(drawingXml(xml + "<!-- no shape -->" + choice("", "")));
        ASSERT_EQ(sheet.drawing.shapes().size(), 1U) << xml;
        EXPECT_EQ(sheet.drawing.kind(sheet.shape("box")), kind) << xml;
        EXPECT_FALSE(sheet.drawing.find("Inner"));
    }
}

// 48 points to B and 30 points to row 3; the picture's size is that of its pixels at 96 dots per inch.
TEST(SheetDrawing, drawsOnASheetWithoutADrawing) {
    DrawnSheet sheet;
    EXPECT_THAT(sheet.drawing.shapes(), ElementsAre());
    EXPECT_FALSE(sheet.drawing.isDirty());
    const SheetDrawing::ShapeId shape = sheet.add("B3");
    EXPECT_THAT(numbers(sheet.drawing.frame(shape)), ElementsAre(48, 30, 75, 37.5));
    EXPECT_EQ(
        sheet.stored(),
        R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
        "\n"
        R"(<xdr:wsDr xmlns:xdr="http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing" )"
        R"(xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main"><xdr:oneCellAnchor><xdr:from>)"
        R"(<xdr:col>1</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>2</xdr:row><xdr:rowOff>0</xdr:rowOff>)"
        R"(</xdr:from><xdr:ext cx="952500" cy="476250"/><xdr:pic><xdr:nvPicPr>)"
        R"(<xdr:cNvPr id="2" name="Picture 1"/><xdr:cNvPicPr><a:picLocks noChangeAspect="1"/>)"
        R"(</xdr:cNvPicPr></xdr:nvPicPr><xdr:blipFill><a:blip )"
        R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" r:embed="rId1"/>)"
        R"(<a:stretch><a:fillRect/></a:stretch></xdr:blipFill><xdr:spPr><a:xfrm>)"
        R"(<a:off x="609600" y="381000"/><a:ext cx="952500" cy="476250"/></a:xfrm>)"
        R"(<a:prstGeom prst="rect"><a:avLst/></a:prstGeom></xdr:spPr></xdr:pic><xdr:clientData/>)"
        R"(</xdr:oneCellAnchor></xdr:wsDr>)");
    EXPECT_FALSE(sheet.drawing.isDirty());
    EXPECT_EQ(sheet.package.contentTypes().of(kDrawingPart),
              "application/vnd.openxmlformats-officedocument.drawing+xml");
    EXPECT_EQ(sheet.package.readPart("/xl/media/image1.gif"), gif());
    EXPECT_EQ(sheet.relationships().targetPart(*sheet.relationships().find("rId1")), "/xl/media/image1.gif");
    const opc::Relationships& ofSheet = sheet.package.relationshipsOf(kSheetPart);
    ASSERT_EQ(ofSheet.ofOfficeType("drawing").size(), 1U);
    EXPECT_EQ(ofSheet.targetPart(*ofSheet.ofOfficeType("drawing").front()), kDrawingPart);
    EXPECT_EQ(sheet.part.section("drawing"), "<drawing r:id=\"rId1\"/>");
    EXPECT_THAT(sheet.part.toXml(),
                HasSubstr("xmlns:r=\"" +
                          std::string(drawingNamespaces(opc::Conformance::Transitional).relationships)));
}

TEST(SheetDrawing, takesTheNamespacesOfAStrictWorkbook) {
    UndoLog undo;
    opc::Package package = opc::Package::empty();
    package.addPart(kWorkbookName, kSheetTypes + "sheet.main+xml", "<workbook/>");
    package.relationshipsOf("/").addPart(
        opc::officeRelationshipType("officeDocument", opc::Conformance::Strict), kWorkbookName);
    SheetPart part(
        R"(<worksheet xmlns="http://purl.oclc.org/ooxml/spreadsheetml/main"><sheetData/></worksheet>)",
        kSheetPart, "Orders.xlsx", undo);
    const StyleSheet styles;
    SheetGeometry geometry(part, styles, undo);
    PictureParts pictures(package);
    SheetDrawing drawing(package, part, geometry, pictures, undo);
    (void)drawing.addPicture(at("B3"), gif(), opc::PictureFile::read(gif(), "logo.gif"));
    drawing.store();
    EXPECT_THAT(package.readPart(kDrawingPart), Not(HasSubstr("schemas.openxmlformats.org")));
    EXPECT_THAT(part.toXml(), Not(HasSubstr("schemas.openxmlformats.org")));
    for (const std::string& source : {kSheetPart, kDrawingPart})
        EXPECT_THAT(package.relationshipsOf(source).all().front().type, HasSubstr("purl.oclc.org"));
}

TEST(SheetDrawing, putsAPictureInFrontOfAllOthers) {
    DrawnSheet sheet(kPlainDrawing);
    const SheetDrawing::ShapeId shape = sheet.add("A1");
    EXPECT_EQ(sheet.drawing.shapes().back(), shape);
    EXPECT_EQ(sheet.drawing.name(shape), "Picture 11");
    EXPECT_EQ(sheet.drawing.kind(shape), ShapeKind::Picture);
    const std::string xml = sheet.stored();
    EXPECT_THAT(xml, HasSubstr("<clientData/></oneCellAnchor><oneCellAnchor><from>"));
    EXPECT_THAT(xml, HasSubstr("<pic xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\">"
                               "<nvPicPr><cNvPr id=\"12\" name=\"Picture 11\"/>"));
    EXPECT_THAT(xml, Not(HasSubstr("xdr:")));
    DrawnSheet again(xml);
    EXPECT_EQ(again.drawing.shapes().size(), 2U);
}

TEST(SheetDrawing, givesManyPicturesNamesAndIdsOfTheirOwn) {
    DrawnSheet sheet(drawingXml(oneCell(pictureXml("picture 9"))));
    for (int i = 0; i < 300; ++i)
        (void)sheet.add("C4", gif(std::to_string(i % 2)));
    std::set<std::string> names;
    for (const SheetDrawing::ShapeId shape : sheet.drawing.shapes()) {
        names.insert(foldCase(sheet.drawing.name(shape)));
        EXPECT_EQ(sheet.shape(sheet.drawing.name(shape)), shape);
    }
    EXPECT_EQ(names.size(), 301U);
    EXPECT_EQ(sheet.relationships().all().size(), 4U);
    const std::string xml = sheet.stored();
    // The former picture has the id 7.
    for (const char* id : {" id=\"8\"", " id=\"9\"", " id=\"307\""}) {
        EXPECT_NE(xml.find(id), std::string::npos);
        EXPECT_EQ(xml.find(id), xml.rfind(id));
    }
}

TEST(SheetDrawing, findsShapesByTheirNames) {
    DrawnSheet sheet(drawingXml(oneCell(pictureXml("Logo")) + oneCell(pictureXml("LOGO")) +
                                oneCell(pictureXml("\u00C4rger"))));
    const std::vector<SheetDrawing::ShapeId> shapes = sheet.drawing.shapes();
    EXPECT_EQ(sheet.drawing.find("logo"), shapes[0]);
    EXPECT_EQ(sheet.drawing.find("\u00E4RGER"), shapes[2]);
    EXPECT_FALSE(sheet.drawing.find("Log"));
    sheet.drawing.setName(shapes[0], "A & B");
    EXPECT_EQ(sheet.drawing.find("logo"), shapes[1]);
    EXPECT_EQ(sheet.drawing.find("a & b"), shapes[0]);
    EXPECT_THAT(sheet.stored(), HasSubstr("name=\"A &amp; B\""));
    sheet.drawing.remove(shapes[1]);
    EXPECT_FALSE(sheet.drawing.find("logo"));
    EXPECT_FALSE(sheet.drawing.has(shapes[1]));
    try {
        (void)sheet.drawing.name(shapes[1]);
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kObjectDeleted);
    }
}

// 100 points are column C and 4 points of it, 50 points are row 4 and 5 points of it; the right edge at 160
// points is in column D, 16 points after its edge, the lower one at 75 points at the edge of row 6.
TEST(SheetDrawing, movesAndSizesShapes) {
    const ShapeFrame frame{{100}, {50}, {60}, {25}};
    const std::string from = markerXml("from", 2, 50800, 3, 63500);
    const std::string extent = R"(<xdr:ext cx="762000" cy="317500"/>)";
    const std::string transform = R"(<a:off x="1270000" y="635000"/><a:ext cx="762000" cy="317500"/>)";
    const std::pair<std::string, std::string> cases[] = {
        {oneCell(pictureXml("Logo")), from + extent},
        {twoCells(pictureXml("Logo")), from + markerXml("to", 3, 203200, 5, 0)},
        {"<xdr:absoluteAnchor><xdr:pos x=\"1\" y=\"2\"/><xdr:ext cx=\"3\" cy=\"4\"/>" + pictureXml("Logo") +
             "</xdr:absoluteAnchor>",
         "<xdr:pos x=\"1270000\" y=\"635000\"/>" + extent},
    };
    for (const auto& [anchor, moved] : cases) {
        DrawnSheet sheet(drawingXml(anchor));
        sheet.undo.start();
        sheet.drawing.setFrame(sheet.shape("Logo"), frame);
        EXPECT_THAT(numbers(sheet.drawing.frame(sheet.shape("Logo"))), ElementsAre(100, 50, 60, 25));
        EXPECT_THAT(sheet.stored(), HasSubstr(moved));
        EXPECT_THAT(sheet.stored(), HasSubstr(transform));
        EXPECT_EQ(sheet.stored().find("editAs"), std::string::npos);
        ASSERT_TRUE(sheet.undo.undo());
        EXPECT_EQ(sheet.stored(), drawingXml(anchor));
    }
}

TEST(SheetDrawing, movesAllAlternativesAndKeepsTransformsOfTurnedShapes) {
    const std::string rotated = replaceAll(pictureXml("Logo"), "<a:xfrm>", "<a:xfrm rot=\"5400000\">");
    const std::string choice = "<mc:AlternateContent><mc:Choice Requires=\"x\">" + oneCell(rotated) +
                               "</mc:Choice><mc:Fallback>" + oneCell(rotated) +
                               "</mc:Fallback></mc:AlternateContent>";
    DrawnSheet sheet(drawingXml(choice));
    sheet.drawing.setFrame(sheet.shape("Logo"), {{96}, {-5}, {10}, {-1}});
    sheet.drawing.setName(sheet.shape("Logo"), "Seal");
    std::string moved =
        replaceAll(drawingXml(choice), markerXml("from", 1, 0, 2, 0), markerXml("from", 2, 0, 0, 0));
    moved = replaceAll(moved, R"(cx="952500" cy="476250")", R"(cx="127000" cy="0")");
    EXPECT_EQ(sheet.stored(), replaceAll(moved, "\"Logo\"", "\"Seal\""));
}

TEST(SheetDrawing, takesOutWhatNothingElseShows) {
    const std::string twice = drawingXml(oneCell(pictureXml("One")) + oneCell(pictureXml("Two")));
    DrawnSheet sheet(twice);
    sheet.drawing.remove(sheet.shape("One"));
    EXPECT_TRUE(sheet.package.hasPart(kLogo));
    ASSERT_NE(sheet.relationships().find("rId1"), nullptr);
    sheet.drawing.remove(sheet.shape("Two"));
    EXPECT_FALSE(sheet.package.hasPart(kLogo));
    EXPECT_EQ(sheet.relationships().find("rId1"), nullptr);
    EXPECT_EQ(sheet.stored(), replaceAll(drawingXml(""), "></xdr:wsDr>", "/>"));

    DrawnSheet shared(twice);
    const std::string other = "/xl/drawings/drawing2.xml";
    shared.package.addPart(other, "text/xml", "<d/>");
    shared.package.relationshipsOf(other).addPart(relationType("image"), kLogo);
    shared.drawing.remove(shared.shape("One"));
    shared.drawing.remove(shared.shape("Two"));
    EXPECT_TRUE(shared.package.hasPart(kLogo));
    EXPECT_EQ(shared.relationships().find("rId1"), nullptr);

    DrawnSheet chart(kForeignDrawing);
    chart.drawing.remove(chart.shape("Chart 4"));
    EXPECT_TRUE(chart.package.hasPart(kChart));
    EXPECT_NE(chart.relationships().find("rId2"), nullptr);
}

TEST(SheetDrawing, takesAPictureOnANewDrawingBack) {
    DrawnSheet sheet;
    const std::vector<std::string> parts = sheet.package.partNames();
    const std::string xml = sheet.part.toXml();
    for (int i = 0; i < 2; ++i) {
        sheet.undo.start();
        const SheetDrawing::ShapeId shape = sheet.add("B3");
        (void)sheet.add("B4");
        if (i == 1) sheet.drawing.store();
        ASSERT_TRUE(sheet.undo.undo());
        EXPECT_EQ(sheet.package.partNames(), parts);
        EXPECT_TRUE(sheet.package.relationshipsOf(kSheetPart).all().empty());
        EXPECT_EQ(sheet.part.toXml(), xml);
        EXPECT_FALSE(sheet.drawing.has(shape));
        EXPECT_FALSE(sheet.drawing.isDirty());
    }
    const SheetDrawing::ShapeId later = sheet.add("B3");
    EXPECT_GT(later, 4);
}

TEST(SheetDrawing, takesAnAddedPictureBack) {
    DrawnSheet sheet(kForeignDrawing);
    const SheetDrawing::ShapeId kept = sheet.add("A1");
    const std::string before = sheet.stored();
    sheet.undo.start();
    (void)sheet.add("A1");
    (void)sheet.add("A2", gif("another"));
    ASSERT_TRUE(sheet.undo.undo());
    EXPECT_FALSE(sheet.drawing.isDirty());
    EXPECT_EQ(sheet.drawing.shapes().back(), kept);
    EXPECT_THAT(sheet.package.partNames(), Not(Contains("/xl/media/image3.gif")));
    EXPECT_TRUE(sheet.package.hasPart("/xl/media/image2.gif"));
    EXPECT_EQ(sheet.relationships().all().size(), 3U);
    sheet.drawing.setName(kept, sheet.drawing.name(kept));
    EXPECT_EQ(sheet.stored(), before);
}

TEST(SheetDrawing, bringsARemovedPictureBack) {
    const std::string xml =
        drawingXml(oneCell(pictureXml("One")) + twoCells(pictureXml("Two"), " editAs=\"oneCell\"") +
                   oneCell(pictureXml("Three", "rId2")));
    DrawnSheet sheet(xml);
    const std::vector<SheetDrawing::ShapeId> shapes = sheet.drawing.shapes();
    sheet.undo.start();
    sheet.drawing.setName(shapes[1], "Other");
    sheet.drawing.remove(shapes[0]);
    sheet.drawing.remove(shapes[1]);
    sheet.drawing.store();
    ASSERT_TRUE(sheet.undo.undo());
    EXPECT_EQ(sheet.drawing.shapes(), shapes);
    EXPECT_EQ(sheet.shape("Two"), shapes[1]);
    EXPECT_EQ(sheet.package.readPart(kLogo), "logo");
    EXPECT_EQ(sheet.package.contentTypes().of(kLogo), "image/png");
    EXPECT_TRUE(sheet.drawing.isDirty());
    EXPECT_EQ(sheet.relationships().targetPart(*sheet.relationships().find("rId1")), kLogo);
    EXPECT_EQ(sheet.stored(), xml);
    sheet.drawing.remove(shapes[0]);
    sheet.drawing.remove(shapes[1]);
    EXPECT_FALSE(sheet.package.hasPart(kLogo));
}

// The picture reaches from 20 pixels inside of B (64 pixels from the edge) to D: 108 by 30 pixels, 81 by 22.5
// points, 63 points from the left edge.
TEST(SheetDrawing, keepsSizesWhenColumnsAndRowsChange) {
    struct {
        const char* hold;
        std::vector<double> wider;   // column C 100 pixels wider, row 4 with 40 instead of 20 pixels
        std::vector<double> before;  // column A 100 pixels wider
    } const cases[] = {
        {"", {63, 37.5, 156, 37.5}, {138, 37.5, 81, 22.5}},
        {R"( editAs="twoCell")", {63, 37.5, 156, 37.5}, {138, 37.5, 81, 22.5}},
        {R"( editAs="oneCell")", {63, 37.5, 81, 22.5}, {138, 37.5, 81, 22.5}},
        {R"( editAs="absolute")", {63, 37.5, 81, 22.5}, {63, 37.5, 81, 22.5}},
    };
    const double wide = (164.0 - 5) / 7;
    for (const auto& [hold, wider, before] : cases) {
        const std::string xml = drawingXml(twoCells(pictureXml("Logo"), hold));
        DrawnSheet sheet(xml);
        EXPECT_THAT(numbers(sheet.drawing.frame(sheet.shape("Logo"))), ElementsAre(63, 37.5, 81, 22.5));
        sheet.undo.start();
        sheet.drawing.keepSizes([&] {
            sheet.geometry.setColumnWidth(3, {wide});
            sheet.geometry.setRowHeight(4, {30});
        });
        EXPECT_EQ(numbers(sheet.drawing.frame(sheet.shape("Logo"))), wider) << hold;
        ASSERT_TRUE(sheet.undo.undo());
        EXPECT_FALSE(sheet.drawing.isDirty());
        sheet.drawing.keepSizes([&] { sheet.geometry.setColumnWidth(1, {wide}); });
        EXPECT_EQ(numbers(sheet.drawing.frame(sheet.shape("Logo"))), before) << hold;
    }
}

TEST(SheetDrawing, leavesAnchorsThatNeedNoChangeAlone) {
    DrawnSheet sheet(
        drawingXml(oneCell(pictureXml("One")) + twoCells(pictureXml("Two"), " editAs=\"oneCell\"")));
    sheet.drawing.keepSizes([&] {
        sheet.geometry.setColumnWidth(1, {20});
        sheet.geometry.setColumnWidth(4, {20});
    });
    EXPECT_FALSE(sheet.drawing.isDirty());
    EXPECT_THAT(numbers(sheet.drawing.frame(sheet.shape("One"))), ElementsAre(108.75, 30, 75, 37.5));
    sheet.drawing.remove(sheet.shape("Two"));
    sheet.drawing.keepSizes([&] { sheet.geometry.setColumnWidth(3, {20}); });
    EXPECT_EQ(sheet.geometry.columnWidth(3).value, 20);
    DrawnSheet empty;
    empty.drawing.keepSizes([&] { empty.geometry.setColumnWidth(1, {20}); });
    EXPECT_EQ(empty.geometry.columnWidth(1).value, 20);
}

TEST(SheetDrawing, refusesADamagedDrawingOnlyWhenItIsAskedFor) {
    const std::pair<std::string, std::string> cases[] = {
        {"<xdr:wsDr>", "is not well-formed XML"},
        {"<other/>", "its part /xl/drawings/drawing1.xml is no drawing"}};
    for (const auto& [xml, reason] : cases) {
        DrawnSheet sheet(xml);
        sheet.drawing.keepSizes([&] { sheet.geometry.setColumnWidth(1, {20}); });
        EXPECT_EQ(sheet.geometry.columnWidth(1).value, 20);
        sheet.drawing.store();
        EXPECT_EQ(sheet.package.readPart(kDrawingPart), xml);
        try {
            (void)sheet.add("A1");
            FAIL() << xml;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead);
            EXPECT_THAT(error.description(), HasSubstr(reason));
        }
        EXPECT_THAT(sheet.package.partNames(), Not(Contains("/xl/media/image1.gif")));
    }
    DrawnSheet dangling(drawingXml(""));
    dangling.package.relationshipsOf(kSheetPart).remove("rId1");
    EXPECT_THROW((void)dangling.drawing.shapes(), AutomationError);
}

}  // namespace
}  // namespace mergeloom::embedded
