#include "ui/services/DiskFileSystem.h"

#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "ui/services/StateFolder.h"

#include <unistd.h>

#include <QFile>
#include <QStandardPaths>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace mergeloom {

namespace {

std::string folderOf(const std::string& path) {
    return parentFolder(fullPath(path));
}

[[noreturn]] void raiseNotMoved(const std::string& from, const std::string& to, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeSaved,
                          "The file '" + from + "' could not be moved to '" + to + "': " + reason + ".");
}

/// Returns a sentence for the error number of a move of an existing file.
std::string reasonNotMoved(int error, const std::string& to) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return "the folder '" + folderOf(to) + "' does not exist";
        case EACCES:
        case EPERM:
            return "one of their folders cannot be written";
        case EROFS:
            return "the disk is write-protected";
        case EINVAL:
            return "a folder cannot be moved into itself";
        default:
            return std::generic_category().message(error);
    }
}

[[noreturn]] void raiseNotTrashed(const std::string& path, const std::string& reason) {
    throw AutomationError(kPermissionDenied,
                          "The file '" + path + "' could not be moved to the trash: " + reason + ".");
}

/// Makes the user's trash, and returns whether it exists. Without it, the toolkit (seen with Qt 6.4) would
/// move the file to a folder below the current one and report success.
bool makeTrashOfUser() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const std::string trash = joinPath(data.toStdString(), "Trash");
    return !data.isEmpty() && makePrivateFolder(joinPath(trash, "files")) &&
           makePrivateFolder(joinPath(trash, "info"));
}

void checkNewName(const std::string& path, const std::string& name) {
    const bool isOneName =
        !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
    if (isOneName) return;
    throw AutomationError(kFileCouldNotBeSaved,
                          "The file '" + path + "' could not be renamed: '" + name + "' is no file name.");
}

}  // namespace

void DiskFileSystem::copy(const std::string& from, const std::string& to, Overwriting overwriting) {
    checkTarget(to, overwriting);
    DiskFileStore(calls_).copy(from, to);
}

void DiskFileSystem::move(const std::string& from, const std::string& to, Overwriting overwriting) {
    if (!exists(from)) raiseNotMoved(from, to, "it does not exist");
    checkTarget(to, overwriting);
    if (calls_.rename(from.c_str(), to.c_str()) == 0) return;
    if (errno != EXDEV) raiseNotMoved(from, to, reasonNotMoved(errno, to));
    moveToAnotherDisk(from, to);
}

void DiskFileSystem::rename(const std::string& path, const std::string& newName, Overwriting overwriting) {
    checkNewName(path, newName);
    if (newName != fileNameOnly(path)) move(path, joinPath(parentFolder(path), newName), overwriting);
}

void DiskFileSystem::moveToTrash(const std::string& path) {
    if (!exists(path)) raiseNotTrashed(path, "it does not exist");
    if (!makeTrashOfUser()) raiseNotTrashed(path, "there is no trash on this system");
    QFile file(QString::fromStdString(path));
    if (!file.moveToTrash()) raiseNotTrashed(path, file.errorString().toStdString());
}

void DiskFileSystem::createFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (!error && folderExists(path)) return;
    const std::string reason = error ? error.message() : "a file has its name";
    throw AutomationError(kFileCouldNotBeSaved,
                          "The folder '" + path + "' could not be created: " + reason + ".");
}

/// Returns true if the path exists; a link without a target does.
bool DiskFileSystem::exists(const std::string& path) {
    struct stat status {};
    std::array<char, 1> target{};
    return calls_.stat(path.c_str(), &status) == 0 ||
           calls_.readlink(path.c_str(), target.data(), target.size()) >= 0;
}

/// Refuses a target that cannot be written: a rename would ask for the rights of its folder alone.
void DiskFileSystem::checkTarget(const std::string& to, Overwriting overwriting) {
    if (!exists(to)) return;
    if (overwriting == Overwriting::Refused) {
        throw AutomationError(kFileAlreadyExists, "The file '" + to + "' already exists.");
    }
    struct stat status {};
    if (calls_.stat(to.c_str(), &status) < 0) return;  // a link without a target
    if (S_ISDIR(status.st_mode)) raiseNotSaved(to, EISDIR);
    if (calls_.access(to.c_str(), W_OK) < 0) raiseNotSaved(to, "it is write-protected");
}

void DiskFileSystem::moveToAnotherDisk(const std::string& from, const std::string& to) {
    struct stat status {};
    if (calls_.stat(from.c_str(), &status) < 0) raiseNotRead(from, errno);
    if (!S_ISREG(status.st_mode)) raiseNotMoved(from, to, "a folder cannot be moved to another disk");
    const std::string folder = folderOf(from);
    if (calls_.access(folder.c_str(), W_OK) < 0) {
        raiseNotMoved(from, to, "the folder '" + folder + "' cannot be written");
    }
    DiskFileStore(calls_).copy(from, to);
    if (calls_.unlink(from.c_str()) == 0) return;
    raiseNotMoved(from, to, "it was copied, but the original could not be deleted");
}

}  // namespace mergeloom
