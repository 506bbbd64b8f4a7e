#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Selection.h"

#include <cmath>
#include <memory>
#include <utility>

namespace mergeloom::embedded {

/// The font of what is selected.
class EmbeddedFont final : public word::Font {
  public:
    explicit EmbeddedFont(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}

    void SetSize(double points) override {
        const TrackedRange& span = content_->selection();
        content_->beginEdit(span.story(), span.start(), span.end());
        const auto halfPoints = static_cast<int>(std::lround(points * 2));
        content_->editable(span.story()).fonts().setSize(span.start(), span.end(), halfPoints);
    }

  private:
    std::shared_ptr<WordContent> content_;
};

}  // namespace mergeloom::embedded
