#pragma once

#include "base/Units.h"
#include "office/embedded/text/Story.h"

namespace mergeloom::embedded {

/// What a range holds, counted as Word's collections of a range count.
class RangeCounts {
  public:
    RangeCounts(const Story& story, CharacterPosition start, CharacterPosition end)
        : story_(story), start_(start), end_(end) {}

    /// One inside a table; otherwise how many tables the range touches.
    [[nodiscard]] int tables() const;
    /// The cells of the table that the range lies in, from the first one to the last one that it touches.
    /// Raises kMemberNotFound outside tables.
    [[nodiscard]] int cells() const;
    [[nodiscard]] int fields() const { return countOf(ItemKind::FieldBegin); }
    [[nodiscard]] int inlineShapes() const { return countOf(ItemKind::InlineObject); }
    [[nodiscard]] int floatingShapes() const { return countOf(ItemKind::Anchor); }

  private:
    [[nodiscard]] int countOf(ItemKind kind) const;
    [[nodiscard]] const Item* first() const;
    [[nodiscard]] const Item* last() const;
    /// The innermost table that holds the whole range; none outside tables.
    [[nodiscard]] pugi::xml_node commonTable() const;
    [[nodiscard]] pugi::xml_node outermostTable(const Item* item) const;

    const Story& story_;
    CharacterPosition start_;
    CharacterPosition end_;
};

}  // namespace mergeloom::embedded
