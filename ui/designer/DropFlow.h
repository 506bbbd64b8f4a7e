#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "droppers/FieldDialog.h"
#include "ui/designer/DropTree.h"
#include "ui/designer/HostAccess.h"
#include "ui/designer/OfficeJobs.h"

#include <functional>

namespace mergeloom {

/// Drops the tree's selected node into the hosted document. Called by the windows' thread; the drop itself is
/// a job of the office's, which may show messages meanwhile. No error leaves it.
class DropFlow {
  public:
    /// The objects that have to outlive it.
    struct Ports {
        OfficeJobs& jobs;
        HostAccess& access;
        DropTree& tree;
        ErrorHandler& errors;
        Messages& messages;
        Progress& progress;
        FieldDialog& fieldDialog;
        /// Lets the windows handle pending events.
        std::function<void()> runPendingEvents;
    };

    explicit DropFlow(Ports ports) : ports_(std::move(ports)) {}

    /// Handles a drag that ended over the office's window. In Word mode nothing is dropped when the tree kept
    /// the focus or no text is at the point. Returns whether something was dropped; the tree is unhooked in
    /// any case.
    bool drop(HostPoint point);
    /// Drops at the caret, without a mouse.
    bool insertAtCaret();

  private:
    bool dropSelected(const HostPoint* point);
    bool dropInto(const TreeNode& node, const LoadedStructure& structure);

    Ports ports_;
};

}  // namespace mergeloom
