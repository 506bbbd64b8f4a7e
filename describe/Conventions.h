#pragma once

#include <string>

namespace mergeloom::describe {

/// The conventions by which numbers and dates are shown.
struct Conventions {
    std::string decimalPoint = ".";
    std::string groupSeparator{};
    std::string date{};      ///< a format of strftime; ISO 8601 if empty
    std::string time{};      ///< likewise
    std::string longDate{};  ///< likewise; one like the date, with names, if empty
    std::string currency{};  ///< the sign of the currency
    bool isCurrencyFirst = true;
    bool isCurrencySpaced = false;  ///< a blank separates the sign and the number
};

/// Returns the conventions of the process's locale, on Windows those of the user; no formats for the C
/// locale.
Conventions conventionsOfLocale();

}  // namespace mergeloom::describe
