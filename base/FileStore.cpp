#include "base/FileStore.h"

namespace mergeloom {

std::string keepBackup(FileStore& files, const std::string& path) {
    const std::string bytes = files.read(path);
    const std::string first = path + ".bak";
    std::string backup = first;
    for (int number = 1; files.fileExists(backup); ++number) {
        if (files.read(backup) == bytes) return backup;
        backup = first + std::to_string(number);
    }
    files.copy(path, backup);
    return backup;
}

}  // namespace mergeloom
