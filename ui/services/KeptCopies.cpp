#include "ui/services/KeptCopies.h"

#include "base/LocalTime.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "ui/services/StateFolder.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace mergeloom {

namespace {

/// The file beside a copy that holds the path of the document's own file.
std::string noteOf(const std::string& copy) {
    return copy + ".original";
}

std::time_t timeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mtime : 0;
}

std::string shownTime(std::time_t time) {
    const std::optional<std::tm> local = localTime(time);
    std::array<char, 32> text{};
    if (!local) return {};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &*local)};
}

/// Returns false for the file of a copy that was begun and never written.
bool isWritten(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return !error && size > 0;
}

}  // namespace

std::string KeptCopies::pathFor(const std::string& original, const std::string& extension) {
    if (path_.empty()) {
        path_ = makeFile(extension);
        lock_ = std::make_unique<DocumentLock>(path_);
    }
    note(original);
    return path_;
}

std::string KeptCopies::makeFile(const std::string& extension) {
    (void)makePrivateFolder(folder_);
    const std::string suffix = "." + extension;
    std::string path = joinPath(folder_, "document-XXXXXX" + suffix);
    const int file = ::mkstemps(path.data(), static_cast<int>(suffix.size()));
    if (file < 0) raiseNotSaved(path, errno);
    ::close(file);
    return path;
}

void KeptCopies::note(const std::string& original) {
    files_.save(noteOf(path_), [&](ByteSink& sink) { sink.write(original); });
}

std::optional<KeptCopy> KeptCopies::own() const {
    if (path_.empty() || !isWritten(path_)) return {};
    return KeptCopy{path_, files_.read(noteOf(path_)), shownTime(timeOf(path_))};
}

std::vector<KeptCopy> KeptCopies::left(const std::string& extension) const {
    std::vector<std::pair<std::time_t, std::string>> found;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder_, error)) {
        const std::string path = entry.path().string();
        const bool isCopy = mergeloom::extension(path) == extension && files_.fileExists(noteOf(path));
        if (isCopy && path != path_ && isWritten(path) && !otherLockOwner(path))
            found.emplace_back(timeOf(path), path);
    }
    std::ranges::sort(found, std::greater<>());
    std::vector<KeptCopy> copies;
    copies.reserve(found.size());
    for (const auto& [time, path] : found)
        copies.push_back({path, files_.read(noteOf(path)), shownTime(time)});
    return copies;
}

bool KeptCopies::adopt(const KeptCopy& copy) {
    release();
    auto lock = std::make_unique<DocumentLock>(copy.path);
    if (otherLockOwner(copy.path) || !files_.fileExists(copy.path)) return false;
    path_ = copy.path;
    lock_ = std::move(lock);
    return true;
}

void KeptCopies::release() {
    path_.clear();
    lock_.reset();
}

void KeptCopies::removeOwn() {
    if (path_.empty()) return;
    removeFile(path_);
    removeFile(noteOf(path_));
    release();
}

}  // namespace mergeloom
