#include "ui/designer/TreeModelRows.h"

#include <numeric>

namespace mergeloom {

namespace {

constexpr int kNotShown = -1;

int parentOf(const TreeNode& node) {
    const TreeNode* const parent = node.Parent();
    return parent != nullptr ? parent->Index() : 0;
}

}  // namespace

TreeModelRows::TreeModelRows(TreeView& tree)
    : TreeModelRows(tree, std::vector<bool>(static_cast<std::size_t>(tree.Count()) + 1, true)) {}

// Nodes are numbered in the order in which they were added: a parent before its children, children in their
// order.
TreeModelRows::TreeModelRows(TreeView& tree, const std::vector<bool>& shown)
    : firstChild_(static_cast<std::size_t>(tree.Count()) + 2),
      rows_(static_cast<std::size_t>(tree.Count()) + 1, kNotShown) {
    // Counts the children of each node behind its place; the sums over that are where the next one's begin.
    const auto countBehind = [&](int parent) -> int& {
        return firstChild_[static_cast<std::size_t>(parent) + 1];
    };
    rows_[0] = 0;
    for (int node = 1; node <= tree.Count(); ++node) {
        const auto at = static_cast<std::size_t>(node);
        const int parent = shown[at] ? parentOf(*tree.Item(node)) : 0;
        if (shown[at] && row(parent) != kNotShown) rows_[at] = countBehind(parent)++;
    }
    rows_[0] = kNotShown;
    std::partial_sum(firstChild_.begin(), firstChild_.end(), firstChild_.begin());
    children_.resize(static_cast<std::size_t>(firstChild_.back()));
    for (int node = 1; node <= tree.Count(); ++node) {
        if (row(node) == kNotShown) continue;
        const auto first = firstChild_[static_cast<std::size_t>(parentOf(*tree.Item(node)))];
        children_[static_cast<std::size_t>(first + row(node))] = node;
    }
}

int TreeModelRows::childCount(int node) const {
    const auto at = static_cast<std::size_t>(node);
    return firstChild_[at + 1] - firstChild_[at];
}

int TreeModelRows::child(int parent, int row) const {
    return children_[static_cast<std::size_t>(firstChild_[static_cast<std::size_t>(parent)] + row)];
}

int TreeModelRows::row(int node) const {
    return rows_[static_cast<std::size_t>(node)];
}

}  // namespace mergeloom
