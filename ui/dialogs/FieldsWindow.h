#pragma once

#include "ui/dialogs/FieldListModel.h"

#include <QDialog>
#include <QListView>
#include <QPushButton>

namespace mergeloom {

/// Shows the list of fields. It decides nothing: the selection has the rules.
class FieldsWindow final : public QDialog {
    Q_OBJECT

  public:
    FieldsWindow(QWidget* parent, FieldSelection& fields, ErrorHandler& errors);

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
