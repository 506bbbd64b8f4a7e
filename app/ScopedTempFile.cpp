#include "app/ScopedTempFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace mergeloom {

namespace {

/// Returns the path of a new, empty file; an empty path when the folder cannot be written.
std::string makeFile(const std::string& folder, const std::string& suffix) {
    if (folder.empty()) return {};
    std::string path = joinPath(folder, ".mergeloom-XXXXXX" + suffix);
    const int file = ::mkstemps(path.data(), static_cast<int>(suffix.size()));
    if (file < 0) return {};
    ::close(file);
    return path;
}

}  // namespace

ScopedTempFile::ScopedTempFile(const std::string& userFile, const std::string& extension) {
    const std::string suffix = "." + extension;
    path_ = makeFile(parentFolder(fullPath(userFile)), suffix);
    if (path_.empty()) path_ = makeFile(temporaryFolder(), suffix);
    if (!path_.empty()) return;
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + userFile +
                                                    "' could not be converted: there is no place for a "
                                                    "temporary file (" +
                                                    std::generic_category().message(errno) + ").");
}

ScopedTempFile::~ScopedTempFile() {
    ::unlink(path_.c_str());
}

}  // namespace mergeloom
