#include "base/Paths.h"

#include <filesystem>
#include <system_error>

namespace mergeloom {

namespace {

constexpr char kSeparator = '/';

/// Returns the path without the separators at its end; empty for the root.
std::string withoutTrailingSeparators(const std::string& path) {
    return path.substr(0, path.find_last_not_of(kSeparator) + 1);
}

}  // namespace

std::string fullPath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error).lexically_normal();
    if (error || absolute.has_filename()) return absolute.string();
    const std::string text = withoutTrailingSeparators(absolute.string());
    return text.empty() ? absolute.string() : text;
}

std::string parentFolder(const std::string& path) {
    const std::string text = withoutTrailingSeparators(path);
    const std::size_t separator = text.rfind(kSeparator);
    if (separator == std::string::npos) return {};
    const std::string parent = withoutTrailingSeparators(text.substr(0, separator));
    return parent.empty() ? std::string(1, kSeparator) : parent;
}

std::string fileNameOnly(const std::string& path) {
    const std::string text = withoutTrailingSeparators(path);
    return text.substr(text.rfind(kSeparator) + 1);
}

std::string extension(const std::string& path) {
    const std::string name = fileNameOnly(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string joinPath(const std::string& folder, const std::string& name) {
    if (folder.empty() || folder.back() == kSeparator) return folder + name;
    return folder + kSeparator + name;
}

bool folderExists(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

bool fileExists(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

void removeFile(const std::string& path) {
    std::error_code error;
    std::filesystem::remove(path, error);
    if (!error) return;
    throw AutomationError(kPermissionDenied,
                          "The file '" + path + "' could not be deleted: " + error.message() + ".");
}

std::string programPath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

std::string installedFile(const std::string& name) {
    const std::string folder = parentFolder(programPath());
    for (const std::string& place : {folder, joinPath(parentFolder(folder), "lib/mergeloom")}) {
        std::string path = joinPath(place, name);
        if (fileExists(path)) return path;
    }
    return {};
}

std::string temporaryFolder() {
    std::error_code error;
    return std::filesystem::temp_directory_path(error).string();
}

}  // namespace mergeloom
