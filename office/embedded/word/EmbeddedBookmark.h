#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Bookmarks.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

class EmbeddedBookmark final : public word::Bookmark {
  public:
    EmbeddedBookmark(std::shared_ptr<WordContent> content, BookmarkRecord& record)
        : content_(std::move(content)), record_(&record) {}

    std::string Name() override { return record().name; }
    word::RangePtr Range() override;

    CharacterPosition Start() override { return startOf(record()); }
    void SetStart(CharacterPosition start) override;
    CharacterPosition End() override { return endOf(record()); }
    void SetEnd(CharacterPosition end) override;

    void Select() override;

  private:
    /// Raises kObjectDeleted when the bookmark is gone.
    [[nodiscard]] BookmarkRecord& record() const;
    BookmarkEditor& editor();

    std::shared_ptr<WordContent> content_;
    BookmarkRecord* record_;
};

}  // namespace mergeloom::embedded
