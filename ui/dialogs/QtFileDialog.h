#pragma once

#include "ui/dialogs/FileDialog.h"

#include <QPointer>
#include <QWidget>

namespace mergeloom {

/// Shows the desktop's file dialog, or the toolkit's own when the desktop has none. May be called by any
/// thread. It honours the flags for several files, for overwriting and for files and folders that must exist.
/// The process's current folder never changes.
class QtFileDialog final : public FileDialog {
  public:
    explicit QtFileDialog(QWidget* owner) : owner_(owner) {}

    std::uint32_t activeWindow() override;
    bool show(FileDialogKind kind, OpenFileName& record, OpenFileTexts& texts) override;

  private:
    QPointer<QWidget> owner_;
};

}  // namespace mergeloom
