#include "office/formats/mFileExtensions.h"

#include <algorithm>

namespace mergeloom {

std::string secondExtension(std::string_view extension) {
    if (extension == "htm") return "html";
    if (extension == "mht") return "mhtml";
    return {};
}

bool fitsFormat(std::string_view extension, std::string_view formatExtension) {
    if (extension.empty()) return false;
    return extension == formatExtension || extension == secondExtension(formatExtension);
}

std::string dottedExtension(std::string_view extension, LeadingDot dot) {
    const bool hasDot = dot == LeadingDot::With && !extension.empty();
    return (hasDot ? "." : "") + std::string(extension);
}

std::string extensionFilter(std::string_view extension) {
    const std::string second = secondExtension(extension);
    return "*." + std::string(extension) + (second.empty() ? "" : ";*." + second);
}

std::string formatName(DocumentFamily family, int format) {
    const FileFormat* const found = findFormat(family, format);
    return found == nullptr ? std::string() : std::string(found->name);
}

std::string formatExtension(DocumentFamily family, int format, LeadingDot dot) {
    const FileFormat* const found = findFormat(family, format);
    return found == nullptr ? std::string() : dottedExtension(found->extension, dot);
}

OfficeDocumentType officeDocumentType(DocumentFamily family, int format) {
    const FileFormat* const found = findFormat(family, format);
    if (found != nullptr) return found->type;
    const char* const application = family == DocumentFamily::Word ? "Word" : "Excel";
    throw AutomationError(kUnknownOfficeDocumentType, "unknown " + std::string(application) +
                                                          "OfficeDocumentType " + std::to_string(format));
}

std::span<const FileFormat> offeredFormats(DocumentFamily family) {
    const std::span<const FileFormat> formats = fileFormats(family);
    const auto end = std::ranges::find(formats, InDialogs::Hidden, &FileFormat::dialogs);
    return {formats.begin(), end};
}

const FileFormat* findOfferedFormat(DocumentFamily family, std::string_view extension) {
    const std::span<const FileFormat> offered = offeredFormats(family);
    const auto found = std::ranges::find_if(
        offered, [&](const FileFormat& format) { return fitsFormat(extension, format.extension); });
    return found == offered.end() ? nullptr : &*found;
}

}  // namespace mergeloom
