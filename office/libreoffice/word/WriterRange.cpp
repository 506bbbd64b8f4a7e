#include "office/libreoffice/word/WriterRange.h"

#include "office/libreoffice/word/RangeText.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/StoryPositions.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterBookmarks.h"
#include "office/libreoffice/word/WriterCells.h"
#include "office/libreoffice/word/WriterFields.h"
#include "office/libreoffice/word/WriterInlineShapes.h"
#include "office/libreoffice/word/WriterTables.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

TextPlace placeOf(const TrackedRange& range, word::RangeEnd end) {
    return end == word::RangeEnd::Start ? range.start() : range.end();
}

/// The mark of the table that ends where the place is.
TrackedRange lastMarkOf(const TextReference& story, const TableReference& table) {
    TrackedRange mark = wholeTable(story, table);
    mark.cursor->collapseToEnd();
    mark.startBeyond = Beyond::CellMark;
    return mark;
}

/// The mark of the cell before the one in which the place is. Before the first cell is none that Writer could
/// mark.
std::optional<TrackedRange> markOfCellBefore(const TextReference& story, const RangeReference& place) {
    const TableReference table = tableAt(place);
    if (!table.is()) return std::nullopt;
    const std::vector<RowOfCells> rows = rowsOf(table);
    CellPlace cell = cellOf(table, rows, story, place);
    if (cell == CellPlace{}) return std::nullopt;
    if (cell.column == 0) cell = {cell.row - 1, rows[cell.row - 1].size()};
    const CursorReference before = cursorOverCell(cellText(table, rows[cell.row][cell.column - 1]));
    before->collapseToEnd();
    return TrackedRange{story, before, Beyond::Nothing, Beyond::CellMark};
}

/// Returns the character before the place, or none at the start of its story.
std::optional<TrackedRange> characterBefore(const TextReference& story, const RangeReference& place) {
    const CursorReference cursor = cursorOver(place);
    if (cursor->goLeft(1, true)) {
        // A step from the paragraph after a table goes over the table.
        if (!cursor->getString().startsWith("\n")) return TrackedRange{story, cursor};
        const TableReference table = tableBefore(place);
        return table.is() ? lastMarkOf(story, table) : TrackedRange{story, cursor};
    }
    if (std::optional<TrackedRange> mark = markOfCellBefore(story, place)) return mark;
    if (tableAt(place).is()) return std::nullopt;
    const TableReference table = tableBefore(place);
    return table.is() ? std::optional(lastMarkOf(story, table)) : std::nullopt;
}

}  // namespace

WriterRange::WriterRange(std::shared_ptr<WriterContent> content, RangePtr range)
    : content_(std::move(content)), range_(std::move(range)) {
    content_->link(*this, range_);
}

WriterRange::~WriterRange() {
    content_->unlink(*this);
}

CharacterPosition WriterRange::Start() {
    return content_->call([&] { return StoryPositions(range_->story).positionOf(range_->start()); });
}

CharacterPosition WriterRange::End() {
    return content_->call([&] { return StoryPositions(range_->story).positionOf(range_->end()); });
}

bool WriterRange::isEmpty() {
    return content_->call([&] { return range_->isCaret(); });
}

std::strong_ordering WriterRange::compare(word::RangeEnd mine, word::Range& other, word::RangeEnd others) {
    return content_->call([&] {
        const RangePtr second = content_->linkedTo(other);
        const bool isPlain =
            range_->isPlain() && second->isPlain() && !range_->table.is() && !second->table.is();
        if (isPlain && mine == others) {
            const auto compareSame =
                mine == word::RangeEnd::Start ? order::compareStarts : order::compareEnds;
            return compareSame(range_->story, rangeOf(range_->cursor), rangeOf(second->cursor)) <=> 0;
        }
        return order::compare(range_->story, placeOf(*range_, mine), placeOf(*second, others)) <=> 0;
    });
}

std::string WriterRange::storyName() {
    return content_->call([&] { return content_->nameOf(range_->story); });
}

std::string WriterRange::Text() {
    return content_->call([&] { return textOf(*range_); });
}

void WriterRange::SetText(const std::string& text) {
    content_->call([&] { TextEditor(*content_).replace(*range_, text); });
}

word::BookmarksPtr WriterRange::Bookmarks() {
    return bookmarksOf(content_, *range_);
}

word::CellsPtr WriterRange::Cells() {
    return cellsOf(content_, *range_);
}

word::InlineShapesPtr WriterRange::InlineShapes() {
    return std::make_shared<WriterInlineShapes>(content_, range_);
}

word::FieldsPtr WriterRange::Fields() {
    return fieldsOf(content_, *range_);
}

word::TablesPtr WriterRange::Tables() {
    return tablesOf(content_, range_);
}

word::RangePtr WriterRange::Previous(word::WdUnits, int count) {
    return content_->call([&]() -> word::RangePtr {
        std::optional<TrackedRange> before = characterBefore(range_->story, range_->cursor->getStart());
        if (!before) return nullptr;
        while (--count > 0) {
            const auto further = characterBefore(range_->story, before->cursor->getStart());
            if (!further) break;
            before = further;
        }
        return makeRange(content_, *before);
    });
}

void WriterRange::Select() {
    content_->call([&] { content_->select(*range_); });
}

word::RangePtr makeRange(const std::shared_ptr<WriterContent>& content, TrackedRange range) {
    return std::make_shared<WriterRange>(content, content->track(std::move(range)));
}

}  // namespace mergeloom::libreoffice
