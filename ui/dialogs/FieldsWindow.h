#pragma once

#include "base/ErrorHandler.h"
#include "droppers/FieldSelection.h"

#include <QAbstractListModel>
#include <QDialog>
#include <QListView>
#include <QPushButton>

namespace mergeloom {

/// The fields as rows with a check mark each, which can be dragged to another place. The order changes only
/// by the rules of the selection.
class FieldListModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    FieldListModel(FieldSelection& fields, ErrorHandler& errors) : fields_(fields), errors_(errors) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    bool moveRows(const QModelIndex& sourceParent, int source, int count,
                  const QModelIndex& destinationParent, int destination) override;
    /// Moves the dropped rows; nothing is accepted from elsewhere.
    bool dropMimeData(const QMimeData*, Qt::DropAction, int, int, const QModelIndex&) override {
        return false;
    }

    /// Moves the current field one place up or down.
    void moveCurrent(bool up);
    void selectAll(bool selected);

  private:
    void MoveListItem(bool up);

    FieldSelection& fields_;
    ErrorHandler& errors_;
};

/// Shows the list of fields. It decides nothing: the selection has the rules.
class FieldsWindow final : public QDialog {
    Q_OBJECT

  public:
    FieldsWindow(QWidget* parent, FieldSelection& fields, ErrorHandler& errors);

    /// Places the window so that it does not cover a point of the screen, if there is room beside it.
    void keepVisible(const QPoint& place);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct PlacedButton {
        QPushButton* button;
        QRect place;  ///< in twips
    };

    void setUpList();
    void setUpButtons();
    QPushButton* addButton(const char* name, const QString& caption, const QRect& place);
    /// Returns the resolution at which the captions fit into the buttons: the screen's, or more for larger
    /// writing.
    [[nodiscard]] QSizeF dotsPerInch() const;
    [[nodiscard]] QRect pixels(const QRect& twips) const;
    void insert();
    void btnUp_Click();
    void btnDown_Click();
    void btnSelect_Click();
    void btnUnSelect_Click();
    void showCurrent();

    FieldSelection& fields_;
    ErrorHandler& errors_;
    FieldListModel model_;
    QListView* lstFields_;
    QList<PlacedButton> buttons_;
};

}  // namespace mergeloom
