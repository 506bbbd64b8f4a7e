#pragma once

#include "office/embedded/text/TrackedRange.h"
#include "office/embedded/word/WordContent.h"
#include "office/model/word/Range.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

/// What a range over a field's code reads as its text: its part of the document's text, or the code.
enum class RangeText { Result, FieldCode };

class EmbeddedRange final : public word::Range, public std::enable_shared_from_this<EmbeddedRange> {
  public:
    EmbeddedRange(std::shared_ptr<WordContent> content, Story& story, CharacterPosition start,
                  CharacterPosition end, RangeText text = RangeText::Result)
        : content_(std::move(content)), span_(story, start, end), text_(text) {}

    CharacterPosition Start() override { return span_.start(); }
    CharacterPosition End() override { return span_.end(); }
    std::string storyName() override { return span_.story().name(); }

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
    TrackedRange span_;
    RangeText text_;
};

}  // namespace mergeloom::embedded
