#include "office/formats/mFileExtensions.h"

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

}  // namespace mergeloom
