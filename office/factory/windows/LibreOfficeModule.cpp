#include "office/factory/LibreOfficeModule.h"

#include "base/AutomationError.h"

namespace mergeloom {

OfficeModule& libreOfficeModule() {
    throw AutomationError(
        kNotAvailable, "The office 'libreoffice' is not available on Windows. Choose 'embedded' otherwise.");
}

std::string libreOfficeIsMissing() {
    return "On Windows no file is converted by LibreOffice yet.";
}

}  // namespace mergeloom
