#pragma once

#include "ui/dialogs/ErrorWindow.h"

#include <QDialog>

namespace mergeloom {

/// Shows the text of a report, to be read before it is sent.
class ReportWindow final : public QDialog {
    Q_OBJECT

  public:
    ReportWindow(QWidget* parent, const KeptReport& report);

  private:
    [[nodiscard]] QWidget* makeText();
    [[nodiscard]] QWidget* makePlace();
    [[nodiscard]] QWidget* makeButtons();
    void writeMail();

    KeptReport report_;
};

}  // namespace mergeloom
