#pragma once

#include "office/embedded/text/Story.h"

#include <unordered_set>
#include <vector>

namespace mergeloom::embedded {

/// Finds the bookmarks of a range of one story without looking at those of the rest.
class BookmarkFinder {
  public:
    explicit BookmarkFinder(Story& story) : story_(story) {}

    /// Returns the bookmarks that a range overlaps, or that a caret is in or touches, in the order of their
    /// places.
    std::vector<BookmarkRecord*> in(CharacterPosition start, CharacterPosition end);

  private:
    /// Adds the bookmarks, `count` of them, that start before an item and end after the position.
    void addEnclosing(Item* first, CharacterPosition end, int count,
                      std::unordered_set<BookmarkRecord*>& found);
    [[nodiscard]] bool encloses(const BookmarkRecord& record, const Item* first, CharacterPosition end) const;

    Story& story_;
    // Bookmarks that a search found far ahead of its start; looked at first, so that a bookmark around
    // thousands of others is not searched for again and again.
    std::vector<BookmarkRecord*> farStarts_;
};

}  // namespace mergeloom::embedded
