#include "office/formats/FormatTable.h"

#include "office/formats/mFileExtensions.h"

#include <algorithm>

namespace mergeloom {

std::span<const FileFormat> fileFormats(DocumentFamily family) {
    return family == DocumentFamily::Word ? wordFormats() : excelFormats();
}

const FileFormat* findFormat(DocumentFamily family, int number) {
    if (number == kOpenedOnly) return nullptr;
    const std::span<const FileFormat> formats = fileFormats(family);
    const auto found = std::ranges::find(formats, number, &FileFormat::number);
    return found == formats.end() ? nullptr : &*found;
}

const FileFormat* findFormatToOpen(DocumentFamily family, std::string_view extension) {
    const std::span<const FileFormat> formats = fileFormats(family);
    const auto found = std::ranges::find_if(formats, [&](const FileFormat& format) {
        return fitsFormat(extension, format.extension) && (format.engine || format.opening);
    });
    return found == formats.end() ? nullptr : &*found;
}

bool isForeignExtension(DocumentFamily family, std::string_view extension) {
    const FileFormat* const format = findFormatToOpen(family, extension);
    return format != nullptr && !format->engine;
}

std::optional<DocumentFamily> familyOf(std::string_view extension) {
    const auto isKnown = [&](const FileFormat& format) { return fitsFormat(extension, format.extension); };
    const bool isWords = std::ranges::any_of(wordFormats(), isKnown);
    if (isWords == std::ranges::any_of(excelFormats(), isKnown)) return {};
    return isWords ? DocumentFamily::Word : DocumentFamily::Excel;
}

}  // namespace mergeloom
