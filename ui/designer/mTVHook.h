#pragma once

class QWidget;

/// Watches the tree during a drag: in Word mode a drop counts only when the tree lost the keyboard meanwhile.
/// For the GUI's thread.
namespace mergeloom {

/// True when the tree has lost the focus during the current drag.
extern bool gTreeLostFocus;

/// From now on a loss of the focus sets the flag. Does nothing while a tree is hooked already.
void HookTreeView(QWidget& tree);
/// Ends that, if the tree was hooked, and in every case sets the flag to false.
void UnhookTreeView(QWidget& tree);

}  // namespace mergeloom
