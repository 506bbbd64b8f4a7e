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

/// The items that delimit a field of either form (ECMA-376 Part 1, 17.16.18 and 17.16.19).
struct FieldItems {
    Item* begin = nullptr;
    Item* separator = nullptr;  ///< none when the field has no result, and for w:fldSimple
    Item* end = nullptr;
    bool isInCode = false;  ///< in the code of another one of the fields
};

/// The contents of a range, by the rules of Word's collections of a range.
class RangeContents {
  public:
    RangeContents(Story& story, CharacterPosition start, CharacterPosition end)
        : story_(story), start_(start), end_(end) {}

    /// Returns the innermost table around the range or, outside of tables, the tables that the range touches.
    [[nodiscard]] std::vector<FoundTable> tables() const;
    /// Returns the cells that the range touches in the innermost table around it. Raises kMemberNotFound
    /// outside of tables.
    [[nodiscard]] std::vector<pugi::xml_node> cells() const;
    [[nodiscard]] int inlineShapes() const { return countOf(ItemKind::InlineObject); }
    [[nodiscard]] int floatingShapes() const { return countOf(ItemKind::Anchor); }
    /// Returns the fields that begin in the range, in order, an outer field before those inside it. A begin
    /// without its end makes no field.
    [[nodiscard]] std::vector<FieldItems> fields() const;

  private:
    /// Returns the innermost table around the whole range; none outside of tables.
    [[nodiscard]] pugi::xml_node commonTable() const;
    [[nodiscard]] int countOf(ItemKind kind) const;
    [[nodiscard]] Item* first() const;
    [[nodiscard]] const Item* last() const;

    Story& story_;
    CharacterPosition start_;
    CharacterPosition end_;
};

}  // namespace mergeloom::embedded
