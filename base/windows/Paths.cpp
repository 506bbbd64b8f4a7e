#include "base/Paths.h"

#include "base/SystemPath.h"
#include "base/Text.h"
#include "base/windows/WindowsText.h"

#include <windows.h>

#include <algorithm>

namespace mergeloom {

namespace {

/// Returns the offset of the next part of a path, which is after the separator; the path's length if there is
/// none. The current part begins at the start.
std::size_t afterPart(std::string_view path, std::size_t start) {
    const auto* const end =
        std::find_if(path.begin() + static_cast<std::ptrdiff_t>(start), path.end(), isPathSeparator);
    const auto offset = static_cast<std::size_t>(end - path.begin());
    return std::min(offset + 1, path.size());
}

bool startsWithSeparators(std::string_view path, std::size_t count) {
    return path.size() >= count &&
           std::all_of(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(count), isPathSeparator);
}

bool startsWithDrive(std::string_view path) {
    return path.size() >= 2 && isAsciiLetter(path[0]) && path[1] == ':';
}

/// Calls a routine of Windows that writes a text and returns its length until the text fits.
template <typename Call>
std::wstring filled(const Call& call) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = call(text.data(), static_cast<DWORD>(text.size()));
        if (length < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

std::string withoutEndSeparator(std::string path) {
    if (path.size() > rootLength(path) && isPathSeparator(path.back())) path.pop_back();
    return path;
}

}  // namespace

bool isPathSeparator(char character) {
    return character == '\\' || character == '/';
}

char pathSeparator() {
    return '\\';
}

std::size_t rootLength(std::string_view path) {
    if (startsWithSeparators(path, 2)) return afterPart(path, afterPart(path, 2));
    if (startsWithSeparators(path, 1)) return 1;
    if (!startsWithDrive(path)) return 0;
    return path.size() > 2 && isPathSeparator(path[2]) ? 3 : 2;
}

bool isAbsolutePath(std::string_view path) {
    return startsWithSeparators(path, 2) || (startsWithDrive(path) && rootLength(path) == 3);
}

std::filesystem::path systemPath(const std::string& path) {
    return windows::widePath(path);
}

std::string fullPath(const std::string& path) {
    return withoutEndSeparator(windows::pathText(windows::widePath(path)));
}

std::string programPath() {
    return windows::pathText(
        filled([](wchar_t* text, DWORD size) { return ::GetModuleFileNameW(nullptr, text, size); }));
}

std::string temporaryFolder() {
    return withoutEndSeparator(
        windows::utf8Text(filled([](wchar_t* text, DWORD size) { return ::GetTempPathW(size, text); })));
}

}  // namespace mergeloom
