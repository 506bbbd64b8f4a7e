#include "ui/dialogs/FieldListModel.h"

#include "base/Trap.h"

namespace mergeloom {

int FieldListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : fields_.ListCount();
}

QVariant FieldListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const FieldSelection::Item& item = fields_.items().at(static_cast<std::size_t>(index.row()));
    // The list may be too narrow for a long name.
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return QString::fromStdString(item.text);
    if (role == Qt::CheckStateRole) return item.selected ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool FieldListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole) return false;
    fields_.SetSelected(index.row(), value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

Qt::ItemFlags FieldListModel::flags(const QModelIndex& index) const {
    // A row accepts no drop itself, so dragged rows fall between two rows.
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

bool FieldListModel::moveRows(const QModelIndex& sourceParent, int source, int count,
                              const QModelIndex& destinationParent, int destination) {
    const bool isOneRow = count == 1 && source >= 0 && source < fields_.ListCount();
    // A view counts rows as before the move: a row that is dropped after itself stays.
    const int target = destination > source ? destination - 1 : destination;
    if (!isOneRow || fields_.SelCount() == 0 || target == source) return false;
    if (!beginMoveRows(sourceParent, source, source, destinationParent, destination)) return false;
    fields_.SetListIndex(source);
    for (int steps = std::abs(target - source); steps > 0; --steps)
        MoveListItem(target < source);
    endMoveRows();
    return true;
}

void FieldListModel::moveCurrent(bool up) {
    const int row = fields_.ListIndex();
    const bool staysInside = up ? row > 0 : row >= 0 && row + 1 < fields_.ListCount();
    if (staysInside) moveRows({}, row, 1, {}, up ? row - 1 : row + 2);
}

void FieldListModel::selectAll(bool selected) {
    fields_.SelectAll(selected);
    if (fields_.ListCount() > 0) Q_EMIT dataChanged(index(0), index(fields_.ListCount() - 1));
}

void FieldListModel::MoveListItem(bool up) {
    trap(errors_, "frmFields", "MoveListItem", [&] { fields_.MoveListItem(up); });
}

}  // namespace mergeloom
