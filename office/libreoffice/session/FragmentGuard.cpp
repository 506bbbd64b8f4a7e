#include "office/libreoffice/session/FragmentGuard.h"

#include "base/Paths.h"

#include <algorithm>
#include <exception>
#include <filesystem>

namespace mergeloom::libreoffice {

FragmentGuard::FragmentGuard(const LibreOfficeProcess& process, const std::string& path)
    : process_(process),
      folder_(parentFolder(path)),
      beginnings_{fileNameOnly(path)},
      errors_(std::uncaught_exceptions()) {
    // The office names its files by the number of its process.
    for (const pid_t member : process_.members())
        beginnings_.push_back("lu" + std::to_string(member));
    std::vector<std::string> paths;
    for (const std::string& beginning : beginnings_)
        paths.push_back(joinPath(folder_, beginning));
    process_.lookAfter(paths);
}

FragmentGuard::~FragmentGuard() {
    process_.lookAfter({});
    if (std::uncaught_exceptions() == errors_) return;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder_, error)) {
        const std::string name = entry.path().filename();
        const bool isOurs = std::ranges::any_of(
            beginnings_, [&](const std::string& beginning) { return name.starts_with(beginning); });
        if (isOurs) std::filesystem::remove(entry.path(), error);
    }
}

}  // namespace mergeloom::libreoffice
