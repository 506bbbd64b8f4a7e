#pragma once

#include "ui/designer/PlacesModel.h"

#include <QWidget>

class QLabel;
class QListView;

namespace mergeloom {

/// The list of the document's places under the tree. It is hidden while there are none.
class PlacesPane final : public QWidget {
    Q_OBJECT

  public:
    explicit PlacesPane(QWidget* parent);

    /// Shows the places in the order of their names; the current one stays current.
    void show(QList<PlaceEntry> places);
    using QWidget::show;
    [[nodiscard]] QWidget& list();

  protected:
    void changeEvent(QEvent* event) override;

  Q_SIGNALS:
    void goToRequested(const QString& name);
    void renameRequested(const QString& name, const QString& newName);
    void removeRequested(const QString& name);

  private:
    void addAction(const QString& text, const QKeySequence& key, void (PlacesPane::*action)());
    void setCurrentRow(int row);
    void goToCurrent();
    void editCurrent();
    void removeCurrent();
    [[nodiscard]] QString currentName() const;

    QLabel* heading_;
    PlacesModel* places_;
    QListView* list_;
};

}  // namespace mergeloom
