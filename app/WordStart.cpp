#include "app/WordStart.h"

#include "app/MappingOptions.h"
#include "app/MappingRefusal.h"
#include "droppers/SelectionCheck.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmark.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Tables.h"

namespace mergeloom {

namespace {

bool beginsLine(word::Selection& selection) {
    const word::RangePtr before = selection.Range()->Previous(word::WdUnits::wdCharacter, 1);
    return !before || before->Text().starts_with('\r');
}

/// Begins a line at the caret. A place that the caret touches stays out of what is dropped when a paragraph
/// ends between them.
void beginNewLine(word::Selection& selection) {
    if (beginsLine(selection) && takesCompositeDrop(selection)) return;
    selection.TypeParagraph();
}

void selectEndOf(word::Document& document, word::Selection& selection, const std::string& name) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    if (!bookmarks->Exists(name)) {
        throw MappingRefusal("The mapping cannot begin at '" + name + "': the document '" +
                             document.FullName() + "' has no bookmark of that name.");
    }
    bookmarks->Item(name)->Range()->Select();
    selection.Collapse(word::WdCollapseDirection::wdCollapseEnd);
    if (selection.Tables()->Count() == 0) return;
    throw MappingRefusal("The mapping cannot begin at '" + name +
                         "': that bookmark ends in a table. Choose one outside of tables.");
}

}  // namespace

void selectStart(word::Document& document, const std::string& place) {
    const word::SelectionPtr selection = document.Application()->Selection();
    if (place == kAtEnd) {
        selection->EndKey(word::WdUnits::wdStory);
    } else {
        selectEndOf(document, *selection, place);
    }
    beginNewLine(*selection);
}

}  // namespace mergeloom
