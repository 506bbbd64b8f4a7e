#pragma once

#include <string>
#include <string_view>

/// Decimal numbers as texts such as "-12.50", since binary numbers cannot represent all decimal fractions.
namespace mergeloom::describe {

/// The parts of a decimal number, without leading and trailing zeros. Zero is not negative.
struct DecimalParts {
    /// The number must outlive it.
    explicit DecimalParts(std::string_view number);

    bool isNegative = false;
    std::string_view whole;
    std::string_view fraction;
};

/// Returns true for digits with an optional sign and decimal point.
bool isDecimal(std::string_view text);

/// Returns a number less than, greater than or equal to 0 if the first number is less than, greater than or
/// equal to the second. Texts that are not numbers are ordered as texts, after the numbers.
int compareDecimals(std::string_view a, std::string_view b);

/// Returns a decimal number with the given number of digits after its point. Halves are rounded away from
/// zero.
std::string roundedDecimal(std::string_view number, int decimals);

}  // namespace mergeloom::describe
