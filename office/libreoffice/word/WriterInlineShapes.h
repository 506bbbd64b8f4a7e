#pragma once

#include "office/libreoffice/word/TextEditor.h"
#include "office/model/word/Range.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class WriterInlineShapes final : public word::InlineShapes {
  public:
    WriterInlineShapes(std::shared_ptr<WriterContent> content, std::shared_ptr<LiveStretch> stretch)
        : content_(std::move(content)), stretch_(std::move(stretch)) {}

    int Count() override { return static_cast<int>(objectsIn(*stretch_, ObjectKind::InlineShape).size()); }
    void AddPicture(const std::string& fileName) override {
        content_->call([&] {
            const CharacterPosition start = stretch_->start;
            const CharacterCount inserted =
                TextEditor(*content_).replaceByPicture(*stretch_->story, {start, stretch_->end}, fileName);
            stretch_->start = start;
            stretch_->end = start + inserted;
        });
    }

  private:
    std::shared_ptr<WriterContent> content_;
    std::shared_ptr<LiveStretch> stretch_;
};

}  // namespace mergeloom::libreoffice
