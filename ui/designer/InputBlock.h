#pragma once

#include <QObject>

namespace mergeloom {

/// Keeps keys, clicks and drags from the windows for as long as it lives. Windows that ask the user something
/// meanwhile, modal ones, take them all the same.
class InputBlock final : public QObject {
    Q_OBJECT

  public:
    InputBlock();

    bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace mergeloom
