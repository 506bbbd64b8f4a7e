#pragma once

#include "office/embedded/text/Story.h"

#include <unordered_set>
#include <vector>

namespace mergeloom::embedded {

/// Finds the bookmarks of a range of one story without looking at those of the rest.
class BookmarkFinder {
  public:
    explicit BookmarkFinder(Story& story) : story_(story) {}

    /// The bookmarks that a range overlaps, or that a caret stands in or touches, in place order.
    std::vector<BookmarkRecord*> in(CharacterPosition start, CharacterPosition end);

  private:
    /// Adds the bookmarks that start before an item and end behind the position; there are so many.
    void addEnclosing(Item* first, CharacterPosition end, int count,
                      std::unordered_set<BookmarkRecord*>& found);
    [[nodiscard]] bool encloses(const BookmarkRecord& record, const Item* first, CharacterPosition end) const;

    Story& story_;
    // Bookmarks that a search found far ahead of where it began; looked at first, so that a bookmark around
    // thousands of others is not searched for again and again.
    std::vector<BookmarkRecord*> farStarts_;
};

}  // namespace mergeloom::embedded
