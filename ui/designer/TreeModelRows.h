#pragma once

#include "xml/TreeView.h"

#include <vector>

namespace mergeloom {

/// The nodes of a tree that are shown, and the row of each under its parent. Nodes are named by their Index;
/// 0 represents the parent of the top level. Every member takes constant time.
class TreeModelRows {
  public:
    /// Returns the parents of a tree's nodes at the nodes' Index, 0 for those of the top level.
    static std::vector<int> parentsIn(TreeView& tree);

    /// Has no rows.
    TreeModelRows() = default;
    /// Has the rows of all nodes of a tree.
    explicit TreeModelRows(TreeView& tree);
    /// Has the rows of the nodes whose flag is set. A node whose parent is not shown is not shown. Flags and
    /// parents are at the nodes' Index; the values at 0 are ignored.
    TreeModelRows(const std::vector<int>& parents, const std::vector<char>& shown);

    [[nodiscard]] int childCount(int node) const;
    /// Returns the node in a row from 0 to childCount - 1.
    [[nodiscard]] int child(int parent, int row) const;
    /// Returns the row of a node that is shown, or -1.
    [[nodiscard]] int row(int node) const;

  private:
    // The children of all nodes one after the other, and the index of each node's first one.
    std::vector<int> children_;
    std::vector<int> firstChild_{0, 0};
    std::vector<int> rows_{-1};
};

}  // namespace mergeloom
