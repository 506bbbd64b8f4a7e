#pragma once

#include "ui/dialogs/FieldListModel.h"

#include <QDialog>
#include <QListView>
#include <QPushButton>

namespace mergeloom {

/// The window over the list of fields. It decides nothing: the selection has the rules.
class FieldsWindow final : public QDialog {
    Q_OBJECT

  public:
    FieldsWindow(QWidget* parent, FieldSelection& fields, ErrorHandler& errors);

  private:
    void setUpList();
    void setUpButtons();
    void setUpLayout();
    QPushButton* addButton(const char* name, const QString& caption, const QString& accessibleName);
    void insert();
    void showCurrent();

    FieldSelection& fields_;
    ErrorHandler& errors_;
    FieldListModel model_;
    QListView* lstFields_;
    QList<QPushButton*> buttons_;
};

}  // namespace mergeloom
