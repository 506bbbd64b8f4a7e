#include "office/factory/OfficeModuleLoader.h"

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
    const std::string folder = parentFolder(programPath());
    const std::string places[] = {folder, joinPath(parentFolder(folder), "lib/mergeloom")};
    for (const std::string& place : places) {
        std::string path = joinPath(place, kOfficeModuleFile);
        if (fileExists(path)) return path;
    }
    refuse(
        std::string("the module '") + kOfficeModuleFile +
        "' was not built with this program. Build the program where LibreOffice and its development kit (on "
        "Debian: libreoffice-dev) are installed.");
}

/// The handle is never given back: objects of the module may live as long as the program.
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
    // What could not be loaded is tried again by the next call.
    static OfficeModule& module = load();
    return module;
}

}  // namespace mergeloom
