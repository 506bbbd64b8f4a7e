#pragma once

#include "office/libreoffice/session/OfficeFilter.h"
#include "office/libreoffice/session/OfficePart.h"

#include <string_view>

namespace mergeloom::libreoffice {

/// How files with the extension have to be read where the office would not find out by itself what they are
/// to become: a web page or a text may be a document as well as a workbook. Without a name where it finds
/// out.
OfficeFilter inputFilter(OfficePart part, std::string_view extension);

/// Whether the filter, by the office's name, reads any bytes whatever as text. Where the extension promises
/// something better, that is the last resort for a file that is damaged.
bool readsAnything(std::string_view filterName);

}  // namespace mergeloom::libreoffice
