#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Bookmarks.h"

#include <memory>
#include <string>

namespace mergeloom::libreoffice {

/// Document.Bookmarks: over all stories, in name order.
word::BookmarksPtr bookmarksOf(const std::shared_ptr<WriterContent>& content);

/// The bookmarks of a range as they were when it was asked for them, in place order.
word::BookmarksPtr bookmarksOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range);

}  // namespace mergeloom::libreoffice
