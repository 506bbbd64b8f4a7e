#include "office/libreoffice/session/WorkPlaces.h"

#include "base/Paths.h"
#include "office/libreoffice/session/FileUrl.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace mergeloom::libreoffice {

namespace {

std::string withExtensionOf(const std::string& path, const std::string& name) {
    const std::string suffix = extension(path);
    const bool isPlain = std::ranges::all_of(
        suffix, [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) != 0; });
    return isPlain && !suffix.empty() ? name + "." + suffix : name;
}

}  // namespace

std::string WorkPlaces::forCopy(const std::string& path) {
    const std::string folder = joinPath(folder_, std::to_string(++places_));
    std::filesystem::create_directory(folder);
    return joinPath(folder, withExtensionOf(path, "document"));
}

std::string WorkPlaces::beside(const std::string& path) {
    const std::string folder = parentFolder(fullPath(path));
    if (::access(folder.c_str(), W_OK | X_OK) != 0) return forCopy(path);
    // Those of other processes bear their numbers, so a name that is taken is one that a crash left behind.
    const std::string name =
        ".mergeloom-office-" + std::to_string(::getpid()) + "-" + std::to_string(++places_);
    return joinPath(folder, withExtensionOf(path, name));
}

bool WorkPlaces::holds(const std::string& url) const {
    return url.starts_with(fileUrl(folder_) + "/");
}

void WorkPlaces::remove(const std::string& path) const {
    std::error_code error;
    std::filesystem::remove(path, error);
    const std::string folder = parentFolder(path);
    if (parentFolder(folder) == folder_) std::filesystem::remove_all(folder, error);
}

void WorkPlaces::removeCopy(const std::string& url) const {
    if (!holds(url)) return;
    // Behind the folder, all is plain: a number and a name.
    remove(folder_ + url.substr(fileUrl(folder_).size()));
}

}  // namespace mergeloom::libreoffice
