#include "office/libreoffice/host/HostPlaces.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/DefinedNameRule.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <com/sun/star/accessibility/XAccessibleTable.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/text/XBookmarksSupplier.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

[[noreturn]] void refuse(const std::string& sentence) {
    throw AutomationError(kCommandFailed, sentence);
}

/// Returns what a place covers: a range of text, or cells.
css::uno::Any contentOf(const Reference<css::uno::XInterface>& place) {
    const Reference<css::text::XTextContent> bookmark(place, UNO_QUERY);
    if (bookmark.is()) return css::uno::Any(bookmark->getAnchor());
    const Reference<css::sheet::XCellRangeReferrer> cells(place, UNO_QUERY_THROW);
    return css::uno::Any(cells->getReferredCells());
}

/// A cell of the workbook, counted from 0.
struct HostCell {
    sal_Int16 sheet;
    sal_Int32 row, column;
};

/// Returns the cell whose object is part of the view's table.
HostCell cellOf(const AccessibleSpot& spot, const Reference<css::frame::XController>& view) {
    const Reference<css::accessibility::XAccessibleTable> table(
        spot.object->getAccessibleParent()->getAccessibleContext(), UNO_QUERY_THROW);
    const auto index = spot.object->getAccessibleIndexInParent();
    const Reference<css::sheet::XSpreadsheetView> sheets(view, UNO_QUERY_THROW);
    const Reference<css::sheet::XCellRangeAddressable> sheet(sheets->getActiveSheet(), UNO_QUERY_THROW);
    return {sheet->getRangeAddress().Sheet, table->getAccessibleRow(index),
            table->getAccessibleColumn(index)};
}

bool covers(const css::uno::Any& cells, const HostCell& cell) {
    const Reference<css::sheet::XCellRangeAddressable> range(cells, UNO_QUERY);
    if (!range.is()) return false;
    const css::table::CellRangeAddress area = range->getRangeAddress();
    return area.Sheet == cell.sheet && area.StartRow <= cell.row && cell.row <= area.EndRow &&
           area.StartColumn <= cell.column && cell.column <= area.EndColumn;
}

/// A character of a paragraph.
struct HostCharacter {
    OUString paragraph;
    sal_Int32 index;
};

/// Returns the text from the start of the paragraph to the range's start or end.
OUString textBefore(const Reference<css::text::XTextRange>& end) {
    const Reference<css::text::XParagraphCursor> cursor(end->getText()->createTextCursorByRange(end),
                                                        UNO_QUERY_THROW);
    cursor->gotoStartOfParagraph(true);
    return cursor->getString();
}

/// Returns true if the bookmark covers the character of a paragraph with that text. Its text is compared
/// first, since that takes a single call.
bool covers(const Reference<css::text::XTextRange>& range, const HostCharacter& character) {
    const OUString text = range->getString();
    if (text.isEmpty() || character.paragraph.indexOf(text) < 0) return false;
    const OUString before = textBefore(range->getStart());
    const sal_Int32 start = before.getLength();
    return start <= character.index && character.index < start + text.getLength() &&
           character.paragraph.startsWith(before) && character.paragraph.match(text, start);
}

/// Returns true if the character is between the marks of a bookmark's ends. When LibreOffice 24 and later
/// shows them, they are part of the paragraph's text: "#", the name, a space and words in the user's
/// language.
bool isBetweenMarks(const std::string& name, const HostCharacter& character) {
    const OUString mark = toUno("#" + name + " ");
    const sal_Int32 start = character.paragraph.indexOf(mark);
    if (start < 0 || character.index < start) return false;
    return character.index < character.paragraph.indexOf(mark, start + mark.getLength());
}

}  // namespace

HostPlaces::HostPlaces(const DocumentReference& document) {
    const Reference<css::text::XBookmarksSupplier> text(document, UNO_QUERY);
    if (text.is()) {
        places_ = text->getBookmarks();
        return;
    }
    const Reference<css::beans::XPropertySet> workbook(document, UNO_QUERY);
    if (!workbook.is()) return;
    cells_.set(workbook->getPropertyValue("NamedRanges"), UNO_QUERY_THROW);
    places_.set(cells_, UNO_QUERY_THROW);
}

std::vector<std::string> HostPlaces::names() const {
    std::vector<std::string> names;
    if (!places_.is()) return names;
    for (const OUString& name : places_->getElementNames()) {
        std::string place = fromUno(name);
        if (!word::isHiddenBookmark(place)) names.push_back(std::move(place));
    }
    return names;
}

template <typename IsThere>
std::vector<std::string> HostPlaces::placesThat(const IsThere& isThere) const {
    std::vector<std::string> found;
    for (const std::string& name : names())
        if (isThere(name)) found.push_back(name);
    return found;
}

std::vector<std::string> HostPlaces::at(const CaretTarget& target,
                                        const Reference<css::frame::XController>& view) const {
    if (target.placement == CaretPlacement::InCells) {
        const HostCell cell = cellOf(target.spot, view);
        return placesThat([&](const std::string& name) { return covers(contentOf(find(name)), cell); });
    }
    if (target.placement != CaretPlacement::InText && target.placement != CaretPlacement::InSelection)
        return {};
    const ParagraphReference paragraph(target.spot.object, UNO_QUERY_THROW);
    const HostCharacter character{paragraph->getText(), target.character};
    return placesThat([&](const std::string& name) {
        return isBetweenMarks(name, character) ||
               covers(Reference<css::text::XTextRange>(contentOf(find(name)), UNO_QUERY_THROW), character);
    });
}

Reference<css::uno::XInterface> HostPlaces::find(const std::string& name) const {
    const OUString searched = toUno(name);
    if (!places_.is() || !places_->hasByName(searched))
        refuse("There is no place named '" + name + "' any more.");
    return {places_->getByName(searched), UNO_QUERY_THROW};
}

void HostPlaces::select(const std::string& name, const Reference<css::frame::XController>& view) const {
    const css::uno::Any content = contentOf(find(name));
    const Reference<css::uno::XInterface> there(content, UNO_QUERY);
    if (!there.is()) refuse("The cells of the place '" + name + "' were deleted.");
    Reference<css::view::XSelectionSupplier>(view, UNO_QUERY_THROW)->select(content);
}

void HostPlaces::checkNewName(const std::string& name, const std::string& newName) const {
    const bool isWorkbook = cells_.is();
    if (!(isWorkbook ? excel::isDefinedName(newName) : word::isBookmarkName(newName))) {
        refuse("'" + newName + "' cannot be the name of a place. " +
               (isWorkbook
                    ? "Names have up to 255 letters, digits and \"_\", begin with a letter, and are not "
                      "the address of a cell."
                    : "Names have up to 40 letters, digits and \"_\", and no digit at the beginning."));
    }
    const std::vector<std::string> all = names();
    const auto isTaken = [&](const std::string& other) {
        return equalsIgnoringCase(other, newName) && !equalsIgnoringCase(other, name);
    };
    if (std::ranges::any_of(all, isTaken)) refuse("There is a place named '" + newName + "' already.");
}

void HostPlaces::rename(const std::string& name, const std::string& newName) const {
    const Reference<css::container::XNamed> place(find(name), UNO_QUERY_THROW);
    checkNewName(name, newName);
    place->setName(toUno(newName));
}

void HostPlaces::remove(const std::string& name) const {
    const Reference<css::lang::XComponent> bookmark(find(name), UNO_QUERY);
    if (cells_.is()) {
        cells_->removeByName(toUno(name));
    } else if (bookmark.is()) {
        bookmark->dispose();
    }
}

}  // namespace mergeloom::libreoffice
