#pragma once

#include "office/formats/FormatTable.h"
#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/model/DocumentHost.h"

#include <optional>
#include <string>
#include <string_view>

/// LibreOffice's filters, as the table of formats has them.
namespace mergeloom::libreoffice {

/// Returns the format's row in the table, or null.
const FileFormat* findFormat(SaveFormat format);
DocumentFamily familyOf(DocumentKind kind);

/// Returns the filter that writes the format; none when the office cannot write it.
std::optional<OfficeFilter> filterFor(SaveFormat format);

/// Returns the filter that writes the format. Raises kNotAvailable, with a sentence that names the file to be
/// written, for a format that the office does not write.
OfficeFilter requiredFilter(SaveFormat format, const std::string& path);

/// Returns the filter that reads files with the extension when the office would not find it by itself: a web
/// page or a text may be a document as well as a workbook. The filter has no name when the office finds it.
OfficeFilter inputFilter(DocumentKind kind, std::string_view extension);

/// Returns true if the filter, by the office's name, reads any bytes as text. When the extension promises
/// something better, that is the last resort for a damaged file.
bool readsAnything(std::string_view filterName);

}  // namespace mergeloom::libreoffice
