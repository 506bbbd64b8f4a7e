#include "describe/ValueFormat.h"

#include "base/Text.h"
#include "describe/DateFormat.h"
#include "describe/DecimalText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <initializer_list>
#include <optional>

namespace mergeloom::describe {

namespace {

constexpr std::size_t kDigitsOfGroup = 3;
constexpr std::size_t kLongestNumber = 400;  ///< digits of the largest double with decimals

std::string formatted(const std::tm& date, const std::string& format) {
    // strftime returns 0 for an empty text and for one without room; the end distinguishes them.
    const std::string withEnd = format + ".";
    std::string text(64, '\0');
    std::size_t size = 0;
    while ((size = std::strftime(text.data(), text.size(), withEnd.c_str(), &date)) == 0)
        text.resize(text.size() * 2);
    text.resize(size - 1);
    return text;
}

/// Returns the shortest digits that denote the number.
std::string digitsOf(double number) {
    std::array<char, kLongestNumber> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    return {text.data(), end};
}

std::string digitsOf(double number, int decimals) {
    std::array<char, kLongestNumber> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, decimals);
    return error == std::errc() ? std::string(text.data(), end) : digitsOf(number);
}

/// Returns false if the text is no number of decimal digits.
bool readNumber(std::string_view text, double& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

std::optional<bool> readBoolean(std::string_view text) {
    const auto isOneOf = [text](std::initializer_list<std::string_view> words) {
        return std::ranges::any_of(
            words, [text](std::string_view word) { return equalsIgnoringAsciiCase(text, word); });
    };
    if (isOneOf({"true", "t", "yes", "y", "1", "-1"})) return true;
    if (isOneOf({"false", "f", "no", "n", "0"})) return false;
    return std::nullopt;
}

void writeBoolean(bool value, const std::string& format, ValueText& text) {
    text.shown = value ? "Yes" : "No";
    if (equalsIgnoringAsciiCase(format, "True/False")) text.shown = value ? "True" : "False";
    if (equalsIgnoringAsciiCase(format, "On/Off")) text.shown = value ? "On" : "Off";
    text.stored = value ? "true" : "false";
}

/// Puts separators between the digits before the decimal point.
void group(std::string& number, std::size_t point, const std::string& separator) {
    const std::size_t first = number.starts_with('-') ? 1 : 0;
    for (std::size_t end = point; end > first + kDigitsOfGroup;) {
        end -= kDigitsOfGroup;
        number.insert(end, separator);
    }
}

}  // namespace

void ValueFormat::write(const Value& value, const Column& column, ValueText& text) const {
    text.shown.clear();
    text.stored.clear();
    switch (value.kind) {
        case Value::Kind::Integer:
            return writeInteger(value.integer, column, text);
        case Value::Kind::Real:
            if (column.type == ColumnType::Boolean) return writeBoolean(value.real != 0, column.format, text);
            return writeNumber(value.real, digitsOf(value.real), column, text);
        case Value::Kind::Text:
            return writeText(value.text, column, text);
        default:
            return;
    }
}

void ValueFormat::writeInteger(std::int64_t number, const Column& column, ValueText& text) const {
    if (column.type == ColumnType::Boolean) return writeBoolean(number != 0, column.format, text);
    const std::string digits = std::to_string(number);
    writeNumber(static_cast<double>(number), digits, column, text);
}

/// Writes a Decimal with all its declared digits, in groups, and other numbers with the digits that they
/// need.
void ValueFormat::writeNumber(double number, std::string_view digits, const Column& column,
                              ValueText& text) const {
    text.stored = digits;
    if (column.type == ColumnType::Decimal) return writeDecimal(digitsOf(number, column.decimals), text);
    text.shown = text.stored;
    writePoint(text.shown);
}

/// Writes a decimal number with the separators of the locale.
void ValueFormat::writeDecimal(std::string digits, ValueText& text) const {
    text.shown = std::move(digits);
    const std::size_t point = writePoint(text.shown);
    group(text.shown, point, conventions_.groupSeparator);
}

/// Replaces the point in a number with the decimal separator of the locale. Returns its position, or the
/// length of the number if there is none.
std::size_t ValueFormat::writePoint(std::string& number) const {
    const std::size_t point = number.find('.');
    if (point == std::string::npos) return number.size();
    number.replace(point, 1, conventions_.decimalPoint);
    return point;
}

void ValueFormat::writeText(std::string_view value, const Column& column, ValueText& text) const {
    text.shown = value;
    text.stored = value;
    double number = 0;
    switch (column.type) {
        case ColumnType::Boolean:
            if (const std::optional<bool> boolean = readBoolean(value))
                writeBoolean(*boolean, column.format, text);
            return;
        case ColumnType::Decimal:
            if (isDecimal(value)) return writeDecimal(roundedDecimal(value, column.decimals), text);
            [[fallthrough]];
        case ColumnType::Real:
            if (readNumber(value, number)) writeNumber(number, value, column, text);
            return;
        case ColumnType::Date:
        case ColumnType::Time:
        case ColumnType::DateAndTime:
            if (const std::optional<IsoDate> date = readIsoDate(value)) {
                text.stored = date->text();
                text.shown = shownDate(*date, column.format);
            }
            return;
        default:
            return;
    }
}

std::string ValueFormat::shownDate(const IsoDate& date, const std::string& format) const {
    const std::optional<std::string> stored = strftimeFormat(format);
    // A time alone has no day that a format could show.
    if (stored && !date.date.empty()) return formatted(date.fields, *stored);
    const bool isDay = equalsIgnoringAsciiCase(format, "Short Date") && !date.date.empty();
    std::string shown = conventions_.date.empty() || date.date.empty()
                            ? date.date
                            : formatted(date.fields, conventions_.date);
    if (date.time.empty() || isDay) return shown;
    if (!shown.empty()) shown += ' ';
    shown += conventions_.time.empty() ? date.time : formatted(date.fields, conventions_.time);
    return date.zone.empty() ? shown : shown + ' ' + date.zone;
}

}  // namespace mergeloom::describe
