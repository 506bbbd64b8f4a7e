#pragma once

#include "office/libreoffice/session/OfficeFilter.h"
#include "office/model/excel/Enumerations.h"

#include <optional>

namespace mergeloom::libreoffice {

/// How the office writes a workbook in the format; none when it cannot.
std::optional<OfficeFilter> filterFor(excel::XlFileFormat format);

}  // namespace mergeloom::libreoffice
