#pragma once

#include <QWidget>

namespace mergeloom {

/// The window that a new dialog belongs in front of: the dialog that is open now, else the owner, else the
/// window that the user works in; none without windows.
QWidget* ownerOfDialog(QWidget* owner);

}  // namespace mergeloom
