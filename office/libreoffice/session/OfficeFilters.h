#pragma once

#include "office/formats/FormatTable.h"
#include "office/model/DocumentKind.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <optional>
#include <string>
#include <string_view>

/// LibreOffice's filters, as the table of formats has them.
namespace mergeloom::libreoffice {

/// Returns how the office writes a file in the format; none when it cannot.
std::optional<OfficeFilter> filterFor(word::WdSaveFormat format);
std::optional<OfficeFilter> filterFor(excel::XlFileFormat format);

/// Returns how the office writes the format. Raises kNotAvailable, with a sentence that names the file to be
/// written, for a format that it does not write.
OfficeFilter requiredFilter(word::WdSaveFormat format, const std::string& path);
OfficeFilter requiredFilter(excel::XlFileFormat format, const std::string& path);

/// Returns how files with the extension have to be read where the office would not find out by itself what
/// they are to become: a web page or a text may be a document as well as a workbook. Without a name where it
/// finds out.
OfficeFilter inputFilter(DocumentKind kind, std::string_view extension);

/// Returns whether the filter, by the office's name, reads any bytes whatever as text. Where the extension
/// promises something better, that is the last resort for a file that is damaged.
bool readsAnything(std::string_view filterName);

}  // namespace mergeloom::libreoffice
