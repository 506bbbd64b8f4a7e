#pragma once

#include "office/embedded/text/Story.h"

#include <pugixml.hpp>

namespace mergeloom::embedded {

/// A place for an element in a part: after a sibling, or first in its parent when there is no sibling.
struct DomPlace {
    pugi::xml_node parent;
    pugi::xml_node after;
};

/// Finds places for elements between two neighbouring items of a story. Between two characters there are
/// often several places (inside a hyperlink or after it); the outermost one is used, so that an element that
/// is inserted at the start or the end of a container does not become part of it.
class DomPlaces {
  public:
    explicit DomPlaces(const Story& story) : story_(story), names_(story.names()) {}

    /// Returns the place for a run or another element of the paragraph that the next item is in or ends. It
    /// is in the container, if there is one and it is between the two items or around one of them. Raises an
    /// AutomationError where no text is possible: after the last cell of a row, in deleted text.
    [[nodiscard]] DomPlace forRun(const Item* previous, const Item* next,
                                  pugi::xml_node container = {}) const;
    /// Returns the place for the start mark of a bookmark, which may be in deleted text, too.
    [[nodiscard]] DomPlace forStartMark(const Item* previous, const Item* next) const;
    /// Returns the place for the end mark of a bookmark whose last character is the previous item.
    [[nodiscard]] DomPlace forEndMark(const Item* previous, const Item* next) const;

    /// Returns the paragraph that receives text or a mark before an item. Raises an AutomationError where
    /// none is possible.
    [[nodiscard]] pugi::xml_node paragraphAt(const Item* next) const;

    /// Returns the run that an item is in, or the item's own element when it is in none.
    [[nodiscard]] pugi::xml_node inlineElementOf(const Item* item) const;

  private:
    /// Returns the outermost place between two items of which the second one is in a paragraph or ends it.
    [[nodiscard]] DomPlace outermost(const Item* previous, const Item* next, pugi::xml_node paragraph) const;
    [[nodiscard]] DomPlace after(const Item* item) const;
    [[nodiscard]] DomPlace before(const Item* item) const;
    /// Returns the place after an item with no other element of the paragraph around it, as in most
    /// paragraphs; one without a parent for any other item.
    [[nodiscard]] DomPlace directlyIn(pugi::xml_node paragraph, const Item* item) const;
    /// Returns the place right after the previous item and outside of all elements that end there.
    [[nodiscard]] DomPlace inParagraph(const Item* previous, const Item* next) const;
    /// Returns the place before the paragraph's first item and outside of all elements that begin there.
    [[nodiscard]] DomPlace firstInParagraph(const Item* next, pugi::xml_node paragraph) const;
    /// Returns the place in a container that is at the place; one without a parent when it is not.
    [[nodiscard]] DomPlace inContainer(const Item* previous, const Item* next,
                                       pugi::xml_node container) const;
    [[nodiscard]] bool isSimpleField(const Item* item) const;

    const Story& story_;
    const opc::WordNames& names_;
};

}  // namespace mergeloom::embedded
