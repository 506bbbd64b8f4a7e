#pragma once

#include "ui/designer/DropTree.h"
#include "ui/designer/TreePane.h"
#include "ui/designer/mTVHook.h"

namespace mergeloom {

/// The tree of the window's left side.
class PaneDropTree final : public DropTree {
  public:
    explicit PaneDropTree(TreePane& pane) : pane_(pane) {}

    bool hasLostFocus() override { return gTreeLostFocus; }
    const TreeNode* selectedNode() override { return pane_.selectedNode(); }
    std::shared_ptr<LoadedStructure> structure() override { return pane_.structure(); }
    void unhook() override { UnhookTreeView(pane_.tvXML()); }

  private:
    TreePane& pane_;
};

}  // namespace mergeloom
