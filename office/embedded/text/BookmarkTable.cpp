#include "office/embedded/text/BookmarkTable.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr std::size_t kFirstSlots = 64;

/// Returns the FNV-1a hash of the folded characters, without a folded copy. The final multiplication
/// distributes names that differ only in their last characters over all slots.
std::uint32_t hashOf(std::string_view name) {
    std::uint64_t hash = 0xCBF29CE484222325;
    while (!name.empty())
        hash = (hash ^ takeFoldedCodePoint(name)) * 0x100000001B3;
    hash = (hash ^ (hash >> 29U)) * 0xBF58476D1CE4E5B9;
    return static_cast<std::uint32_t>(hash >> 32U);
}

}  // namespace

BookmarkRecord& BookmarkTable::create(std::string name, std::int64_t id, Story& story) {
    const auto number = static_cast<std::uint32_t>(records_.size());
    BookmarkRecord& record = records_.emplace_back();
    record.number = number;
    record.name = std::move(name);
    record.id = id;
    record.story = &story;
    return record;
}

void BookmarkTable::list(BookmarkRecord& record) {
    if (record.listed) return;
    growSlots();
    insertSlot({hashOf(record.name), record.number});
    record.listed = true;
    orderIsStale_ = true;
}

void BookmarkTable::unlist(BookmarkRecord& record) {
    if (!record.listed) return;
    const auto isIt = [&](const Slot& slot) { return slot.record == record.number; };
    std::size_t slot = hashOf(record.name) & (slots_.size() - 1);
    while (!isIt(slots_[slot]))
        slot = slotAfter(slot);
    slots_[slot].record = Slot::kErased;
    record.listed = false;
    if (!orderIsStale_) std::erase(ordered_, &record);
    counters_.release(record.name);
}

BookmarkRecord* BookmarkTable::find(std::string_view name) {
    if (slots_.empty()) return nullptr;
    const std::uint32_t hash = hashOf(name);
    for (std::size_t slot = hash & (slots_.size() - 1); slots_[slot].record != Slot::kEmpty;
         slot = slotAfter(slot)) {
        if (slots_[slot].hash != hash || !slots_[slot].isUsed()) continue;
        BookmarkRecord& record = records_[slots_[slot].record];
        if (equalsIgnoringCase(name, record.name)) return &record;
    }
    return nullptr;
}

void BookmarkTable::insertSlot(const Slot& added) {
    std::size_t slot = added.hash & (slots_.size() - 1);
    while (slots_[slot].record != Slot::kEmpty)
        slot = slotAfter(slot);
    slots_[slot] = added;
    ++filledSlots_;
}

void BookmarkTable::growSlots() {
    if ((filledSlots_ + 1) * 4 <= slots_.size() * 3) return;
    const std::vector<Slot> former = std::exchange(slots_, {});
    slots_.resize(std::max(kFirstSlots, former.size() * 2));
    filledSlots_ = 0;
    for (const Slot& slot : former) {
        if (slot.isUsed()) insertSlot(slot);
    }
}

const std::vector<BookmarkRecord*>& BookmarkTable::inNameOrder() {
    if (!orderIsStale_) return ordered_;
    ordered_ = withHidden();
    std::erase_if(ordered_, [](const BookmarkRecord* record) { return record->isHidden(); });
    orderIsStale_ = false;
    return ordered_;
}

std::vector<BookmarkRecord*> BookmarkTable::withHidden() {
    std::vector<std::pair<std::string, BookmarkRecord*>> keyed;
    for (BookmarkRecord& record : records_) {
        if (record.listed) keyed.emplace_back(foldCase(record.name), &record);
    }
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

}  // namespace mergeloom::embedded
