#include "office/embedded/text/ItemBlock.h"

namespace mergeloom::embedded {

namespace {

std::int32_t opensItself(const Item& item) {
    if (item.kind == ItemKind::BookmarkStart) return 1;
    return item.kind == ItemKind::BookmarkEnd ? -1 : 0;
}

}  // namespace

ItemTotals& ItemTotals::operator+=(const ItemTotals& other) {
    length += other.length;
    openMarks += other.openMarks;
    marks += other.marks;
    return *this;
}

ItemTotals& ItemTotals::operator-=(const ItemTotals& other) {
    length -= other.length;
    openMarks -= other.openMarks;
    marks -= other.marks;
    return *this;
}

ItemTotals totalsOf(const Item& item) {
    return {item.length, opensItself(item), item.isMark() ? 1U : 0U};
}

void ItemBlock::insert(std::uint8_t place, Item* item) {
    for (std::uint8_t i = count; i > place; --i) {
        items[i] = items[i - 1U];
        items[i]->place = i;
    }
    items[place] = item;
    item->block = this;
    item->place = place;
    ++count;
    own += totalsOf(*item);
}

void ItemBlock::remove(std::uint8_t place) {
    own -= totalsOf(*items[place]);
    items[place]->block = nullptr;
    --count;
    for (std::uint8_t i = place; i < count; ++i) {
        items[i] = items[i + 1U];
        items[i]->place = i;
    }
}

void ItemBlock::moveTail(std::uint8_t place, ItemBlock& to) {
    for (std::uint8_t i = place; i < count; ++i)
        to.insert(to.count, items[i]);
    own -= to.own;
    count = place;
}

ItemBlock::Found ItemBlock::itemAt(std::uint32_t character) const {
    Item* const* item = items.data();
    for (; character >= (*item)->length; ++item)
        character -= (*item)->length;
    return {*item, character};
}

// Text is usually appended, so positions are counted from the end of the block.

std::uint32_t ItemBlock::lengthBefore(std::uint8_t place) const {
    std::uint32_t length = own.length;
    for (std::uint8_t i = place; i < count; ++i)
        length -= items[i]->length;
    return length;
}

CharacterCount ItemBlock::lengthBetween(std::uint8_t from, std::uint8_t to) const {
    if (from > to) return {-lengthBetween(to, from).value};
    std::int64_t length = 0;
    for (std::uint8_t i = from; i < to; ++i)
        length += items[i]->length;
    return {length};
}

std::int32_t ItemBlock::openMarksBefore(std::uint8_t place) const {
    std::int32_t open = own.openMarks;
    for (std::uint8_t i = place; i < count; ++i)
        open -= opensItself(*items[i]);
    return open;
}

Item* ItemBlock::lastMarkBefore(std::uint8_t place) const {
    while (place > 0) {
        if (items[--place]->isMark()) return items[place];
    }
    return nullptr;
}

}  // namespace mergeloom::embedded
