#pragma once

#include "ui/designer/TreeIcons.h"

#include <QStringList>
#include <QWidget>

class QLabel;
class QListWidget;
class QListWidgetItem;

namespace mergeloom {

/// The list of the document's places under the tree. It is hidden while there are none.
class PlacesPane final : public QWidget {
    Q_OBJECT

  public:
    explicit PlacesPane(QWidget* parent);

    /// A place, the name of its source and the key of the source's picture. They are empty if the source is
    /// unknown.
    struct Entry {
        QString name;
        QString source{};
        QString iconKey{};

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    /// Shows the places in the order of their names; the current one stays current.
    void show(QList<Entry> places);
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
    void showIcon(QListWidgetItem& item, const QString& key);
    void goToCurrent();
    void editCurrent();
    void removeCurrent();
    void takeEdit(QListWidgetItem& item);
    [[nodiscard]] QString currentName() const;

    QLabel* heading_;
    QListWidget* list_;
    QList<Entry> places_;
    TreeIcons icons_;
};

}  // namespace mergeloom
