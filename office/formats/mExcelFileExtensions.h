#pragma once

#include "office/formats/mFileExtensions.h"

#include <string>
#include <string_view>

/// Excel's file formats. A format is its XlFileFormat number; the numbers go to SaveAs unchanged.
namespace mergeloom {

/// No format has this number; returned where none is known.
inline constexpr int kNoExcelFormat = 0;
inline constexpr int kExcelDefaultFormat = 51;

/// Returns the first offered format whose first or second extension is the given one (without a dot, in the
/// same letter case); kNoExcelFormat when there is none.
inline int excelFormatByExtension(std::string_view extension) {
    const FileFormat* const found = findOfferedFormat(DocumentFamily::Excel, extension);
    return found == nullptr ? kNoExcelFormat : found->number;
}

/// Returns true when an offered format has the extension.
inline bool isExcelExtension(std::string_view extension) {
    return findOfferedFormat(DocumentFamily::Excel, extension) != nullptr;
}

}  // namespace mergeloom
