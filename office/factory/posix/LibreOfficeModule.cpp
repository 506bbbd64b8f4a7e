#include "office/factory/LibreOfficeModule.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <dlfcn.h>

#include <string>

namespace mergeloom {

namespace {

[[noreturn]] void refuse(const std::string& reason) {
    throw AutomationError(kNotAvailable, "The office 'libreoffice' is not available: " + reason +
                                             " Choose 'embedded' otherwise.");
}

std::string findModule() {
    std::string path = installedFile(kOfficeModuleFile);
    if (!path.empty()) return path;
    refuse(
        std::string("the module '") + kOfficeModuleFile +
        "' was not built with this program. Build the program where LibreOffice and its development kit (on "
        "Debian: libreoffice-dev) are installed.");
}

/// The library is never closed: objects of the module may live as long as the program.
OfficeModule& load() {
    const std::string path = findModule();
    void* const library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        const std::string reason = ::dlerror();
        refuse("the libraries of LibreOffice could not be loaded (" + reason +
               "). Install it (on Debian: libreoffice-writer and libreoffice-calc).");
    }
    const auto function = reinterpret_cast<OfficeModuleFunction>(::dlsym(library, kOfficeModuleFunction));
    OfficeModule* const module = function == nullptr ? nullptr : function(kOfficeModuleEdition);
    if (module == nullptr) refuse("the module '" + path + "' belongs to another version. Install both anew.");
    return *module;
}

}  // namespace

OfficeModule& libreOfficeModule() {
    // After a failure, the next call tries again.
    static OfficeModule& module = load();
    return module;
}

std::string libreOfficeIsMissing() {
    return "The program's module for LibreOffice could not be loaded. Install LibreOffice (on Debian: "
           "libreoffice-writer and libreoffice-calc) and the module.";
}

}  // namespace mergeloom
