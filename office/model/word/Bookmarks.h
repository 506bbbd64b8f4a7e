#pragma once

#include "base/Units.h"
#include "office/model/FreeNumbers.h"
#include "office/model/word/Forward.h"

#include <cstdint>
#include <string>

namespace mergeloom::word {

/// A named place. Every member raises kObjectDeleted once the bookmark is gone from its document.
class Bookmark : public Object {
  public:
    virtual std::string Name() = 0;
    virtual RangePtr Range() = 0;

    virtual CharacterPosition Start() = 0;
    virtual void SetStart(CharacterPosition start) = 0;
    virtual CharacterPosition End() = 0;
    virtual void SetEnd(CharacterPosition end) = 0;

    /// Moves the start by as many characters, backwards for a negative count.
    virtual void moveStart(CharacterCount count) { SetStart(Start() + count); }
    virtual void moveEnd(CharacterCount count) { SetEnd(End() + count); }

    /// Makes the bookmark's range the selection.
    virtual void Select() = 0;
};

/// The bookmarks of a document (by number in name order) or of a range or selection (by number in place
/// order). Names are compared regardless of letter case.
class Bookmarks : public Counted {
  public:
    /// Raises kMemberNotFound for a number outside 1 to Count.
    virtual BookmarkPtr Item(int number) = 0;
    /// Raises kMemberNotFound for a name that the collection does not hold.
    virtual BookmarkPtr Item(const std::string& name) = 0;
    virtual bool Exists(const std::string& name) = 0;

    /// Bookmarks.Add: marks the range. A bookmark of that name anywhere in the document moves here. Raises
    /// an error for a name that is no bookmark name.
    virtual BookmarkPtr Add(const std::string& name, Range& range) = 0;

    /// Returns the smallest number n from 1 for which no bookmark is named stem followed by n. An office with
    /// a faster way than trying overrides it.
    virtual std::int64_t firstFreeCounter(const std::string& stem) {
        return model::firstFreeCounter(stem, [&](const std::string& name) { return Exists(name); });
    }

  protected:
    std::size_t indexOf(int number) {
        if (number >= 1 && number <= Count()) return static_cast<std::size_t>(number) - 1;
        throw AutomationError(kMemberNotFound, "There is no bookmark number " + std::to_string(number) + ".");
    }
};

}  // namespace mergeloom::word
