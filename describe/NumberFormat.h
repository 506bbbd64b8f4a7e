#pragma once

#include "describe/Conventions.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Returns a decimal number by a format of Access: "Currency", "Percent", "#,##0.00;[Red]-#,##0.00". The
/// decimals are for named formats, which have two by default. The conventions have the decimal point, the
/// group separator and the currency. Returns none for an unknown format.
std::optional<std::string> formattedNumber(std::string_view number, std::string_view format,
                                           std::optional<int> decimals, const Conventions& conventions);

/// Returns the text of a number format for a missing value; empty if it has none.
std::string formattedNoNumber(std::string_view format);

}  // namespace mergeloom::describe
