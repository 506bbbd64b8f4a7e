#include "ui/dialogs/ErrorDialog.h"

#include "ui/dialogs/DialogOwner.h"
#include "ui/dialogs/ErrorWindow.h"
#include "ui/services/GuiThread.h"
#include "ui/services/ProblemReport.h"
#include "ui/services/StateFolder.h"

#include <exception>

namespace mergeloom {

namespace {

/// Keeps the report and returns its path. An error while keeping it must not hide the error itself.
QString keep(const std::string& text, const std::string& folder) {
    try {
        return QString::fromStdString(saveProblemReport(text, folder));
    } catch (const std::exception&) {
        return {};
    }
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
    const std::string text = reportText(report);
    const QString path = keep(text, settings_.reportFolder);
    callOnGuiThread([&] {
        const SavedReport kept{.text = QString::fromStdString(text),
                               .path = path,
                               .supportAddress = QString::fromStdString(settings_.supportAddress)};
        ErrorWindow(ownerOfDialog(owner_), report, kept).exec();
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
