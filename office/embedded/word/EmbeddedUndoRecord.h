#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/Undo.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// Only the step recorded last can be taken back; a record without edits is no step.
class EmbeddedUndoRecord final : public word::UndoRecord {
  public:
    explicit EmbeddedUndoRecord(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}

    void StartCustomRecord(const std::string&) override { content_->startRecord(); }
    void EndCustomRecord() override { content_->stopRecord(); }

  private:
    std::shared_ptr<WordContent> content_;
};

}  // namespace mergeloom::embedded
