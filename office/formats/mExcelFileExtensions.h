#pragma once

#include "office/formats/mFileExtensions.h"

#include <span>
#include <string>
#include <string_view>

/// What the program knows of Excel's file formats. A format is its XlFileFormat number; the numbers go to
/// SaveAs unchanged.
namespace mergeloom {

/// No format has this number: the answer where none is known.
inline constexpr int kNoExcelFormat = 0;
inline constexpr int kExcelDefaultFormat = 51;

enum class ExcelOfficeDocumentType : int { Workbook = 1, Template = 2, AddIn = 3 };

/// The name that dialogs show for the format; empty when no dialog shows it or the number is unknown.
std::string excelFormatName(int format);

/// The extension of the format; empty when it has none or is unknown.
std::string excelExtension(int format, LeadingDot dot = LeadingDot::Without);

/// Raises kUnknownOfficeDocumentType for a number that is no format's.
ExcelOfficeDocumentType excelOfficeDocumentType(int format);

/// The pattern of a file dialog for the format, such as "*.htm;*.html".
std::string excelFilter(int format);

/// The formats that dialogs offer, in their order there. The first of those with one extension is the one
/// that users mean by it.
std::span<const int> offeredExcelFormats();

/// The first offered format whose first or second extension is the given one (without a dot, in the same
/// letter case); kNoExcelFormat when there is none.
int excelFormatByExtension(std::string_view extension);

/// Whether an offered format has the extension.
bool isExcelExtension(std::string_view extension);

}  // namespace mergeloom
