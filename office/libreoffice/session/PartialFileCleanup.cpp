#include "office/libreoffice/session/PartialFileCleanup.h"

#include "base/Paths.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

/// Returns how the names of the office's own files begin: with the number of its process.
std::vector<std::string> beginningsOfNames(const LibreOfficeProcess& process) {
    std::vector<std::string> beginnings;
    for (const pid_t member : process.members())
        beginnings.push_back("lu" + std::to_string(member));
    return beginnings;
}

Fragments fragmentsBeside(const std::string& path, const std::vector<std::string>& beginnings) {
    Fragments fragments{.files = {path}, .beginnings = {}, .kept = {}};
    const std::string folder = parentFolder(path);
    for (const std::string& beginning : beginnings)
        fragments.beginnings.push_back(joinPath(folder, beginning));
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename();
        const auto begins = [&](const std::string& beginning) { return name.starts_with(beginning); };
        if (std::ranges::any_of(beginnings, begins)) fragments.kept.push_back(joinPath(folder, name));
    }
    return fragments;
}

}  // namespace

PartialFileCleanup::PartialFileCleanup(const LibreOfficeProcess& process, const std::string& path)
    : process_(process), errors_(std::uncaught_exceptions()) {
    process_.lookAfter(fragmentsBeside(path, beginningsOfNames(process)));
}

PartialFileCleanup::~PartialFileCleanup() {
    if (std::uncaught_exceptions() > errors_) process_.sweep();
    process_.lookAfter({});
}

}  // namespace mergeloom::libreoffice
