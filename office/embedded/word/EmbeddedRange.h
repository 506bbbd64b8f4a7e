#pragma once

#include "office/embedded/text/LiveSpan.h"
#include "office/embedded/word/WordContent.h"
#include "office/model/word/Range.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

class EmbeddedRange final : public word::Range {
  public:
    EmbeddedRange(std::shared_ptr<WordContent> content, Story& story, CharacterPosition start,
                  CharacterPosition end)
        : content_(std::move(content)), span_(std::make_shared<LiveSpan>(story, start, end)) {}

    CharacterPosition Start() override { return span_->start(); }
    CharacterPosition End() override { return span_->end(); }
    std::string storyName() override { return span_->story().name(); }

    std::string Text() override { return span_->story().text(span_->start(), span_->end()); }
    void SetText(const std::string& text) override;

    word::BookmarksPtr Bookmarks() override;
    word::CellsPtr Cells() override;
    word::InlineShapesPtr InlineShapes() override;
    word::TablesPtr Tables() override;

    word::RangePtr Previous(word::WdUnits unit, int count) override;
    void Select() override;

  private:
    std::shared_ptr<WordContent> content_;
    std::shared_ptr<LiveSpan> span_;  // shared with the collections that change what the range holds
};

}  // namespace mergeloom::embedded
