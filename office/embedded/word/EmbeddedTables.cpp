#include "office/embedded/word/EmbeddedTables.h"

#include "base/AutomationError.h"
#include "office/embedded/text/RangeContents.h"
#include "office/embedded/word/EmbeddedRange.h"
#include "office/embedded/word/TextArea.h"
#include "office/model/word/TableSize.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

namespace {

/// A table, found again by its element and the mark of a row.
class EmbeddedTable final : public word::Table, public std::enable_shared_from_this<EmbeddedTable> {
  public:
    EmbeddedTable(StoryPlace place, pugi::xml_node table, const Item* rowMark)
        : place_(std::move(place)), table_(table), rowMark_(rowMark) {}

    word::RangePtr Range() override { return rangeBetween(charactersOf(element(), rowMark_)); }
    word::RowsPtr Rows() override;
    word::ColumnsPtr Columns() override {
        return std::make_shared<model::FixedCount<word::Columns>>(columnCountOf(element(), names()));
    }
    bool Uniform() override { return isUniform(element(), names()); }
    void Select() override { Range()->Select(); }
    void Delete() override {
        const CharacterRange whole = charactersOf(element(), rowMark_);
        place_.content->replace(*place_.story, whole.start, whole.end, "");
    }

    /// Returns the table's element. Raises kObjectDeleted if the table is gone.
    [[nodiscard]] pugi::xml_node element() const {
        if (!rowMark_->isPlaced()) throw AutomationError(kObjectDeleted, "The table has been deleted.");
        return table_;
    }
    [[nodiscard]] const opc::WordNames& names() const { return place_.story->names(); }
    /// Returns the range of a cell of the table. The rows are searched from the last one, which is the one
    /// that is filled while a table grows.
    [[nodiscard]] word::RangePtr rangeOf(pugi::xml_node cell) const {
        const pugi::xml_node row = names().ancestor(cell, opc::WordTag::Row);
        const Item* item = lastRowMark();
        while (item->node != row)
            item = ItemTree::previous(item);
        while (!isInside(item->node, cell))
            item = ItemTree::previous(item);
        return rangeBetween(charactersOf(cell, item));
    }
    /// Appends a row and returns it.
    pugi::xml_node appendRow() {
        const Item* last = lastRowMark();
        const CharacterPosition end = place_.story->positionOf(last);
        place_.content->beginEdit(*place_.story, end, end + CharacterCount{1});
        lastRowMark_ = place_.editable().tables.appendRow(last);
        return lastRowMark_->node;
    }

  private:
    [[nodiscard]] CharacterRange charactersOf(pugi::xml_node part, const Item* inside) const {
        return characterRangeOf(*place_.story, part, inside);
    }
    [[nodiscard]] word::RangePtr rangeBetween(const CharacterRange& found) const {
        return std::make_shared<EmbeddedRange>(place_.content, *place_.story, found.start, found.end);
    }
    /// Returns the mark of the last row, which changes with each row that is appended, also through other
    /// objects of this table.
    [[nodiscard]] const Item* lastRowMark() const {
        const pugi::xml_node last = lastRowOf(element(), names());
        const Item* mark = lastRowMark_->isPlaced() ? lastRowMark_ : rowMark_;
        while (mark->node != last)
            mark = ItemTree::next(mark);
        lastRowMark_ = mark;
        return mark;
    }

    StoryPlace place_;
    pugi::xml_node table_;
    const Item* rowMark_;
    mutable const Item* lastRowMark_ = rowMark_;
};

using TablePtr = std::shared_ptr<EmbeddedTable>;

/// Returns the table with an item inside it.
TablePtr makeTable(const StoryPlace& place, pugi::xml_node table, Item* inside) {
    const pugi::xml_node lastRow = lastRowOf(table, place.story->names());
    while (inside->kind != ItemKind::RowMark || inside->node != lastRow)
        inside = ItemTree::next(inside);
    return std::make_shared<EmbeddedTable>(place, table, inside);
}

int numberAmong(const std::vector<pugi::xml_node>& nodes, pugi::xml_node node) {
    return static_cast<int>(std::find(nodes.begin(), nodes.end(), node) - nodes.begin()) + 1;
}

class EmbeddedCell final : public word::Cell {
  public:
    EmbeddedCell(TablePtr table, pugi::xml_node cell) : table_(std::move(table)), cell_(cell) {}

