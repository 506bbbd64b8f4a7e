#include "office/libreoffice/word/BookmarkNames.h"

#include "base/Text.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <utility>

namespace mergeloom::libreoffice {

void BookmarkNames::take(const std::vector<std::string>& names) {
    byFoldedName_.clear();
    takenBelow_.clear();
    for (const std::string& name : names)
        add(name);
}

void BookmarkNames::add(const std::string& name) {
    byFoldedName_[foldCase(name)] = name;
}

void BookmarkNames::remove(const std::string& name) {
    byFoldedName_.erase(foldCase(name));
    // Any counter may be free again; what is asked for next finds out anew.
    takenBelow_.clear();
}

std::string BookmarkNames::find(const std::string& name) const {
    const auto found = byFoldedName_.find(foldCase(name));
    return found == byFoldedName_.end() ? "" : found->second;
}

std::vector<std::string> BookmarkNames::all() const {
    std::vector<std::string> names;
    for (const auto& [folded, name] : byFoldedName_)
        names.push_back(name);
    return names;
}

std::vector<std::string> BookmarkNames::inNameOrder() const {
    std::vector<std::pair<std::string, std::string>> keyed;
    for (const auto& [folded, name] : byFoldedName_) {
        if (!word::isHiddenBookmark(name)) keyed.emplace_back(folded, name);
    }
    std::ranges::sort(keyed);
    std::vector<std::string> ordered;
    for (auto& [folded, name] : keyed)
        ordered.push_back(std::move(name));
    return ordered;
}

std::int64_t BookmarkNames::firstFreeCounter(const std::string& stem) {
    std::int64_t& counter = takenBelow_.try_emplace(foldCase(stem), 1).first->second;
    while (!find(stem + std::to_string(counter)).empty())
        ++counter;
    return counter;
}

}  // namespace mergeloom::libreoffice
