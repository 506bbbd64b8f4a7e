#include "office/embedded/text/BookmarkTable.h"

#include "base/Text.h"

#include <algorithm>
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
    counters_.release(record.name);
}

BookmarkRecord* BookmarkTable::find(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : *found;
}

const std::vector<BookmarkRecord*>& BookmarkTable::inNameOrder() {
    if (!orderIsStale_) return ordered_;
    ordered_ = withHidden();
    std::erase_if(ordered_, [](const BookmarkRecord* record) { return record->isHidden(); });
    orderIsStale_ = false;
    return ordered_;
}

std::vector<BookmarkRecord*> BookmarkTable::withHidden() const {
    std::vector<std::pair<std::string, BookmarkRecord*>> keyed;
    keyed.reserve(byName_.size());
    for (BookmarkRecord* record : byName_)
        keyed.emplace_back(foldCase(record->name), record);
    std::sort(keyed.begin(), keyed.end());
    std::vector<BookmarkRecord*> records;
    records.reserve(keyed.size());
    for (const auto& [key, record] : keyed)
        records.push_back(record);
    return records;
}

std::int64_t BookmarkTable::firstFreeCounter(const std::string& stem) {
    return counters_.firstFree(stem, [&](const std::string& name) { return find(name) != nullptr; });
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
