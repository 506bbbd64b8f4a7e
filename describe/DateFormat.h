#pragma once

#include "describe/Conventions.h"
#include "describe/IsoDate.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Returns a date or time by a format of Access: "dd/mm/yyyy", "Medium Date" or "Short Time". Formats that
/// depend on the settings of Windows use the conventions. Returns none for an unknown format, for "General
/// Date", and for a time without a date if the format shows the day.
std::optional<std::string> formattedDate(const IsoDate& date, std::string_view format,
                                         const Conventions& conventions);

/// Return the day and the time by the conventions.
std::string shownDay(const IsoDate& date, const Conventions& conventions);
std::string shownTime(const IsoDate& date, const Conventions& conventions);

}  // namespace mergeloom::describe
