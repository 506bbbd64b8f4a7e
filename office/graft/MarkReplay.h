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

/// Repeats on a story of the original the bookmarks that the user added, moved or removed. They go by their
/// names; those that the user left alone stay as they are in the original, also where the office reads them
/// otherwise. Hidden ones are the offices' own.
class MarkReplay {
  public:
    /// The texts are those of the original before anything was repeated.
    MarkReplay(embedded::WordContent& content, WordExport& baseline, WordExport& edited,
               const MarkTexts& texts)
        : content_(content), baseline_(baseline), edited_(edited), texts_(texts) {}

    /// The difference is that of the two exported stories, whose text the original's story has by now.
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
