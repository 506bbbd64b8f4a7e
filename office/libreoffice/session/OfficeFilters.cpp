#include "office/libreoffice/session/OfficeFilters.h"

#include "base/AutomationError.h"
#include "base/Text.h"

namespace mergeloom::libreoffice {

namespace {

std::optional<OfficeFilter> savingFilter(DocumentFamily family, int number) {
    const FileFormat* const format = findFormat(family, number);
    return format == nullptr ? std::nullopt : format->saving;
}

OfficeFilter required(const std::optional<OfficeFilter>& filter, int number, const std::string& path) {
    if (filter) return *filter;
    throw AutomationError(kNotAvailable, "The file '" + path +
                                             "' could not be saved: LibreOffice does not write the format of "
                                             "number " +
                                             std::to_string(number) + ".");
}

}  // namespace

std::optional<OfficeFilter> filterFor(word::WdSaveFormat format) {
    return savingFilter(DocumentFamily::Word, static_cast<int>(format));
}

std::optional<OfficeFilter> filterFor(excel::XlFileFormat format) {
    return savingFilter(DocumentFamily::Excel, static_cast<int>(format));
}

OfficeFilter requiredFilter(word::WdSaveFormat format, const std::string& path) {
    return required(filterFor(format), static_cast<int>(format), path);
}

OfficeFilter requiredFilter(excel::XlFileFormat format, const std::string& path) {
    return required(filterFor(format), static_cast<int>(format), path);
}

OfficeFilter inputFilter(DocumentKind kind, std::string_view extension) {
    const DocumentFamily family = kind == DocumentKind::Word ? DocumentFamily::Word : DocumentFamily::Excel;
    const FileFormat* const format = findFormatToOpen(family, toLowerAscii(std::string(extension)));
    return format == nullptr ? OfficeFilter{} : format->opening.value_or(OfficeFilter{});
}

bool readsAnything(std::string_view filterName) {
    return filterName == "Text" || filterName == "Text (encoded)" ||
           filterName == "Text - txt - csv (StarCalc)";
}

}  // namespace mergeloom::libreoffice
