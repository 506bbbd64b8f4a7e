#pragma once

#include "office/model/NameCounters.h"
#include "office/model/word/Forward.h"

#include <cstdint>
#include <string>

namespace mergeloom::word {

/// The bookmarks of a document (by number in name order) or of a range or selection (by number in place
/// order). Names are compared without regard to letter case.
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

    /// The smallest number n from 1 for which no bookmark is named stem followed by n. An office that can
    /// tell faster than by trying does so.
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
