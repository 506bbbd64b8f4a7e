#pragma once

#include "ui/designer/LoadedStructure.h"

#include <memory>

namespace mergeloom {

/// The tree as a drop sees it. For the windows' thread.
class DropTree {
  public:
    DropTree() = default;
    DropTree(const DropTree&) = delete;
    DropTree& operator=(const DropTree&) = delete;
    virtual ~DropTree() = default;

    /// Whether the tree lost the keyboard since the drag began.
    virtual bool hasLostFocus() = 0;
    virtual const TreeNode* selectedNode() = 0;
    virtual std::shared_ptr<LoadedStructure> structure() = 0;
    virtual void unhook() = 0;
};

}  // namespace mergeloom
