#pragma once

#include "base/AutomationError.h"
#include "office/libreoffice/session/ExcelFilters.h"
#include "office/libreoffice/session/WordFilters.h"

#include <string>

namespace mergeloom::libreoffice {

/// How the office writes the format. Raises kNotAvailable, with a sentence that names the file to be written,
/// for a format that it does not write.
template <typename Format>
OfficeFilter requiredFilter(Format format, const std::string& path) {
    if (const std::optional<OfficeFilter> filter = filterFor(format)) return *filter;
    throw AutomationError(kNotAvailable, "The file '" + path +
                                             "' could not be saved: LibreOffice does not write the format of "
                                             "number " +
                                             std::to_string(static_cast<int>(format)) + ".");
}

}  // namespace mergeloom::libreoffice
