#pragma once

#include "office/formats/mFileExtensions.h"

#include <string>
#include <string_view>

/// What the program knows of Excel's file formats. A format is its XlFileFormat number; the numbers go to
/// SaveAs unchanged.
namespace mergeloom {

/// No format has this number: the answer where none is known.
inline constexpr int kNoExcelFormat = 0;
inline constexpr int kExcelDefaultFormat = 51;

/// Returns the pattern of a file dialog for the format, such as "*.htm;*.html".
std::string excelFilter(int format);

/// Returns the first offered format whose first or second extension is the given one (without a dot, in the
/// same letter case); kNoExcelFormat when there is none.
int excelFormatByExtension(std::string_view extension);

/// Returns whether an offered format has the extension.
bool isExcelExtension(std::string_view extension);

}  // namespace mergeloom
