#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Bookmarks.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class WriterBookmark final : public word::Bookmark {
  public:
    WriterBookmark(std::shared_ptr<WriterContent> content, MarkPtr mark)
        : content_(std::move(content)), mark_(std::move(mark)) {}

    std::string Name() override { return mark().name; }
    word::RangePtr Range() override;
    CharacterPosition Start() override { return mark().place.start; }
    void SetStart(CharacterPosition start) override;
    CharacterPosition End() override { return mark().place.end; }
    void SetEnd(CharacterPosition end) override;
    void Select() override;

  private:
    [[nodiscard]] MarkRecord& mark() const;
    void check(CharacterPosition position) const;

    std::shared_ptr<WriterContent> content_;
    MarkPtr mark_;
};

}  // namespace mergeloom::libreoffice
