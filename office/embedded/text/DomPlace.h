#pragma once

#include "office/embedded/text/Story.h"

#include <pugixml.hpp>

namespace mergeloom::embedded {

/// Where an element goes in a part: behind a sibling, or first in its parent when after is none.
struct DomPlace {
    pugi::xml_node parent;
    pugi::xml_node after;
};

/// Finds where elements go between two neighbouring items of a story. Between two characters there are often
/// several places (inside a hyperlink or behind it); the outermost one is taken, so that what is put in at
/// the start or the end of a container does not fall into it.
class DomPlaces {
  public:
    explicit DomPlaces(const Story& story) : story_(story), names_(story.names()) {}

    /// For a run or another element of the paragraph that next stands in or ends. It goes into the container,
    /// which may be none, when that stands between the two or around one of them. Raises an AutomationError
    /// where no text can stand: behind the last cell of a row, in deleted text.
    [[nodiscard]] DomPlace forRun(const Item* previous, const Item* next,
                                  pugi::xml_node container = {}) const;
    /// For the start mark of a bookmark, which may stand in deleted text, too.
    [[nodiscard]] DomPlace forStartMark(const Item* previous, const Item* next) const;
    /// For the end mark of a bookmark whose last character is the previous item.
    [[nodiscard]] DomPlace forEndMark(const Item* previous, const Item* next) const;

    /// The run that an item stands in, or the item's own element where it stands in none.
    [[nodiscard]] pugi::xml_node inlineElementOf(const Item* item) const;

  private:
    [[nodiscard]] DomPlace behind(const Item* item) const;
    [[nodiscard]] DomPlace before(const Item* item) const;
    /// Right behind the previous item and outside of all that ends there.
    [[nodiscard]] DomPlace inParagraph(const Item* previous, const Item* next) const;
    /// Before the paragraph's first item and outside of all that begins there.
    [[nodiscard]] DomPlace firstInParagraph(const Item* next, pugi::xml_node paragraph) const;
    /// In a container that stands at the place; a place without parent when it does not.
    [[nodiscard]] DomPlace inContainer(const Item* previous, const Item* next,
                                       pugi::xml_node container) const;
    [[nodiscard]] bool isSimpleField(const Item* item) const;

    const Story& story_;
    const opc::WordNames& names_;
};

}  // namespace mergeloom::embedded
