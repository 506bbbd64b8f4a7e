#pragma once

#include "base/Units.h"
#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

/// A stretch of one story that lives on through edits: text put in before it moves it, text put in inside it
/// widens it, text taken out of it narrows it.
class Range : public Object {
  public:
    virtual CharacterPosition Start() = 0;
    virtual CharacterPosition End() = 0;

    /// Where the range stands: "body", or the kind of story with its number among those of the kind, such as
    /// "header 1", "footnote 2" or "text box 1".
    virtual std::string storyName() = 0;

    /// The text: a paragraph mark reads as CR, the mark of a cell as CR and U+0007.
    virtual std::string Text() = 0;
    /// Replaces the text; the range then covers the new text. CR, LF or both together end a paragraph. A
    /// bookmark all of whose text is replaced goes. Text that goes in where a bookmark starts falls into that
    /// bookmark; where it ends, it does not. The
    /// new text takes the formatting of the first text replaced.
    virtual void SetText(const std::string& text) = 0;

    /// The bookmarks that the range holds, overlaps or, being a caret, stands in or touches, in place order.
    virtual BookmarksPtr Bookmarks() = 0;
    virtual CellsPtr Cells() = 0;
    virtual FieldsPtr Fields() = 0;
    virtual InlineShapesPtr InlineShapes() = 0;
    virtual TablesPtr Tables() = 0;

    /// Range.Previous: the unit before the range, or none at the start of the story.
    virtual RangePtr Previous(WdUnits unit, int count) = 0;
    /// Makes the range the selection.
    virtual void Select() = 0;
};

}  // namespace mergeloom::word
