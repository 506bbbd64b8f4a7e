#pragma once

#include "xml/TreeView.h"

#include <vector>

namespace mergeloom {

/// Which nodes of a tree are shown, and in which row under their parent each stands. Nodes are named by their
/// Index; 0 stands for what is above the top level. Every question is answered at once.
class TreeModelRows {
  public:
    /// The parents of a tree's nodes at the nodes' Index, 0 for those of the top level.
    static std::vector<int> parentsIn(TreeView& tree);

    /// The rows of no tree.
    TreeModelRows() = default;
    /// The rows of all nodes of a tree.
    explicit TreeModelRows(TreeView& tree);
    /// The rows of the nodes whose flag is set. A node whose parent is not shown is not shown. Flags and
    /// parents stand at the nodes' Index; what stands at 0 is of no account.
    TreeModelRows(const std::vector<int>& parents, const std::vector<char>& shown);

    [[nodiscard]] int childCount(int node) const;
    /// The node in a row from 0 to childCount - 1.
    [[nodiscard]] int child(int parent, int row) const;
    /// The row of a node that is shown, or -1.
    [[nodiscard]] int row(int node) const;

  private:
    // The children of all nodes one behind the other, those of a node from its first one on.
    std::vector<int> children_;
    std::vector<int> firstChild_{0, 0};
    std::vector<int> rows_{-1};
};

}  // namespace mergeloom
