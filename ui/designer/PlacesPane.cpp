#include "ui/designer/PlacesPane.h"

#include <QAction>
#include <QEvent>
#include <QKeySequence>
#include <QLabel>
#include <QListView>
#include <QVBoxLayout>
#include <algorithm>

namespace mergeloom {

PlacesPane::PlacesPane(QWidget* parent)
    : QWidget(parent),
      heading_(new QLabel(this)),
      places_(new PlacesModel(palette(), this)),
      list_(new QListView(this)) {
    list_->setModel(places_);
    list_->setUniformItemSizes(true);
    list_->setIconSize(PlacesModel::iconSize());
    list_->setObjectName(QStringLiteral("lstPlaces"));
    list_->setAccessibleName(tr("Places of the document"));
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setContextMenuPolicy(Qt::ActionsContextMenu);
    heading_->setBuddy(list_);
    connect(list_, &QListView::activated, this, &PlacesPane::goToCurrent);
    // The editor is closed before the document is renamed.
    connect(places_, &PlacesModel::renameRequested, this, &PlacesPane::renameRequested, Qt::QueuedConnection);
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

void PlacesPane::show(QList<PlaceEntry> places) {
    const QString current = currentName();
    const int row = list_->currentIndex().row();
    if (!places_->setPlaces(std::move(places))) return;
    const int same = places_->rowOf(current);
    // After a removal, the next one takes the place of the current one.
    setCurrentRow(same >= 0 ? same : std::min(row, places_->rowCount() - 1));
    heading_->setText(tr("&Places: %1").arg(places_->rowCount()));
    setVisible(places_->rowCount() > 0);
}

void PlacesPane::setCurrentRow(int row) {
    list_->setCurrentIndex(places_->index(row));
}

void PlacesPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
    const int row = list_->currentIndex().row();
    places_->setLook(palette(), list_->font());
    setCurrentRow(row);
}

QWidget& PlacesPane::list() {
    return *list_;
}

QString PlacesPane::currentName() const {
    return places_->nameAt(list_->currentIndex().row());
}

void PlacesPane::goToCurrent() {
    if (!currentName().isEmpty()) Q_EMIT goToRequested(currentName());
}

void PlacesPane::editCurrent() {
    if (list_->currentIndex().isValid()) list_->edit(list_->currentIndex());
}

void PlacesPane::removeCurrent() {
    if (!currentName().isEmpty()) Q_EMIT removeRequested(currentName());
}

}  // namespace mergeloom
