#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/graft/StoryDifference.h"
#include "office/graft/WordExport.h"

#include <map>
#include <string>

namespace mergeloom::graft {

/// The texts of a document's bookmarks by their names.
using MarkTexts = std::map<std::string, std::string>;
MarkTexts markTextsOf(embedded::WordContent& content);

/// Repeats on a story of the original which bookmarks the user added, moved and removed. Bookmarks are
/// identified by their names. Untouched bookmarks stay as they are in the original, even if the office reads
/// them differently. Hidden bookmarks are ignored, since offices create them.
class MarkReplay {
  public:
    /// The texts are those of the original before any change was repeated.
    MarkReplay(embedded::WordContent& content, WordExport& baseline, WordExport& edited,
               const MarkTexts& texts)
        : content_(content), baseline_(baseline), edited_(edited), texts_(texts) {}

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
    const MarkTexts& texts_;
};

}  // namespace mergeloom::graft
