#pragma once

#include "ui/dialogs/PasswordDialog.h"

#include <QPointer>
#include <QWidget>

namespace mergeloom {

/// Asks for passwords in a modal window of the owner, which hides their letters. May be called by any thread.
class QtPasswordDialog final : public PasswordDialog {
  public:
    explicit QtPasswordDialog(QWidget* owner) : owner_(owner) {}

    std::optional<std::string> ask(const std::string& path, PasswordAttempt attempt) override;

  private:
    QPointer<QWidget> owner_;
};

}  // namespace mergeloom
