#include "ui/dialogs/DialogOwner.h"

#include <QApplication>

namespace mergeloom {

QWidget* ownerOfDialog(QWidget* owner) {
    if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
    return owner != nullptr ? owner : QApplication::activeWindow();
}

}  // namespace mergeloom
