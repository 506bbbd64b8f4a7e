#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Returns the format of strftime for a format of dates and times of Access: "dd/mm/yyyy", "Medium Date" or
/// "Short Time". Returns none for any other, also for those whose look depends on the settings of Windows.
std::optional<std::string> strftimeFormat(std::string_view format);

}  // namespace mergeloom::describe
