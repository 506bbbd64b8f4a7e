#pragma once

#include <QWidget>

namespace mergeloom {

/// Returns the window in front of which a new dialog is shown: the dialog that is open now, else the owner,
/// else the window that the user works in; none without windows.
QWidget* ownerOfDialog(QWidget* owner);

}  // namespace mergeloom
