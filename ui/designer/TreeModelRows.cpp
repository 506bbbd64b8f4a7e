#include "ui/designer/TreeModelRows.h"

#include <numeric>

namespace mergeloom {

namespace {

constexpr int kNotShown = -1;

}  // namespace

std::vector<int> TreeModelRows::parentsIn(TreeView& tree) {
    std::vector<int> parents{0};
    parents.reserve(static_cast<std::size_t>(tree.Count()) + 1);
    for (int node = 1; node <= tree.Count(); ++node) {
        const TreeNode* const parent = tree.Item(node)->Parent();
        parents.push_back(parent != nullptr ? parent->Index() : 0);
    }
    return parents;
}

TreeModelRows::TreeModelRows(TreeView& tree)
    : TreeModelRows(parentsIn(tree), std::vector<char>(static_cast<std::size_t>(tree.Count()) + 1, 1)) {}

// Nodes are numbered in the order in which they were added: a parent before its children, children in their
// order.
TreeModelRows::TreeModelRows(const std::vector<int>& parents, const std::vector<char>& shown)
    : firstChild_(parents.size() + 1), rows_(parents.size(), kNotShown) {
    // Count the children of each node in the place after its own; the sums over the counts are the beginnings
    // of the next node's.
    rows_[0] = 0;
    for (std::size_t node = 1; node < parents.size(); ++node) {
        const auto parent = static_cast<std::size_t>(parents[node]);
        if (shown[node] != 0 && rows_[parent] != kNotShown) rows_[node] = firstChild_[parent + 1]++;
    }
    rows_[0] = kNotShown;
    std::partial_sum(firstChild_.begin(), firstChild_.end(), firstChild_.begin());
    children_.resize(static_cast<std::size_t>(firstChild_.back()));
    for (std::size_t node = 1; node < parents.size(); ++node) {
        if (rows_[node] == kNotShown) continue;
        const int place = firstChild_[static_cast<std::size_t>(parents[node])] + rows_[node];
        children_[static_cast<std::size_t>(place)] = static_cast<int>(node);
    }
}

int TreeModelRows::childCount(int node) const {
    const auto at = static_cast<std::size_t>(node);
    return firstChild_[at + 1] - firstChild_[at];
}

int TreeModelRows::child(int parent, int row) const {
    const int place = firstChild_[static_cast<std::size_t>(parent)] + row;
    return children_[static_cast<std::size_t>(place)];
}

int TreeModelRows::row(int node) const {
    return rows_[static_cast<std::size_t>(node)];
}

}  // namespace mergeloom
