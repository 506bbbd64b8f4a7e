#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/UndoRecord.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// Only the step recorded last can be taken back; a record without edits is no step.
class EmbeddedWorkbookUndoRecord final : public model::UndoRecord {
  public:
    explicit EmbeddedWorkbookUndoRecord(std::shared_ptr<WorkbookContent> content)
        : content_(std::move(content)) {}

    void StartCustomRecord(const std::string&) override { content_->undo().start(); }
    void EndCustomRecord() override { content_->undo().stop(); }

  private:
    std::shared_ptr<WorkbookContent> content_;
};

}  // namespace mergeloom::embedded
