#include "base/Paths.h"

#include "base/SystemPath.h"

#include <system_error>

namespace mergeloom {

bool isPathSeparator(char character) {
    return character == '/';
}

char pathSeparator() {
    return '/';
}

std::size_t rootLength(std::string_view path) {
    return path.starts_with('/') ? 1 : 0;
}

bool isAbsolutePath(std::string_view path) {
    return path.starts_with('/');
}

std::filesystem::path systemPath(const std::string& path) {
    return path;
}

std::string fullPath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error).lexically_normal();
    if (error || absolute.has_filename()) return absolute.string();
    std::string text = absolute.string();
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return text;
}

std::string programPath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

std::string temporaryFolder() {
    std::error_code error;
    return std::filesystem::temp_directory_path(error).string();
}

}  // namespace mergeloom
