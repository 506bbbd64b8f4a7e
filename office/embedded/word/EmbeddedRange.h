#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// The text of a range over a field's code: its part of the document's text, or the code.
enum class RangeText { Result, FieldCode };

class EmbeddedRange final : public word::Range, public std::enable_shared_from_this<EmbeddedRange> {
  public:
    EmbeddedRange(std::shared_ptr<WordContent> content, Story& story, CharacterPosition start,
                  CharacterPosition end, RangeText text = RangeText::Result)
        : content_(std::move(content)), range_(story, start, end), text_(text) {}

    CharacterPosition Start() override { return range_.start(); }
    CharacterPosition End() override { return range_.end(); }
    std::string storyName() override { return range_.story().name(); }

    std::string Text() override;
    void SetText(const std::string& text) override;

    word::BookmarksPtr Bookmarks() override;
    word::CellsPtr Cells() override;
    word::FieldsPtr Fields() override;
    word::InlineShapesPtr InlineShapes() override;
    word::TablesPtr Tables() override;

    word::RangePtr Previous(word::WdUnits unit, int count) override;
    void Select() override;

  private:
    std::shared_ptr<WordContent> content_;
    TrackedRange range_;
    RangeText text_;
};

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
    [[nodiscard]] TrackedRange& range() const { return content_->selection(); }

    std::shared_ptr<WordContent> content_;
};

}  // namespace mergeloom::embedded
