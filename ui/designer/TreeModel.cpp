#include "ui/designer/TreeModel.h"

#include "base/Text.h"
#include "ui/designer/TreeIcons.h"

#include <QCoreApplication>
#include <QFont>
#include <QMimeData>
#include <QStringList>
#include <numeric>
#include <utility>

namespace mergeloom {

namespace {

constexpr int kNotShown = -1;

/// Returns what marks a node that has a place in the document.
QVariant markOf(int role) {
    if (role == Qt::FontRole) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    const bool tells = role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole;
    return tells ? QCoreApplication::translate("TreeModel", "It has a place in the document.") : QVariant();
}

int nodeNumber(const QModelIndex& index) {
    return static_cast<int>(index.internalId());
}

}  // namespace

std::vector<int> TreeModelRows::parentsIn(TreeView& tree) {
    std::vector<int> parents{0};
    parents.reserve(static_cast<std::size_t>(tree.Count()) + 1);
    for (int node = 1; node <= tree.Count(); ++node) {
        const TreeNode* const parent = tree.Item(node)->Parent();
        parents.push_back(parent != nullptr ? parent->Index() : 0);
    }
    return parents;
}

TreeModelRows::TreeModelRows(TreeView& tree)
    : TreeModelRows(parentsIn(tree), std::vector<char>(static_cast<std::size_t>(tree.Count()) + 1, 1)) {}

// Nodes are numbered in the order in which they were added: a parent before its children, children in their
// order.
TreeModelRows::TreeModelRows(const std::vector<int>& parents, const std::vector<char>& shown)
    : firstChild_(parents.size() + 1), rows_(parents.size(), kNotShown) {
    // Count the children of each node in the place after its own; the sums over the counts are the beginnings
    // of the next node's.
    rows_[0] = 0;
    for (std::size_t node = 1; node < parents.size(); ++node) {
        const auto parent = static_cast<std::size_t>(parents[node]);
        if (shown[node] != 0 && rows_[parent] != kNotShown) rows_[node] = firstChild_[parent + 1]++;
    }
    rows_[0] = kNotShown;
    std::partial_sum(firstChild_.begin(), firstChild_.end(), firstChild_.begin());
    children_.resize(static_cast<std::size_t>(firstChild_.back()));
    for (std::size_t node = 1; node < parents.size(); ++node) {
        if (rows_[node] == kNotShown) continue;
        const int place = firstChild_[static_cast<std::size_t>(parents[node])] + rows_[node];
        children_[static_cast<std::size_t>(place)] = static_cast<int>(node);
    }
}

int TreeModelRows::childCount(int node) const {
    const auto at = static_cast<std::size_t>(node);
    return firstChild_[at + 1] - firstChild_[at];
}

int TreeModelRows::child(int parent, int row) const {
    const int place = firstChild_[static_cast<std::size_t>(parent)] + row;
    return children_[static_cast<std::size_t>(place)];
}

int TreeModelRows::row(int node) const {
    return rows_[static_cast<std::size_t>(node)];
}

bool isDraggable(const TreeNode& node) {
    return !equalsIgnoringAsciiCase(node.Tag(), kNoDragTag);
}

TreeModel::TreeModel(IconOf iconOf, QObject* parent)
    : QAbstractItemModel(parent),
      iconOf_(std::move(iconOf)),
      allRows_(std::make_shared<TreeModelRows>()),
      rows_(allRows_) {}

void TreeModel::setTree(std::shared_ptr<TreeView> tree) {
    beginResetModel();
    tree_ = std::move(tree);
    placed_.clear();
    allRows_ = tree_ ? std::make_shared<TreeModelRows>(*tree_) : std::make_shared<TreeModelRows>();
    rows_ = allRows_;
    endResetModel();
}

void TreeModel::setRows(std::shared_ptr<const TreeModelRows> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

const TreeNode* TreeModel::node(const QModelIndex& index) const {
    return index.isValid() ? tree_->Item(nodeNumber(index)) : nullptr;
}

QModelIndex TreeModel::indexOf(int node) const {
    const int row = rows_->row(node);
    return row < 0 ? QModelIndex() : createIndex(row, 0, static_cast<quintptr>(node));
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (column != 0 || row < 0 || row >= rowCount(parent)) return {};
    // An invalid index has the number 0, which represents the parent of the top level.
    return createIndex(row, 0, static_cast<quintptr>(rows_->child(nodeNumber(parent), row)));
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
    const TreeNode* const parent = child.isValid() ? node(child)->Parent() : nullptr;
    return parent != nullptr ? indexOf(parent->Index()) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : rows_->childCount(nodeNumber(parent));
}

int TreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

bool TreeModel::hasChildren(const QModelIndex& parent) const {
    return rowCount(parent) > 0;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    const TreeNode* const shown = node(index);
    if (shown == nullptr) return {};
    if (role == Qt::DisplayRole) return QString::fromStdString(shown->Text());
    if (role == Qt::DecorationRole) return iconOf_(iconKeyOf(*shown));
    return placed_.contains(shown->Index()) ? markOf(role) : QVariant();
}

void TreeModel::setPlaced(std::unordered_set<int> nodes) {
    placed_ = std::move(nodes);
    if (const int rows = rowCount(); rows > 0) Q_EMIT dataChanged(index(0, 0), index(rows - 1, 0));
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    // A drag begins on every node; its data decides whether it continues.
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
    // Views ask for the flags of every node; this one spares them further calls.
    flags.setFlag(Qt::ItemNeverHasChildren, !hasChildren(index));
    return flags;
}

QStringList TreeModel::mimeTypes() const {
    return {QStringLiteral("text/plain")};
}

QMimeData* TreeModel::mimeData(const QModelIndexList& indexes) const {
    const TreeNode* const dragged = node(indexes.value(0));
    if (dragged == nullptr || !isDraggable(*dragged)) return nullptr;
    auto* const data = new QMimeData;
    data->setText(QStringLiteral(""));
    return data;
}

}  // namespace mergeloom
