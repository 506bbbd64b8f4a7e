#pragma once

#include <QObject>

namespace mergeloom {

/// Keeps keys, clicks and drags from the windows during its life. Modal windows that ask the user something
/// meanwhile still receive them.
class InputBlock final : public QObject {
    Q_OBJECT

  public:
    InputBlock();

    bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace mergeloom
