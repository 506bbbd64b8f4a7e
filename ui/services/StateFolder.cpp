#include "ui/services/StateFolder.h"

#include "base/Paths.h"

#include <QDir>
#include <QFile>

namespace mergeloom {

std::string stateFolder() {
    const std::string configured = qEnvironmentVariable("XDG_STATE_HOME").toStdString();
    // The standard for these folders requires that a relative path is ignored.
    const bool usable = configured.starts_with('/');
    return joinPath(usable ? configured : QDir::homePath().toStdString() + "/.local/state", "mergeloom");
}

bool makePrivateFolder(const std::string& path) {
    if (folderExists(path)) return true;
    const QString folder = QString::fromStdString(path);
    if (!QDir().mkpath(folder)) return false;
    return QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

}  // namespace mergeloom
