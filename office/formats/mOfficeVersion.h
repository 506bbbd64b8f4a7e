#pragma once

#include <string_view>

namespace mergeloom {

/// The version of an Office that could not be asked.
inline constexpr int kUnknownOfficeVersion = 0;

/// The major number (0 to 255) at the start of an application's Version, such as 16 for "16.0";
/// kUnknownOfficeVersion when none stands there or it is larger.
int majorOfficeVersion(std::string_view version);

/// Whether a Word of that major version number can save in the format, a WdSaveFormat number. An unknown
/// version is trusted with every format.
bool canWordSave(int format, int wordVersion);

/// Whether an Excel of that major version number can save a document in the format, an XlFileFormat number.
/// Workbooks and templates of 97 to 2003, the workbook of 95, texts, web pages, SYLK and DIF: always; the
/// workbook for 95 and 97 in one (43): before version 12; web archives and XML of 2003 (45, 46): from version
/// 10; the formats of 2007 (50 to 54) and the workbook of 97 to 2003 under its newer number (56): from
/// version 12; OpenDocument (60): version 12 with its second service pack, then from version 14. Formats of
/// other programs and add-ins: never. An unknown version is trusted with every format.
bool canExcelSave(int format, int excelVersion);

}  // namespace mergeloom
