#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <cstdint>
#include <vector>

namespace mergeloom::libreoffice {

using TextReference = Reference<css::text::XText>;
using CursorReference = Reference<css::text::XTextCursor>;
using RangeReference = Reference<css::text::XTextRange>;

/// The cursor as the range that it is; asking Writer for that face would cost a call.
inline RangeReference rangeOf(const CursorReference& cursor) {
    return {cursor.get()};
}

/// One of Writer's texts for a cursor to go through, with the places right behind the tables in it, by their
/// steps: a cursor that is sent over a table stops there and says nothing.
struct NeedleText {
    TextReference text;
    std::vector<std::int64_t> behindTables;
    /// Whether a cursor that is sent to the text's start would land in a table that stands there.
    bool beginsWithTable = false;
};

/// One cursor that goes through a document's texts and remembers where it is, so that the next place, which
/// is mostly near, costs one call or none.
class Needle {
  public:
    /// The cursor at a place of the text, by its steps from the start. Raises kCommandFailed when the text
    /// has no such place.
    const CursorReference& at(const NeedleText& text, std::int64_t steps);
    /// The cursor with what lies between two places selected.
    const CursorReference& over(const NeedleText& text, std::int64_t from, std::int64_t to);

    /// Says that text went in at the cursor, which stands behind it now.
    void passed(std::int64_t steps) { mark_ = point_ += steps; }
    /// The cursor may be anywhere.
    void forget() { cursor_.clear(); }

  private:
    void enter(const NeedleText& text);
    void goToStart(const NeedleText& text);
    void collapse();
    void go(const NeedleText& text, std::int64_t steps, bool expand);
    void move(std::int64_t by, bool expand);

    TextReference text_;
    CursorReference cursor_;
    std::int64_t point_ = 0;
    std::int64_t mark_ = 0;  ///< differs from point_ while something is selected
};

}  // namespace mergeloom::libreoffice
