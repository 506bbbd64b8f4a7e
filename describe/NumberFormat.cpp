#include "describe/NumberFormat.h"

#include "base/Text.h"
#include "describe/DecimalText.h"
#include "describe/FormatSections.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>
#include <vector>

namespace mergeloom::describe {

namespace {

constexpr std::string_view kNumberSigns = "0#.,%eE!";
constexpr std::size_t kDigitsOfGroup = 3;
constexpr int kUsualDecimals = 2;

enum NumberSection : std::size_t { kPositive, kNegative, kZero, kNull };

/// The digits of a number without leading zeros, the position of its decimal point, and its sign.
struct Digits {
    explicit Digits(const DecimalParts& number)
        : isNegative(number.isNegative),
          text(std::string(number.whole).append(number.fraction)),
          point(static_cast<int>(number.whole.size())) {
        const std::size_t zeros = std::min(text.find_first_not_of('0'), text.size());
        text.erase(0, zeros);
        point -= static_cast<int>(zeros);
    }

    [[nodiscard]] bool isZero() const { return text.find_first_not_of('0') == std::string::npos; }

    /// Returns the amount with the given number of decimals.
    [[nodiscard]] std::string rounded(int decimals) const {
        std::string number = text;
        const auto size = static_cast<int>(number.size());
        if (point <= 0)
            number.insert(0, "0." + std::string(static_cast<std::size_t>(-point), '0'));
        else if (point >= size)
            number.append(static_cast<std::size_t>(point - size), '0');
        else
            number.insert(static_cast<std::size_t>(point), ".");
        return roundedDecimal(number, decimals);
    }

    bool isNegative = false;
    std::string text;
    int point = 0;
};

/// The numbers of the placeholders of a section.
struct Placeholders {
    std::size_t whole = 0;
    std::size_t leastWhole = 0;
    std::size_t decimals = 0;
    std::size_t leastDecimals = 0;
    int scale = 0;  ///< the power of ten by which the number is multiplied
    bool isGrouped = false;
    bool hasPoint = false;
    bool hasExponent = false;
};

Placeholders placeholdersOf(const std::vector<FormatToken>& tokens) {
    Placeholders found;
    std::size_t commas = 0;
    bool isAfterExponent = false;
    for (const FormatToken& token : tokens) {
        if (token.isOneOf("eE")) isAfterExponent = found.hasExponent = true;
        if (token.sign == '%') found.scale += 2;
        if (token.sign == '.' && !isAfterExponent) {
            found.hasPoint = true;
            // Commas before the point divide by thousands.
            found.scale -= static_cast<int>(commas * kDigitsOfGroup);
            commas = 0;
        }
        if (token.sign == ',' && found.whole > 0) ++commas;
        if (!token.isOneOf("0#") || isAfterExponent) continue;
        if (found.hasPoint) {
            ++found.decimals;
            if (token.sign == '0') found.leastDecimals = found.decimals;
            continue;
        }
        if (commas > 0) found.isGrouped = true;
        commas = 0;
        ++found.whole;
        if (token.sign == '0' || found.leastWhole > 0) ++found.leastWhole;
    }
    if (!found.hasPoint) found.scale -= static_cast<int>(commas * kDigitsOfGroup);
    return found;
}

/// Writes a number into the placeholders of a section.
class SectionWriter {
  public:
    SectionWriter(const std::vector<FormatToken>& tokens, const Conventions& conventions)
        : tokens_(tokens), places_(placeholdersOf(tokens)), conventions_(conventions) {
        // Only the C locale has a decimal point without a separator of groups.
        separator_ = conventions.groupSeparator;
        if (separator_.empty() && conventions.decimalPoint == ".") separator_ = ",";
    }

    /// Returns the amount of the number.
    std::string write(Digits digits) {
        digits.point += digits.isZero() ? 0 : places_.scale;
        if (places_.hasExponent) takeExponent(digits);
        std::string number = digits.rounded(static_cast<int>(places_.decimals));
        const std::size_t point = std::min(number.find('.'), number.size());
        whole_ = number.substr(0, point);
        fraction_ = number.substr(std::min(point + 1, number.size()));
        isZero_ = number.find_first_not_of("0.") == std::string::npos;
        if (whole_ == "0") whole_.clear();
        if (whole_.size() < places_.leastWhole) whole_.insert(0, places_.leastWhole - whole_.size(), '0');
        while (fraction_.size() > places_.leastDecimals && fraction_.ends_with('0'))
            fraction_.pop_back();
        for (std::size_t place = 0; place < tokens_.size(); ++place)
            writeToken(place);
        return std::move(text_);
    }
    /// Returns true if the digits that were written are zeros.
    [[nodiscard]] bool isZero() const { return isZero_; }

  private:
    /// Moves the point so that the number fills the placeholders before it.
    void takeExponent(Digits& digits) {
        if (digits.isZero()) return;
        const auto whole = static_cast<int>(std::max<std::size_t>(places_.whole, 1));
        exponent_ = digits.point - whole;
        digits.point = whole;
        const std::string number = digits.rounded(static_cast<int>(places_.decimals));
        if (std::min(number.find('.'), number.size()) == static_cast<std::size_t>(whole)) return;
        ++exponent_;
        --digits.point;
    }

