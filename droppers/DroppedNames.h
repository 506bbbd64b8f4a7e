#pragma once

#include "base/Text.h"

#include <set>
#include <string>
#include <string_view>

namespace mergeloom {

/// The names that one drop has given so far, without regard to letter case.
class DroppedNames {
  public:
    void add(std::string_view name) { folded_.insert(foldCase(name)); }
    [[nodiscard]] bool contains(std::string_view name) const { return folded_.contains(foldCase(name)); }

  private:
    std::set<std::string> folded_;
};

}  // namespace mergeloom
