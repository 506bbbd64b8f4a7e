#include "ui/dialogs/QtFileDialog.h"

#include "ui/dialogs/DialogOwner.h"
#include "ui/dialogs/FileDialogRun.h"
#include "ui/services/GuiThread.h"

#include <QApplication>

namespace mergeloom {

std::uint32_t QtFileDialog::activeWindow() {
    std::uint32_t window = 0;
    callOnGuiThread([&] {
        const QWidget* active = QApplication::activeWindow();
        if (active != nullptr) window = static_cast<std::uint32_t>(active->winId());
    });
    return window;
}

bool QtFileDialog::show(FileDialogKind kind, OpenFileName& record, OpenFileTexts& texts) {
    bool chosen = false;
    callOnGuiThread([&] {
        QWidget* active = record.hwndOwner != 0 ? QWidget::find(record.hwndOwner) : nullptr;
        QWidget* owner = active != nullptr ? active : ownerOfDialog(owner_);
        chosen = FileDialogRun(owner, kind, record, texts).show();
    });
    return chosen;
}

}  // namespace mergeloom
