#pragma once

#include "office/formats/FormatTable.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The formats that dialogs offer for saving: those that the version of Word or Excel knows and that can be
/// written at present.
namespace mergeloom {

struct OfferedFormat {
    int number;          ///< WdSaveFormat's or XlFileFormat's
    std::string name;    ///< its name in dialogs
    std::string filter;  ///< the pattern of a file dialog, such as "*.htm;*.html"
};

/// Returns true when the format of that number can be written at present.
using FormatPredicate = std::function<bool(int format)>;

/// Returns the family's formats in the order of dialogs. The version is a major number (majorOfficeVersion).
std::vector<OfferedFormat> offeredFormats(DocumentFamily family, int version,
                                          const FormatPredicate& canWrite);

/// Returns the format in which a file with the extension is written: the first one in dialogs that has the
/// extension and can be written; without one, the result of wordFormatByExtension or excelFormatByExtension.
int writableFormat(DocumentFamily family, std::string_view extension, const FormatPredicate& canWrite);

}  // namespace mergeloom
