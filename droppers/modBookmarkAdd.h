#pragma once

#include "droppers/DropReports.h"
#include "office/model/word/Bookmark.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"

#include <string>

namespace mergeloom {

/// The bookmarks that touch a drop point; none where there is none.
struct TouchingBookmarks {
    word::BookmarkPtr atStart;  ///< robjBookmarkAtStart: starts where the range starts
    word::BookmarkPtr before;   ///< robjBookmarkBefore: the only one on the character before the range
};

/// What a new place is made of, besides its name.
struct PlaceContent {
    bool vfBoundValueUse = false;
    std::string vstrPrefix{};  ///< stands before the name in the bookmark's name
    std::string vstrText{};    ///< the text of an empty range; empty: the name
    std::string
        vstrPictureFile{};  ///< a picture's full path; it becomes the place's content instead of a text
};

/// Whether a bookmark is a field: its text is its own name, letter case aside.
bool isField(word::Bookmark& bookmark);

/// Whether a drop on the range may go on, and which bookmarks touch it. A drop on top of a field, which is a
/// bookmark whose text equals its name, is refused with a message.
bool ValidateBookmark(DropReports& reports, word::Range& robjRange, TouchingBookmarks& touching);

/// Makes the range a named place and returns its bookmark; none when the drop is refused or failed. The name
/// receives the prefix and the bound value's suffix. A range over several table cells keeps its text.
word::BookmarkPtr rWordBookmarkAdd(DropReports& reports, word::Document& robjDocument, word::Range& robjRange,
                                   std::string& rstrName, const PlaceContent& content = {});

}  // namespace mergeloom
