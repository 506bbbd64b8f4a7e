#pragma once

#include "base/Messages.h"

#include <QPointer>
#include <QWidget>

namespace mergeloom {

/// Shows messages as windows in front of the owner. May be called by any thread. The Return key gives the
/// first button, Escape and the window's close button give Cancel, without a Cancel No, and OK when it is the
/// only one.
class MessageBoxes final : public Messages {
  public:
    explicit MessageBoxes(QWidget* owner) : owner_(owner) {}

    MessageAnswer show(const Message& message) override;

  private:
    QPointer<QWidget> owner_;
};

}  // namespace mergeloom