    void writeToken(std::size_t& place) {
        const FormatToken& token = tokens_[place];
        text_ += token.literal;
        if (token.sign == '%') text_ += '%';
        if (token.isOneOf("eE")) return writeExponent(place);
        if (token.sign == '.') {
            if (places_.whole == 0) text_ += whole_;
            text_ += conventions_.decimalPoint;
            isAfterPoint_ = true;
        }
        if (token.isOneOf("0#")) isAfterPoint_ ? writeDecimal() : writeWhole();
    }

    /// Writes the digit of a placeholder before the point; for the first one also all digits before it.
    void writeWhole() {
        const std::size_t right = places_.whole - ++writtenWhole_;
        const std::size_t end = whole_.size() - std::min(right, whole_.size());
        const std::size_t begin = writtenWhole_ == 1 ? 0 : end - std::min<std::size_t>(end, 1);
        for (std::size_t digit = begin; digit < end; ++digit) {
            text_ += whole_[digit];
            const std::size_t left = whole_.size() - digit - 1;
            if (places_.isGrouped && left > 0 && left % kDigitsOfGroup == 0) text_ += separator_;
        }
    }

    void writeDecimal() {
        if (writtenDecimals_ < fraction_.size()) text_ += fraction_[writtenDecimals_];
        ++writtenDecimals_;
    }

    void writeExponent(std::size_t& place) {
        text_ += tokens_[place].sign;
        const bool hasSign = place + 1 < tokens_.size() &&
                             (tokens_[place + 1].literal == "+" || tokens_[place + 1].literal == "-");
        if (exponent_ < 0)
            text_ += '-';
        else if (hasSign && tokens_[place + 1].literal == "+")
            text_ += '+';
        if (hasSign) ++place;
        std::size_t least = 0;
        while (place + 1 < tokens_.size() && tokens_[place + 1].isOneOf("0#")) {
            least += tokens_[++place].sign == '0' ? 1U : 0U;
        }
        const std::string digits = std::to_string(std::abs(exponent_));
        if (digits.size() < least) text_.append(least - digits.size(), '0');
        text_ += digits;
    }

    const std::vector<FormatToken>& tokens_;
    Placeholders places_;
    const Conventions& conventions_;
    std::string separator_;
    std::string whole_;
    std::string fraction_;
    int exponent_ = 0;
    bool isZero_ = false;
    bool isAfterPoint_ = false;
    std::size_t writtenWhole_ = 0;
    std::size_t writtenDecimals_ = 0;
    std::string text_;
};

std::string quotedLiteral(const std::string& text) {
    return '"' + text + '"';
}

std::string withCurrency(const std::string& number, const std::string& sign, const Conventions& conventions) {
    if (sign.empty()) return number;
    const std::string blank = conventions.isCurrencySpaced ? " " : "";
    return conventions.isCurrencyFirst ? quotedLiteral(sign + blank) + number
                                       : number + quotedLiteral(blank + sign);
}

/// Returns the format in signs for a named format.
std::string numberSigns(std::string_view name, std::optional<int> decimals, const Conventions& conventions) {
    const auto places = static_cast<std::size_t>(std::max(decimals.value_or(kUsualDecimals), 0));
    const std::string fraction = places == 0 ? "" : "." + std::string(places, '0');
    std::string grouped = "#,##0" + fraction;
    const std::string lower = toLowerAscii(name);
    if (lower == "fixed") return "0" + fraction;
    if (lower == "standard") return grouped;
    if (lower == "percent") return "0" + fraction + "%";
    if (lower == "scientific") return "0" + fraction + "E+00";
    if (lower == "currency") return withCurrency(grouped, conventions.currency, conventions);
    if (lower == "euro") return withCurrency(grouped, "€", conventions);
    return std::string(name);
}

/// Returns the digits without zeros at the end.
std::string generalNumber(std::string_view number, const Conventions& conventions) {
    std::string text(number);
    const std::size_t point = text.find('.');
    if (point == std::string::npos) return text;
    text.erase(std::max(text.find_last_not_of('0') + 1, point));
    if (text.ends_with('.'))
        text.pop_back();
    else
        text.replace(point, 1, conventions.decimalPoint);
    return text;
}

}  // namespace

std::optional<std::string> formattedNumber(std::string_view number, std::string_view format,
                                           std::optional<int> decimals, const Conventions& conventions) {
    if (equalsIgnoringAsciiCase(format, "General Number")) return generalNumber(number, conventions);
    const std::string signs = numberSigns(format, decimals, conventions);
    const std::vector<std::string_view> sections = formatSections(signs);
    const Digits digits{DecimalParts(number)};
    const NumberSection wanted = digits.isZero() ? kZero : digits.isNegative ? kNegative : kPositive;
    const bool isOwn = wanted < sections.size() && !sections[wanted].empty();
    const std::optional<std::vector<FormatToken>> tokens =
        tokensOf(sections[isOwn ? wanted : kPositive], kNumberSigns);
    if (!tokens || tokens->empty()) return std::nullopt;
    SectionWriter writer(*tokens, conventions);
    std::string text = writer.write(digits);
    const bool hasSign = digits.isNegative && !isOwn && !writer.isZero();
    return hasSign ? "-" + text : text;
}

std::string formattedNoNumber(std::string_view format) {
    const std::vector<std::string_view> sections = formatSections(format);
    return kNull < sections.size() ? literalOf(sections[kNull]).value_or(std::string()) : std::string();
}

}  // namespace mergeloom::describe
