#pragma once

#include "office/libreoffice/session/OfficeFilter.h"
#include "office/model/word/Enumerations.h"

#include <optional>

namespace mergeloom::libreoffice {

/// How the office writes a document in the format; none when it cannot.
std::optional<OfficeFilter> filterFor(word::WdSaveFormat format);

}  // namespace mergeloom::libreoffice
