#include "office/embedded/word/EmbeddedRange.h"

#include "office/embedded/text/RangeContents.h"
#include "office/embedded/word/EmbeddedBookmarks.h"
#include "office/embedded/word/EmbeddedFields.h"
#include "office/embedded/word/EmbeddedTables.h"

#include <algorithm>
#include <cmath>

namespace mergeloom::embedded {

namespace {

RangeContents contentsOf(const TrackedRange& range) {
    return {range.story(), range.start(), range.end()};
}

class EmbeddedInlineShapes final : public word::InlineShapes {
  public:
    /// The range is that of the owner of the collection; it then covers a picture that is added.
    EmbeddedInlineShapes(std::shared_ptr<WordContent> content, std::shared_ptr<TrackedRange> range)
        : content_(std::move(content)), range_(std::move(range)) {}

    int Count() override { return contentsOf(*range_).inlineShapes(); }
    void AddPicture(const std::string& fileName) override {
        const CharacterPosition start = range_->start();
        const CharacterCount inserted =
            content_->replaceByPicture(range_->story(), start, range_->end(), fileName);
        range_->set(start, start + inserted);
    }

  private:
    std::shared_ptr<WordContent> content_;
    std::shared_ptr<TrackedRange> range_;
};

/// The font of the selection.
class EmbeddedFont final : public word::Font {
  public:
    explicit EmbeddedFont(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}

    void SetSize(double points) override {
        const TrackedRange& range = content_->selection();
        content_->beginEdit(range.story(), range.start(), range.end());
        const auto halfPoints = static_cast<int>(std::lround(points * 2));
        content_->editable(range.story()).fonts.setSize(range.start(), range.end(), halfPoints);
    }

  private:
    std::shared_ptr<WordContent> content_;
};

void replaceText(WordContent& content, TrackedRange& range, const std::string& text, RunUse runs) {
    const CharacterPosition start = range.start();
    const CharacterCount inserted = content.replace(range.story(), start, range.end(), text, runs);
    range.set(start, start + inserted);
}

}  // namespace

std::string EmbeddedRange::Text() {
    const Story& story = range_.story();
    return text_ == RangeText::FieldCode ? story.code(range_.start(), range_.end())
                                         : story.text(range_.start(), range_.end());
}

void EmbeddedRange::SetText(const std::string& text) {
    replaceText(*content_, range_, text, RunUse::Own);
}

word::BookmarksPtr EmbeddedRange::Bookmarks() {
    return bookmarksIn(content_, range_);
}

word::CellsPtr EmbeddedRange::Cells() {
    return cellsIn(content_, range_);
}

word::FieldsPtr EmbeddedRange::Fields() {
    return fieldsIn(content_, range_);
}

word::InlineShapesPtr EmbeddedRange::InlineShapes() {
    // The collection shares this range, so that the range covers what the collection adds.
    return std::make_shared<EmbeddedInlineShapes>(content_,
                                                  std::shared_ptr<TrackedRange>(shared_from_this(), &range_));
}

word::TablesPtr EmbeddedRange::Tables() {
    return tablesIn(content_, range_);
}

word::RangePtr EmbeddedRange::Previous(word::WdUnits, int count) {
    const CharacterPosition start = range_.start();
    if (start.value == 0) return nullptr;
    const CharacterPosition before{std::max<std::int64_t>(0, start.value - count)};
    return std::make_shared<EmbeddedRange>(content_, range_.story(), before, before + CharacterCount{1});
}

void EmbeddedRange::Select() {
    content_->selection().moveTo(range_.story(), range_.start(), range_.end());
}

word::RangePtr EmbeddedSelection::Range() {
    return std::make_shared<EmbeddedRange>(content_, range().story(), range().start(), range().end());
}

void EmbeddedSelection::SetText(const std::string& text) {
    replaceText(*content_, range(), text, RunUse::Shared);
}

void EmbeddedSelection::TypeText(const std::string& text) {
    SetText(text);
    Collapse(word::WdCollapseDirection::wdCollapseEnd);
}

void EmbeddedSelection::Collapse(word::WdCollapseDirection direction) {
    const bool toEnd = direction == word::WdCollapseDirection::wdCollapseEnd;
    const CharacterPosition place = toEnd ? range().end() : range().start();
    range().set(place, place);
}

void EmbeddedSelection::EndKey(word::WdUnits /*unit*/) {
    const CharacterPosition end = content_->endOf(range().story());
    range().set(end, end);
}

word::FontPtr EmbeddedSelection::Font() {
    return std::make_shared<EmbeddedFont>(content_);
}

word::BookmarksPtr EmbeddedSelection::Bookmarks() {
    return bookmarksIn(content_, range());
}

word::FieldsPtr EmbeddedSelection::Fields() {
    return fieldsIn(content_, range());
}

word::InlineShapesPtr EmbeddedSelection::InlineShapes() {
    return std::make_shared<EmbeddedInlineShapes>(content_,
                                                  std::shared_ptr<TrackedRange>(content_, &range()));
}

word::ShapeRangePtr EmbeddedSelection::ShapeRange() {
    return std::make_shared<model::FixedCount<word::ShapeRange>>(contentsOf(range()).floatingShapes());
}

word::TablesPtr EmbeddedSelection::Tables() {
    return tablesIn(content_, range());
}

}  // namespace mergeloom::embedded
