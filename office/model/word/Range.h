#pragma once

#include "base/Units.h"
#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

#include <compare>
#include <string>

namespace mergeloom::word {

/// The pictures in the text of a range, one character each.
class InlineShapes : public Counted {
  public:
    /// InlineShapes.AddPicture with the file name only: embeds the picture, which replaces the text of a
    /// range that is not empty and gets the size that its pixels and resolution give, never wider than the
    /// text area. Raises kFileCouldNotBeRead when the file is missing or no picture.
    virtual void AddPicture(const std::string& fileName) = 0;
};

/// An end of a range.
enum class RangeEnd { Start, End };

/// A range of characters of one story that follows edits: text inserted before moves it, text inserted inside
/// widens it, text deleted from it narrows it.
class Range : public Object {
  public:
    virtual CharacterPosition Start() = 0;
    virtual CharacterPosition End() = 0;

    /// Returns true when nothing is between the range's ends. An office that has no numbers for positions
    /// need not count them for this, nor for compare.
    virtual bool isEmpty() { return Start() == End(); }

    /// Compares an end of this range with an end of another one in the same story.
    virtual std::strong_ordering compare(RangeEnd mine, Range& other, RangeEnd others) {
        return positionOf(*this, mine) <=> positionOf(other, others);
    }

    /// Returns the story of the range: "body", or the kind of story with its number among those of the kind,
    /// such as "header 1", "footnote 2" or "text box 1".
    virtual std::string storyName() = 0;

    /// Returns the text: a paragraph mark as CR, the mark of a cell as CR and U+0007.
    virtual std::string Text() = 0;
    /// Replaces the text; the range then covers the new text. CR, LF or both together end a paragraph. A
    /// bookmark all of whose text is replaced is deleted. Text inserted at the start of a bookmark belongs to
    /// it; text inserted at its end does not. The new text takes the formatting of the first text replaced.
    virtual void SetText(const std::string& text) = 0;

    /// Returns the bookmarks that the range holds or overlaps, and for a caret those that contain or touch
    /// it, in place order.
    virtual BookmarksPtr Bookmarks() = 0;
    virtual CellsPtr Cells() = 0;
    virtual FieldsPtr Fields() = 0;
    virtual InlineShapesPtr InlineShapes() = 0;
    virtual TablesPtr Tables() = 0;

    /// Range.Previous: returns the unit before the range, or null at the start of the story.
    virtual RangePtr Previous(WdUnits unit, int count) = 0;
    /// Makes the range the selection.
    virtual void Select() = 0;

  private:
    static CharacterPosition positionOf(Range& range, RangeEnd end) {
        return end == RangeEnd::Start ? range.Start() : range.End();
    }
};

}  // namespace mergeloom::word
