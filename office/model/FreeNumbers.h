#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

namespace mergeloom::model {

/// Returns the smallest number n, from the given one, for which the name stem followed by n is not taken.
template <typename IsTaken>
std::int64_t firstFreeCounter(const std::string& stem, const IsTaken& isTaken, std::int64_t from = 1) {
    while (isTaken(stem + std::to_string(from)))
        ++from;
    return from;
}

/// Remembers for each stem up to which number its names are taken, so that the thousandth call does not try a
/// thousand names. Stems are compared regardless of letter case.
class FreeNumbers {
  public:
    /// Returns the smallest number n from 1 for which the name stem followed by n is not taken.
    template <typename IsTaken>
    std::int64_t firstFree(const std::string& stem, const IsTaken& isTaken) {
        std::int64_t& counter = takenBelow(stem);
        counter = firstFreeCounter(stem, isTaken, counter);
        return counter;
    }

    /// Marks a name as free again.
    void release(const std::string& name);

  private:
    std::int64_t& takenBelow(const std::string& stem);

    std::unordered_map<std::string, std::int64_t> takenBelow_;  ///< by the stem, case folded
};

}  // namespace mergeloom::model
