#include "office/embedded/text/ItemTree.h"

#include <gtest/gtest.h>

#include <deque>
#include <random>

namespace mergeloom::embedded {
namespace {

/// Compares every result of the tree with that of a simple row of items.
void compare(const ItemTree& tree, const std::vector<Item*>& row) {
    std::int64_t position = 0;
    int open = 0;
    Item* mark = nullptr;
    ASSERT_EQ(tree.first(), row.empty() ? nullptr : row.front());
    ASSERT_EQ(tree.last(), row.empty() ? nullptr : row.back());
    for (std::size_t i = 0; i < row.size(); ++i) {
        Item* item = row[i];
        ASSERT_EQ(ItemTree::next(item), i + 1 < row.size() ? row[i + 1] : nullptr);
        ASSERT_EQ(ItemTree::previous(item), i > 0 ? row[i - 1] : nullptr);
        ASSERT_EQ(tree.positionOf(item).value, position);
        ASSERT_EQ(ItemTree::openBookmarksBefore(item), open);
        ASSERT_EQ(ItemTree::previousMark(item), mark);
        for (std::uint32_t unit = 0; unit < item->length; ++unit)
            ASSERT_EQ(tree.itemAt({position + unit}), item);
        position += item->length;
        if (item->kind == ItemKind::BookmarkStart) ++open;
        if (item->kind == ItemKind::BookmarkEnd) --open;
        if (item->isMark()) mark = item;
    }
    ASSERT_EQ(tree.length().value, position);
    ASSERT_EQ(tree.itemAt({position}), nullptr);
}

TEST(ItemTree, answersAsARowOfItemsWould) {
    std::mt19937 random(1);
    std::deque<Item> pool;
    const auto make = [&] {
        Item& item = pool.emplace_back();
        const unsigned kind = random() % 3;
        item.kind = kind == 0 ? ItemKind::BookmarkStart : kind == 1 ? ItemKind::BookmarkEnd : ItemKind::Text;
        item.length = item.isMark() ? 0 : random() % 4;
        return &item;
    };
    for (std::size_t size = 0; size < 20; ++size) {
        std::vector<Item*> row;
        while (row.size() < size)
            row.push_back(make());
        ItemTree tree;
        tree.build(row);
        for (int step = 0; step < 100; ++step) {
            const std::size_t at = random() % (row.size() + 1);
            Item* next = at < row.size() ? row[at] : nullptr;
            if (!next || random() % 2 == 0) {
                Item* item = make();
                tree.insertBefore(next, item);
                row.insert(row.begin() + static_cast<std::ptrdiff_t>(at), item);
            } else if (random() % 4 == 0 && !next->isMark()) {
                tree.setLength(next, {static_cast<std::int64_t>(random() % 5)});
            } else {
                tree.remove(next);
                row.erase(row.begin() + static_cast<std::ptrdiff_t>(at));
            }
            ASSERT_NO_FATAL_FAILURE(compare(tree, row)) << size << ", " << step;
        }
    }
}

}  // namespace
}  // namespace mergeloom::embedded
