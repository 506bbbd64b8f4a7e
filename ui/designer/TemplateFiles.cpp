#include "ui/designer/TemplateFiles.h"

#include "app/modMain.h"
#include "base/Paths.h"
#include "base/SystemError.h"

#include <stdlib.h>
#include <unistd.h>

#include <cerrno>

namespace mergeloom {

namespace {

/// Makes an empty file that nobody else can open.
std::string makeTemporaryFile(const std::string& suffix) {
    std::string path = joinPath(temporaryFolder(), "mergeloom-XXXXXX" + suffix);
    const int file = ::mkstemps(path.data(), static_cast<int>(suffix.size()));
    if (file < 0) raiseNotSaved(path, errno);
    ::close(file);
    return path;
}

}  // namespace

bool DiskTemplateFiles::isLocked(const std::string& path) {
    return IsFileLocked(path);
}

/// The signature of a compound file ([MS-CFB] 2.2), which contains an encrypted package.
bool DiskTemplateFiles::isEncrypted(const std::string& path) {
    return store_.read(path).starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
}

std::string DiskTemplateFiles::copyToTemporaryFolder(const std::string& path) {
    std::string copied = makeTemporaryFile("." + extension(path));
    try {
        store_.copy(path, copied);
    } catch (...) {
        ::unlink(copied.c_str());
        throw;
    }
    return copied;
}

void DiskTemplateFiles::write(const std::string& path, const std::string& bytes) {
    store_.save(path, [&](ByteSink& sink) { sink.write(bytes); });
}

void DiskTemplateFiles::remove(const std::string& path) {
    removeFile(path);
}

}  // namespace mergeloom
