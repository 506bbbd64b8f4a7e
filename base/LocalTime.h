#pragma once

#include <ctime>
#include <optional>

namespace mergeloom {

/// Returns the time in the time zone of the user; none for a time that the system cannot express. May be
/// called by several threads at a time, unlike std::localtime.
std::optional<std::tm> localTime(std::time_t time);

}  // namespace mergeloom
