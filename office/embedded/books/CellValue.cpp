#include "office/embedded/books/CellValue.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <vector>

namespace mergeloom::embedded {

namespace {

constexpr std::size_t kMaxExactDigits = 15;
constexpr int kSecondsOfDay = 24 * 60 * 60;

bool isDecimalDigit(char character) {
    return character >= '0' && character <= '9';
}

std::size_t digitsAt(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, isDecimalDigit) - text.begin());
}

/// Removes the digits at the beginning of a text and returns them.
std::string_view takeDigits(std::string_view& text) {
    const std::string_view digits = text.substr(0, digitsAt(text));
    text.remove_prefix(digits.size());
    return digits;
}

/// Returns true for a number in plain notation that a cell stores without a change of its value.
bool isExactNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    const std::string_view whole = takeDigits(text);
    if (whole.empty() || (whole.size() > 1 && whole.front() == '0')) return false;
    std::size_t digits = whole.size();
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        const std::string_view fraction = takeDigits(text);
        if (fraction.empty()) return false;
        digits += fraction.size();
    }
    return text.empty() && digits <= kMaxExactDigits;
}

/// Removes a number of exactly so many digits, and the separator before it.
std::optional<int> takeNumber(std::string_view& text, std::string_view separator, std::size_t size) {
    if (!text.starts_with(separator) || digitsAt(text.substr(separator.size())) < size) return {};
    const int number = std::atoi(std::string(text.substr(separator.size(), size)).c_str());
    text.remove_prefix(separator.size() + size);
    return number;
}

struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    bool hasTime = false;
    double seconds = 0;
};

/// Reads "13:45" or "13:45:30.5", with or without "Z".
bool readTime(std::string_view text, DateTime& date) {
    const std::optional<int> hour = takeNumber(text, "", 2);
    const std::optional<int> minute = takeNumber(text, ":", 2);
    if (!hour || !minute || *hour > 23 || *minute > 59) return false;
    double second = 0;
    if (text.starts_with(':')) {
        text.remove_prefix(1);
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), second);
        if (error != std::errc() || second < 0 || second >= 60) return false;
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    }
    date.hasTime = true;
    date.seconds = *hour * 3600 + *minute * 60 + second;
    return text.empty() || text == "Z";
}

std::optional<DateTime> readDate(std::string_view text) {
    const std::optional<int> year = takeNumber(text, "", 4);
    const std::optional<int> month = takeNumber(text, "-", 2);
    const std::optional<int> day = takeNumber(text, "-", 2);
    if (!year || !month || !day) return {};
    const std::chrono::year_month_day valid{std::chrono::year(*year),
                                            std::chrono::month(static_cast<unsigned>(*month)),
                                            std::chrono::day(static_cast<unsigned>(*day))};
    if (!valid.ok()) return {};
    DateTime date{.year = *year, .month = *month, .day = *day};
    if (text.empty()) return date;
    if (!text.starts_with('T') && !text.starts_with(' ')) return {};
    if (!readTime(text.substr(1), date)) return {};
    return date;
}

/// Returns the number of days, or nothing for a date before the first one. In the system from 1900 there is a
/// 29 February 1900, which was none.
std::optional<int> serialDay(const DateTime& date, DateSystem system) {
    using namespace std::chrono;
    const sys_days day = year(date.year) / month(static_cast<unsigned>(date.month)) /
                         std::chrono::day(static_cast<unsigned>(date.day));
    if (system == DateSystem::From1904) {
        const auto days = (day - sys_days(year(1904) / January / 1)).count();
        return days < 0 ? std::nullopt : std::optional(static_cast<int>(days));
    }
    const auto days = (day - sys_days(year(1899) / December / 30)).count();
    const auto serial = days < 61 ? days - 1 : days;
    return serial < 1 ? std::nullopt : std::optional(static_cast<int>(serial));
}

std::string numberText(double number) {
    std::array<char, 32> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, 15);
    return {text.data(), end};
}

std::optional<CellValue> dateValue(std::string_view text, DateSystem system) {
    const std::optional<DateTime> date = readDate(text);
    const std::optional<int> day = date ? serialDay(*date, system) : std::nullopt;
    if (!day) return {};
    if (!date->hasTime) return CellValue{CellValue::Kind::Date, std::to_string(*day)};
    return CellValue{CellValue::Kind::DateAndTime, numberText(*day + date->seconds / kSecondsOfDay)};
}

