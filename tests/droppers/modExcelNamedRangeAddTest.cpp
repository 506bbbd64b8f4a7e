#include "ExcelDropTest.h"
#include "droppers/modExcelNamedRangeAdd.h"

#include <cmath>
#include <vector>

namespace mergeloom {
namespace {

class NamedRangeAdd : public ExcelDropTest {
  protected:
    std::string add(const std::string& name, const NamedRangeContent& content = {}) {
        const excel::DefinedNamePtr added = ExcelNamedRangeAdd(reports, *workbook, name, content);
        return added ? added->Name() : "";
    }

    DropReports reports{errors, messages};
};

TEST_F(NamedRangeAdd, NamesAndTexts) {
    struct Case {
        std::string name;
        NamedRangeContent content;
        std::string expectedName, expectedText;
    };
    const std::vector<Case> cases{
        {"OrderDate", {}, "ammOrderDate", "[OrderDate]"},
        {"OrderDate", {}, "ammOrderDate_ref1", "[OrderDate]"},
        {"orderdate", {}, "ammorderdate_ref2", "[orderdate]"},
        {"OrderDate", {.vfBoundValueUse = true}, "ammOrderDate_bv", "[OrderDate_bv]"},
        {"OrderDate", {.vfBoundValueUse = true}, "ammOrderDate_bv_ref1", "[OrderDate_bv]"},
        {"Price", {.vstrPrefix = "Lines"}, "ammLinesPrice", "[LinesPrice]"},
        {"Price",
         {.vfBoundValueUse = true, .vstrPrefix = "My Lines"},
         "ammMyLinesPrice_bv",
         "[My LinesPrice_bv]"},
        {"2nd", {}, "amm2nd", "[2nd]"},
        {std::string(300, 'n'), {}, std::string(255, 'n'), "[" + std::string(300, 'n') + "]"},
        {std::string(299, 'n'), {}, std::string(250, 'n') + "_ref1", "[" + std::string(299, 'n') + "]"},
        {"Lines/Price", {}, "ammLinesPrice_ref1", "[Lines/Price]"},
        {"Lines/Price", {}, "ammLinesPrice_ref2", "[Lines/Price]"},
        {"OrderDate_bv", {}, "ammOrderDate_bv_ref2", "[OrderDate_bv]"},
    };
    open();
    int row = 1;
    for (const Case& c : cases) {
        goTo(row, 2);
        EXPECT_EQ(add(c.name, c.content), c.expectedName);
        EXPECT_EQ(cell(row, 2)->Value(), c.expectedText);
        const excel::RangePtr named = workbook->Names()->Item(c.expectedName)->RefersToRange();
        EXPECT_EQ(named->AddressLocal(), cell(row, 2)->AddressLocal()) << c.expectedName;
        ++row;
    }
    EXPECT_EQ(workbook->Names()->Count(), std::ssize(cases));
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(NamedRangeAdd, AnErrorIsReportedWithTheName) {
    open();
    EXPECT_EQ(add("1"), "") << "amm1 is a cell";
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].comment, "Bookmark Name = 'amm1'");
    EXPECT_EQ(errors.reports[0].module, "modExcelNamedRangeAdd");
    EXPECT_EQ(errors.reports[0].procedure, "ExcelNamedRangeAdd");
    EXPECT_EQ(cells() + names(), "");
}

TEST_F(NamedRangeAdd, ACellBearsOnePictureOfAField) {
    open();
    files.files["/p.gif"] = pictureFile(40, 20);
    const NamedRangeContent picture{.vstrPictureFile = "/p.gif"};
    const auto addAt = [&](int row, const std::string& name) {
        goTo(row, 2);
        add(name, picture);
        return shapes();
    };
    EXPECT_EQ(addAt(2, "X"), "ammX:B2 ");
    EXPECT_EQ(addAt(2, "X"), "ammX_ref1:B2 ") << "the former one goes";
    EXPECT_EQ(addAt(5, "X"), "ammX_ref1:B2 ammX_ref2:B5 ") << "one on another cell stays";
    EXPECT_EQ(addAt(2, "X"), "ammX_ref2:B5 ammX_ref3:B2 ");
    EXPECT_EQ(addAt(2, "Y"), "ammX_ref2:B5 ammX_ref3:B2 ammY:B2 ") << "so does one of another field";
    EXPECT_EQ(cells(), "");

    goTo(2, 2);
    EXPECT_EQ(add("X", {.vstrPictureFile = "/none.gif"}), "");
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].procedure, "InsertPictureFromFile");
    EXPECT_EQ(errors.reports[0].module, "modExcelNamedRangeAdd");
    EXPECT_EQ(errors.reports[0].number, kFileCouldNotBeRead);
}

