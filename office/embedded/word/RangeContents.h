#pragma once

#include "base/Units.h"
#include "office/embedded/text/Story.h"

#include <vector>

namespace mergeloom::embedded {

/// A table with one of the items inside it.
struct FoundTable {
    pugi::xml_node element;
    Item* inside;
};

/// What a range holds, by the rules of Word's collections of a range.
class RangeContents {
  public:
    RangeContents(Story& story, CharacterPosition start, CharacterPosition end)
        : story_(story), start_(start), end_(end) {}

    /// Inside a table that table, otherwise those that the range touches.
    [[nodiscard]] std::vector<FoundTable> tables() const;
    /// The cells of the table that the range lies in, from the first one to the last one that it touches.
    /// Raises kMemberNotFound outside tables.
    [[nodiscard]] std::vector<pugi::xml_node> cells() const;
    [[nodiscard]] int inlineShapes() const { return countOf(ItemKind::InlineObject); }
    [[nodiscard]] int floatingShapes() const { return countOf(ItemKind::Anchor); }
    /// The innermost table that holds the whole range; none outside tables.
    [[nodiscard]] pugi::xml_node commonTable() const;

  private:
    [[nodiscard]] int countOf(ItemKind kind) const;
    [[nodiscard]] Item* first() const;
    [[nodiscard]] const Item* last() const;
    [[nodiscard]] pugi::xml_node outermostTable(const Item* item) const;

    Story& story_;
    CharacterPosition start_;
    CharacterPosition end_;
};

}  // namespace mergeloom::embedded
