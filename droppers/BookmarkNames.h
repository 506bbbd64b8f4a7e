#pragma once

#include <string_view>

namespace mergeloom {

/// The end of the name of a place for a control's bound value.
inline constexpr std::string_view kBoundValueSuffix = "_bv";
/// Stands before the counter in the name of a further place of a name that is taken.
inline constexpr std::string_view kFurtherPlaceSuffix = "_ref";

}  // namespace mergeloom
