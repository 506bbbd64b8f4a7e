#include "office/embedded/word/EmbeddedRange.h"

#include "base/AutomationError.h"
#include "office/embedded/word/EmbeddedBookmarks.h"
#include "office/embedded/word/EmbeddedCells.h"
#include "office/embedded/word/EmbeddedFields.h"
#include "office/embedded/word/EmbeddedInlineShapes.h"
#include "office/embedded/word/EmbeddedTables.h"
#include "office/embedded/word/RangeContents.h"

#include <algorithm>

namespace mergeloom::embedded {

std::string EmbeddedRange::Text() {
    const Story& story = span_.story();
    return text_ == RangeText::FieldCode ? story.code(span_.start(), span_.end())
                                         : story.text(span_.start(), span_.end());
}

void EmbeddedRange::SetText(const std::string& text) {
    const CharacterPosition start = span_.start();
    const CharacterCount inserted = content_->replace(span_.story(), start, span_.end(), text, RunUse::Own);
    span_.set(start, start + inserted);
}

word::BookmarksPtr EmbeddedRange::Bookmarks() {
    return std::make_shared<RangeBookmarks>(content_, span_.story(), span_.start(), span_.end());
}

word::CellsPtr EmbeddedRange::Cells() {
    const RangeContents contents(span_.story(), span_.start(), span_.end());
    std::vector<pugi::xml_node> cells = contents.cells();
    const FoundTable table = contents.tables().front();
    return std::make_shared<EmbeddedCells>(makeTable({content_, &span_.story()}, table.element, table.inside),
                                           std::move(cells));
}

word::FieldsPtr EmbeddedRange::Fields() {
    return fieldsOf(StoryPlace{content_, &span_.story()}, span_.start(), span_.end());
}

word::InlineShapesPtr EmbeddedRange::InlineShapes() {
    // The collection shares the range's span: changes by the collection apply to the range.
    const std::shared_ptr<TrackedRange> span(shared_from_this(), &span_);
    return std::make_shared<EmbeddedInlineShapes>(content_, span);
}

word::TablesPtr EmbeddedRange::Tables() {
    return std::make_shared<EmbeddedTables>(StoryPlace{content_, &span_.story()}, span_.start(), span_.end());
}

word::RangePtr EmbeddedRange::Previous(word::WdUnits, int count) {
    const CharacterPosition start = span_.start();
    if (start.value == 0) return nullptr;
    const CharacterPosition before{std::max<std::int64_t>(0, start.value - count)};
    const CharacterPosition end = before + CharacterCount{1};
    return std::make_shared<EmbeddedRange>(content_, span_.story(), before, end);
}

void EmbeddedRange::Select() {
    content_->selection().moveTo(span_.story(), span_.start(), span_.end());
}

}  // namespace mergeloom::embedded
