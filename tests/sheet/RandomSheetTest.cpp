#include "SheetXml.h"
#include "office/embedded/sheet/SheetPart.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <utility>

/// Compares random edits of random sheets with a model that has cells and heights but no XML.
namespace mergeloom::embedded {
namespace {

constexpr int kRows = 12;
constexpr int kColumns = 9;

struct ModelCell {
    CellType type = CellType::Empty;
    std::string value{};
    int style = 0;
    std::string formula{};

    friend bool operator==(const ModelCell&, const ModelCell&) = default;
};

struct Model {
    std::map<excel::CellPosition, ModelCell> cells{};
    std::map<int, double> heights{};
    std::map<int, int> rowStyles{};
};

class SheetMaker {
  public:
    explicit SheetMaker(std::mt19937& random) : random_(random) {}

    /// Writes a random sheet and its contents into the model.
    std::string make(Model& model) {
        std::string rows;
        for (int row = 1; row <= kRows; ++row) {
            if (chance(3)) rows += makeRow(row, model);
        }
        return worksheet(
            "<dimension ref=\"A1\"/><cols><col min=\"3\" max=\"4\" style=\"8\"/></cols><sheetData>" + rows +
            "</sheetData><pageMargins/>");
    }

    int upTo(int last) { return std::uniform_int_distribution<int>(1, last)(random_); }
    /// Returns false once in the given number of times on average.
    bool chance(int times) { return upTo(times) > 1; }

  private:
    std::string makeRow(int row, Model& model) {
        std::string tag = "<row";
        if (row > 1 || chance(2)) tag += " r=\"" + std::to_string(row) + "\"";
        if (!chance(2)) tag += " spans=\"2:3\"";
        if (!chance(3)) {
            model.heights[row] = row + 0.5;
            tag += " ht=\"" + std::to_string(row) + ".5\"";
        }
        if (!chance(3)) {
            model.rowStyles[row] = 5;
            tag += " s=\"5\" customFormat=\"1\"";
        }
        if (!chance(4)) return tag + "/>";
        std::string cells;
        for (int column = 1; column <= kColumns; ++column) {
            if (chance(2)) cells += makeCell({row, column}, model);
        }
        return tag + ">" + cells + "</row>";
    }

    std::string makeCell(const excel::CellPosition& cell, Model& model) {
        ModelCell& made = model.cells[cell];
        made.style = upTo(4);
        const std::string tag = "<c r=\"" + addressOf(cell) + "\" s=\"" + std::to_string(made.style) + "\"";
        if (!chance(4)) return tag + "/>";
        made.type = CellType::Number;
        made.value = std::to_string(upTo(1000));
        return tag + ">" + makeFormula(cell, made) + "<v>" + made.value + "</v></c>";
    }

    /// Returns a shared formula for a third of the cells. The first of these cells defines it for the others.
    std::string makeFormula(const excel::CellPosition& cell, ModelCell& made) {
        if (chance(3)) return {};
        made.formula = addressOf(excel::CellPosition{cell.row + 20, cell.column + 20}) + "+$A$1";
        const bool isMaster = std::exchange(isFirst_, false);
        if (!isMaster) return "<f t=\"shared\" si=\"3\"/>";
        return "<f t=\"shared\" ref=\"A1:Z99\" si=\"3\">" + made.formula + "</f>";
    }

    std::mt19937& random_;
    bool isFirst_ = true;
};

class RandomSheetTest : public ::testing::TestWithParam<unsigned> {
  protected:
    /// Compares every cell and height, also around the written cells.
    static void expectSame(const SheetPart& part, const Model& model) {
        for (int row = 1; row <= kRows + 2; ++row) {
            for (int column = 1; column <= kColumns + 2; ++column) {
                const excel::CellPosition position{row, column};
                const StoredCell cell = part.cell(position);
                const auto expected = model.cells.find(position);
                EXPECT_EQ((ModelCell{cell.type, cell.value, cell.style, cell.formula}),
                          expected == model.cells.end() ? ModelCell() : expected->second)
                    << addressOf(position);
            }
        }
        std::map<int, double> heights;
        part.forEachRowHeight([&](const StoredRowHeight& height) { heights[height.row] = height.points; });
        EXPECT_EQ(heights, model.heights);
    }

    void edit(SheetPart& part, Model& model) {
        if (!maker_.chance(5)) {
            const int row = maker_.upTo(kRows + 1);
            model.heights[row] = maker_.upTo(800) / 2.0;
            part.setRowHeight(row, model.heights[row]);
            return;
        }
        const excel::CellPosition position{maker_.upTo(kRows + 1), maker_.upTo(kColumns + 1)};
        const auto [found, isNew] = model.cells.try_emplace(position);
        const int style = isNew ? styleFor(position, model) : found->second.style;
        const std::string text = " <" + std::to_string(maker_.upTo(1000));
        found->second = {CellType::InlineText, text, style, ""};
        part.setText(position, text);
    }

    static int styleFor(const excel::CellPosition& cell, const Model& model) {
        if (const auto row = model.rowStyles.find(cell.row); row != model.rowStyles.end()) return row->second;
        return cell.column == 3 || cell.column == 4 ? 8 : 0;
    }

    std::mt19937 random_{GetParam()};
    SheetMaker maker_{random_};
};

TEST_P(RandomSheetTest, ReadsAndWritesWhatTheModelSays) {
    Model model;
    LoggedSheet sheet(maker_.make(model));
    expectSame(sheet.part, model);
    for (int step = 0; step < 6; ++step) {
        const std::string before = sheet.part.toXml();
        const bool wasDirty = sheet.part.isDirty();
        Model edited = model;
        sheet.undo.start();
        for (int count = maker_.upTo(12); count > 0; --count)
            edit(sheet.part, edited);
        expectSame(sheet.part, edited);
        const std::string after = sheet.part.toXml();
        expectSame(LoggedSheet(after).part, edited);
        if (maker_.chance(2)) {
            model = edited;
            continue;
        }
        sheet.undo.undo();
        EXPECT_EQ(sheet.part.toXml(), before);
        EXPECT_EQ(sheet.part.isDirty(), wasDirty);
        expectSame(sheet.part, model);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSheetTest, ::testing::Range(0U, 40U));

}  // namespace
}  // namespace mergeloom::embedded
