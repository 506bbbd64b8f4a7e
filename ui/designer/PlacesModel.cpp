#include "ui/designer/PlacesModel.h"

#include <QFontMetrics>
#include <algorithm>
#include <utility>

namespace mergeloom {

namespace {

/// The margin on each side of a picture and of a text.
constexpr int kMargin = 3;

bool isBefore(const PlaceEntry& one, const PlaceEntry& other) {
    return QString::localeAwareCompare(one.name, other.name) < 0;
}

}  // namespace

bool PlacesModel::setPlaces(QList<PlaceEntry> places) {
    std::ranges::sort(places, isBefore);
    if (places == places_) return false;
    beginResetModel();
    places_ = std::move(places);
    measure();
    endResetModel();
    return true;
}

void PlacesModel::setLook(const QPalette& palette, const QFont& font) {
    beginResetModel();
    icons_.setPalette(palette);
    font_ = font;
    measure();
    endResetModel();
}

/// Measures the names with the most letters alone. One that is wider is shown shortened.
void PlacesModel::measure() {
    const QFontMetrics metrics(font_);
    qsizetype longest = 0;
    int width = 0;
    for (const PlaceEntry& place : places_) {
        if (place.name.size() < longest) continue;
        longest = place.name.size();
        width = std::max(width, metrics.horizontalAdvance(place.name));
    }
    rowSize_ = {kIconSide + width + 4 * kMargin, std::max(kIconSide, metrics.height()) + 1};
}

int PlacesModel::rowOf(const QString& name) const {
    const auto found = std::ranges::find(places_, name, &PlaceEntry::name);
    return found == places_.end() ? -1 : static_cast<int>(found - places_.begin());
}

int PlacesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(places_.size());
}

QVariant PlacesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const PlaceEntry& place = places_[index.row()];
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return place.name;
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return place.source;
        case Qt::DecorationRole:
            return place.iconKey.isEmpty() ? QVariant() : QVariant(icons_.icon(place.iconKey));
        case Qt::SizeHintRole:
            return rowSize_;
        default:
            return {};
    }
}

bool PlacesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole) return false;
    const QString name = nameAt(index.row());
    const QString newName = value.toString().trimmed();
    if (newName.isEmpty() || newName == name) return false;
    Q_EMIT renameRequested(name, newName);
    return true;
}

Qt::ItemFlags PlacesModel::flags(const QModelIndex& index) const {
    return QAbstractListModel::flags(index) | Qt::ItemIsEditable;
}

}  // namespace mergeloom
