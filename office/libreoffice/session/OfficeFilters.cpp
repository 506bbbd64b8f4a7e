#include "office/libreoffice/session/OfficeFilters.h"

#include "base/AutomationError.h"
#include "base/Text.h"

namespace mergeloom::libreoffice {

DocumentFamily familyOf(DocumentKind kind) {
    return kind == DocumentKind::Word ? DocumentFamily::Word : DocumentFamily::Excel;
}

const FileFormat* findFormat(SaveFormat format) {
    return mergeloom::findFormat(familyOf(format.kind), format.number);
}

std::optional<OfficeFilter> filterFor(SaveFormat format) {
    const FileFormat* const row = findFormat(format);
    return row == nullptr ? std::nullopt : row->saving;
}

OfficeFilter requiredFilter(SaveFormat format, const std::string& path) {
    if (const std::optional<OfficeFilter> filter = filterFor(format)) return *filter;
    throw AutomationError(kNotAvailable, "The file '" + path +
                                             "' could not be saved: LibreOffice does not write the format of "
                                             "number " +
                                             std::to_string(format.number) + ".");
}

OfficeFilter inputFilter(DocumentKind kind, std::string_view extension) {
    const FileFormat* const format = findFormatToOpen(familyOf(kind), toLowerAscii(std::string(extension)));
    return format == nullptr ? OfficeFilter{} : format->opening.value_or(OfficeFilter{});
}

bool readsAnything(std::string_view filterName) {
    return filterName == "Text" || filterName == "Text (encoded)" ||
           filterName == "Text - txt - csv (StarCalc)";
}

}  // namespace mergeloom::libreoffice
