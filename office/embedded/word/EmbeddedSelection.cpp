#include "office/embedded/word/EmbeddedSelection.h"

#include "office/embedded/word/EmbeddedBookmarks.h"
#include "office/embedded/word/EmbeddedCount.h"
#include "office/embedded/word/EmbeddedInlineShapes.h"
#include "office/embedded/word/EmbeddedRange.h"
#include "office/embedded/word/RangeCounts.h"

namespace mergeloom::embedded {

namespace {

RangeCounts countsOf(const LiveSpan& span) {
    return {span.story(), span.start(), span.end()};
}

}  // namespace

word::RangePtr EmbeddedSelection::Range() {
    return std::make_shared<EmbeddedRange>(content_, span().story(), span().start(), span().end());
}

void EmbeddedSelection::SetText(const std::string& text) {
    const CharacterPosition start = span().start();
    const CharacterCount inserted = content_->replace(span().story(), start, span().end(), text);
    span().set(start, start + inserted);
}

void EmbeddedSelection::TypeText(const std::string& text) {
    SetText(text);
    Collapse(word::WdCollapseDirection::wdCollapseEnd);
}

void EmbeddedSelection::Collapse(word::WdCollapseDirection direction) {
    const bool toEnd = direction == word::WdCollapseDirection::wdCollapseEnd;
    const CharacterPosition place = toEnd ? span().end() : span().start();
    span().set(place, place);
}

word::BookmarksPtr EmbeddedSelection::Bookmarks() {
    return std::make_shared<RangeBookmarks>(content_, span().story(), span().start(), span().end());
}

word::FieldsPtr EmbeddedSelection::Fields() {
    return std::make_shared<EmbeddedCount<word::Fields>>(countsOf(span()).fields());
}

word::InlineShapesPtr EmbeddedSelection::InlineShapes() {
    // The content owns its selection.
    const std::shared_ptr<LiveSpan> selection(content_, &span());
    return std::make_shared<EmbeddedInlineShapes>(content_, selection);
}

word::ShapeRangePtr EmbeddedSelection::ShapeRange() {
    return std::make_shared<EmbeddedCount<word::ShapeRange>>(countsOf(span()).floatingShapes());
}

word::TablesPtr EmbeddedSelection::Tables() {
    return std::make_shared<EmbeddedCount<word::Tables>>(countsOf(span()).tables());
}

}  // namespace mergeloom::embedded
