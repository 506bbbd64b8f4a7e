#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/Undo.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// A record is one entry of Writer's undo list; one without edits is none.
class WriterUndoRecord final : public model::UndoRecord {
  public:
    explicit WriterUndoRecord(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    void StartCustomRecord(const std::string& name) override {
        content_->call([&] { content_->startRecord(name); });
    }
    void EndCustomRecord() override {
        content_->call([&] { content_->endRecord(); });
    }

  private:
    std::shared_ptr<WriterContent> content_;
};

}  // namespace mergeloom::libreoffice
