#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Range.h"

#include <memory>
#include <string>

namespace mergeloom::libreoffice {

class WriterRange : public word::Range {
  public:
    WriterRange(std::shared_ptr<WriterContent> content, RangePtr range);
    WriterRange(const WriterRange&) = delete;
    WriterRange& operator=(const WriterRange&) = delete;
    ~WriterRange() override;

    CharacterPosition Start() override;
    CharacterPosition End() override;
    bool isEmpty() override;
    std::strong_ordering compare(word::RangeEnd mine, word::Range& other, word::RangeEnd others) override;
    std::string storyName() override;
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
    std::shared_ptr<WriterContent> content_;
    RangePtr range_;
};

word::RangePtr makeRange(const std::shared_ptr<WriterContent>& content, TrackedRange range);

}  // namespace mergeloom::libreoffice
