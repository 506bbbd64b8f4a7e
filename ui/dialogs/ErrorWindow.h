#pragma once

#include "base/ErrorHandler.h"

#include <QDialog>
#include <QString>

namespace mergeloom {

/// The report of an error, and where it lies and goes.
struct KeptReport {
    QString text;
    QString path;            ///< empty when it could not be kept
    QString supportAddress;  ///< empty for none
};

/// An unexpected error with what is known of it, and the way to its report.
class ErrorWindow final : public QDialog {
    Q_OBJECT

  public:
    ErrorWindow(QWidget* parent, const ErrorReport& error, const KeptReport& report);

  private:
    [[nodiscard]] QLayout* makeMessage(const ErrorReport& error);
    [[nodiscard]] QLayout* makeDetails(const ErrorReport& error);
    [[nodiscard]] QWidget* makeButtons();
    void showReport();

    KeptReport report_;
};

}  // namespace mergeloom
