#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "droppers/FieldSelection.h"
#include "ui/designer/HostedOffice.h"
#include "ui/designer/LoadedStructure.h"
#include "ui/designer/OfficeWorker.h"

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <memory>
#include <string>

namespace mergeloom {

/// The tree during a drop. For the windows' thread.
class DropTree {
  public:
    DropTree() = default;
    DropTree(const DropTree&) = delete;
    DropTree& operator=(const DropTree&) = delete;
    virtual ~DropTree() = default;

    /// Returns true if the tree lost the focus since the drag began.
    virtual bool hasLostFocus() = 0;
    virtual const TreeNode* selectedNode() = 0;
    virtual std::shared_ptr<LoadedStructure> structure() = 0;
    virtual void unhook() = 0;
};

/// Passes the progress of a drop from the office's thread to that of the windows often enough to be seen.
class DropProgress final : public QObject, public Progress {
    Q_OBJECT

  public:
    void advance(std::int64_t done, std::int64_t total) override;

  Q_SIGNALS:
    void advanced(int percent);

  private:
    QElapsedTimer sinceShown_;
};

/// The reasons for an empty drop for which no message is shown.
enum class DropRefusal { None, NotDraggable, NoText, ReadOnly, NothingChosen, Preview };

/// The place of a drop, or the reason why nothing was inserted.
struct DropReport {
    std::string place;  ///< a story of the document, as Range::storyName returns it, or the address of a cell
    DropRefusal refusal = DropRefusal::None;
};

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
    /// the focus or no text is at the point. Returns true if something was dropped; the tree is unhooked in
    /// any case.
    bool drop(HostPoint point);
    /// Drops at the caret, without a mouse.
    bool insertAtCaret();
    /// Drops nothing and unhooks the tree.
    void refuse(DropRefusal refusal);
    /// Returns the report of the last drop.
    [[nodiscard]] const DropReport& report() const { return report_; }

  private:
    bool dropSelected(const HostPoint* point);
    bool dropInto(const TreeNode& node, const LoadedStructure& structure);

    Ports ports_;
    DropReport report_;
};

}  // namespace mergeloom
