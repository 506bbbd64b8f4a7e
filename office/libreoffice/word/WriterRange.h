#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Range.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class WriterRange : public word::Range {
  public:
    WriterRange(std::shared_ptr<WriterContent> content, std::shared_ptr<LiveStretch> stretch)
        : content_(std::move(content)), stretch_(std::move(stretch)) {}

    CharacterPosition Start() override { return stretch_->start; }
    CharacterPosition End() override { return stretch_->end; }
    std::string storyName() override { return stretch_->story->name(); }
    std::string Text() override;
    void SetText(const std::string& text) override;
    word::BookmarksPtr Bookmarks() override;
    word::CellsPtr Cells() override;
    word::FieldsPtr Fields() override;
    word::InlineShapesPtr InlineShapes() override;
    word::TablesPtr Tables() override;
    word::RangePtr Previous(word::WdUnits unit, int count) override;
    void Select() override { content_->select(*stretch_); }

  private:
    std::shared_ptr<WriterContent> content_;
    std::shared_ptr<LiveStretch> stretch_;
};

word::RangePtr makeRange(const std::shared_ptr<WriterContent>& content, WriterStory& story, Stretch stretch);

}  // namespace mergeloom::libreoffice
