#include "ui/designer/PlacesPane.h"

#include <QAction>
#include <QEvent>
#include <QKeySequence>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

namespace mergeloom {

PlacesPane::PlacesPane(QWidget* parent)
    : QWidget(parent), heading_(new QLabel(this)), list_(new QListWidget(this)), icons_(palette()) {
    list_->setObjectName(QStringLiteral("lstPlaces"));
    list_->setAccessibleName(tr("Places of the document"));
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setContextMenuPolicy(Qt::ActionsContextMenu);
    heading_->setBuddy(list_);
    connect(list_, &QListWidget::itemActivated, this, &PlacesPane::goToCurrent);
    connect(list_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) { takeEdit(*item); });
    addAction(tr("&Go to"), {}, &PlacesPane::goToCurrent);
    addAction(tr("Re&name"), QKeySequence(Qt::Key_F2), &PlacesPane::editCurrent);
    addAction(tr("&Remove"), QKeySequence(Qt::Key_Delete), &PlacesPane::removeCurrent);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(heading_);
    rows->addWidget(list_, 1);
    hide();
}

void PlacesPane::addAction(const QString& text, const QKeySequence& key, void (PlacesPane::*action)()) {
    auto* const added = new QAction(text, list_);
    added->setShortcut(key);
    added->setShortcutContext(Qt::WidgetShortcut);
    added->setShortcutVisibleInContextMenu(true);
    connect(added, &QAction::triggered, this, action);
    list_->addAction(added);
}

void PlacesPane::show(QList<Entry> places) {
    std::ranges::sort(places, [](const Entry& a, const Entry& b) {
        return QString::localeAwareCompare(a.name, b.name) < 0;
    });
    if (places == places_) return;
    const QString current = currentName();
    const int row = list_->currentRow();
    places_ = std::move(places);
    const QSignalBlocker quiet(list_);
    list_->clear();
    for (const Entry& place : places_) {
        auto* const item = new QListWidgetItem(place.name, list_);
        item->setToolTip(place.source);
        item->setData(Qt::AccessibleDescriptionRole, place.source);
        showIcon(*item, place.iconKey);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    const QList<QListWidgetItem*> same = list_->findItems(current, Qt::MatchExactly);
    // After a removal, the next one takes the place of the current one.
    const int next = std::min(row, list_->count() - 1);
    list_->setCurrentRow(same.isEmpty() ? next : list_->row(same.first()));
    heading_->setText(tr("&Places: %1").arg(places_.size()));
    setVisible(!places_.isEmpty());
}

void PlacesPane::showIcon(QListWidgetItem& item, const QString& key) {
    if (!key.isEmpty()) item.setIcon(icons_.icon(key));
}

void PlacesPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    icons_.setPalette(palette());
    const QSignalBlocker quiet(list_);
    for (int row = 0; row < list_->count(); ++row)
        showIcon(*list_->item(row), places_[row].iconKey);
}

QWidget& PlacesPane::list() {
    return *list_;
}

QString PlacesPane::currentName() const {
    return places_.value(list_->currentRow()).name;
}

void PlacesPane::goToCurrent() {
    if (!currentName().isEmpty()) Q_EMIT goToRequested(currentName());
}

void PlacesPane::editCurrent() {
    if (list_->currentItem() != nullptr) list_->editItem(list_->currentItem());
}

void PlacesPane::removeCurrent() {
    if (!currentName().isEmpty()) Q_EMIT removeRequested(currentName());
}

/// Keeps the former name in the list until the document has the new one.
void PlacesPane::takeEdit(QListWidgetItem& item) {
    const QString name = places_.value(list_->row(&item)).name;
    const QString newName = item.text().trimmed();
    {
        const QSignalBlocker quiet(list_);
        item.setText(name);
    }
    if (newName.isEmpty() || newName == name) return;
    // The editor is closed first.
    QMetaObject::invokeMethod(
        this, [this, name, newName] { Q_EMIT renameRequested(name, newName); }, Qt::QueuedConnection);
}

}  // namespace mergeloom
