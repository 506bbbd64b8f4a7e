#pragma once

#include <cstdint>
#include <source_location>
#include <stdexcept>
#include <string>

namespace mergeloom {

using ErrorNumber = std::uint32_t;

/// The base of the errors that the program itself raises.
inline constexpr ErrorNumber kAutomationErrorBase = 0x80040000;
/// The program's own first error, 513 above the base: missing options, a drop on a field, a selection that
/// cannot take a composite drop.
inline constexpr ErrorNumber kApplicationError = kAutomationErrorBase + 513;

/// Errors of the object models that callers distinguish by their number.
inline constexpr ErrorNumber kSubscriptOutOfRange = 9;
/// Raised by Excel for nearly everything that it refuses.
inline constexpr ErrorNumber kApplicationDefined = 1004;
inline constexpr ErrorNumber kObjectDeleted = 5825;
inline constexpr ErrorNumber kMemberNotFound = 5941;
inline constexpr ErrorNumber kCommandFailed = 4198;
inline constexpr ErrorNumber kFileCouldNotBeRead = 5792;
inline constexpr ErrorNumber kFileCouldNotBeSaved = 5155;
inline constexpr ErrorNumber kNotAvailable = 4605;

/// An error with the number and the text that a caller of an automation interface would see.
class AutomationError : public std::runtime_error {
  public:
    /// The default place is that of the throw expression.
    AutomationError(ErrorNumber number, const std::string& description,
                    const std::source_location& place = std::source_location::current())
        : std::runtime_error(description), number_(number), place_(place) {}

    [[nodiscard]] ErrorNumber number() const { return number_; }
    [[nodiscard]] std::string description() const { return what(); }
    [[nodiscard]] const std::source_location& place() const { return place_; }

  private:
    ErrorNumber number_;
    std::source_location place_;
};

}  // namespace mergeloom
