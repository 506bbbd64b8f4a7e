#include "office/graft/SequenceAlignment.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace mergeloom::graft {

namespace {

using Numbers = std::vector<std::int32_t>;

/// The search remembers as many states as this number's square.
constexpr std::ptrdiff_t kMaxDistance = 3000;

class Alignment {
  public:
    Alignment(const Numbers& former, const Numbers& now) : former_(former), now_(now) {}

    /// Returns false if the sequences differ in too many elements.
    bool search() {
        const auto n = static_cast<std::ptrdiff_t>(former_.size());
        const auto m = static_cast<std::ptrdiff_t>(now_.size());
        const std::ptrdiff_t limit = std::min(n + m, kMaxDistance);
        std::vector<std::ptrdiff_t> reach(static_cast<std::size_t>(2 * limit + 3), 0);
        const auto at = [&](std::ptrdiff_t k) -> std::ptrdiff_t& {
            return reach[static_cast<std::size_t>(k + limit + 1)];
        };
        for (std::ptrdiff_t distance = 0; distance <= limit; ++distance) {
            for (std::ptrdiff_t k = -distance; k <= distance; k += 2) {
                const bool isDown = k == -distance || (k != distance && at(k - 1) < at(k + 1));
                std::ptrdiff_t x = isDown ? at(k + 1) : at(k - 1) + 1;
                while (x < n && x - k < m && isEqual(x, x - k))
                    ++x;
                at(k) = x;
                if (x >= n && x - k >= m) {
                    keep(distance, at);
                    return true;
                }
            }
            keep(distance, at);
        }
        return false;
    }

    [[nodiscard]] std::vector<Gap> gaps() const {
        std::vector<Gap> found;
        auto x = static_cast<std::ptrdiff_t>(former_.size());
        auto y = static_cast<std::ptrdiff_t>(now_.size());
        for (auto distance = static_cast<std::ptrdiff_t>(trace_.size()) - 1; distance > 0; --distance) {
            const std::ptrdiff_t k = x - y;
            const bool isDown = k == -distance || (k != distance && reached(distance - 1, k - 1) <
                                                                        reached(distance - 1, k + 1));
            const std::ptrdiff_t from = reached(distance - 1, isDown ? k + 1 : k - 1);
            const std::ptrdiff_t fromY = from - (isDown ? k + 1 : k - 1);
            const std::ptrdiff_t toX = isDown ? from : from + 1;
            const std::ptrdiff_t toY = isDown ? fromY + 1 : fromY;
            extend(found, from, toX, fromY, toY);
            x = from;
            y = fromY;
        }
        std::ranges::reverse(found);
        return found;
    }

  private:
    [[nodiscard]] bool isEqual(std::ptrdiff_t x, std::ptrdiff_t y) const {
        return former_[static_cast<std::size_t>(x)] == now_[static_cast<std::size_t>(y)];
    }
    template <typename At>
    void keep(std::ptrdiff_t distance, const At& at) {
        std::vector<std::ptrdiff_t>& row = trace_.emplace_back();
        for (std::ptrdiff_t k = -distance; k <= distance; ++k)
            row.push_back(at(k));
    }
    [[nodiscard]] std::ptrdiff_t reached(std::ptrdiff_t distance, std::ptrdiff_t k) const {
        return trace_[static_cast<std::size_t>(distance)][static_cast<std::size_t>(k + distance)];
    }
    /// Adds one step before those found so far. Joins adjacent steps to one gap.
    static void extend(std::vector<Gap>& found, std::ptrdiff_t fromX, std::ptrdiff_t toX,
                       std::ptrdiff_t fromY, std::ptrdiff_t toY) {
        const Gap step{static_cast<std::size_t>(fromX), static_cast<std::size_t>(toX),
                       static_cast<std::size_t>(fromY), static_cast<std::size_t>(toY)};
        const bool touches = !found.empty() && found.back().formerStart == step.formerEnd &&
                             found.back().nowStart == step.nowEnd;
        if (!touches) {
            found.push_back(step);
            return;
        }
        found.back().formerStart = step.formerStart;
        found.back().nowStart = step.nowStart;
    }

    const Numbers& former_;
    const Numbers& now_;
    std::vector<std::vector<std::ptrdiff_t>> trace_;
};

}  // namespace

std::optional<std::vector<Gap>> gapsBetween(const std::vector<std::string>& former,
                                            const std::vector<std::string>& now) {
    std::unordered_map<std::string, std::int32_t> numbers;
    const auto numberOf = [&](const std::string& key) {
        return numbers.try_emplace(key, static_cast<std::int32_t>(numbers.size())).first->second;
    };
    const auto start = std::ranges::mismatch(former, now);
    const auto prefix = static_cast<std::size_t>(start.in1 - former.begin());
    std::size_t suffix = 0;
    while (suffix < std::min(former.size(), now.size()) - prefix &&
           former[former.size() - 1 - suffix] == now[now.size() - 1 - suffix])
        ++suffix;
    Numbers inner;
    Numbers innerNow;
    for (std::size_t i = prefix; i < former.size() - suffix; ++i)
        inner.push_back(numberOf(former[i]));
    for (std::size_t i = prefix; i < now.size() - suffix; ++i)
        innerNow.push_back(numberOf(now[i]));
    Alignment alignment(inner, innerNow);
    if (!alignment.search()) return {};
    std::vector<Gap> gaps = alignment.gaps();
    for (Gap& gap : gaps) {
        gap.formerStart += prefix;
        gap.formerEnd += prefix;
        gap.nowStart += prefix;
        gap.nowEnd += prefix;
    }
    return gaps;
}

std::vector<std::size_t> partnersOf(const std::vector<Gap>& gaps, std::size_t formerSize) {
    std::vector<std::size_t> partners(formerSize, kNoPartner);
    std::size_t former = 0;
    std::size_t now = 0;
    for (const Gap& gap : gaps) {
        while (former < gap.formerStart)
            partners[former++] = now++;
        former = gap.formerEnd;
        now = gap.nowEnd;
    }
    while (former < formerSize)
        partners[former++] = now++;
    return partners;
}

}  // namespace mergeloom::graft
