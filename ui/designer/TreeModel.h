#pragma once

#include "xml/TreeView.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QString>
#include <functional>
#include <memory>
#include <unordered_set>
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

/// The tag of a node that cannot be dragged, compared without regard to case.
inline constexpr const char* kNoDragTag = "NoDrag";

/// Returns true if a node may be dragged and inserted.
bool isDraggable(const TreeNode& node);

/// A tree for Qt's views. The nodes stay in their tree: an index has a node's number.
class TreeModel : public QAbstractItemModel {
    Q_OBJECT
  public:
    using IconOf = std::function<QIcon(const QString& key)>;

    /// Returns the icon for the key that a node has as its Image; an empty key is that of a node without one.
    explicit TreeModel(IconOf iconOf, QObject* parent = nullptr);

    /// Shows all nodes of a tree, or none without a tree. A tree that is shown must not be changed.
    void setTree(std::shared_ptr<TreeView> tree);
    /// Shows other rows of the same tree.
    void setRows(std::shared_ptr<const TreeModelRows> rows);
    /// Returns the rows of the whole tree.
    [[nodiscard]] const std::shared_ptr<const TreeModelRows>& allRows() const { return allRows_; }
    [[nodiscard]] const std::shared_ptr<TreeView>& tree() const { return tree_; }

    /// Marks the nodes that have places in the document, by their Index.
    void setPlaced(std::unordered_set<int> nodes);

    /// Returns the node of an index; none for an invalid one.
    [[nodiscard]] const TreeNode* node(const QModelIndex& index) const;
    /// Returns the index of a node by its Index; invalid when it is not shown.
    [[nodiscard]] QModelIndex indexOf(int node) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    [[nodiscard]] QStringList mimeTypes() const override;
    /// Returns the data of a drag: an empty text, so that no other program can insert anything. None for a
    /// node that must not be dragged.
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    [[nodiscard]] Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

  private:
    IconOf iconOf_;
    std::shared_ptr<TreeView> tree_;
    std::shared_ptr<const TreeModelRows> allRows_;
    std::shared_ptr<const TreeModelRows> rows_;
    std::unordered_set<int> placed_;
};

}  // namespace mergeloom
