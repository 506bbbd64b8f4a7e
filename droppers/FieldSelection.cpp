#include "droppers/FieldSelection.h"

#include <algorithm>
#include <utility>

namespace mergeloom {

void FieldSelection::AddItem(const std::string& text, int itemData) {
    items_.push_back({text, itemData, true});
    listIndex_ = std::max(listIndex_, 0);
}

int FieldSelection::SelCount() const {
    return static_cast<int>(std::ranges::count(items_, true, &Item::selected));
}

void FieldSelection::SetSelected(int index, bool selected) {
    if (hasItem(index)) items_[static_cast<std::size_t>(index)].selected = selected;
}

void FieldSelection::SelectAll(bool selected) {
    for (Item& item : items_)
        item.selected = selected;
}

void FieldSelection::SetListIndex(int index) {
    if (hasItem(index)) listIndex_ = index;
}

void FieldSelection::MoveListItem(bool vfUp) {
    const int target = listIndex_ + (vfUp ? -1 : 1);
    if (SelCount() == 0 || !hasItem(target)) return;
    std::swap(items_[static_cast<std::size_t>(listIndex_)], items_[static_cast<std::size_t>(target)]);
    listIndex_ = target;
}

}  // namespace mergeloom