class PictureOnCell : public NamedRangeAdd {
  protected:
    excel::ShapePtr insert(int row, int column, CellFit fit) {
        InsertPictureFromFile(reports, *cell(row, column), "p", "/p.gif", fit);
        return GetShapeByName(*sheet(), "p");
    }
    /// The tolerance for widths and heights of cells, which are whole pixels.
    static constexpr double kPixel = 0.76;
    /// The tolerance for lengths that an office stores in hundredths of a millimetre.
    static constexpr double kLength = 0.03;
};

TEST_F(PictureOnCell, TheCellTakesThePicture) {
    struct Case {
        const char* what;
        int width, height;
        double expectedWidth,
            expectedHeight;  ///< of the cell and the picture in points; 0 where only the rules below count
    };
    const std::vector<Case> cases{
        {"a natural size", 200, 100, 0, 0},
        {"as wide as a standard column", 64, 32, 48, 24},
        {"a pixel", 1, 1, 0, 0},
        {"higher than any row", 100, 1092, 37.5, 409.5},
        {"wider than any column", 6000, 60, 0, 0},
        {"a hair", 1, 5000, 0, 409.5},
        {"a line", 5000, 1, 0, 0},
    };
    for (const Case& c : cases) {
        for (const CellFit fit : {CellFit::FitPicture, CellFit::KeepWidth}) {
            open();
            files.files["/p.gif"] = pictureFile(c.width, c.height);
            const excel::RangePtr target = cell(3, 2);
            const double formerWidth = target->Width().value;
            const excel::ShapePtr picture = insert(3, 2, fit);
            ASSERT_TRUE(picture && errors.reports.empty()) << c.what;

            EXPECT_EQ(active(), "B3");
            const double width = picture->Width().value;
            const double height = picture->Height().value;
            const bool isWide = c.width > c.height;
            const double shorter = isWide ? width * c.height / c.width : height * c.width / c.height;
            EXPECT_NEAR(isWide ? height : width, shorter, 0.02 * shorter + kLength) << c.what;
            EXPECT_NEAR(picture->Left().value, target->Left().value, 0.01) << c.what;
            EXPECT_NEAR(picture->Top().value, target->Top().value, 0.01) << c.what;
            EXPECT_NEAR(target->Height().value, std::max(height, 0.75), kPixel) << c.what;
            EXPECT_LE(width, target->Width().value + 0.01) << c.what;
            const bool isHighest = height > excel::kHighestRow.value - 0.01;
            EXPECT_TRUE(isHighest || std::abs(width - target->Width().value) < 0.01) << c.what << width;
            if (fit == CellFit::KeepWidth) {
                EXPECT_EQ(target->Width().value, formerWidth) << c.what;
            } else {
                if (c.expectedWidth > 0) {
                    EXPECT_NEAR(target->Width().value, c.expectedWidth, 5) << c.what;
                }
                if (c.expectedHeight > 0) {
                    EXPECT_NEAR(height, c.expectedHeight, 2.5) << c.what;
                }
            }
        }
    }
}

TEST_F(PictureOnCell, AHiddenCellShowsAgain) {
    files.files["/p.gif"] = pictureFile(60, 40);
    for (const CellFit fit : {CellFit::FitPicture, CellFit::KeepWidth}) {
        open(
            "<cols><col min=\"2\" max=\"2\" width=\"0\" hidden=\"1\" customWidth=\"1\"/></cols>"
            "<sheetData><row r=\"3\" hidden=\"1\"/></sheetData>");
        ASSERT_EQ(cell(3, 2)->Width().value + cell(3, 2)->Height().value, 0);
        const excel::ShapePtr picture = insert(3, 2, fit);
        ASSERT_TRUE(picture && errors.reports.empty());
        EXPECT_GT(picture->Width().value, 30);
        EXPECT_NEAR(picture->Width().value, cell(3, 2)->Width().value, 0.01);
        EXPECT_NEAR(picture->Height().value, cell(3, 2)->Height().value, kPixel);
    }
}

TEST_F(PictureOnCell, TheFirstOfMergedCellsBearsIt) {
    openMerged("B3:C6");
    files.files["/p.gif"] = pictureFile(60, 40);
    goTo(4, 3);
    ASSERT_EQ(active(), "B3");
    add("X", {.vstrPictureFile = "/p.gif"});
    EXPECT_EQ(names() + shapes(), "ammX=B3 ammX:B3 ");
    EXPECT_NEAR(GetShapeByName(*sheet(), "ammX")->Width().value, cell(3, 2)->Width().value, 0.01);
}

TEST_F(PictureOnCell, TakesThePlaceOfTheShapeOfItsName) {
    open();
    files.files["/p.gif"] = pictureFile(60, 40);
    insert(1, 1, CellFit::FitPicture);
    insert(9, 3, CellFit::FitPicture);
    EXPECT_EQ(shapes(), "p:C9 ");
    EXPECT_FALSE(GetShapeByName(*sheet(), "q"));
}

}  // namespace
}  // namespace mergeloom