/// Returns the number that a text shows with that decimal sign; nothing for anything but digits, signs and
/// separators.
std::optional<double> shownNumber(std::string_view text, char decimalSign, std::size_t& decimals) {
    std::string plain;
    decimals = 0;
    bool isFraction = false;
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text);
        if (character == static_cast<char32_t>(decimalSign) && !isFraction) {
            isFraction = true;
            plain += '.';
        } else if (character == U'-' || (character >= U'0' && character <= U'9')) {
            plain += static_cast<char>(character);
            decimals += isFraction ? 1 : 0;
        } else {
            const bool isSeparator = character == U',' || character == U'.' || character == U' ' ||
                                     character == U'\'' || character == U'\u00A0' || character == U'\u202F';
            if (!isSeparator || isFraction) return {};
        }
    }
    double number = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
    if (error != std::errc() || end != plain.data() + plain.size()) return {};
    return number;
}

/// Returns true if a text shows a number, perhaps rounded.
bool showsNumber(std::string_view shown, const std::string& stored) {
    const double number = std::atof(stored.c_str());
    return std::ranges::any_of(std::array{'.', ','}, [&](char decimalSign) {
        std::size_t decimals = 0;
        const std::optional<double> read = shownNumber(shown, decimalSign, decimals);
        const double precision = std::pow(10.0, -static_cast<double>(decimals));
        return read && std::abs(*read - number) <= precision / 2 + 1e-9 * std::abs(number);
    });
}

/// Returns true if the numbers in a text are those of a date, in any order. The month may be a word.
bool showsDate(std::string_view shown, const DateTime& date) {
    bool hasDay = false;
    bool hasMonth = false;
    bool hasYear = false;
    const bool hasWord = std::ranges::any_of(shown, isAsciiLetter);
    while (!shown.empty()) {
        const std::string_view digits = takeDigits(shown);
        if (digits.empty()) {
            shown.remove_prefix(1);
            continue;
        }
        const int number = digits.size() > 4 ? -1 : std::atoi(std::string(digits).c_str());
        if (number == date.day && !hasDay) {
            hasDay = true;
        } else if (number == date.month && !hasMonth) {
            hasMonth = true;
        } else if ((number == date.year || number == date.year % 100) && !hasYear) {
            hasYear = true;
        } else if (!date.hasTime || !hasDay || !hasYear) {
            return false;
        }
    }
    return hasDay && (hasMonth || hasWord) && hasYear;
}

bool showsSame(const std::string& shown, const std::string& bound, const CellValue& value) {
    switch (value.kind) {
        case CellValue::Kind::Number:
            return showsNumber(shown, value.text);
        case CellValue::Kind::Boolean:
            return equalsIgnoringAsciiCase(shown, bound);
        case CellValue::Kind::Date:
        case CellValue::Kind::DateAndTime:
            return showsDate(shown, *readDate(bound));
        default:
            return false;
    }
}

CellValue textValue(const std::string& text) {
    return {text.empty() ? CellValue::Kind::Empty : CellValue::Kind::Text, text};
}

}  // namespace

CellValue readStored(std::string_view text, DateSystem dates) {
    if (isExactNumber(text)) return {CellValue::Kind::Number, std::string(text)};
    if (equalsIgnoringAsciiCase(text, "true")) return {CellValue::Kind::Boolean, "1"};
    if (equalsIgnoringAsciiCase(text, "false")) return {CellValue::Kind::Boolean, "0"};
    if (const std::optional<CellValue> date = dateValue(text, dates)) return *date;
    return textValue(std::string(text));
}

CellValue cellValueOf(const RecordControl& control, letters::ValueKind kind, NumberFormat format,
                      DateSystem dates) {
    const bool isBound = kind == letters::ValueKind::Bound;
    const std::string& shown = isBound ? control.boundValue : control.shownText();
    if (format == NumberFormat::Text) return textValue(shown);
    CellValue stored = readStored(control.boundValue, dates);
    if (isBound || showsSame(shown, control.boundValue, stored)) return stored;
    if (control.boundValue.empty() && format == NumberFormat::Other) return readStored(shown, dates);
    return textValue(shown);
}

}  // namespace mergeloom::embedded
