#include "office/libreoffice/word/WriterRange.h"

#include "office/libreoffice/word/StoryText.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterBookmarks.h"
#include "office/libreoffice/word/WriterCells.h"
#include "office/libreoffice/word/WriterFields.h"
#include "office/libreoffice/word/WriterInlineShapes.h"
#include "office/libreoffice/word/WriterTables.h"

#include <algorithm>

namespace mergeloom::libreoffice {

std::string WriterRange::Text() {
    return content_->call([&] {
        return textOf(*content_, *stretch_->story, {stretch_->start, stretch_->end});
    });
}

void WriterRange::SetText(const std::string& text) {
    content_->call([&] {
        const CharacterPosition start = stretch_->start;
        const CharacterCount inserted =
            TextEditor(*content_).replace(*stretch_->story, {start, stretch_->end}, text);
        stretch_->start = start;
        stretch_->end = start + inserted;
    });
}

word::BookmarksPtr WriterRange::Bookmarks() {
    return std::make_shared<RangeBookmarks>(content_, *stretch_);
}

word::CellsPtr WriterRange::Cells() {
    return cellsOf(content_, *stretch_);
}

word::InlineShapesPtr WriterRange::InlineShapes() {
    return std::make_shared<WriterInlineShapes>(content_, stretch_);
}

word::FieldsPtr WriterRange::Fields() {
    return fieldsIn(content_, *stretch_);
}

word::TablesPtr WriterRange::Tables() {
    return std::make_shared<WriterTables>(content_, *stretch_);
}

word::RangePtr WriterRange::Previous(word::WdUnits, int count) {
    if (stretch_->start.value == 0) return nullptr;
    const CharacterPosition before{std::max<std::int64_t>(0, stretch_->start.value - count)};
    return makeRange(content_, *stretch_->story, {before, before + CharacterCount{1}});
}

word::RangePtr makeRange(const std::shared_ptr<WriterContent>& content, WriterStory& story, Stretch stretch) {
    return std::make_shared<WriterRange>(content, content->live(story, stretch.start, stretch.end));
}

}  // namespace mergeloom::libreoffice
