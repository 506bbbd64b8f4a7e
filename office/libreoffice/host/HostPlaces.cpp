#include "office/libreoffice/host/HostPlaces.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/DefinedNameRule.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/text/XBookmarksSupplier.hpp>
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
