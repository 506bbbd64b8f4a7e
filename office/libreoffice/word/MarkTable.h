#pragma once

#include "office/libreoffice/word/MarkRecord.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::libreoffice {

/// The bookmarks of a document over all its stories: one name space that does not regard letter case, which
/// Writer's does.
class MarkTable {
  public:
    void list(const MarkPtr& mark);
    void unlist(const MarkPtr& mark);
    void clear();

    /// None when there is no bookmark of that name.
    [[nodiscard]] MarkPtr find(const std::string& name) const;
    /// Those that are not hidden, in name order.
    [[nodiscard]] std::vector<MarkPtr> inNameOrder() const;
    [[nodiscard]] std::vector<MarkPtr> all() const;
    /// The smallest number n from 1 for which no bookmark is named stem followed by n.
    [[nodiscard]] std::int64_t firstFreeCounter(const std::string& stem);

  private:
    std::unordered_map<std::string, MarkPtr> byFoldedName_;
    /// For each stem asked for, a number below which all counters are taken.
    std::unordered_map<std::string, std::int64_t> takenBelow_;
};

}  // namespace mergeloom::libreoffice
