#include "office/embedded/word/EmbeddedSelection.h"

#include "office/embedded/word/EmbeddedBookmarks.h"
#include "office/embedded/word/EmbeddedFields.h"
#include "office/embedded/word/EmbeddedFont.h"
#include "office/embedded/word/EmbeddedInlineShapes.h"
#include "office/embedded/word/EmbeddedRange.h"
#include "office/embedded/word/EmbeddedTables.h"
#include "office/embedded/word/RangeContents.h"

namespace mergeloom::embedded {

namespace {

RangeContents contentsOf(const TrackedRange& span) {
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

void EmbeddedSelection::EndKey(word::WdUnits /*unit*/) {
    const CharacterPosition end = content_->endOf(span().story());
    span().set(end, end);
}

word::FontPtr EmbeddedSelection::Font() {
    return std::make_shared<EmbeddedFont>(content_);
}

word::BookmarksPtr EmbeddedSelection::Bookmarks() {
    return std::make_shared<RangeBookmarks>(content_, span().story(), span().start(), span().end());
}

word::FieldsPtr EmbeddedSelection::Fields() {
    return fieldsOf(StoryPlace{content_, &span().story()}, span().start(), span().end());
}

word::InlineShapesPtr EmbeddedSelection::InlineShapes() {
    // The content owns its selection.
    const std::shared_ptr<TrackedRange> selection(content_, &span());
    return std::make_shared<EmbeddedInlineShapes>(content_, selection);
}

word::ShapeRangePtr EmbeddedSelection::ShapeRange() {
    return std::make_shared<model::FixedCount<word::ShapeRange>>(contentsOf(span()).floatingShapes());
}

word::TablesPtr EmbeddedSelection::Tables() {
    return std::make_shared<EmbeddedTables>(StoryPlace{content_, &span().story()}, span().start(),
                                            span().end());
}

}  // namespace mergeloom::embedded
