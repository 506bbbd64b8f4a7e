#include "describe/access/FieldValue.h"

#include "base/Text.h"

#include <array>
#include <bit>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace mergeloom::describe::access {

namespace {

constexpr unsigned kBitsOfByte = 8;
constexpr unsigned kBitsOfGroup = 32;
constexpr std::size_t kGroupSize = 4;
constexpr std::size_t kGroups = 4;
constexpr int kStoredDecimals = 4;
constexpr std::uint64_t kTen = 10;
constexpr int kSecondsOfDay = 86400;
constexpr int kSecondsOfHour = 3600;
constexpr int kSecondsOfMinute = 60;
constexpr double kFirstDay = -657434;   // 0100-01-01
constexpr double kEndOfDays = 2958466;  // the day after 9999-12-31
constexpr unsigned char kCompressedMark[] = {0xFF, 0xFE};

template <typename... Arguments>
std::string formatted(const char* format, Arguments... arguments) {
    std::array<char, 64> text{};
    const int size = std::snprintf(text.data(), text.size(), format, arguments...);
    return {text.data(), static_cast<std::size_t>(size)};
}

/// Returns the decimal number with the given digits, of which scale are after the point, without trailing
/// zeros.
std::string withPoint(std::string digits, int scale, bool isNegative) {
    const auto decimals = static_cast<std::size_t>(scale);
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    if (decimals > 0) {
        digits.insert(digits.size() - decimals, 1, '.');
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.back() == '.') digits.pop_back();
    }
    return isNegative && digits != "0" ? "-" + digits : digits;
}

std::string timeOf(int second) {
    return formatted("%02d:%02d:%02d", second / kSecondsOfHour, second / kSecondsOfMinute % kSecondsOfMinute,
                     second % kSecondsOfMinute);
}

std::u16string utf16Of(Bytes bytes) {
    std::u16string units;
    for (std::size_t place = 0; place + 1 < bytes.size(); place += 2)
        units += static_cast<char16_t>(unsignedOf(bytes.subspan(place, 2)));
    return units;
}

/// Decompresses text. A byte of 0 switches between characters of one byte and of two.
std::u16string uncompressed(Bytes bytes) {
    std::u16string units;
    bool isCompressed = true;
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        if (bytes[place] == 0) {
            isCompressed = !isCompressed;
        } else if (isCompressed) {
            units += static_cast<char16_t>(bytes[place]);
        } else if (place + 1 < bytes.size()) {
            units += static_cast<char16_t>(unsignedOf(bytes.subspan(place++, 2)));
        }
    }
    return units;
}

}  // namespace

std::uint64_t unsignedOf(Bytes bytes) {
    std::uint64_t number = 0;
    for (std::size_t place = bytes.size(); place > 0; --place)
        number = number << kBitsOfByte | bytes[place - 1];
    return number;
}

std::int64_t signedOf(Bytes bytes) {
    const std::uint64_t number = unsignedOf(bytes);
    switch (bytes.size()) {
        case sizeof(std::int16_t):
            return static_cast<std::int16_t>(number);
        case sizeof(std::int32_t):
            return static_cast<std::int32_t>(number);
        default:
            return static_cast<std::int64_t>(number);
    }
}

double singleOf(Bytes bytes) {
    const float number = std::bit_cast<float>(static_cast<std::uint32_t>(unsignedOf(bytes)));
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number);
    double shown = number;
    std::from_chars(text.data(), end, shown);
    return shown;
}

double doubleOf(Bytes bytes) {
    return std::bit_cast<double>(unsignedOf(bytes));
}

std::string moneyOf(Bytes bytes) {
    const std::int64_t amount = signedOf(bytes);
    const bool isNegative = amount < 0;
    const auto magnitude = static_cast<std::uint64_t>(amount);
    return withPoint(std::to_string(isNegative ? -magnitude : magnitude), kStoredDecimals, isNegative);
}

std::string decimalOf(Bytes bytes, int scale) {
    std::array<std::uint64_t, kGroups> groups{};
    for (std::size_t number = 0; number < kGroups; ++number)
        groups[number] = unsignedOf(bytes.subspan(1 + number * kGroupSize, kGroupSize));
    std::string digits;
    bool isZero = false;
    while (!isZero) {
        // Divides the whole number by ten; the remainder is its last digit.
        std::uint64_t remainder = 0;
        isZero = true;
        for (std::uint64_t& group : groups) {
            const std::uint64_t dividend = remainder << kBitsOfGroup | group;
            group = dividend / kTen;
            remainder = dividend % kTen;
            isZero = isZero && group == 0;
        }
        digits.insert(digits.begin(), static_cast<char>('0' + remainder));
    }
    return withPoint(digits, scale, bytes[0] != 0);
}

std::string dateOf(double days) {
    if (!(days >= kFirstDay && days < kEndOfDays)) return {};
    // For days before day 0, too, the fraction is the time since the beginning of the day.
    double whole = std::trunc(days);
    long second = std::lround(std::fabs(days - whole) * kSecondsOfDay);
    if (second == kSecondsOfDay) {
        second = 0;
        whole += 1;
    }
    std::string time = timeOf(static_cast<int>(second));
    if (whole == 0) return time;
    using namespace std::chrono;
    constexpr sys_days dayZero = year(1899) / December / 30;
    const year_month_day date(dayZero + std::chrono::days(static_cast<int>(whole)));
    const std::string day = formatted("%04d-%02u-%02u", static_cast<int>(date.year()),
                                      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return second == 0 ? day : day + "T" + time;
}

std::string replicationIdOf(Bytes bytes) {
    std::string id = formatted("{%08X-%04X-%04X-", static_cast<unsigned>(unsignedOf(bytes.first(4))),
                               static_cast<unsigned>(unsignedOf(bytes.subspan(4, 2))),
                               static_cast<unsigned>(unsignedOf(bytes.subspan(6, 2))));
    for (std::size_t place = 8; place < 16; ++place) {
        if (place == 10) id += '-';
        id += formatted("%02X", bytes[place]);
    }
    return id + "}";
}

std::string textOf(Bytes bytes) {
    const bool isCompressed =
        bytes.size() >= 2 && bytes[0] == kCompressedMark[0] && bytes[1] == kCompressedMark[1];
    return fromUtf16(isCompressed ? uncompressed(bytes.subspan(2)) : utf16Of(bytes));
}

}  // namespace mergeloom::describe::access
