#include "describe/ValueFormat.h"

#include "base/Text.h"
#include "describe/DateFormat.h"
#include "describe/DecimalText.h"
#include "describe/FormatSections.h"
#include "describe/NumberFormat.h"
#include "describe/TextFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>

namespace mergeloom::describe {

namespace {

constexpr std::size_t kDigitsOfGroup = 3;
constexpr std::size_t kLongestNumber = 400;  ///< digits of the largest double with decimals

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

/// Writes a truth value. The second and third section of the format have the texts for true and false.
void writeBoolean(bool value, const std::string& format, ValueText& text) {
    text.shown = value ? "Yes" : "No";
    const std::vector<std::string_view> sections = formatSections(format);
    const std::size_t section = value ? 1 : 2;
    if (section < sections.size()) {
        if (const std::optional<std::string> own = literalOf(sections[section])) text.shown = *own;
    }
    if (equalsIgnoringAsciiCase(format, "True/False")) text.shown = value ? "True" : "False";
    if (equalsIgnoringAsciiCase(format, "On/Off")) text.shown = value ? "On" : "Off";
    text.stored = value ? "true" : "false";
}

bool isNumber(ColumnType type) {
    return type == ColumnType::Integer || type == ColumnType::Decimal || type == ColumnType::Real;
}

/// Returns the text of a format for a missing value.
std::string textOfNull(const Column& column) {
    if (column.format.empty()) return {};
    if (column.type == ColumnType::Text) return formattedText({}, column.format).value_or(std::string());
    return isNumber(column.type) ? formattedNoNumber(column.format) : std::string();
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
        case Value::Kind::Null:
            text.shown = textOfNull(column);
            return;
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
    if (writeByFormat(isDecimal(digits) ? std::string(digits) : digitsOf(number), column, text)) return;
    if (column.type == ColumnType::Decimal) return writeDecimal(digitsOf(number, column.decimals), text);
    text.shown = text.stored;
    writePoint(text.shown);
}

/// Returns false if the format of the column is missing or unknown.
bool ValueFormat::writeByFormat(std::string_view digits, const Column& column, ValueText& text) const {
    if (column.format.empty() || !isNumber(column.type)) return false;
    std::optional<std::string> shown =
        formattedNumber(digits, column.format, column.formatDecimals, conventions_);
    if (shown) text.shown = std::move(*shown);
    return shown.has_value();
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
            if (isDecimal(value) && writeByFormat(value, column, text)) return;
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
        case ColumnType::Text:
            if (column.format.empty()) return;
            if (std::optional<std::string> shown = formattedText(value, column.format))
                text.shown = std::move(*shown);
            return;
        default:
            return;
    }
}

std::string ValueFormat::shownDate(const IsoDate& date, const std::string& format) const {
    if (std::optional<std::string> shown = formattedDate(date, format, conventions_))
        return std::move(*shown);
    std::string shown = date.date.empty() ? std::string() : shownDay(date, conventions_);
    if (date.time.empty()) return shown;
    if (!shown.empty()) shown += ' ';
    shown += shownTime(date, conventions_);
    return date.zone.empty() ? shown : shown + ' ' + date.zone;
}

}  // namespace mergeloom::describe
