#pragma once

#include "office/formats/FormatTable.h"

namespace mergeloom {

inline constexpr auto kWord = DocumentFamily::Word;
inline constexpr auto kExcel = DocumentFamily::Excel;

}  // namespace mergeloom
