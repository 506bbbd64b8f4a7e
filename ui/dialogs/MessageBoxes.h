#pragma once

#include "base/Messages.h"

#include <QPointer>
#include <QWidget>

namespace mergeloom {

/// Messages as windows in front of the owner. May be called by any thread. The Return key gives the first
/// button, Escape and the window's close button give Cancel, without a Cancel No, and OK where that is all.
class MessageBoxes final : public Messages {
  public:
    explicit MessageBoxes(QWidget* owner) : owner_(owner) {}

    MessageAnswer show(const Message& message) override;

  private:
    QPointer<QWidget> owner_;
};

}  // namespace mergeloom
