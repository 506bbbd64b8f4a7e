#pragma once

#include "office/embedded/word/EmbeddedTable.h"
#include "office/model/word/Tables.h"

#include <memory>
#include <vector>

namespace mergeloom::embedded {

/// The tables of a stretch of a story, as they were when it was asked for them.
class EmbeddedTables final : public word::Tables {
  public:
    EmbeddedTables(StoryPlace place, CharacterPosition start, CharacterPosition end);

    int Count() override { return static_cast<int>(tables_.size()); }
    word::TablePtr Item(int number) override;
    word::TablePtr Add(word::Range& range, int rows, int columns) override;

  private:
    StoryPlace place_;
    std::vector<std::shared_ptr<EmbeddedTable>> tables_;
};

}  // namespace mergeloom::embedded
