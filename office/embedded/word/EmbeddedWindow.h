#pragma once

#include "office/embedded/word/EmbeddedSelection.h"
#include "office/model/word/Selection.h"

#include <memory>
#include <utility>

namespace mergeloom::embedded {

class EmbeddedWindow final : public word::Window {
  public:
    explicit EmbeddedWindow(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}
    word::SelectionPtr Selection() override { return std::make_shared<EmbeddedSelection>(content_); }

  private:
    std::shared_ptr<WordContent> content_;
};

}  // namespace mergeloom::embedded
