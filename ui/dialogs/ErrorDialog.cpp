#include "ui/dialogs/ErrorDialog.h"

#include "ui/dialogs/DialogOwner.h"
#include "ui/dialogs/ErrorWindow.h"
#include "ui/services/GuiThread.h"
#include "ui/services/ProblemReport.h"
#include "ui/services/StateFolder.h"

#include <QMessageBox>
#include <exception>

namespace mergeloom {

namespace {

/// Saves the report and returns its path. An error while saving it must not hide the error itself.
QString save(const std::string& text, const std::string& folder) {
    try {
        return QString::fromStdString(saveProblemReport(text, folder));
    } catch (const std::exception&) {
        return {};
    }
}

/// Returns true for errors that a user can correct, such as a file, its format or protection, or content that
/// a workbook refuses. Their description is sufficient.
bool isForUsers(ErrorNumber number) {
    return number == kFileCouldNotBeRead || number == kFileCouldNotBeSaved || number == kNotAvailable ||
           number == kApplicationDefined;
}

std::string logLine(const ErrorReport& report) {
    const std::string comment = report.comment.empty() ? "" : " (" + report.comment + ")";
    return "Error " + shownErrorNumber(report.number) + " in " + shownProcedure(report) + ": " +
           report.description + comment;
}

}  // namespace

std::string ErrorDialogSettings::addressOfBuild() {
    return builtInSupportAddress();
}

std::string ErrorDialogSettings::folderOfUser() {
    return stateFolder();
}

void ErrorDialog::report(const ErrorReport& report) {
    settings_.log(logLine(report));
    isForUsers(report.number) ? showMessage(report) : showUnexpected(report);
}

void ErrorDialog::showMessage(const ErrorReport& report) {
    callOnGuiThread([&] {
        QMessageBox box(QMessageBox::Warning, QStringLiteral("Mergeloom"),
                        QString::fromStdString(report.description), QMessageBox::Ok, ownerOfDialog(owner_));
        box.setTextFormat(Qt::PlainText);
        box.exec();
    });
}

/// Collects the circumstances at once, although the report is saved later or not at all.
void ErrorDialog::showUnexpected(const ErrorReport& report) {
    const std::string text = reportText(report);
    callOnGuiThread([&] {
        const ProblemReportDraft draft{.text = QString::fromStdString(text),
                                       .save = [&] { return save(text, settings_.reportFolder); },
                                       .supportAddress = QString::fromStdString(settings_.supportAddress)};
        ErrorWindow(ownerOfDialog(owner_), report, draft).exec();
    });
}

std::string ErrorDialog::reportText(const ErrorReport& report) const {
    ProblemCircumstances circumstances = currentCircumstances();
    try {
        circumstances.officeBuild = settings_.officeBuild();
    } catch (const std::exception&) {
        // An office that has ended cannot name its build.
        circumstances.officeBuild.clear();
    }
    return problemReportText(report, circumstances);
}

}  // namespace mergeloom
