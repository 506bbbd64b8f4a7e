#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Selection.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class WriterSelection final : public word::Selection {
  public:
    explicit WriterSelection(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

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
    [[nodiscard]] RangePtr selected() const;

    std::shared_ptr<WriterContent> content_;
};

}  // namespace mergeloom::libreoffice
