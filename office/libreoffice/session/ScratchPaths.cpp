#include "office/libreoffice/session/ScratchPaths.h"

#include "base/Paths.h"
#include "office/libreoffice/session/UnoText.h"

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <exception>
#include <filesystem>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

std::string withExtensionOf(const std::string& path, const std::string& name) {
    const std::string suffix = extension(path);
    const bool isPlain = std::ranges::all_of(
        suffix, [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) != 0; });
    return isPlain && !suffix.empty() ? name + "." + suffix : name;
}

/// Returns the beginnings of the names of the office's own files, which contain the number of its process.
std::vector<std::string> namePrefixes(const LibreOfficeProcess& process) {
    std::vector<std::string> beginnings;
    for (const pid_t member : process.members())
        beginnings.push_back("lu" + std::to_string(member));
    return beginnings;
}

PartialFiles partialFilesOf(const std::string& path, const std::vector<std::string>& beginnings) {
    PartialFiles partial{.files = {path}, .beginnings = {}, .kept = {}};
    const std::string folder = parentFolder(path);
    for (const std::string& beginning : beginnings)
        partial.beginnings.push_back(joinPath(folder, beginning));
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename();
        const auto begins = [&](const std::string& beginning) { return name.starts_with(beginning); };
        if (std::ranges::any_of(beginnings, begins)) partial.kept.push_back(joinPath(folder, name));
    }
    return partial;
}

}  // namespace

std::string ScratchPaths::forCopy(const std::string& path) {
    const std::string folder = joinPath(folder_, std::to_string(++copies_));
    std::filesystem::create_directory(folder);
    return joinPath(folder, withExtensionOf(path, "document"));
}

std::string ScratchPaths::beside(const std::string& path) {
    const std::string folder = parentFolder(fullPath(path));
    if (::access(folder.c_str(), W_OK | X_OK) != 0) return forCopy(path);
    const std::string suffix = withExtensionOf(path, "");
    std::string name = joinPath(folder, ".mergeloom-office-XXXXXX" + suffix);
    const int file = ::mkstemps(name.data(), static_cast<int>(suffix.size()));
    if (file < 0) return forCopy(path);
    ::close(file);
    return name;
}

bool ScratchPaths::contains(const std::string& url) const {
    return url.starts_with(fileUrl(folder_) + "/");
}

void ScratchPaths::remove(const std::string& path) const {
    std::error_code error;
    std::filesystem::remove(path, error);
    const std::string folder = parentFolder(path);
    if (parentFolder(folder) == folder_) std::filesystem::remove_all(folder, error);
}

void ScratchPaths::removeCopy(const std::string& url) const {
    if (!contains(url)) return;
    // After the folder, the URL is plain: a number and a name.
    remove(folder_ + url.substr(fileUrl(folder_).size()));
}

PartialFileCleanup::PartialFileCleanup(const LibreOfficeProcess& process, const std::string& path)
    : process_(process), errors_(std::uncaught_exceptions()) {
    process_.setPartialFiles(partialFilesOf(path, namePrefixes(process)));
}

PartialFileCleanup::~PartialFileCleanup() {
    if (std::uncaught_exceptions() > errors_) process_.removePartialFiles();
    process_.setPartialFiles({});
}

}  // namespace mergeloom::libreoffice
