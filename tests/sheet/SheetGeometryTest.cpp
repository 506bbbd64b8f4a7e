#include "office/embedded/sheet/SheetGeometry.h"
#include "sheet/SheetXml.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::embedded {
namespace {

using testing::HasSubstr;

/// A sheet in Calibri 11, whose digits are 7 pixels wide.
struct MeasuredSheet : LoggedSheet {
    explicit MeasuredSheet(const std::string& beforeData = "", const std::string& rows = "")
        : LoggedSheet(worksheet(beforeData + "<sheetData>" + rows + "</sheetData>")) {}

    [[nodiscard]] double width(int column) const { return geometry.columnWidth(column).value; }
    [[nodiscard]] double pixels(int column) const {
        return (geometry.left(column + 1).value - geometry.left(column).value) / 0.75;
    }
    std::string columns() {
        geometry.store();
        return part.section("cols");
    }

    StyleSheet styles{};
    SheetGeometry geometry{part, styles, undo};
};

// Excel's defaults: the columns of a new sheet are 64 pixels wide and show 8.43, and its rows have 15 points.
TEST(SheetGeometry, hasDefaults) {
    const MeasuredSheet sheet;
    EXPECT_EQ(sheet.width(1), 8.43);
    EXPECT_EQ(sheet.geometry.left(1).value, 0);
    EXPECT_EQ(sheet.geometry.left(3).value, 96);
    EXPECT_EQ(sheet.geometry.left(excel::kLastColumn + 1).value, 48.0 * excel::kLastColumn);
    EXPECT_EQ(sheet.geometry.rowHeight(7).value, 15);
    EXPECT_EQ(sheet.geometry.top(excel::kLastRow + 1).value, 15.0 * excel::kLastRow);
}

TEST(SheetGeometry, readsTheSheetsDefaults) {
    struct {
        const char* format;
        double pixels;
        double height;
    } const cases[] = {
        {R"(<sheetFormatPr baseColWidth="10" defaultRowHeight="20.25"/>)", 80,
         20.25},  // 75 up to a multiple of 8
        {R"(<sheetFormatPr defaultColWidth="9.140625" defaultRowHeight="15"/>)", 64, 15},
        {R"(<sheetFormatPr defaultColWidth="20.7109375" defaultRowHeight="15"/>)", 145, 15},
        {R"(<sheetFormatPr defaultRowHeight="15" zeroHeight="1"/>)", 64, 0},
    };
    for (const auto& [format, pixels, height] : cases) {
        const MeasuredSheet sheet(format);
        EXPECT_EQ(sheet.pixels(5), pixels) << format;
        EXPECT_EQ(sheet.geometry.rowHeight(5).value, height) << format;
    }
}

// The results of the standard's formula for columns: (256 * 10.7109375 + 18) / 256 * 7 = 75.5 and (256 * 0.5
// + 18) / 256 * 7 = 3.99, without their fractions.
TEST(SheetGeometry, readsColumnsAndRows) {
    const MeasuredSheet sheet(
        R"(<cols><col min="2" max="4" width="10.7109375" customWidth="1"/><col min="5" max="5" hidden="1" )"
        R"(width="20"/><col min="6" max="6" style="3"/><col min="16384" max="20000" width="0.5"/></cols>)",
        R"(<row r="2" ht="30"/><row r="3" hidden="1"/><row r="4"/>)");
    EXPECT_EQ(sheet.pixels(2), 75);
    EXPECT_EQ(sheet.width(4), 10);
    EXPECT_EQ(sheet.width(5), 0);
    EXPECT_EQ(sheet.width(6), 8.43);
    EXPECT_EQ(sheet.pixels(excel::kLastColumn), 3);
    EXPECT_EQ(sheet.width(excel::kLastColumn), 0.25);  // of 12 pixels for the first character
    EXPECT_EQ(sheet.geometry.left(7).value, (64 + 3 * 75 + 0 + 64) * 0.75);
    EXPECT_EQ(sheet.geometry.top(5).value, 15 + 30 + 0 + 15);
}

TEST(SheetGeometry, setsWidthsByWholePixels) {
    struct {
        double set;
        double shown;
        double pixels;
        const char* stored;
    } const cases[] = {
        {8.43, 8.43, 64, "width=\"9.140625\""},      // 64 / 7
        {10, 10, 75, "width=\"10.7109375\""},        // 75 / 7
        {10.1, 10.14, 76, "width=\"10.85546875\""},  // 75.7 pixels
        {0.5, 0.5, 6, "width=\"0.85546875\""},       // 6 / 7
        {255, 255, 1790, "width=\"255.7109375\""},
        {300, 255, 1790, "width=\"255.7109375\""},
        {0, 0, 0, "width=\"0\" customWidth=\"1\" hidden=\"1\""},
    };
    for (const auto& [set, shown, pixels, stored] : cases) {
        MeasuredSheet sheet;
        sheet.geometry.setColumnWidth(3, {set});
        EXPECT_EQ(sheet.width(3), shown);
        EXPECT_EQ(sheet.pixels(3), pixels);
        EXPECT_THAT(sheet.columns(), HasSubstr(stored));
        EXPECT_EQ(sheet.width(2), 8.43);
        EXPECT_EQ(sheet.width(4), 8.43);
    }
}

TEST(SheetGeometry, splitsColumnsThatAreDefinedTogether) {
    const std::string others = R"( style="5" outlineLevel="1" x:more="1")";
    const std::string hidden = R"( width="20.7109375" hidden="1" bestFit="1")";
    const std::string own = R"( width="10.7109375" customWidth="1")";
    const std::string ownBesideOthers = R"( width="10.7109375")" + others + R"( customWidth="1")";
    const auto definition = [](int first, int last, const std::string& attributes) {
        return "<col min=\"" + std::to_string(first) + "\" max=\"" + std::to_string(last) + "\"" +
               attributes + "/>";
    };
    const std::string former = "<cols>" + definition(2, 6, hidden + others) + "</cols>";
    struct {
        int column;
        std::vector<std::pair<int, int>> kept;
    } const cases[] = {{2, {{3, 6}}}, {4, {{2, 3}, {5, 6}}}, {6, {{2, 5}}}, {7, {{2, 6}}}};
    for (const auto& [column, kept] : cases) {
        MeasuredSheet sheet(former);
        sheet.geometry.setColumnWidth(column, {10});
        const std::string columns = sheet.columns();
        for (const auto& [first, last] : kept)
            EXPECT_THAT(columns, HasSubstr(definition(first, last, hidden + others)));
        const std::string& changed = column < 7 ? ownBesideOthers : own;
        EXPECT_THAT(columns, HasSubstr(definition(column, column, changed)));
        EXPECT_EQ(sheet.width(column), 10);
        EXPECT_EQ(sheet.width(column == 4 ? 5 : 4), 0);
    }
}

TEST(SheetGeometry, fitsAColumnToItsText) {
    MeasuredSheet sheet;
    sheet.geometry.fitColumn(2, 69.3);
    EXPECT_EQ(sheet.pixels(2), 75);
    EXPECT_EQ(sheet.columns(),
              R"(<cols><col min="2" max="2" width="10.7109375" customWidth="1" bestFit="1"/></cols>)");
    sheet.geometry.fitColumn(2, 5000);
    EXPECT_EQ(sheet.width(2), 255);
    sheet.geometry.setColumnWidth(2, {10});
    EXPECT_THAT(sheet.columns(), testing::Not(HasSubstr("bestFit")));
}

TEST(SheetGeometry, writesTheNamesOfTheSheet) {
    LoggedSheet prefixed(
        "<x:worksheet xmlns:x=\"" + std::string(kMainNamespace) +
        "\"><x:cols><x:col min=\"1\" max=\"2\" width=\"5\"/></x:cols><x:sheetData/></x:worksheet>");
    const StyleSheet styles;
    SheetGeometry geometry(prefixed.part, styles, prefixed.undo);
    geometry.setColumnWidth(2, {10});
    geometry.store();
    EXPECT_EQ(prefixed.part.section("cols"),
              "<x:cols><x:col min=\"1\" max=\"1\" width=\"5\"/>"
              "<x:col min=\"2\" max=\"2\" width=\"10.7109375\" customWidth=\"1\"/></x:cols>");
}

TEST(SheetGeometry, setsHeightsByWholePixels) {
    MeasuredSheet sheet("", R"(<row r="3" hidden="1"/>)");
    const std::pair<double, double> cases[] = {{20, 20.25}, {20.25, 20.25}, {500, 409.5}, {-1, 0}};
    for (const auto& [set, shown] : cases) {
        sheet.geometry.setRowHeight(3, {set});
        EXPECT_EQ(sheet.geometry.rowHeight(3).value, shown);
        EXPECT_EQ(sheet.geometry.top(4).value, 30 + shown);
        sheet.part.forEachRowHeight([shown = shown](const StoredRowHeight& row) {
            EXPECT_EQ(row.row, 3);
            EXPECT_EQ(row.points, shown);
        });
    }
}

// Columns of 64 pixels (48 points, 609600 EMU) but for B with 75 and the hidden C; rows of 20 pixels.
TEST(SheetGeometry, findsThePlaceAtADistance) {
    const MeasuredSheet sheet(
        R"(<cols><col min="2" max="2" width="10.7109375"/><col min="3" max="3" hidden="1"/></cols>)",
        R"(<row r="2" ht="0"/>)");
    struct {
        double left;
        double top;
        const char* cell;
        std::int64_t right;
        std::int64_t down;
    } const cases[] = {
        {0, 0, "A1", 0, 0},
        {-5, -1, "A1", 0, 0},
        {47.9, 14.9, "A1", 608330, 189230},
        {48, 15, "B3", 0, 0},
        {48 + 56.25, 16, "D3", 0, 12700},
        {1e9, 1e9, "XFD1048576", 609600, 190500},
    };
    for (const auto& [left, top, cell, right, down] : cases) {
        const SheetPlace place = sheet.geometry.placeAt({left}, {top});
        EXPECT_EQ(addressOf(place.cell), cell);
        EXPECT_EQ(place.right.value, right);
        EXPECT_EQ(place.down.value, down);
    }
    EXPECT_EQ(sheet.geometry.left(SheetPlace{at("D3"), {1000}, {}}).value, (64 + 75) * 9525 + 1000);
    EXPECT_EQ(sheet.geometry.top(SheetPlace{at("D3"), {}, {999999}}).value, 2 * 190500);
}

TEST(SheetGeometry, sumsUpOverBlocks) {
    MeasuredSheet sheet;
    double expected = 15.0 * (excel::kLastRow - 1);
    for (const int row : {1, 1024, 1025, 2048, 2049, 500000, excel::kLastRow - 1}) {
        sheet.geometry.setRowHeight(row, {15.75});
        expected += 0.75;
    }
    EXPECT_EQ(sheet.geometry.top(excel::kLastRow).value, expected);
    EXPECT_EQ(sheet.geometry.top(1025).value, 1024 * 15 + 1.5);
    for (const int row : {2, 1024, 1025, 1026, 2050, 500000, 500001, excel::kLastRow}) {
        const Points top = sheet.geometry.top(row);
        EXPECT_EQ(sheet.geometry.placeAt({}, top).cell.row, row);
        EXPECT_EQ(sheet.geometry.placeAt({}, {top.value - 0.1}).cell.row, row - 1);
    }
}

TEST(SheetGeometry, takesChangesBack) {
    const std::string columns = R"(<cols><col min="2" max="6" width="20.7109375" style="5"/></cols>)";
    MeasuredSheet sheet(columns, R"(<row r="3" ht="30"/>)");
    sheet.undo.start();
    sheet.geometry.setColumnWidth(4, {10});
    sheet.geometry.fitColumn(5, 12);
    sheet.geometry.setColumnWidth(9, {3});
    sheet.geometry.setColumnWidth(4, {11});
    sheet.geometry.setRowHeight(3, {45});
    EXPECT_TRUE(sheet.geometry.isDirty());
    ASSERT_TRUE(sheet.undo.undo());
    EXPECT_FALSE(sheet.geometry.isDirty());
    EXPECT_EQ(sheet.columns(), columns);
    for (int column = 2; column <= 6; ++column)
        EXPECT_EQ(sheet.width(column), 20);
    EXPECT_EQ(sheet.width(9), 8.43);
    EXPECT_EQ(sheet.geometry.top(4).value, 60);
    EXPECT_FALSE(sheet.part.isDirty());
}

TEST(SheetGeometry, storesAgainWhatWasTakenBackBehindASave) {
    MeasuredSheet sheet;
    sheet.undo.start();
    sheet.geometry.setColumnWidth(4, {10});
    sheet.undo.stop();
    EXPECT_THAT(sheet.columns(), HasSubstr("<col "));
    ASSERT_TRUE(sheet.undo.undo());
    EXPECT_TRUE(sheet.geometry.isDirty());
    EXPECT_EQ(sheet.columns(), "");
}

TEST(SheetGeometry, setsEveryColumnOneByOne) {
    MeasuredSheet sheet(R"(<cols><col min="1" max="16384" width="5" style="2"/></cols>)");
    for (int column = 1; column <= excel::kLastColumn; ++column)
        sheet.geometry.setColumnWidth(column, {10});
    EXPECT_EQ(sheet.geometry.left(excel::kLastColumn + 1).value, 0.75 * 75 * excel::kLastColumn);
    EXPECT_THAT(sheet.columns(), HasSubstr(R"(<col min="16384" max="16384" width="10.7109375" style="2")"));
}

}  // namespace
}  // namespace mergeloom::embedded
