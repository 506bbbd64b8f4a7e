#include "office/libreoffice/word/MarkTable.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace mergeloom::libreoffice {

void MarkTable::list(const MarkPtr& mark) {
    mark->listed = true;
    byFoldedName_[foldCase(mark->name)] = mark;
}

void MarkTable::unlist(const MarkPtr& mark) {
    mark->listed = false;
    byFoldedName_.erase(foldCase(mark->name));
    // Any counter may be free again; what is asked for next finds out anew.
    takenBelow_.clear();
}

void MarkTable::clear() {
    byFoldedName_.clear();
    takenBelow_.clear();
}

MarkPtr MarkTable::find(const std::string& name) const {
    const auto found = byFoldedName_.find(foldCase(name));
    return found == byFoldedName_.end() ? nullptr : found->second;
}

std::vector<MarkPtr> MarkTable::inNameOrder() const {
    std::vector<std::pair<std::string, MarkPtr>> keyed;
    for (const auto& [folded, mark] : byFoldedName_) {
        if (!mark->isHidden()) keyed.emplace_back(folded, mark);
    }
    std::ranges::sort(keyed, {}, &std::pair<std::string, MarkPtr>::first);
    std::vector<MarkPtr> ordered;
    ordered.reserve(keyed.size());
    for (const auto& [folded, mark] : keyed)
        ordered.push_back(mark);
    return ordered;
}

std::vector<MarkPtr> MarkTable::all() const {
    std::vector<MarkPtr> marks;
    marks.reserve(byFoldedName_.size());
    for (const auto& [folded, mark] : byFoldedName_)
        marks.push_back(mark);
    return marks;
}

std::int64_t MarkTable::firstFreeCounter(const std::string& stem) {
    std::int64_t& counter = takenBelow_.try_emplace(foldCase(stem), 1).first->second;
    while (find(stem + std::to_string(counter)))
        ++counter;
    return counter;
}

}  // namespace mergeloom::libreoffice
