#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// A date, a time or both, as ISO 8601 writes them.
struct IsoDate {
    std::string date{};  ///< "2024-05-14"; empty for a time alone
    std::string time{};  ///< "09:30:00", perhaps with decimals; empty for a date alone
    std::string zone{};  ///< "Z" or "+02:00"; empty if there is none
    std::tm fields{};

    /// Returns the text with a "T" between date and time.
    [[nodiscard]] std::string text() const;
};

/// Parses a text that is a date, a time, or a date and a time with a blank or a "T" between them. Returns
/// none for other texts and for days and times that do not exist.
std::optional<IsoDate> readIsoDate(std::string_view text);

}  // namespace mergeloom::describe
