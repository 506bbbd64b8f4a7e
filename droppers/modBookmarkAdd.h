#pragma once

#include "droppers/DropContext.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"

#include <string>

namespace mergeloom {

/// The bookmarks that touch a drop point; null where there is none.
struct TouchingBookmarks {
    word::BookmarkPtr atStart;  ///< robjBookmarkAtStart: starts where the range starts
    word::BookmarkPtr before;   ///< robjBookmarkBefore: the only one on the character before the range
};

/// The content of a new place, besides its name.
struct PlaceContent {
    bool vfBoundValueUse = false;
    std::string vstrPrefix{};  ///< precedes the name in the bookmark's name
    std::string vstrText{};    ///< the text of an empty range; empty: the name
    std::string
        vstrPictureFile{};  ///< a picture's full path; it becomes the place's content instead of a text
};

/// Returns true when a bookmark is a field: its text is its own name, regardless of letter case.
bool isField(word::Bookmark& bookmark);

/// Finds the bookmarks that touch the range and returns true when a drop there may continue. A drop on top of
/// a field, which is a bookmark whose text equals its name, is refused with a message.
bool ValidateBookmark(DropReports& reports, word::Range& robjRange, TouchingBookmarks& touching);

/// Makes the range a named place and returns its bookmark; null when the drop was refused or failed. Adds the
/// prefix and the bound value's suffix to the name. A range over several table cells keeps its text.
word::BookmarkPtr rWordBookmarkAdd(DropReports& reports, word::Document& robjDocument, word::Range& robjRange,
                                   std::string& rstrName, const PlaceContent& content = {});

}  // namespace mergeloom
