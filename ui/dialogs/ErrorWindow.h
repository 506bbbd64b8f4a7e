#pragma once

#include "base/ErrorHandler.h"

#include <QDialog>
#include <QString>

namespace mergeloom {

/// The report of an error, its file and the address to which it is sent.
struct SavedReport {
    QString text;
    QString path;            ///< empty when it could not be kept
    QString supportAddress;  ///< empty for none
};

/// Shows an unexpected error with the known facts, and opens its report.
class ErrorWindow final : public QDialog {
    Q_OBJECT

  public:
    ErrorWindow(QWidget* parent, const ErrorReport& error, const SavedReport& report);

  private:
    [[nodiscard]] QLayout* makeMessage(const ErrorReport& error);
    [[nodiscard]] QLayout* makeDetails(const ErrorReport& error);
    [[nodiscard]] QWidget* makeButtons();
    void showReport();

    SavedReport report_;
};

/// Shows the text of a report, to be read before it is sent.
class ReportWindow final : public QDialog {
    Q_OBJECT

  public:
    ReportWindow(QWidget* parent, const SavedReport& report);

  private:
    [[nodiscard]] QWidget* makeText();
    [[nodiscard]] QWidget* makePlace();
    [[nodiscard]] QWidget* makeButtons();
    void writeMail();

    SavedReport report_;
};

}  // namespace mergeloom
