#pragma once

#include "office/embedded/sheet/SheetDrawing.h"
#include "sheet/SheetXml.h"
#include "sheet/WorkbookFiles.h"

#include <string>

/// A sheet with a drawing, in a package of its own.
namespace mergeloom::embedded {

inline const std::string kSheetPart = "/xl/worksheets/sheet1.xml";
inline const std::string kDrawingPart = "/xl/drawings/drawing1.xml";
inline const std::string kLogo = "/xl/media/image1.png";
inline const std::string kChart = "/xl/charts/chart1.xml";

/// A picture of 100 by 50 pixels, thus 952500 by 476250 EMU or 75 by 37.5 points.
inline std::string gif(const std::string& pixels = "pixels") {
    return std::string("GIF89a\x64\0\x32\0\0\0\0", 13) + pixels;
}

inline std::string drawingXml(const std::string& anchors) {
    return "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\" "
           "xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" "
           "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" "
           "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\">" +
           anchors + "</xdr:wsDr>";
}

inline std::string pictureXml(const std::string& name, const std::string& relationshipId = "rId1") {
    return R"(<xdr:pic><xdr:nvPicPr><xdr:cNvPr id="7" name=")" + name +
           R"("/><xdr:cNvPicPr/></xdr:nvPicPr><xdr:blipFill><a:blip r:embed=")" + relationshipId +
           R"("/></xdr:blipFill><xdr:spPr><a:xfrm><a:off x="1" y="2"/><a:ext cx="3" cy="4"/></a:xfrm></xdr:spPr></xdr:pic>)";
}

inline std::string markerXml(const std::string& name, int column, int right, int row, int down) {
    const auto element = [](const std::string& inner, int number) {
        return "<xdr:" + inner + ">" + std::to_string(number) + "</xdr:" + inner + ">";
    };
    return "<xdr:" + name + ">" + element("col", column) + element("colOff", right) + element("row", row) +
           element("rowOff", down) + "</xdr:" + name + ">";
}

/// Returns an anchor from B3, 20 and 10 pixels inside it, to D5.
inline std::string twoCells(const std::string& object, const std::string& attributes = "") {
    return "<xdr:twoCellAnchor" + attributes + ">" + markerXml("from", 1, 190500, 2, 95250) +
           markerXml("to", 3, 0, 4, 0) + object + "<xdr:clientData/></xdr:twoCellAnchor>";
}

/// Returns an anchor at B3 with 100 by 50 pixels.
inline std::string oneCell(const std::string& object) {
    return "<xdr:oneCellAnchor>" + markerXml("from", 1, 0, 2, 0) + R"(<xdr:ext cx="952500" cy="476250"/>)" +
           object + "<xdr:clientData/></xdr:oneCellAnchor>";
}

struct DrawnSheet {
    /// Makes a package with the part of a sheet, and with the drawing unless it is empty.
    explicit DrawnSheet(const std::string& drawingPart = "", const std::string& columns = "")
        : DrawnSheet(oneSheetPackage(), drawingPart, columns) {}
    DrawnSheet(opc::Package made, const std::string& drawingPart, const std::string& columns)
        : package(std::move(made)),
          part(worksheet(columns + "<sheetData/>" + addDrawing(drawingPart)), kSheetPart, "Orders.xlsx",
               undo) {}

    /// Returns the relationships of the drawing.
    opc::Relationships& relationships() { return package.relationshipsOf(kDrawingPart); }
    std::string stored() {
        drawing.store();
        return package.readPart(kDrawingPart);
    }
    [[nodiscard]] SheetDrawing::ShapeId shape(const std::string& name) { return drawing.find(name).value(); }
    SheetDrawing::ShapeId add(const char* cell, const std::string& bytes = gif()) {
        return drawing.addPicture(at(cell), bytes, opc::PictureFile::read(bytes, "logo.gif"));
    }

    opc::Package package;
    UndoLog undo{};
    SheetPart part;
    StyleSheet styles{};
    SheetGeometry geometry{part, styles, undo};
    PictureParts pictures{package};
    SheetDrawing drawing{package, part, geometry, pictures, undo};

  private:
    std::string addDrawing(const std::string& xml) {
        if (xml.empty()) return "";
        package.addPart(kDrawingPart, "application/vnd.openxmlformats-officedocument.drawing+xml", xml);
        package.contentTypes().ensureDefault("png", "image/png");
        package.addPart(kLogo, "image/png", "logo");
        package.addPart(kChart, "application/vnd.openxmlformats-officedocument.drawingml.chart+xml", "<c/>");
        package.relationshipsOf(kSheetPart).addPart(relationType("drawing"), kDrawingPart);
        relationships().addPart(relationType("image"), kLogo);
        relationships().addPart(relationType("chart"), kChart);
        return R"(<drawing xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" r:id="rId1"/>)";
    }
};

}  // namespace mergeloom::embedded
