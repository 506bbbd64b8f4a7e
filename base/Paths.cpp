#include "base/Paths.h"

#include "base/SystemPath.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace mergeloom {

namespace {

/// Returns the path without the separators at its end; for a root it may be shorter than that.
std::string_view withoutTrailingSeparators(std::string_view path) {
    while (!path.empty() && isPathSeparator(path.back()))
        path.remove_suffix(1);
    return path;
}

/// Returns the offset of the last part in a path without separators at its end.
std::size_t lastPart(std::string_view path) {
    const auto separator = std::find_if(path.rbegin(), path.rend(), isPathSeparator);
    const auto afterSeparator = static_cast<std::size_t>(path.rend() - separator);
    return std::max(afterSeparator, std::min(rootLength(path), path.size()));
}

}  // namespace

std::string parentFolder(const std::string& path) {
    const std::size_t root = rootLength(path);
    const std::string_view text = withoutTrailingSeparators(path);
    if (text.size() <= root) return {};
    const std::string_view parent = withoutTrailingSeparators(text.substr(0, lastPart(text)));
    return path.substr(0, std::max(root, parent.size()));
}

std::string fileNameOnly(const std::string& path) {
    const std::string_view text = withoutTrailingSeparators(path);
    return std::string(text.substr(lastPart(text)));
}

std::string extension(const std::string& path) {
    const std::string name = fileNameOnly(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string joinPath(const std::string& folder, const std::string& name) {
    if (folder.size() == rootLength(folder) || isPathSeparator(folder.back())) return folder + name;
    return folder + pathSeparator() + name;
}

bool folderExists(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(systemPath(path), error);
}

bool fileExists(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(systemPath(path), error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

bool isSameFile(const std::string& path, const std::string& other) {
    std::error_code error;
    return std::filesystem::equivalent(systemPath(path), systemPath(other), error);
}

void removeFile(const std::string& path) {
    std::error_code error;
    std::filesystem::remove(systemPath(path), error);
    if (!error) return;
    throw AutomationError(kPermissionDenied,
                          "The file '" + path + "' could not be deleted: " + error.message() + ".");
}

std::string installedFile(const std::string& name) {
    const std::string folder = parentFolder(programPath());
    for (const std::string& place : {folder, joinPath(parentFolder(folder), "lib/mergeloom")}) {
        std::string path = joinPath(place, name);
        if (fileExists(path)) return path;
    }
    return {};
}

}  // namespace mergeloom
