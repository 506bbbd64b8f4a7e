#include "office/embedded/text/BookmarkTable.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

namespace mergeloom::embedded {

BookmarkRecord& BookmarkTable::create(std::string name, std::int64_t id, Story& story) {
    BookmarkRecord& record = records_.emplace_back();
    record.name = std::move(name);
    record.id = id;
    record.story = &story;
    return record;
}

void BookmarkTable::list(BookmarkRecord& record) {
    byName_.insert(&record);
    record.listed = true;
    orderIsStale_ = true;
}

void BookmarkTable::unlist(BookmarkRecord& record) {
    byName_.erase(&record);
    record.listed = false;
    if (!orderIsStale_) std::erase(ordered_, &record);
    lowerCountersOf(record.name);
}

BookmarkRecord* BookmarkTable::find(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : *found;
}

const std::vector<BookmarkRecord*>& BookmarkTable::inNameOrder() {
    if (!orderIsStale_) return ordered_;
    std::vector<std::pair<std::string, BookmarkRecord*>> keyed;
    for (BookmarkRecord* record : byName_) {
        if (!record->isHidden()) keyed.emplace_back(foldCase(record->name), record);
    }
    std::sort(keyed.begin(), keyed.end());
    ordered_.clear();
    for (const auto& [key, record] : keyed)
        ordered_.push_back(record);
    orderIsStale_ = false;
    return ordered_;
}

std::int64_t BookmarkTable::firstFreeCounter(const std::string& stem) {
    std::int64_t& counter = takenBelow_.try_emplace(foldCase(stem), 1).first->second;
    while (find(stem + std::to_string(counter)))
        ++counter;
    return counter;
}

std::vector<BookmarkCopy> BookmarkTable::copiesOf(const BookmarkRecord& record) const {
    std::vector<BookmarkCopy> found;
    const auto isStart = [&](const BookmarkCopy& copy) { return equalsIgnoringCase(copy.name, record.name); };
    const auto start = std::find_if(copies_.begin(), copies_.end(), isStart);
    if (start == copies_.end()) return found;
    const auto sameId = [&](const BookmarkCopy& copy) { return copy.id == start->id; };
    std::copy_if(copies_.begin(), copies_.end(), std::back_inserter(found), sameId);
    return found;
}

void BookmarkTable::lowerCountersOf(const std::string& name) {
    const std::string folded = foldCase(name);
    for (std::size_t digits = folded.size();
         digits > 0 && isDigit(static_cast<unsigned char>(folded[digits - 1]));) {
        --digits;
        std::int64_t counter = 0;
        const auto [end, error] =
            std::from_chars(folded.data() + digits, folded.data() + folded.size(), counter);
        if (error != std::errc() || folded[digits] == '0') continue;
        const auto stem = takenBelow_.find(folded.substr(0, digits));
        if (stem != takenBelow_.end()) stem->second = std::min(stem->second, counter);
    }
}

std::size_t BookmarkTable::NameHash::operator()(std::string_view name) const {
    // FNV-1a over the folded characters, without making a folded copy.
    std::uint64_t hash = 0xCBF29CE484222325;
    while (!name.empty())
        hash = (hash ^ takeFoldedCodePoint(name)) * 0x100000001B3;
    return hash;
}

bool BookmarkTable::NameEqual::operator()(std::string_view a, const BookmarkRecord* b) const {
    return equalsIgnoringCase(a, b->name);
}

}  // namespace mergeloom::embedded
