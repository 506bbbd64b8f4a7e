#pragma once

#include "ui/designer/TreeModel.h"

#include <QTimer>
#include <QTreeView>
#include <vector>

namespace mergeloom {

/// The tree itself with its expanded and selected nodes, and the drag of a node. Nodes are named by their
/// Index.
class TreePaneView : public QTreeView {
    Q_OBJECT
  public:
    explicit TreePaneView(TreeModel& model, QWidget* parent = nullptr);

    /// Returns the selected node, or none.
    [[nodiscard]] const TreeNode* selectedNode() const;
    /// Selects a node and scrolls to it; does nothing for one that is not shown.
    void selectNode(int node);
    [[nodiscard]] std::vector<int> expandedNodes() const;
    /// Returns the row at the top of the view, as the scroll bar counts it.
    [[nodiscard]] int scrollPosition() const;

    /// Shows other rows, with these nodes expanded: the first ones at once, a large number of others step by
    /// step. The selected node stays selected if it is shown; the view goes to the top.
    void showRows(std::shared_ptr<const TreeModelRows> rows, std::vector<int> expanded);
    /// Scrolls so that the row of an earlier scrollPosition is at the top.
    void scrollToPosition(int position);

  Q_SIGNALS:
    /// Emitted when a drag is over or was refused. The view is hooked (mTVHook.h).
    void dragFinished();

  protected:
    void startDrag(Qt::DropActions supportedActions) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void updateGeometries() override;
    bool viewportEvent(QEvent* event) override;

  private:
    void select(int node);
    void fitColumn();
    void expandNext(std::size_t most);
    void addExpanded(const QModelIndex& parent, std::vector<int>& nodes) const;
    [[nodiscard]] QPixmap dragPicture(const QString& text) const;

    TreeModel& model_;
    QTimer expanding_;
    // The nodes that are still to be expanded, from an index in the list on.
    std::vector<int> toExpand_;
    std::size_t nextToExpand_ = 0;
};

}  // namespace mergeloom
