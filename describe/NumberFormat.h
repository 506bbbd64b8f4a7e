#pragma once

#include "describe/Conventions.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Returns a decimal number by a format of Access: "Currency", "Percent", "#,##0.00;[Red]-#,##0.00". The
/// decimals are those of a named format, which has two of its own. Point, group separator and currency are
/// those of the conventions. Returns nothing for a format that is not understood.
std::optional<std::string> formattedNumber(std::string_view number, std::string_view format,
                                           std::optional<int> decimals, const Conventions& conventions);

/// Returns the text that a format of numbers has for no value; empty if it has none.
std::string formattedNoNumber(std::string_view format);

}  // namespace mergeloom::describe
