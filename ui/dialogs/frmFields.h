#pragma once

#include "base/ErrorHandler.h"
#include "droppers/FieldSelection.h"

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <optional>

namespace mergeloom {

/// The window in which the user chooses the columns of a table and their order. May be called by any thread.
class frmFields final : public FieldDialog {
  public:
    frmFields(QWidget* owner, ErrorHandler& errors) : owner_(owner), errors_(errors) {}

    void Show(FieldSelection& fields) override;
    /// Sets the point of the screen that the window leaves visible from now on, or none. For the windows'
    /// thread.
    void keepVisible(std::optional<QPoint> place) { place_ = place; }

  private:
    QPointer<QWidget> owner_;
    ErrorHandler& errors_;
    std::optional<QPoint> place_;
};

}  // namespace mergeloom
