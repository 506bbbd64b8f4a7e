#include "office/libreoffice/session/PrivateFolder.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace mergeloom::libreoffice {

namespace {

std::string temporaryRoot() {
    std::string root = temporaryFolder();
    if (!root.empty()) return root;
    const char* const wanted = ::getenv("TMPDIR");
    throw AutomationError(kNotAvailable,
                          "LibreOffice could not be started: the folder for temporary files '" +
                              std::string(wanted == nullptr ? "/tmp" : wanted) + "' does not exist.");
}

}  // namespace

PrivateFolder::PrivateFolder() {
    const std::string root = fullPath(temporaryRoot());
    std::string name = joinPath(root, "mergeloom-office-XXXXXX");
    if (::mkdtemp(name.data()) == nullptr) {
        throw AutomationError(kNotAvailable,
                              "LibreOffice could not be started: the folder for temporary files '" + root +
                                  "' cannot be written (" + std::generic_category().message(errno) + ").");
    }
    path_ = name;
}

PrivateFolder::~PrivateFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

}  // namespace mergeloom::libreoffice
