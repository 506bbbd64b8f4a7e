#include "office/libreoffice/session/OfficeProgram.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <sstream>

namespace mergeloom::libreoffice {

namespace {

constexpr const char* kVariable = "MERGELOOM_SOFFICE";
constexpr std::array kUsualPlaces{"/usr/lib/libreoffice/program/soffice",
                                  "/usr/lib64/libreoffice/program/soffice"};

bool isProgram(const std::string& path) {
    return fileExists(path) && ::access(path.c_str(), X_OK) == 0;
}

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string findInPath() {
    std::istringstream folders(variable("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');) {
        std::string path = joinPath(folder, "soffice");
        if (isProgram(path)) return path;
    }
    return {};
}

}  // namespace

std::string findOfficeProgram() {
    std::string chosen = variable(kVariable);
    if (!chosen.empty()) {
        if (isProgram(chosen)) return chosen;
        throw AutomationError(kNotAvailable, std::string("The environment variable ") + kVariable +
                                                 " names '" + chosen + "', which is no program.");
    }
    std::string found = findInPath();
    if (!found.empty()) return found;
    for (const char* const place : kUsualPlaces)
        if (isProgram(place)) return place;
    throw AutomationError(kNotAvailable,
                          "LibreOffice was not found. Install it (on Debian: libreoffice-writer and "
                          "libreoffice-calc), or let the environment variable MERGELOOM_SOFFICE name its "
                          "program 'soffice'.");
}

}  // namespace mergeloom::libreoffice
