#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::libreoffice {

/// The names of a document's bookmarks over all its stories: one name space that does not regard letter case,
/// which Writer's does.
class BookmarkNames {
  public:
    void take(const std::vector<std::string>& names);
    void add(const std::string& name);
    void remove(const std::string& name);

    /// Returns the name as the document has it; empty when there is no bookmark of that name.
    [[nodiscard]] std::string find(const std::string& name) const;

    [[nodiscard]] std::vector<std::string> all() const;

    /// Returns those that are not hidden, in name order.
    [[nodiscard]] std::vector<std::string> inNameOrder() const;

    /// Returns the smallest number n from 1 for which no bookmark is named stem followed by n.
    [[nodiscard]] std::int64_t firstFreeCounter(const std::string& stem);

  private:
    std::unordered_map<std::string, std::string> byFoldedName_;
    /// For each stem asked for, a number below which all counters are taken.
    std::unordered_map<std::string, std::int64_t> takenBelow_;
};

}  // namespace mergeloom::libreoffice
