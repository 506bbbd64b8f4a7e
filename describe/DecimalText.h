#pragma once

#include <string>
#include <string_view>

/// Decimal numbers as texts such as "-12.50", whose digits no binary number could keep.
namespace mergeloom::describe {

/// Returns true for digits with an optional sign and decimal point.
bool isDecimal(std::string_view text);

/// Returns a number below, above or equal to 0 as the first number is less than, greater than or equal to the
/// second. Texts that are no numbers are compared as texts, after the numbers.
int compareDecimals(std::string_view a, std::string_view b);

/// Returns a decimal number with so many digits after its point, half rounded away from zero.
std::string roundedDecimal(std::string_view number, int decimals);

}  // namespace mergeloom::describe
