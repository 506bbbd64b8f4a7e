#pragma once

#include "ui/designer/TreeModelRows.h"
#include "xml/TreeView.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QString>
#include <functional>
#include <memory>

namespace mergeloom {

/// The tag of a node that cannot be dragged, compared without regard to case.
inline constexpr const char* kNoDragTag = "NoDrag";

/// Returns whether a node may be dragged and inserted.
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
};

}  // namespace mergeloom
