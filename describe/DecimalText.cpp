#include "describe/DecimalText.h"

#include <algorithm>
#include <cstddef>

namespace mergeloom::describe {

namespace {

constexpr std::string_view kDigits = "0123456789";

int compareAmounts(const DecimalParts& a, const DecimalParts& b) {
    if (a.whole.size() != b.whole.size()) return a.whole.size() < b.whole.size() ? -1 : 1;
    const int whole = a.whole.compare(b.whole);
    return whole != 0 ? whole : a.fraction.compare(b.fraction);
}

/// Adds 1 to the last digit of a number without a point.
void increment(std::string& digits) {
    for (std::size_t place = digits.size(); place > 0; --place) {
        if (++digits[place - 1] <= '9') return;
        digits[place - 1] = '0';
    }
    digits.insert(0, "1");
}

}  // namespace

DecimalParts::DecimalParts(std::string_view number) {
    isNegative = number.starts_with('-');
    if (isNegative || number.starts_with('+')) number.remove_prefix(1);
    const std::size_t point = std::min(number.find('.'), number.size());
    whole = number.substr(0, point);
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    fraction = number.substr(std::min(point + 1, number.size()));
    fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);
    if (whole.empty() && fraction.empty()) isNegative = false;
}

bool isDecimal(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    return point + fraction.size() > 0 && text.find_first_not_of(kDigits) >= point &&
           fraction.find_first_not_of(kDigits) == std::string_view::npos;
}

int compareDecimals(std::string_view a, std::string_view b) {
    if (!isDecimal(a) || !isDecimal(b)) {
        const int kinds = static_cast<int>(isDecimal(b)) - static_cast<int>(isDecimal(a));
        return kinds != 0 ? kinds : a.compare(b);
    }
    const DecimalParts left(a);
    const DecimalParts right(b);
    if (left.isNegative != right.isNegative) return left.isNegative ? -1 : 1;
    const int amounts = compareAmounts(left, right);
    return left.isNegative ? -amounts : amounts;
}

std::string roundedDecimal(std::string_view number, int decimals) {
    const DecimalParts parts(number);
    const auto kept = static_cast<std::size_t>(std::max(decimals, 0));
    std::string fraction(parts.fraction.substr(0, kept));
    fraction.resize(kept, '0');
    std::string digits = std::string(parts.whole) + fraction;
    if (parts.fraction.size() > kept && parts.fraction[kept] >= '5') increment(digits);
    if (digits.size() <= kept) digits.insert(0, kept + 1 - digits.size(), '0');
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    if (kept > 0) digits.insert(digits.size() - kept, ".");
    return parts.isNegative && !isZero ? "-" + digits : digits;
}

}  // namespace mergeloom::describe
