#pragma once

#include "droppers/BookmarkNames.h"

#include <algorithm>
#include <cstdint>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>

namespace mergeloom {

/// The names that a place may have: its own and, while that is taken, further ones that end in a counter from
/// 1. The collection is the bookmarks of a document or the names of a workbook.
template <class Collection>
class PlaceNames {
  public:
    using NameRule = std::string (*)(std::string_view name, bool appendT);

    PlaceNames(Collection& taken, std::string name, NameRule normalize)
        : taken_(taken), name_(std::move(name)), normalize_(normalize) {}

    /// The counter of the first free name; 0 for the name itself.
    [[nodiscard]] std::int64_t firstFreeCounter() const {
        if (!isTaken(0)) return 0;
        const std::string first = usable(1);
        if (first.empty()) return 1;
        std::int64_t counter = taken_.firstFreeCounter(first.substr(0, first.size() - 1));
        // In a long name a longer counter pushes out more of the beginning, so it leads to other names.
        if (isTaken(counter)) counter = endOfTaken(counter);
        while (isTaken(counter))
            ++counter;
        return counter;
    }

    /// Other names than one's own may have the same usable characters, so both spellings count.
    [[nodiscard]] bool isTaken(std::int64_t counter) const {
        return taken_.Exists(raw(counter)) || taken_.Exists(usable(counter));
    }

    /// The name with that counter; empty when nothing usable is left of it.
    [[nodiscard]] std::string usable(std::int64_t counter) const { return normalize_(raw(counter), false); }

  private:
    [[nodiscard]] std::string raw(std::int64_t counter) const {
        return counter == 0 ? name_ : name_ + std::string(kFurtherPlaceSuffix) + std::to_string(counter);
    }
    /// The end of the taken counters, in few steps: trying each would make a thousand drops of a name slow.
    [[nodiscard]] std::int64_t endOfTaken(std::int64_t counter) const {
        const auto counters = std::views::iota(counter, counter + taken_.Count() + 1);
        const auto end =
            std::ranges::partition_point(counters, [this](std::int64_t tried) { return isTaken(tried); });
        return counter + std::ranges::distance(counters.begin(), end);
    }

    Collection& taken_;
    std::string name_;
    NameRule normalize_;
};

}  // namespace mergeloom
