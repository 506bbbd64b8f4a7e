#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Bookmark.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// A bookmark by its name; Writer is asked where it is, unless that was known when the bookmark was found and
/// none was moved since.
class WriterBookmark final : public word::Bookmark {
  public:
    WriterBookmark(std::shared_ptr<WriterContent> content, std::string name)
        : content_(std::move(content)), name_(std::move(name)) {}

    WriterBookmark(std::shared_ptr<WriterContent> content, const TextReference& story,
                   const LiveBookmark& found)
        : content_(std::move(content)),
          name_(found.name),
          found_(Found{story, found, content_->bookmarks().version()}) {}

    std::string Name() override;
    word::RangePtr Range() override;
    CharacterPosition Start() override;
    void SetStart(CharacterPosition start) override;
    CharacterPosition End() override;
    void SetEnd(CharacterPosition end) override;
    void moveStart(CharacterCount count) override;
    void moveEnd(CharacterCount count) override;
    void Select() override;

  private:
    struct Found {
        TextReference story;
        LiveBookmark bookmark;
        std::int64_t version;
    };

    [[nodiscard]] TrackedRange range() const;
    void put(const TextReference& story, const TextPlace& start, const TextPlace& end);

    std::shared_ptr<WriterContent> content_;
    std::string name_;
    std::optional<Found> found_;
};

}  // namespace mergeloom::libreoffice
