#pragma once

#include "ui/designer/LoadedStructure.h"

#include <memory>

namespace mergeloom {

/// The tree during a drop. For the windows' thread.
class DropTree {
  public:
    DropTree() = default;
    DropTree(const DropTree&) = delete;
    DropTree& operator=(const DropTree&) = delete;
    virtual ~DropTree() = default;

    /// Returns whether the tree lost the focus since the drag began.
    virtual bool hasLostFocus() = 0;
    virtual const TreeNode* selectedNode() = 0;
    virtual std::shared_ptr<LoadedStructure> structure() = 0;
    virtual void unhook() = 0;
};

}  // namespace mergeloom
