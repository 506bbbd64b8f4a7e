#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/graft/StoryDifference.h"
#include "office/graft/WordExport.h"

#include <set>
#include <string>

namespace mergeloom::graft {

/// Repeats on a story of the original which bookmarks the user added, moved and removed. Bookmarks are
/// identified by their names. Untouched bookmarks stay as they are in the original, even if the office reads
/// them differently. Hidden bookmarks are ignored, since offices create them.
class MarkReplay {
  public:
    /// Must be constructed before the original is changed.
    MarkReplay(embedded::WordContent& content, WordExport& baseline, WordExport& edited);

    /// Must be called before the story of the original is changed.
    void prepare(embedded::Story& original, const ReadStory& former);
    /// The difference is that of the two exported stories. The original's story must have the present text
    /// already.
    void repeat(embedded::Story& original, const ReadStory& former, const ReadStory& now,
                const StoryDifference& difference);

  private:
    void removeMissing(const ReadStory& former);
    [[nodiscard]] bool isUntouched(const embedded::BookmarkRecord& mark, const ReadStory& former,
                                   const ReadStory& now, const StoryDifference& difference);

    embedded::WordContent& content_;
    WordExport& baseline_;
    WordExport& edited_;
    std::set<std::string> existing_;  ///< the names of the original's bookmarks
    std::set<std::string> agreeing_;  ///< the names of those that the office reads where they are
};

}  // namespace mergeloom::graft
