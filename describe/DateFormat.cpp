#include "describe/DateFormat.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace mergeloom::describe {

namespace {

struct Token {
    std::string_view access;
    std::string_view format;
};

/// The letters of Access, in lower case. A month after an hour is a minute.
constexpr std::array kTokens{Token{"yyyy", "%Y"}, Token{"yy", "%y"}, Token{"mmmm", "%B"}, Token{"mmm", "%b"},
                             Token{"mm", "%m"},   Token{"m", "%-m"}, Token{"dddd", "%A"}, Token{"ddd", "%a"},
                             Token{"dd", "%d"},   Token{"d", "%-d"}, Token{"hh", "%H"},   Token{"h", "%-H"},
                             Token{"nn", "%M"},   Token{"n", "%-M"}, Token{"ss", "%S"},   Token{"s", "%-S"}};

constexpr std::array kNamed{Token{"medium date", "%d-%b-%y"}, Token{"short time", "%H:%M"},
                            Token{"medium time", "%I:%M %p"}};

constexpr std::string_view kHalfDay = "am/pm";
constexpr std::string_view kSeparators = "/-.,: ";

class DateTranslator {
  public:
    explicit DateTranslator(std::string_view format)
        : rest_(format), hasHalfDay_(format.find(kHalfDay) != format.npos) {}

    std::optional<std::string> translate() {
        while (!rest_.empty()) {
            if (!takeLetters() && !takeLiteral()) return std::nullopt;
        }
        return std::move(result_);
    }

  private:
    bool takeLetters() {
        if (rest_.starts_with(kHalfDay)) {
            rest_.remove_prefix(kHalfDay.size());
            result_ += "%p";
            return true;
        }
        const std::size_t length = std::min(rest_.find_first_not_of(rest_[0]), rest_.size());
        const std::string_view letters = rest_.substr(0, length);
        const auto* const token = std::ranges::find(kTokens, letters, &Token::access);
        if (token == kTokens.end()) return false;
        rest_.remove_prefix(length);
        std::string format(token->format);
        if (letters[0] == 'm' && length <= 2 && isAfterHour_) format = length == 2 ? "%M" : "%-M";
        if (letters[0] == 'h' && hasHalfDay_) format.back() = 'I';
        isAfterHour_ = letters[0] == 'h';
        result_ += format;
        return true;
    }

    bool takeLiteral() {
        std::size_t begin = 0;
        std::size_t end = 1;
        std::size_t length = 1;
        if (rest_[0] == '"') {
            begin = 1;
            end = rest_.find('"', 1);
            length = end + 1;
            if (end == std::string_view::npos) return false;
        } else if (rest_[0] == '\\') {
            begin = 1;
            end = length = 2;
        } else if (kSeparators.find(rest_[0]) == std::string_view::npos) {
            return false;
        }
        if (length > rest_.size()) return false;
        result_ += replaceAll(rest_.substr(begin, end - begin), "%", "%%");
        rest_.remove_prefix(length);
        return true;
    }

    std::string_view rest_;
    bool hasHalfDay_;
    bool isAfterHour_ = false;
    std::string result_;
};

/// Returns a format in lower case. Letters in quotes and after a backslash keep their case.
std::string withLowerLetters(std::string_view format) {
    std::string lower(format);
    bool isQuoted = false;
    bool isEscaped = false;
    for (char& letter : lower) {
        if (letter == '"' && !isEscaped) isQuoted = !isQuoted;
        if (!isQuoted && !isEscaped) letter = toLowerAscii(letter);
        isEscaped = letter == '\\' && !isQuoted && !isEscaped;
    }
    return lower;
}

}  // namespace

std::optional<std::string> strftimeFormat(std::string_view format) {
    const std::string lower = withLowerLetters(format);
    const auto* const named = std::ranges::find(kNamed, lower, &Token::access);
    if (named != kNamed.end()) return std::string(named->format);
    return lower.empty() ? std::nullopt : DateTranslator(lower).translate();
}

}  // namespace mergeloom::describe
