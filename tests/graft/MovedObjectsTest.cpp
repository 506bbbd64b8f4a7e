#include "doubles/ExcelFiles.h"
#include "office/graft/PackageGraft.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

namespace mergeloom::graft {

namespace {

constexpr const char* kMoved = "a picture, a chart or a shape was moved or sized";
constexpr const char* kElsewhere = "a picture, a chart or a shape would be elsewhere in the result";

/// An anchor of a chart from a row to a place in another row, with its left edge and its height.
struct Chart {
    int firstRow = 5;
    int lastRow = 19;
    int lastOffset = 76200;
    int left = 0;
    int height = 0;

    [[nodiscard]] std::string xml() const {
        const auto corner = [](const std::string& name, int column, int row, int offset) {
            return "<xdr:" + name + "><xdr:col>" + std::to_string(column) +
                   "</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>" + std::to_string(row) +
                   "</xdr:row><xdr:rowOff>" + std::to_string(offset) + "</xdr:rowOff></xdr:" + name + ">";
        };
        return "<xdr:twoCellAnchor>" + corner("from", 6, firstRow, 0) +
               corner("to", 13, lastRow, lastOffset) + "<xdr:graphicFrame><xdr:xfrm><a:off x=\"" +
               std::to_string(left) + "\" y=\"952560\"/><a:ext cx=\"4584960\" cy=\"" +
               std::to_string(height) + "\"/></xdr:xfrm></xdr:graphicFrame></xdr:twoCellAnchor>";
    }
};

/// The box of a comment: its cells, its left edge and its width in points.
struct Box {
    std::string cells;
    std::string left;
    std::string width;
    std::string visibility = "hidden";

