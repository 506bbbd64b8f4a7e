#pragma once

#include <map>
#include <string>

namespace mergeloom::graft {

/// Numbers for formats in canonical form. Equal formats have equal numbers.
class FormatNumbers {
  public:
    int of(const std::string& format) {
        return numbers_.try_emplace(format, static_cast<int>(numbers_.size())).first->second;
    }

  private:
    std::map<std::string, int> numbers_;
};

}  // namespace mergeloom::graft
