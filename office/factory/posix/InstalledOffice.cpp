#include "office/factory/InstalledOffice.h"

#include "base/AutomationError.h"
#include "office/factory/OfficeFactory.h"

namespace mergeloom {

namespace {

[[noreturn]] void refuse() {
    throw AutomationError(
        kNotAvailable,
        "The office 'com' is an installed Word or Excel and available on Windows only. Choose "
        "'embedded' or 'libreoffice' otherwise.");
}

}  // namespace

OfficeKind installedOffice() {
    return OfficeKind::LibreOffice;
}

word::ApplicationPtr startInstalledWord(const std::string& /*traceFile*/) {
    refuse();
}

excel::ApplicationPtr startInstalledExcel(const std::string& /*traceFile*/) {
    refuse();
}

}  // namespace mergeloom
