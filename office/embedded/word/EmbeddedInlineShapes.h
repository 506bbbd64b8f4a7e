#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Range.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

class EmbeddedInlineShapes final : public word::InlineShapes {
  public:
    /// The span is the one of the range or selection whose pictures these are: a picture put in is covered by
    /// it then.
    EmbeddedInlineShapes(std::shared_ptr<WordContent> content, std::shared_ptr<TrackedRange> span)
        : content_(std::move(content)), span_(std::move(span)) {}

    int Count() override;
    void AddPicture(const std::string& fileName) override;

  private:
    std::shared_ptr<WordContent> content_;
    std::shared_ptr<TrackedRange> span_;
};

}  // namespace mergeloom::embedded
