#include "base/SystemError.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <system_error>

namespace mergeloom {

namespace {

std::string systemText(int error) {
    return std::generic_category().message(error);
}

std::string reasonNotRead(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return "it does not exist";
        case EACCES:
        case EPERM:
            return "it is not permitted to read it";
        case EISDIR:
            return "it is a folder";
        case EBUSY:
            return "another program has it open";
        default:
            return systemText(error);
    }
}

std::string reasonNotSaved(const std::string& path, int error) {
    const std::string folder = parentFolder(fullPath(path));
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return "the folder '" + folder + "' does not exist";
        case EACCES:
        case EPERM:
            return "the folder '" + folder + "' cannot be written";
        case EROFS:
            return "the disk is write-protected";
        case ENOSPC:
#ifdef EDQUOT
        case EDQUOT:
#endif
            return "the disk is full";
        case EISDIR:
            return "it is a folder";
        case EBUSY:
            return "another program has it open";
        default:
            return systemText(error);
    }
}

}  // namespace

void raiseNotRead(const std::string& path, int error) {
    throw AutomationError(kFileCouldNotBeRead,
                          "The file '" + path + "' could not be read: " + reasonNotRead(error) + ".");
}

void raiseNotSaved(const std::string& path, int error) {
    raiseNotSaved(path, reasonNotSaved(path, error));
}

void raiseNotSaved(const std::string& path, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeSaved,
                          "The file '" + path + "' could not be saved: " + reason + ".");
}

void raiseNotConfirmed(const std::string& path, int error) {
    throw AutomationError(
        kFileCouldNotBeSaved,
        "The file '" + path + "' was written, but the disk did not confirm it: " + systemText(error) + ".");
}

}  // namespace mergeloom