    word::RangePtr Range() override { return table_->rangeOf(cell_); }
    int ColumnIndex() override { return numberAmong(cellsOf(row(), table_->names()), cell_); }
    int RowIndex() override { return numberAmong(rowsOf(table_->element(), table_->names()), row()); }
    void Select() override { Range()->Select(); }

  private:
    [[nodiscard]] pugi::xml_node row() const { return table_->names().ancestor(cell_, opc::WordTag::Row); }

    TablePtr table_;
    pugi::xml_node cell_;
};

class EmbeddedCells final : public word::Cells {
  public:
    EmbeddedCells(TablePtr table, std::vector<pugi::xml_node> cells)
        : table_(std::move(table)), cells_(std::move(cells)) {}

    int Count() override { return static_cast<int>(cells_.size()); }
    word::CellPtr Item(int number) override {
        return std::make_shared<EmbeddedCell>(table_, cells_[indexOf(number)]);
    }

  private:
    TablePtr table_;
    std::vector<pugi::xml_node> cells_;
};

class EmbeddedRow final : public word::Row {
  public:
    EmbeddedRow(TablePtr table, pugi::xml_node row) : table_(std::move(table)), row_(row) {}

    word::CellsPtr Cells() override {
        return std::make_shared<EmbeddedCells>(table_, cellsOf(row_, table_->names()));
    }

  private:
    TablePtr table_;
    pugi::xml_node row_;
};

class EmbeddedRows final : public word::Rows {
  public:
    explicit EmbeddedRows(TablePtr table) : table_(std::move(table)) {}

    int Count() override { return static_cast<int>(rows().size()); }
    word::RowPtr Item(int number) override {
        return std::make_shared<EmbeddedRow>(table_, rows()[indexOf(number)]);
    }
    word::RowPtr Add() override { return std::make_shared<EmbeddedRow>(table_, table_->appendRow()); }

  private:
    [[nodiscard]] std::vector<pugi::xml_node> rows() const {
        return rowsOf(table_->element(), table_->names());
    }

    TablePtr table_;
};

word::RowsPtr EmbeddedTable::Rows() {
    static_cast<void>(element());
    return std::make_shared<EmbeddedRows>(shared_from_this());
}

class EmbeddedTables final : public word::Tables {
  public:
    EmbeddedTables(StoryPlace place, CharacterPosition start, CharacterPosition end)
        : place_(std::move(place)), start_(start), end_(end) {}

    int Count() override { return static_cast<int>(tables().size()); }
    word::TablePtr Item(int number) override { return tables()[indexOf(number)]; }
    word::TablePtr Add(word::Range& range, int rows, int columns) override;

  private:
    const std::vector<TablePtr>& tables();

    StoryPlace place_;
    CharacterPosition start_;
    CharacterPosition end_;
    std::optional<std::vector<TablePtr>> tables_;
};

const std::vector<TablePtr>& EmbeddedTables::tables() {
    if (tables_) return *tables_;
    tables_.emplace();
    for (const FoundTable& found : RangeContents(*place_.story, start_, end_).tables()) {
        tables_->push_back(makeTable(place_, found.element, found.inside));
    }
    return *tables_;
}

word::TablePtr EmbeddedTables::Add(word::Range& range, int rows, int columns) {
    word::checkTableSize(rows, columns);
    Story& story = place_.content->storyNamed(range.storyName());
    place_.content->beginEdit(story, range.Start(), range.Start());
    const TableShape shape{rows, columns, textAreaWidth(story, range.Start()).value / kEmuPerTwip,
                           place_.content->hasStyle("TableGrid")};
    const StoryPlace place{place_.content, &story};
    embedded::Item* rowMark = place.editable().tables.insertTable(range.Start(), shape);
    return makeTable(place, story.tableOf(rowMark), rowMark);
}

}  // namespace

word::TablesPtr tablesIn(const std::shared_ptr<WordContent>& content, const TrackedRange& range) {
    return std::make_shared<EmbeddedTables>(StoryPlace{content, &range.story()}, range.start(), range.end());
}

word::CellsPtr cellsIn(const std::shared_ptr<WordContent>& content, const TrackedRange& range) {
    const RangeContents contents(range.story(), range.start(), range.end());
    std::vector<pugi::xml_node> cells = contents.cells();
    const FoundTable table = contents.tables().front();
    return std::make_shared<EmbeddedCells>(makeTable({content, &range.story()}, table.element, table.inside),
                                           std::move(cells));
}

}  // namespace mergeloom::embedded
