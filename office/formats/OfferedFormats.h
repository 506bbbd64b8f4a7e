#pragma once

#include "office/formats/FormatTable.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// What dialogs offer to save in: formats that the version of Word or Excel knows and that can be written
/// here.
namespace mergeloom {

struct OfferedFormat {
    int number;          ///< WdSaveFormat's or XlFileFormat's
    std::string name;    ///< what dialogs call it
    std::string filter;  ///< the pattern of a file dialog, such as "*.htm;*.html"
};

/// Whether a format, by its number, can be written here and now.
using FormatPredicate = std::function<bool(int format)>;

/// Returns the family's formats in the order of dialogs. The version is a major number (majorOfficeVersion).
std::vector<OfferedFormat> offeredFormats(DocumentFamily family, int version,
                                          const FormatPredicate& canWrite);

/// Returns the format in which a file with the extension is written: of those that dialogs offer the first
/// that has the extension and can be written; where none can, what wordFormatByExtension or
/// excelFormatByExtension returns.
int writableFormat(DocumentFamily family, std::string_view extension, const FormatPredicate& canWrite);

}  // namespace mergeloom
