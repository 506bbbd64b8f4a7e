#include "base/SystemFiles.h"

#include "base/Paths.h"

#include <stdlib.h>
#include <unistd.h>

namespace mergeloom {

std::FILE* openToRead(const std::string& path) {
    return std::fopen(path.c_str(), "rb");
}

std::FILE* openScratchFile() {
    return std::tmpfile();
}

std::string makeUniqueFile(const std::string& folder, const std::string& suffix) {
    std::string path = joinPath(folder, ".mergeloom-XXXXXX" + suffix);
    const int file = ::mkstemps(path.data(), static_cast<int>(suffix.size()));
    if (file < 0) return {};
    ::close(file);
    return path;
}

std::int64_t processNumber() {
    return ::getpid();
}

}  // namespace mergeloom
