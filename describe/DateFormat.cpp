#include "describe/DateFormat.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <ctime>

namespace mergeloom::describe {

namespace {

constexpr int kFirstYearOfTm = 1900;
constexpr int kDaysOfWeek = 7;
constexpr int kMonthsOfQuarter = 3;
constexpr const char* kLongDate = "%A, %-d %B %Y";
constexpr const char* kLongDateWithPoint = "%A, %-d. %B %Y";
constexpr const char* kLongDateMonthFirst = "%A, %B %-d, %Y";

struct Token {
    std::string_view access;
    std::string_view format;
};

/// The letters of Access, in lower case. A month after an hour is a minute.
constexpr std::array kTokens{Token{"yyyy", "%Y"}, Token{"yy", "%y"}, Token{"mmmm", "%B"}, Token{"mmm", "%b"},
                             Token{"mm", "%m"},   Token{"m", "%-m"}, Token{"dddd", "%A"}, Token{"ddd", "%a"},
                             Token{"dd", "%d"},   Token{"d", "%-d"}, Token{"hh", "%H"},   Token{"h", "%-H"},
                             Token{"nn", "%M"},   Token{"n", "%-M"}, Token{"ss", "%S"},   Token{"s", "%-S"}};

constexpr std::string_view kLettersOfDays = "ymdwqc";
constexpr std::string_view kHalfDay = "am/pm";
constexpr std::string_view kSeparators = "/-.,: ";

std::string formattedTm(const std::tm& date, const std::string& format) {
    // strftime returns 0 for an empty text and for one without room; the end distinguishes them.
    const std::string withEnd = format + ".";
    std::string text(64, '\0');
    std::size_t size = 0;
    while ((size = std::strftime(text.data(), text.size(), withEnd.c_str(), &date)) == 0)
        text.resize(text.size() * 2);
    text.resize(size - 1);
    return text;
}

/// Returns the number of the day in its year, from 0.
int dayOfYear(const std::tm& date) {
    const std::chrono::year year(date.tm_year + kFirstYearOfTm);
    const std::chrono::sys_days day(
        std::chrono::year_month_day(year, std::chrono::month(static_cast<unsigned>(date.tm_mon + 1)),
                                    std::chrono::day(static_cast<unsigned>(date.tm_mday))));
    return static_cast<int>((day - std::chrono::sys_days(year / 1 / 1)).count());
}

/// Returns the number of the week in its year. The first week is that of 1 January, and weeks begin on
/// Sunday.
int weekOfYear(const std::tm& date) {
    const int day = dayOfYear(date);
    const int weekdayOfFirst = ((date.tm_wday - day) % kDaysOfWeek + kDaysOfWeek) % kDaysOfWeek;
    return (day + weekdayOfFirst) / kDaysOfWeek + 1;
}

/// Returns a format of long dates for a locale without one, with the order and the point of the locale's
/// date.
const char* longDateLike(const std::string& date) {
    if (date.starts_with("%m") || date.starts_with("%D")) return kLongDateMonthFirst;
    return date.starts_with("%d.") ? kLongDateWithPoint : kLongDate;
}

std::string longDate(const IsoDate& date, const Conventions& conventions) {
    return formattedTm(date.fields,
                       conventions.longDate.empty() ? longDateLike(conventions.date) : conventions.longDate);
}

/// Writes a date by a format in lower case.
class DateWriter {
  public:
    DateWriter(const IsoDate& date, std::string_view format, const Conventions& conventions)
        : date_(date),
          rest_(format),
          conventions_(conventions),
          hasHalfDay_(format.find(kHalfDay) != std::string_view::npos) {}

    std::optional<std::string> write() {
        while (!rest_.empty()) {
            if (!takeLetters() && !takeLiteral()) return std::nullopt;
        }
        return std::move(result_);
    }

  private:
    bool takeLetters() {
        if (rest_.starts_with(kHalfDay)) {
            rest_.remove_prefix(kHalfDay.size());
            result_ += formattedTm(date_.fields, "%p");
            return true;
        }
        const std::size_t length = std::min(rest_.find_first_not_of(rest_[0]), rest_.size());
        const std::string_view letters = rest_.substr(0, length);
        const bool isMinute = letters[0] == 'm' && length <= 2 && isAfterHour_;
        if (!isMinute && date_.date.empty() && kLettersOfDays.find(letters[0]) != std::string_view::npos)
            return false;
        const std::optional<std::string> text = isMinute ? minute(length) : textOf(letters);
        if (!text) return false;
        rest_.remove_prefix(length);
        isAfterHour_ = letters[0] == 'h';
        result_ += *text;
        return true;
    }

    [[nodiscard]] std::string minute(std::size_t length) const {
        return formattedTm(date_.fields, length == 2 ? "%M" : "%-M");
    }

    [[nodiscard]] std::optional<std::string> textOf(std::string_view letters) const {
        const std::tm& fields = date_.fields;
        if (letters == "q") return std::to_string(fields.tm_mon / kMonthsOfQuarter + 1);
        if (letters == "w") return std::to_string(fields.tm_wday + 1);
        if (letters == "ww") return std::to_string(weekOfYear(fields));
        if (letters == "y") return std::to_string(dayOfYear(fields) + 1);
        if (letters == "ddddd") return shownDay(date_, conventions_);
        if (letters == "dddddd") return longDate(date_, conventions_);
        if (letters == "ttttt") return shownTime(date_, conventions_);
        const auto* const token = std::ranges::find(kTokens, letters, &Token::access);
        if (token == kTokens.end()) return std::nullopt;
        std::string format(token->format);
        if (letters[0] == 'h' && hasHalfDay_) format.back() = 'I';
        return formattedTm(fields, format);
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
        result_ += rest_.substr(begin, end - begin);
        rest_.remove_prefix(length);
        return true;
    }

    const IsoDate& date_;
    std::string_view rest_;
    const Conventions& conventions_;
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

/// Returns the format in letters for a named format.
std::string dateLetters(std::string_view name) {
    constexpr std::array kNamed{Token{"short date", "ddddd"},        Token{"medium date", "dd-mmm-yy"},
                                Token{"long date", "dddddd"},        Token{"short time", "hh:nn"},
                                Token{"medium time", "hh:nn am/pm"}, Token{"long time", "ttttt"}};
    const std::string lower = withLowerLetters(name);
    const auto* const named = std::ranges::find(kNamed, lower, &Token::access);
    return named == kNamed.end() ? lower : std::string(named->format);
}

}  // namespace

std::optional<std::string> formattedDate(const IsoDate& date, std::string_view format,
                                         const Conventions& conventions) {
    const std::string letters = dateLetters(format);
    return letters.empty() ? std::nullopt : DateWriter(date, letters, conventions).write();
}

std::string shownDay(const IsoDate& date, const Conventions& conventions) {
    return conventions.date.empty() ? date.date : formattedTm(date.fields, conventions.date);
}

/// Returns the time of a date, which is midnight if it has none.
std::string shownTime(const IsoDate& date, const Conventions& conventions) {
    if (!conventions.time.empty()) return formattedTm(date.fields, conventions.time);
    return date.time.empty() ? formattedTm(date.fields, "%H:%M:%S") : date.time;
}

}  // namespace mergeloom::describe
