#include "describe/IsoDate.h"

#include <charconv>
#include <chrono>
#include <utility>

namespace mergeloom::describe {

namespace {

constexpr int kYearOfTm = 1900;
constexpr int kHoursOfDay = 24;
constexpr int kMinutesOfHour = 60;
constexpr std::size_t kDateLength = 10;    // 2024-05-14
constexpr std::size_t kMinutesLength = 5;  // 09:30

/// Takes parts from the front of a text.
class DateReader {
  public:
    explicit DateReader(std::string_view text) : rest_(text) {}

    bool takeNumber(std::size_t digits, int& number) {
        if (rest_.size() < digits) return false;
        const char* const end = rest_.data() + digits;
        const auto [read, error] = std::from_chars(rest_.data(), end, number);
        if (error != std::errc() || read != end || number < 0) return false;
        rest_.remove_prefix(digits);
        return true;
    }
    bool take(char character) {
        if (!rest_.starts_with(character)) return false;
        rest_.remove_prefix(1);
        return true;
    }
    void skipDigits() {
        while (!rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9')
            rest_.remove_prefix(1);
    }
    [[nodiscard]] std::string_view rest() const { return rest_; }

  private:
    std::string_view rest_;
};

bool takeDate(DateReader& reader, IsoDate& date) {
    const std::string_view text = reader.rest();
    int year = 0;
    int month = 0;
    int day = 0;
    const bool isDate = reader.takeNumber(4, year) && reader.take('-') && reader.takeNumber(2, month) &&
                        reader.take('-') && reader.takeNumber(2, day);
    const std::chrono::year_month_day calendar(std::chrono::year(year),
                                               std::chrono::month(static_cast<unsigned>(month)),
                                               std::chrono::day(static_cast<unsigned>(day)));
    if (!isDate || !calendar.ok()) return false;
    date.date = text.substr(0, kDateLength);
    date.fields.tm_year = year - kYearOfTm;
    date.fields.tm_mon = month - 1;
    date.fields.tm_mday = day;
    date.fields.tm_wday =
        static_cast<int>(std::chrono::weekday(std::chrono::sys_days(calendar)).c_encoding());
    return true;
}

/// Takes the seconds, which may have decimals, after the minutes.
bool takeSeconds(DateReader& reader, IsoDate& date) {
    if (!reader.take(':')) return true;
    if (!reader.takeNumber(2, date.fields.tm_sec)) return false;
    if (reader.take('.')) reader.skipDigits();
    return date.fields.tm_sec < kMinutesOfHour;
}

bool takeTime(DateReader& reader, IsoDate& date) {
    const std::string_view text = reader.rest();
    std::tm& fields = date.fields;
    if (!reader.takeNumber(2, fields.tm_hour) || !reader.take(':') || !reader.takeNumber(2, fields.tm_min))
        return false;
    if (fields.tm_hour >= kHoursOfDay || fields.tm_min >= kMinutesOfHour) return false;
    if (!takeSeconds(reader, date)) return false;
    date.time = text.substr(0, text.size() - reader.rest().size());
    if (date.time.size() == kMinutesLength) date.time += ":00";
    return true;
}

/// Takes "Z" or an offset such as "+02" or "+02:00".
bool takeZone(DateReader& reader, IsoDate& date) {
    const std::string_view text = reader.rest();
    int part = 0;
    if (!reader.take('Z')) {
        if (!reader.take('+') && !reader.take('-')) return true;
        if (!reader.takeNumber(2, part)) return false;
        if (reader.take(':') && !reader.takeNumber(2, part)) return false;
    }
    date.zone = text.substr(0, text.size() - reader.rest().size());
    return true;
}

}  // namespace

std::string IsoDate::text() const {
    return date + (date.empty() || time.empty() ? "" : "T") + time + zone;
}

std::optional<IsoDate> readIsoDate(std::string_view text) {
    IsoDate date;
    DateReader reader(text);
    const bool hasDate = text.size() >= kDateLength && text[4] == '-';
    if (hasDate) {
        if (!takeDate(reader, date)) return std::nullopt;
        if (reader.rest().empty()) return date;
        if (!reader.take('T') && !reader.take(' ')) return std::nullopt;
    }
    const bool isRead = takeTime(reader, date) && takeZone(reader, date) && reader.rest().empty();
    return isRead ? std::optional(std::move(date)) : std::nullopt;
}

}  // namespace mergeloom::describe
