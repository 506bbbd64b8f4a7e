#include "office/libreoffice/word/WriterSelection.h"

#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterBookmarks.h"
#include "office/libreoffice/word/WriterCount.h"
#include "office/libreoffice/word/WriterFields.h"
#include "office/libreoffice/word/WriterFont.h"
#include "office/libreoffice/word/WriterInlineShapes.h"
#include "office/libreoffice/word/WriterRange.h"
#include "office/libreoffice/word/WriterTables.h"

namespace mergeloom::libreoffice {

std::shared_ptr<LiveStretch> WriterSelection::stretch() const {
    return content_->call([&] { return content_->selection(); });
}

word::RangePtr WriterSelection::Range() {
    return makeRange(content_, *stretch()->story, {stretch()->start, stretch()->end});
}

void WriterSelection::SetText(const std::string& text) {
    content_->call([&] {
        LiveStretch& selected = *content_->selection();
        const CharacterPosition start = selected.start;
        const CharacterCount inserted =
            TextEditor(*content_).replace(*selected.story, {start, selected.end}, text);
        selected.start = start;
        selected.end = start + inserted;
    });
}

void WriterSelection::TypeText(const std::string& text) {
    SetText(text);
    Collapse(word::WdCollapseDirection::wdCollapseEnd);
}

void WriterSelection::Collapse(word::WdCollapseDirection direction) {
    const std::shared_ptr<LiveStretch> stretch = this->stretch();
    LiveStretch& selected = *stretch;
    const bool toEnd = direction == word::WdCollapseDirection::wdCollapseEnd;
    selected.start = selected.end = toEnd ? selected.end : selected.start;
}

/// Writer keeps a paragraph at the end of each text.
void WriterSelection::EndKey(word::WdUnits /*unit*/) {
    const std::shared_ptr<LiveStretch> selected = stretch();
    const CharacterPosition end{selected->story->map().length().value - 1};
    selected->start = selected->end = end;
}

word::FontPtr WriterSelection::Font() {
    return std::make_shared<WriterFont>(content_);
}

word::BookmarksPtr WriterSelection::Bookmarks() {
    return std::make_shared<RangeBookmarks>(content_, *stretch());
}

word::FieldsPtr WriterSelection::Fields() {
    return fieldsIn(content_, *stretch());
}

word::InlineShapesPtr WriterSelection::InlineShapes() {
    return std::make_shared<WriterInlineShapes>(content_, stretch());
}

word::ShapeRangePtr WriterSelection::ShapeRange() {
    const std::size_t count = objectsIn(*stretch(), ObjectKind::FloatingShape).size();
    return std::make_shared<WriterCount<word::ShapeRange>>(static_cast<int>(count));
}

word::TablesPtr WriterSelection::Tables() {
    return std::make_shared<WriterTables>(content_, *stretch());
}

}  // namespace mergeloom::libreoffice
