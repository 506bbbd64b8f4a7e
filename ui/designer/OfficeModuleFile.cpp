#include "ui/designer/OfficeModuleFile.h"

#include "base/Paths.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace mergeloom {

std::uintmax_t officeModuleSize() {
    const std::string folder = parentFolder(programPath());
    for (const std::string& place : {folder, joinPath(parentFolder(folder), "lib/mergeloom")}) {
        std::error_code missing;
        const std::uintmax_t size =
            std::filesystem::file_size(joinPath(place, "mergeloom_libreoffice.so"), missing);
        if (!missing) return size;
    }
    return 0;
}

}  // namespace mergeloom
