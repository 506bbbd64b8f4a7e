#include "office/libreoffice/excel/CalcNameIndex.h"

#include "base/Text.h"

namespace mergeloom::libreoffice {

namespace {

/// Combines name and sheet into one key; no name contains "!".
std::string keyOf(const std::string& name, int sheet) {
    return std::to_string(sheet) + "!" + foldCase(name);
}

}  // namespace

void CalcNameIndex::append(const std::string& name, int sheet) {
    indexes_.emplace(keyOf(name, sheet), entries_.size());
    entries_.push_back({name, sheet});
}

void CalcNameIndex::removeLast() {
    indexes_.erase(keyOf(entries_.back().name, entries_.back().sheet));
    counters_.release(entries_.back().name);
    entries_.pop_back();
}

void CalcNameIndex::remove(std::size_t index) {
    const Entry removed = entries_.at(index);
    indexes_.erase(keyOf(removed.name, removed.sheet));
    counters_.release(removed.name);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
    for (auto& [key, position] : indexes_)
        if (position > index) --position;
}

void CalcNameIndex::insert(const Entry& entry, std::size_t index) {
    for (auto& [key, position] : indexes_)
        if (position >= index) ++position;
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(index), entry);
    indexes_.emplace(keyOf(entry.name, entry.sheet), index);
}

void CalcNameIndex::reserveTableName(const std::string& name) {
    tables_.insert(foldCase(name));
}

std::optional<std::size_t> CalcNameIndex::find(const std::string& name, int sheet) const {
    const auto found = indexes_.find(keyOf(name, sheet));
    if (found == indexes_.end()) return {};
    return found->second;
}

bool CalcNameIndex::isTableName(const std::string& name) const {
    return tables_.contains(foldCase(name));
}

std::int64_t CalcNameIndex::firstFreeCounter(const std::string& stem) {
    return counters_.firstFree(stem, [&](const std::string& name) {
        return find(name, kDocument).has_value() || isTableName(name);
    });
}

}  // namespace mergeloom::libreoffice
