#include "base/AutomationError.h"
#include "doubles/MemoryFileStore.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/model/Undo.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace mergeloom {
namespace {

class TablesTest : public ::testing::Test {
  protected:
    word::TablePtr addTable(int rows, int columns) {
        return document->Tables()->Add(*selection->Range(), rows, columns);
    }
    word::CellPtr cell(word::Table& table, int row, int column) {
        return table.Rows()->Item(row)->Cells()->Item(column);
    }
    std::string text() {
        const word::RangePtr all = document->Tables()->Item(1)->Range();
        return all->Text();
    }

    MemoryFileStore files;
    word::ApplicationPtr application = embedded::makeWordApplication(files);
    word::DocumentPtr document = application->Documents()->Add("");
    word::SelectionPtr selection = application->Selection();
};

TEST_F(TablesTest, ATableStandsBeforeItsParagraphAndItsCellsTakeText) {
    selection->TypeText("before");
    selection->TypeParagraph();
    const word::TablePtr table = addTable(2, 3);
    selection->TypeText("");
    cell(*table, 1, 2)->Range()->SetText("middle");
    cell(*table, 2, 3)->Range()->SetText("last");

    EXPECT_EQ(text(),
              "\r\a"
              "middle\r\a"
              "\r\a"
              "\r\a"
              "\r\a"
              "\r\a"
              "last\r\a"
              "\r\a");
    EXPECT_EQ(table->Range()->Start().value, 7);
    EXPECT_EQ(table->Columns()->Count(), 3);
    EXPECT_EQ(cell(*table, 2, 3)->ColumnIndex(), 3);
    EXPECT_EQ(cell(*table, 2, 3)->RowIndex(), 2);
    EXPECT_EQ(table->Range()->Cells()->Count(), 6);
    EXPECT_TRUE(table->Uniform());
}

TEST_F(TablesTest, ATableInTheMiddleOfAParagraphSplitsIt) {
    selection->TypeText("leftright");
    document->Bookmarks()->Add("all", *selection->Range());
    const word::BookmarkPtr all = document->Bookmarks()->Item("all");
    all->SetStart({4});
    all->SetEnd({4});
    all->Select();
    const word::TablePtr table = addTable(1, 1);
    EXPECT_EQ(table->Range()->Start().value, 5);
    EXPECT_EQ(table->Range()->End().value, 7);
}

TEST_F(TablesTest, ABookmarkAroundTheTableGrowsWithItsRowsAndGoesWithIt) {
    const word::TablePtr table = addTable(2, 2);
    const word::BookmarkPtr bookmark = document->Bookmarks()->Add("Orders", *table->Range());
    table->Select();
    selection->Collapse(word::WdCollapseDirection::wdCollapseEnd);
    const CharacterPosition before = selection->Range()->Start();
    table->Rows()->Add();
    EXPECT_EQ(table->Rows()->Count(), 3);
    EXPECT_EQ(bookmark->End(), table->Range()->End());
    EXPECT_EQ((selection->Range()->Start() - before).value, 3);

    table->Delete();
    EXPECT_FALSE(document->Bookmarks()->Exists("Orders"));
    EXPECT_EQ(document->Tables()->Count(), 0);
    EXPECT_THROW(table->Range(), AutomationError);
}

TEST_F(TablesTest, UndoTakesATableBackWithAllThatWasDoneToIt) {
    application->UndoRecord()->StartCustomRecord("table");
    const word::TablePtr table = addTable(2, 2);
    cell(*table, 1, 1)->Range()->SetText("x");
    table->Rows()->Add();
    table->Select();
    selection->Font()->SetSize(8);
    application->UndoRecord()->EndCustomRecord();
    ASSERT_TRUE(document->Undo(1));
    EXPECT_EQ(document->Tables()->Count(), 0);
    EXPECT_THROW(table->Rows(), AutomationError);
}

TEST_F(TablesTest, WordsLimitOfColumnsIsKept) {
    EXPECT_NO_THROW(addTable(1, 63));
    EXPECT_THROW(addTable(1, 64), AutomationError);
}

}  // namespace
}  // namespace mergeloom
