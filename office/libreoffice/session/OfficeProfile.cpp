#include "office/libreoffice/session/OfficeProfile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <filesystem>
#include <fstream>

namespace mergeloom::libreoffice {

namespace {

constexpr const char* kSettings =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Misc">
<prop oor:name="UseLocking" oor:op="fuse"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Misc">
<prop oor:name="UseDocumentSystemFileLocking" oor:op="fuse"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Misc">
<prop oor:name="UseDocumentOOoLockFile" oor:op="fuse"><value>false</value></prop></item>
</oor:items>
)";

}  // namespace

void makeOfficeProfile(const std::string& folder) {
    const std::string user = joinPath(folder, "user");
    std::error_code error;
    std::filesystem::create_directories(user, error);
    std::ofstream file(joinPath(user, "registrymodifications.xcu"));
    file << kSettings << std::flush;
    if (!file) {
        throw AutomationError(kNotAvailable,
                              "LibreOffice could not be started: the folder for its profile '" + folder +
                                  "' cannot be written.");
    }
}

}  // namespace mergeloom::libreoffice
