#pragma once

#include "office/embedded/word/EmbeddedTable.h"
#include "office/model/word/Table.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

/// The tables of a stretch of a story, as they are when they are first asked for: whoever only adds one does
/// not have the whole story searched.
class EmbeddedTables final : public word::Tables {
  public:
    EmbeddedTables(StoryPlace place, CharacterPosition start, CharacterPosition end)
        : place_(std::move(place)), start_(start), end_(end) {}

    int Count() override { return static_cast<int>(tables().size()); }
    word::TablePtr Item(int number) override;
    word::TablePtr Add(word::Range& range, int rows, int columns) override;

  private:
    const std::vector<std::shared_ptr<EmbeddedTable>>& tables();

    StoryPlace place_;
    CharacterPosition start_;
    CharacterPosition end_;
    std::optional<std::vector<std::shared_ptr<EmbeddedTable>>> tables_;
};

}  // namespace mergeloom::embedded
