#include "office/libreoffice/word/WriterSelection.h"

#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/RangeText.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterBookmarks.h"
#include "office/libreoffice/word/WriterFields.h"
#include "office/libreoffice/word/WriterInlineShapes.h"
#include "office/libreoffice/word/WriterRange.h"
#include "office/libreoffice/word/WriterTables.h"

#include <cmath>
#include <com/sun/star/beans/XPropertySet.hpp>

namespace mergeloom::libreoffice {

namespace {

/// Makes a caret of a range that ends after a mark that no cursor of Writer's passes.
void goAfterMark(WriterContent& content, TrackedRange& range) {
    const RangeReference end = range.cursor->getEnd();
    range.cursor->collapseToEnd();
    const TableReference table = tableAt(end);
    if (range.endBeyond == Beyond::Table) range.cursor = cursorOver(content.placeAfter(range.story, table));
    if (range.endBeyond == Beyond::CellMark) {
        const std::vector<RowOfCells> rows = rowsOf(table);
        const CellPlace cell = cellOf(table, rows, range.story, end);
        if (cell.column + 1 < rows[cell.row].size()) {
            range.cursor = cursorOverCell(cellText(table, rows[cell.row][cell.column + 1]));
            range.cursor->collapseToStart();
        }
    }
}

/// For the scripts of the West, of East Asia and of those that are written from right to left or joined.
constexpr const char* kHeights[] = {"CharHeight", "CharHeightAsian", "CharHeightComplex"};

/// The font of what is selected.
class WriterFont final : public word::Font {
  public:
    explicit WriterFont(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    void SetSize(double points) override {
        const css::uno::Any size(static_cast<float>(std::lround(points * 2)) / 2);
        content_->call([&] {
            content_->checkMayEdit();
            for (const CursorReference& part : partsOf(*content_->selection()))
                setSize({part, UNO_QUERY_THROW}, size);
        });
    }

  private:
    static void setSize(const Reference<css::beans::XPropertySet>& text, const css::uno::Any& size) {
        for (const char* height : kHeights)
            text->setPropertyValue(OUString::createFromAscii(height), size);
    }

    std::shared_ptr<WriterContent> content_;
};

}  // namespace

RangePtr WriterSelection::selected() const {
    return content_->call([&] { return content_->selection(); });
}

word::RangePtr WriterSelection::Range() {
    return content_->call(
        [&] { return std::make_shared<WriterRange>(content_, content_->copyOf(*content_->selection())); });
}

void WriterSelection::SetText(const std::string& text) {
    content_->call([&] { TextEditor(*content_).replace(*content_->selection(), text); });
}

void WriterSelection::TypeText(const std::string& text) {
    SetText(text);
    Collapse(word::WdCollapseDirection::wdCollapseEnd);
}

void WriterSelection::Collapse(word::WdCollapseDirection direction) {
    content_->call([&] {
        TrackedRange& range = *content_->selection();
        if (direction == word::WdCollapseDirection::wdCollapseStart) {
            range.cursor->collapseToStart();
        } else if (range.endBeyond == Beyond::Nothing) {
            range.cursor->collapseToEnd();
        } else {
            goAfterMark(*content_, range);
        }
        range.startBeyond = range.endBeyond = Beyond::Nothing;
    });
}

/// Writer keeps a paragraph at the end of each text.
void WriterSelection::EndKey(word::WdUnits /*unit*/) {
    content_->call([&] {
        TrackedRange& range = *content_->selection();
        const CursorReference end = range.story->createTextCursor();
        end->gotoEnd(false);
        range = {range.story, end};
    });
}

word::FontPtr WriterSelection::Font() {
    return std::make_shared<WriterFont>(content_);
}

word::BookmarksPtr WriterSelection::Bookmarks() {
    return bookmarksOf(content_, *selected());
}

word::FieldsPtr WriterSelection::Fields() {
    return fieldsOf(content_, *selected());
}

word::InlineShapesPtr WriterSelection::InlineShapes() {
    return std::make_shared<WriterInlineShapes>(content_, selected());
}

word::ShapeRangePtr WriterSelection::ShapeRange() {
    const int count = content_->call([&] { return countFloatingShapes(*content_->selection()); });
    return std::make_shared<model::FixedCount<word::ShapeRange>>(count);
}

word::TablesPtr WriterSelection::Tables() {
    return tablesOf(content_, selected());
}

}  // namespace mergeloom::libreoffice
