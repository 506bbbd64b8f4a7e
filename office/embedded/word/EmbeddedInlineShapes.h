#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/InlineShapes.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

class EmbeddedInlineShapes final : public word::InlineShapes {
  public:
    EmbeddedInlineShapes(std::shared_ptr<WordContent> content, Story& story, CharacterPosition start,
                         CharacterPosition end)
        : content_(std::move(content)), span_(story, start, end) {}

    int Count() override;
    void AddPicture(const std::string& fileName) override;

  private:
    std::shared_ptr<WordContent> content_;
    LiveSpan span_;
};

}  // namespace mergeloom::embedded
