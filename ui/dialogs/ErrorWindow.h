#pragma once

#include "base/ErrorHandler.h"

#include <QDialog>
#include <QString>
#include <functional>
#include <optional>

namespace mergeloom {

/// The report of an error. It is saved only on request.
struct ProblemReportDraft {
    QString text;
    std::function<QString()> save;  ///< returns the path; empty when it could not be saved
    QString supportAddress;         ///< empty if the user enters one in the mail program
};

/// Shows an unexpected error with the known facts, and opens its report.
class ErrorWindow final : public QDialog {
    Q_OBJECT

  public:
    ErrorWindow(QWidget* parent, const ErrorReport& error, ProblemReportDraft report);

  private:
    [[nodiscard]] QLayout* makeMessage(const ErrorReport& error);
    [[nodiscard]] QLayout* makeDetails(const ErrorReport& error);
    [[nodiscard]] QWidget* makeButtons();
    void showReport();

    ProblemReportDraft report_;
    std::optional<QString> path_;  ///< of the saved report
};

/// Shows the text of a report, to be read before it is sent.
class ReportWindow final : public QDialog {
    Q_OBJECT

  public:
    ReportWindow(QWidget* parent, const ProblemReportDraft& report, QString path);

  private:
    [[nodiscard]] QWidget* makeText();
    [[nodiscard]] QWidget* makePlace();
    [[nodiscard]] QWidget* makeButtons();
    void writeMail();

    ProblemReportDraft report_;
    QString path_;
};

}  // namespace mergeloom