    [[nodiscard]] std::string xml() const {
        return "<v:shape style=\"position:absolute;margin-left:" + left +
               "pt;margin-top:7.5pt;width:" + width + "pt;height:55.4pt;visibility:" + visibility +
               "\"><x:ClientData><x:Anchor>" + cells + "</x:Anchor></x:ClientData></v:shape>";
    }
};

const std::string kFirstRow = "<row r=\"1\"><c r=\"A1\" t=\"n\"><v>1</v></c></row>";
const std::string kDroppedRow = "<row r=\"9\"><c r=\"A9\" t=\"n\"><v>2</v></c></row>";
const std::string kNarrowColumn = "<cols><col min=\"2\" max=\"2\" width=\"4\" customWidth=\"1\"/></cols>";

std::string withDrawing(const std::string& sheet, const std::string& kind, const std::string& partName,
                        const std::string& xml) {
    opc::Package package = workbookPackage({{"Data", sheet}});
    package.addPart(partName, "application/vnd.openxmlformats-officedocument." + kind, xml);
    package.relationshipsOf(sheetPart(1)).addPart(officeType(kind), partName);
    return packageBytes(package);
}

std::string withCharts(const std::string& sheet, const std::vector<Chart>& charts) {
    std::string anchors;
    for (const Chart& chart : charts)
        anchors += chart.xml();
    return withDrawing(sheet, "drawing", "/xl/drawings/drawing1.xml",
                       "<xdr:wsDr xmlns:xdr=\"x\" xmlns:a=\"a\">" + anchors + "</xdr:wsDr>");
}

std::string withBox(const std::string& sheet, const Box& box) {
    return withDrawing(sheet, "vmlDrawing", "/xl/drawings/vmlDrawing1.vml",
                       "<xml xmlns:v=\"v\" xmlns:x=\"x\">" + box.xml() + "</xml>");
}

model::EditedPackage packageOf(const std::string& original, const std::string& baseline,
                               const std::string& edited) {
    return {DocumentKind::Excel, 51, "book.xlsx", original, baseline, edited};
}

using ThreeFiles = std::array<std::string, 3>;
using MovedCase = std::tuple<std::string, ThreeFiles, std::string>;

const std::string kFormer = "<sheetData>" + kFirstRow + "</sheetData>";
const std::string kEdited = kNarrowColumn + "<sheetData>" + kFirstRow + kDroppedRow + "</sheetData>";
const std::string kShifted = kNarrowColumn +
                             "<sheetData><row r=\"1\"><c r=\"A1\" t=\"n\"><v>7</v></c></row>"
                             "<row r=\"2\"><c r=\"A2\" t=\"n\"><v>1</v></c></row></sheetData>";

// The office measured the chart when it was opened, before a row got higher, and again after the edit.
const Chart kInFile{};
const Chart kOpened{5, 18, 96840, 3669120, 2742840};
const Chart kMeasured{5, 19, 75960, 2980080, 2912400};
const Chart kSized{5, 21, 0, 2980080, 3300000};
const Chart kFurtherDown{7, 21, 75960, 2980080, 2912400};

const Box kBox{"2, 15, 0, 10, 4, 15, 4, 4", "107.55", "96.25"};
const Box kFollowing{"2, 15, 0, 10, 4, 56, 4, 4", "84", "96.25"};
const Box kNarrowed{"2, 15, 0, 10, 4, 15, 4, 4", "84", "65.55"};
const Box kMovedBox{"5, 0, 0, 10, 7, 0, 4, 4", "250", "96.25"};

TEST(MovedObjects, AreToldFromObjectsThatTheOfficeMeasuredAnew) {
    const auto charts = [](const std::vector<Chart>& original, const Chart& edited) {
        return ThreeFiles{withCharts(kFormer, original), withCharts(kFormer, {kOpened}),
                          withCharts(kEdited, {edited})};
    };
    const auto boxes = [](const Box& edited) {
        return ThreeFiles{withBox(kFormer, kBox), withBox(kFormer, kBox), withBox(kEdited, edited)};
    };
    const std::vector<MovedCase> cases{
        {"at the cells of the file", charts({kInFile}, kMeasured), ""},
        {"sized", charts({kInFile}, kSized), kMoved},
        {"moved", charts({kInFile}, kFurtherDown), kMoved},
        {"other objects in the file", charts({kInFile, kInFile}, kMeasured), kMoved},
        {"a box beside a narrower column", boxes(kFollowing), ""},
        {"a moved box beside a narrower column", boxes(kMovedBox), kMoved},
        {"a shown box", boxes({kFollowing.cells, kFollowing.left, kFollowing.width, "visible"}),
         "a comment's box or a control was changed"},
    };
    for (const auto& [what, files, expected] : cases) {
        const model::GraftResult result = makePackageGraft()->graft(packageOf(files[0], files[1], files[2]));
        const auto* const refusal = std::get_if<model::GraftRefusal>(&result);
        EXPECT_EQ(refusal == nullptr ? "" : refusal->reason, expected) << what;
    }
}

TEST(MovedObjects, AreSeenInTheProof) {
    const std::string opened = withCharts(kFormer, {kOpened});
    const std::string measured = withCharts(kEdited, {kMeasured});
    const std::string box = withBox(kFormer, kBox);
    const std::string following = withBox(kEdited, kFollowing);
    const std::vector<MovedCase> cases{
        {"as it was opened", {opened, measured, withCharts(kEdited, {kOpened})}, ""},
        {"as it was edited", {opened, measured, measured}, ""},
        {"sized", {opened, measured, withCharts(kEdited, {kSized})}, kElsewhere},
        {"not moved",
         {opened, withCharts(kEdited, {kFurtherDown}), withCharts(kEdited, {kOpened})},
         kElsewhere},
        {"at the cells of the file", {box, following, withBox(kEdited, kNarrowed)}, ""},
        {"a moved box", {box, following, withBox(kEdited, kMovedBox)}, kElsewhere},
        {"a box that has not moved with its cells",
         {box, withBox(kShifted, kFollowing), withBox(kShifted, kNarrowed)},
         kElsewhere},
    };
    for (const auto& [what, files, expected] : cases) {
        const auto fault =
            makePackageGraft()->findFault(packageOf(files[0], files[0], files[1]), {}, files[2]);
        EXPECT_EQ(fault ? fault->reason : "", expected) << what;
    }
}

}  // namespace

}  // namespace mergeloom::graft
