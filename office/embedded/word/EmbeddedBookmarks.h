#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Bookmarks.h"

#include <memory>

namespace mergeloom::embedded {

/// Returns Document.Bookmarks: the bookmarks of all stories, in name order.
word::BookmarksPtr bookmarksOf(const std::shared_ptr<WordContent>& content);

/// Returns the present bookmarks of a range, in place order.
word::BookmarksPtr bookmarksIn(const std::shared_ptr<WordContent>& content, const TrackedRange& range);

}  // namespace mergeloom::embedded
