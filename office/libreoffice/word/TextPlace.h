#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <cstdint>

namespace mergeloom::libreoffice {

using TextReference = Reference<css::text::XText>;
using CursorReference = Reference<css::text::XTextCursor>;
using RangeReference = Reference<css::text::XTextRange>;
using TableReference = Reference<css::text::XTextTable>;

/// Returns the cursor as a range without a query for the interface.
inline RangeReference rangeOf(const CursorReference& cursor) {
    return {cursor.get()};
}

/// A cursor takes its steps as a number of 16 bits.
inline constexpr std::int64_t kMaxSteps = 32767;

/// Returns the text that the place is in: the cell's in a table. A range from cell to cell names the text of
/// the first one.
TextReference textAt(const RangeReference& place);

/// Returns a cursor of its own over the range, in the range's own text.
CursorReference cursorOver(const RangeReference& range);

/// Returns a cursor of its own from one place to another of the same story.
CursorReference cursorOver(const RangeReference& start, const RangeReference& end);

/// The marks that count as characters in Word and that no cursor of Writer's can pass. A place can be after
/// them.
enum class Beyond { Nothing, CellMark, Table, StoryMark };

/// A place of a story: an empty range and the mark after it that the place is beyond.
struct TextPlace {
    RangeReference at;
    Beyond beyond = Beyond::Nothing;
};

/// A range that Writer updates while its document is edited.
struct TrackedRange {
    TextReference story;  ///< the text of its whole story: the body, a header, a note …
    CursorReference cursor;
    Beyond startBeyond = Beyond::Nothing;
    Beyond endBeyond = Beyond::Nothing;
    /// The table that the range is, where its first cell begins with another table: the cursor starts after
    /// that.
    TableReference table{};

    [[nodiscard]] TextPlace start() const;
    [[nodiscard]] TextPlace end() const { return {cursor->getEnd(), endBeyond}; }
    [[nodiscard]] bool isPlain() const {
        return startBeyond == Beyond::Nothing && endBeyond == Beyond::Nothing;
    }
    [[nodiscard]] bool isCaret() const { return startBeyond == endBeyond && cursor->isCollapsed(); }
};

}  // namespace mergeloom::libreoffice
