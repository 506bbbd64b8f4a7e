#pragma once

#include "base/ErrorHandler.h"
#include "droppers/FieldSelection.h"

#include <QPointer>
#include <QWidget>

namespace mergeloom {

/// The window in which the user chooses the columns of a table and their order. May be called by any thread.
class frmFields final : public FieldDialog {
  public:
    frmFields(QWidget* owner, ErrorHandler& errors) : owner_(owner), errors_(errors) {}

    void Show(FieldSelection& fields) override;

  private:
    QPointer<QWidget> owner_;
    ErrorHandler& errors_;
};

}  // namespace mergeloom
