#include "doubles/ExcelFiles.h"
#include "libreoffice/host/HostTest.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <gmock/gmock.h>

#include <optional>
#include <utility>

namespace mergeloom {

namespace {

using ::testing::HasSubstr;

/// A point on the second line of the documents of these tests.
constexpr HostPoint kOnWord{240, 262};
constexpr HostPoint kOtherCell{500, 400};

std::string paragraph(const std::string& text) {
    return "<w:p><w:pPr><w:spacing w:after='0'/></w:pPr><w:r><w:rPr><w:sz w:val='48'/></w:rPr>"
           "<w:t xml:space='preserve'>" +
           text + "</w:t></w:r></w:p>";
}

class DragOverText : public HostTest {
  protected:
    static void openLines(int count) {
        std::string body;
        for (int line = 0; line < count; ++line)
            body += paragraph("MMMMMMMM MMMMMMMM");
        openBody(body);
    }
    static std::string selectedText() {
        host().beginEditing();
        const std::string text = document()->Application()->Selection()->Range()->Text();
        host().endEditing();
        return text;
    }
    static std::int64_t caretAt(HostPoint point) {
        EXPECT_TRUE(host().placeCaret(point));
        host().beginEditing();
        const std::int64_t caret = document()->Application()->Selection()->Range()->Start().value;
        host().endEditing();
        return caret;
    }
};

class DragOverCells : public HostTest {
  protected:
    /// Returns the value of the active cell and its row.
    static std::pair<std::string, int> activeCell() {
        host().beginEditing();
        const excel::RangePtr cell = workbook()->Application()->ActiveCell();
        std::pair active(cell->Value(), cell->Row());
        host().endEditing();
        return active;
    }
};

TEST_F(DragOverText, KeepsTheSelectionThatBecomesThePlacesText) {
    load(kField);
    openLines(3);
    ASSERT_TRUE(host().placeCaret(kOnWord));
    window().doubleClickInPane(kOnWord.x, kOnWord.y);
    ASSERT_TRUE(becomesTrue([] { return selectedText() == "MMMMMMMM"; }));
    for (int y = kOnWord.y + 200; y >= kOnWord.y; y -= 20)
        host().showDropPlace({kOnWord.x + 100, y});
    host().hideDropPlace();
    EXPECT_EQ(selectedText(), "MMMMMMMM");
    ASSERT_TRUE(dropAt(kOnWord, node("2k")));
    EXPECT_THAT(body(), HasSubstr("[City:MMMMMMMM]"));
    ASSERT_TRUE(document()->Undo(1));

    const HostPoint below{kOnWord.x, kOnWord.y + 45};
    ASSERT_TRUE(dropAt(below, node("2k")));
    EXPECT_THAT(body(), HasSubstr("[City:City]")) << "outside of the selection";
}

TEST_F(DragOverText, ALineShowsThePlace) {
    openLines(1);
    ASSERT_TRUE(host().placeCaret(kOnWord));
    EXPECT_FALSE(window().lineInside());
    host().showDropPlace({kOnWord.x, kOnWord.y - 45});
    const std::optional<TestWindow::Line> first = window().lineInside();
    ASSERT_TRUE(first);
    EXPECT_GT(first->height, 20);
    EXPECT_NEAR(first->x, kOnWord.x, 30);

    host().showDropPlace({kOnWord.x + 100, kOnWord.y - 45});
    EXPECT_NEAR(window().lineInside()->x, first->x + 100, 30);
    host().showDropPlace({kOnWord.x + 400, kOnWord.y + 300});
    const std::optional<TestWindow::Line> last = window().lineInside();
    ASSERT_TRUE(last) << "in a blank part of the page";
    EXPECT_EQ(last->y, first->y);
    EXPECT_GT(last->x, first->x + 150);
    host().showDropPlace({200, 40});
    EXPECT_FALSE(window().lineInside()) << "over a bar";
}

/// The height of the line is that of the text under it.
TEST_F(DragOverText, APageFitsTheWidthOfTheWindow) {
    openLines(1);
    const auto heightAtFullSize = [](int width) {
        window().resizePane(static_cast<std::uint32_t>(width), TestWindow::kPaneHeight);
        host().resize(width, TestWindow::kPaneHeight);
        EXPECT_TRUE(host().placeCaret({width / 2, kOnWord.y}));
        host().setZoom(100);
        host().showDropPlace({width / 2, kOnWord.y});
        const std::optional<TestWindow::Line> line = window().lineInside();
        return line ? line->height : 0;
    };
    const int large = heightAtFullSize(TestWindow::kPaneWidth);
    EXPECT_GT(large, 20);
    const int small = heightAtFullSize(TestWindow::kPaneWidth / 2);
    EXPECT_GT(small, 0);
    EXPECT_LT(small, large * 3 / 4);
    EXPECT_EQ(heightAtFullSize(TestWindow::kPaneWidth), large);
    host().hideDropPlace();
}

TEST_F(DragOverText, AnEdgeScrollsTheText) {
    openLines(200);
    const std::int64_t before = caretAt(kOnWord);
    std::int64_t last = before;
    // The height of the bars below the text depends on the version of LibreOffice, so the edge is searched
    // for.
    HostPoint edge{kOnWord.x, TestWindow::kPaneHeight - 30};
    EXPECT_TRUE(becomesTrue([&] {
        host().showDropPlace(edge);
        const std::int64_t now = caretAt(kOnWord);
        const bool isScrolled = now > std::exchange(last, now);
        const int next = edge.y > TestWindow::kPaneHeight - 120 ? edge.y - 10 : TestWindow::kPaneHeight - 30;
        if (!isScrolled) edge.y = next;
        return now > before + 200;
    }));
    host().hideDropPlace();
}

TEST_F(DragOverCells, AnEdgeScrollsTheCells) {
    host().CreateNew("Excel.Template");
    ASSERT_TRUE(host().placeCaret(kOtherCell));
    EXPECT_TRUE(becomesTrue([&] {
        host().showDropPlace({kOtherCell.x, TestWindow::kPaneHeight - 70});
        return activeCell().second > 100;
    }));
}

TEST_F(DragOverCells, ATabShowsItsSheet) {
    const std::string cell =
        "<sheetData><row r='1'><c r='A1' t='inlineStr'><is><t>second</t></is></c></row></sheetData>";
    stage().files.files["/sheets.xlsx"] = workbookFile({{"First"}, {"Second", cell}});
    host().Open("/sheets.xlsx", FileAccess::Edit, {});
    ASSERT_TRUE(host().placeCaret(kOtherCell));
    EXPECT_EQ(activeCell().first, "");
    // The tabs are in the line below the cells, the second one right of the first.
    const int line = TestWindow::kPaneHeight - 32;
    EXPECT_FALSE(host().placeCaret({200, line}));
    EXPECT_TRUE(becomesTrue([&] {
        host().showDropPlace({200, line});
        return activeCell().first == "second";
    }));
}

}  // namespace

}  // namespace mergeloom
