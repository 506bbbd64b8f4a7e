#include "ui/services/ProblemReport.h"

#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "base/Text.h"
#include "ui/services/StateFolder.h"

#include <QByteArray>
#include <QDateTime>
#include <QDir>
#include <QLocale>
#include <QSysInfo>
#include <QUrl>
#include <cctype>
#include <utility>

namespace mergeloom {

namespace {

constexpr ErrorNumber kFirstAutomationNumber = 0x80000000;

bool endsFolderName(char next) {
    return static_cast<unsigned char>(next) < 0x80 && std::isalnum(static_cast<unsigned char>(next)) == 0 &&
           next != '-' && next != '_';
}

/// A folder "/home/ann" is not the start of "/home/anna".
std::string withoutFolder(const std::string& text, const std::string& folder) {
    std::string result;
    std::size_t done = 0;
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, done)) {
        const std::size_t end = at + folder.size();
        const bool isWhole = end == text.size() || endsFolderName(text[end]);
        result += text.substr(done, at - done) + (isWhole ? "~" : folder);
        done = end;
    }
    return result + text.substr(done);
}

std::string line(const std::string& name, const std::string& value) {
    const std::string text = replaceAll(value, "\r", "");
    return name + ": " + (text.empty() ? "unknown" : replaceAll(text, "\n", "\n  ")) + "\n";
}

constexpr int kMaxReports = 20;

/// Returns a path that no file has yet. "_" sorts after ".", so a second report in the same millisecond sorts
/// as newer than the first.
std::string freePath(const std::string& folder) {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const std::string stem = "problem-" + now.toString(QStringLiteral("yyyyMMdd-HHmmss-zzz")).toStdString();
    std::string path = joinPath(folder, stem + ".txt");
    for (int number = 2; fileExists(path); ++number)
        path = joinPath(folder, stem + "_" + std::to_string(number) + ".txt");
    return path;
}

/// Removes the oldest reports. The names begin with the time, so their order is that of the time.
void removeOldest(const std::string& folder) {
    QDir reports(QString::fromStdString(folder), QStringLiteral("problem-*.txt"), QDir::Name, QDir::Files);
    QStringList names = reports.entryList();
    while (names.size() > kMaxReports)
        reports.remove(names.takeFirst());
}

}  // namespace

ProblemCircumstances currentCircumstances() {
    const QStringList system = {QSysInfo::prettyProductName(),
                                QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion(),
                                QSysInfo::currentCpuArchitecture()};
    const QDir home = QDir::home();
    return {.time = QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toStdString(),
            .programVersion = "Mergeloom " MERGELOOM_VERSION,
            .qtVersion = qVersion(),
            .officeBuild = {},
            .system = system.join(QStringLiteral(", ")).toStdString(),
            .locale = QLocale::system().name().toStdString(),
            .homeFolders = {home.path().toStdString(), home.canonicalPath().toStdString()}};
}

std::string problemReportText(const ErrorReport& error, const ProblemCircumstances& circumstances) {
    std::string text = line("Time", circumstances.time) + line("Program", circumstances.programVersion) +
                       line("Qt", circumstances.qtVersion) + line("Office", circumstances.officeBuild) +
                       line("System", circumstances.system) + line("Locale", circumstances.locale) +
                       line("Error number", shownErrorNumber(error.number)) +
                       line("Description", error.description) + line("Module", error.module) +
                       line("Procedure", error.procedure) + line("Place", error.place);
    if (!error.comment.empty()) text += line("Comment", error.comment);
    for (const std::string& folder : circumstances.homeFolders)
        if (folder.size() > 1) text = withoutFolder(text, folder);
    return text;
}

std::string shownErrorNumber(ErrorNumber number) {
    if (number < kFirstAutomationNumber) return std::to_string(number);
    return "0x" + QByteArray::number(number, 16).toUpper().toStdString();
}

std::string builtInSupportAddress() {
    return MERGELOOM_SUPPORT_ADDRESS;
}

std::string problemMailLink(const std::string& address, const std::string& text) {
    // A mail's lines end in CR LF.
    const QByteArray body = QByteArray::fromStdString(replaceAll(text, "\n", "\r\n"));
    const QByteArray to = QUrl::toPercentEncoding(QString::fromStdString(address), "@");
    const QByteArray subject = QUrl::toPercentEncoding(QStringLiteral("Mergeloom problem report"));
    return ("mailto:" + to + "?subject=" + subject + "&body=" + body.toPercentEncoding()).toStdString();
}

std::string saveProblemReport(const std::string& text, const std::string& folder) {
    std::string path = freePath(folder);
    if (!makePrivateFolder(folder)) raiseNotSaved(path, "its folder could not be created");
    DiskFileStore().save(path, [&](ByteSink& file) { file.write(text); });
    removeOldest(folder);
    return path;
}

}  // namespace mergeloom
