#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "ui/services/ProblemReport.h"
#include "ui/services/StateFolder.h"

#include <QDateTime>
#include <QDir>

namespace mergeloom {

namespace {

constexpr int kMaxReports = 20;

std::string freePath(const std::string& folder) {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const std::string stem = "problem-" + now.toString(QStringLiteral("yyyyMMdd-HHmmss-zzz")).toStdString();
    std::string path = joinPath(folder, stem + ".txt");
    for (int number = 2; fileExists(path); ++number)
        path = joinPath(folder, stem + "-" + std::to_string(number) + ".txt");
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

std::string saveProblemReport(const std::string& text, const std::string& folder) {
    std::string path = freePath(folder);
    if (!makePrivateFolder(folder)) raiseNotSaved(path, "its folder could not be created");
    DiskFileStore().save(path, [&](ByteSink& file) { file.write(text); });
    removeOldest(folder);
    return path;
}

}  // namespace mergeloom
