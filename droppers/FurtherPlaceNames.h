#pragma once

#include "office/model/letters/PlaceSource.h"

#include <algorithm>
#include <cstdint>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>

namespace mergeloom {

/// The prefix of the name of every place and table in a workbook.
inline constexpr std::string_view kRangeNamePrefix = "amm";

/// The suffix of the name of a place for a control's bound value.
inline constexpr std::string_view kBoundValueSuffix = "_bv";
/// Precedes the counter in the name of a further place when a name is taken.
inline constexpr std::string_view kFurtherPlaceSuffix = "_ref";

/// Makes a name of the structure document a name in an office document, as `WordNormalizeName` does.
using NameRule = std::string (*)(std::string_view name, bool appendT);

/// Returns the name of the place of a control before normalisation. The prefix is the name of the subform
/// around the control; the name is simplified.
inline std::string placeName(std::string_view prefix, std::string_view simplifiedName,
                             letters::ValueKind value) {
    std::string name(prefix);
    name += simplifiedName;
    if (value == letters::ValueKind::Bound) name += kBoundValueSuffix;
    return name;
}

/// Returns the name of a further place with that counter, before normalisation.
inline std::string furtherPlaceName(std::string_view name, std::int64_t counter) {
    std::string further(name);
    return further.append(kFurtherPlaceSuffix).append(std::to_string(counter));
}

/// Returns the usable name of a further place with that counter, or the name's own for 0; empty when nothing
/// usable is left of it.
inline std::string usablePlaceName(const std::string& name, std::int64_t counter, NameRule normalize) {
    std::string usable = normalize(name, false);
    if (counter == 0) return usable;
    return normalize(furtherPlaceName(usable, counter), false);
}

/// Returns the digits of the counter in the name of a further place; empty when it is no such name.
inline std::string_view placeCounterOf(std::string_view name) {
    constexpr std::size_t kMaxDigits = 9;
    const std::size_t suffix = name.rfind(kFurtherPlaceSuffix);
    if (suffix == std::string_view::npos) return {};
    const std::string_view digits = name.substr(suffix + kFurtherPlaceSuffix.size());
    const bool isCounter = digits.find_first_not_of("0123456789") == std::string_view::npos;
    return isCounter && digits.size() <= kMaxDigits ? digits : std::string_view();
}

/// Returns the name before the counter of a further place; the name itself when it has none.
inline std::string withoutPlaceCounter(const std::string& name) {
    const std::size_t digits = placeCounterOf(name).size();
    return digits == 0 ? name : name.substr(0, name.size() - digits - kFurtherPlaceSuffix.size());
}

/// The names that a place may have: its own and, while that is taken, further ones that end in a counter
/// from 1. The collection holds the bookmarks of a document or the names of a workbook.
template <class Collection>
class FurtherPlaceNames {
  public:
    FurtherPlaceNames(Collection& taken, std::string name, NameRule normalize)
        : taken_(taken), name_(std::move(name)), usable_(normalize(name_, false)), normalize_(normalize) {}

    /// Returns the counter of the first free name; 0 for the name itself.
    [[nodiscard]] std::int64_t firstFreeCounter() const {
        if (usable_.empty() || !isTaken(0)) return 0;
        const std::string first = usable(1);
        std::int64_t counter = taken_.firstFreeCounter(first.substr(0, first.size() - 1));
        // In a long name, a longer counter cuts off more of the beginning, which leads to different names.
        if (isTaken(counter)) counter = endOfTaken(counter);
        while (isTaken(counter))
            ++counter;
        return counter;
    }

    /// Returns true when the name with that counter is taken. Different names may have the same usable
    /// characters, so both spellings count.
    [[nodiscard]] bool isTaken(std::int64_t counter) const {
        return counter == 0 ? isTaken(name_, usable_) : isTaken(counted(name_, counter), usable(counter));
    }

    /// Returns the name with that counter; empty when nothing usable is left of it.
    [[nodiscard]] std::string usable(std::int64_t counter) const {
        return counter == 0 ? usable_ : normalize_(counted(usable_, counter), false);
    }

  private:
    [[nodiscard]] bool isTaken(const std::string& written, const std::string& usable) const {
        return taken_.Exists(usable) || (written != usable && taken_.Exists(written));
    }
    static std::string counted(const std::string& name, std::int64_t counter) {
        return counter == 0 ? name : furtherPlaceName(name, counter);
    }
    /// Returns the end of the taken counters by binary search: trying each would make a thousand drops of a
    /// name slow.
    [[nodiscard]] std::int64_t endOfTaken(std::int64_t counter) const {
        const auto counters = std::views::iota(counter, counter + taken_.Count() + 1);
        const auto end =
            std::ranges::partition_point(counters, [this](std::int64_t tried) { return isTaken(tried); });
        return counter + std::ranges::distance(counters.begin(), end);
    }

    Collection& taken_;
    std::string name_;
    std::string usable_;
    NameRule normalize_;
};

}  // namespace mergeloom
