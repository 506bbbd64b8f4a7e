#pragma once

#include <string_view>

namespace mergeloom {

/// Stands before the name of every place and table in a workbook.
inline constexpr std::string_view kRangeNamePrefix = "amm";

}  // namespace mergeloom
