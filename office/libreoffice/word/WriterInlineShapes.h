#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Range.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class WriterInlineShapes final : public word::InlineShapes {
  public:
    WriterInlineShapes(std::shared_ptr<WriterContent> content, RangePtr range)
        : content_(std::move(content)), range_(std::move(range)) {}

    int Count() override;
    void AddPicture(const std::string& fileName) override;

  private:
    std::shared_ptr<WriterContent> content_;
    RangePtr range_;
};

/// Returns the number of floating shapes whose anchors are in the range.
int countFloatingShapes(const TrackedRange& range);

}  // namespace mergeloom::libreoffice
