#include "office/formats/mExcelFileExtensions.h"

namespace mergeloom {

std::string excelFilter(int format) {
    return extensionFilter(formatExtension(DocumentFamily::Excel, format));
}

int excelFormatByExtension(std::string_view extension) {
    const FileFormat* const found = findOfferedFormat(DocumentFamily::Excel, extension);
    return found == nullptr ? kNoExcelFormat : found->number;
}

bool isExcelExtension(std::string_view extension) {
    return findOfferedFormat(DocumentFamily::Excel, extension) != nullptr;
}

}  // namespace mergeloom
