#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Selection.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

class EmbeddedSelection final : public word::Selection {
  public:
    explicit EmbeddedSelection(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}

    word::RangePtr Range() override;
    void SetText(const std::string& text) override;
    void TypeText(const std::string& text) override;
    void TypeParagraph() override { TypeText("\r"); }
    void Collapse(word::WdCollapseDirection direction) override;
    void EndKey(word::WdUnits unit) override;

    word::FontPtr Font() override;

    word::BookmarksPtr Bookmarks() override;
    word::FieldsPtr Fields() override;
    word::InlineShapesPtr InlineShapes() override;
    word::ShapeRangePtr ShapeRange() override;
    word::TablesPtr Tables() override;

  private:
    [[nodiscard]] TrackedRange& span() const { return content_->selection(); }

    std::shared_ptr<WordContent> content_;
};

}  // namespace mergeloom::embedded
