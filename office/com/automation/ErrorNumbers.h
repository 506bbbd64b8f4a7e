#pragma once

#include "base/AutomationError.h"

/// Numbers of errors that Visual Basic raises for a call that its automation refuses.
namespace mergeloom::com {

inline constexpr ErrorNumber kTypeMismatch = 13;
inline constexpr ErrorNumber kMemberUnknown = 438;
inline constexpr ErrorNumber kNamedArgumentUnknown = 448;
inline constexpr ErrorNumber kArgumentMissing = 449;
inline constexpr ErrorNumber kWrongArgumentCount = 450;

}  // namespace mergeloom::com
