#include "DateRange.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace archive {

namespace {

constexpr std::int64_t kSecond = 1000000, kMinute = 60 * kSecond, kHour = 60 * kMinute;

/// Takes numbers of a fixed width from the front of a text.
class Digits {
public:
    explicit Digits(std::string_view text) : m_rest(text) {}

    bool AtEnd() const { return m_rest.empty(); }
    bool Skip(char c) {
        if (m_rest.empty() || m_rest.front() != c)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }
    /// @return a number from `least` to `most`, or -1
    int Take(std::size_t width, int least, int most) {
        if (m_rest.size() < width)
            return -1;
        int number = 0;
        for (const char c : m_rest.substr(0, width)) {
            if (c < '0' || c > '9')
                return -1;
            number = number * 10 + (c - '0');
        }
        m_rest.remove_prefix(width);
        return number >= least && number <= most ? number : -1;
    }
    std::string_view Rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

// Fractions of a second; more than six digits do not count.
std::optional<TimeSpan> ParseFraction(std::string_view digits, std::int64_t second) {
    if (digits.empty())
        return std::nullopt;
    std::int64_t unit = kSecond;
    std::int64_t value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            return std::nullopt;
        if (unit == 1)
            continue;
        unit /= 10;
        value += (c - '0') * unit;
    }
    return TimeSpan{second + value, second + value + unit - 1};
}

std::optional<TimeSpan> ParseClock(Digits digits, bool colons) {
    const int hour = digits.Take(2, 0, 23);
    if (hour < 0)
        return std::nullopt;
    std::int64_t first = hour * kHour;
    if (digits.AtEnd())
        return TimeSpan{first, first + kHour - 1};
    if (colons)
        digits.Skip(':');
    const int minute = digits.Take(2, 0, 59);
    if (minute < 0)
        return std::nullopt;
    first += minute * kMinute;
    if (digits.AtEnd())
        return TimeSpan{first, first + kMinute - 1};
    if (colons)
        digits.Skip(':');
    const int second = digits.Take(2, 0, 60); // a leap second
    if (second < 0)
        return std::nullopt;
    first += second * kSecond;
    if (digits.AtEnd())
        return TimeSpan{first, first + kSecond - 1};
    return digits.Skip('.') ? ParseFraction(digits.Rest(), first) : std::nullopt;
}

std::int64_t DayNumber(std::chrono::year_month_day date) {
    return std::chrono::sys_days(date).time_since_epoch().count();
}

// +0130 or -0500 at the end, as microseconds to subtract. What is larger than any offset is the bound of a range.
std::optional<std::int64_t> ParseOffset(std::string_view text) {
    if (text.size() != 5 || (text[0] != '+' && text[0] != '-'))
        return std::nullopt;
    Digits digits(text.substr(1));
    const int hours = digits.Take(2, 0, 14);
    const int minutes = digits.Take(2, 0, 59);
    if (hours < 0 || minutes < 0 || (text[0] == '-' && hours * 100 + minutes > 1200))
        return std::nullopt;
    const std::int64_t offset = hours * kHour + minutes * kMinute;
    return text[0] == '-' ? -offset : offset;
}

std::optional<TimeSpan> ParseLocalDateTime(std::string_view text) {
    using namespace std::chrono;
    Digits digits(text);
    const int number = digits.Take(4, 0, 9999);
    if (number < 0)
        return std::nullopt;
    const year y(number);
    if (digits.AtEnd())
        return TimeSpan{DayNumber(y / January / 1) * kDay, DayNumber((y + years(1)) / January / 1) * kDay - 1};
    const int monthNumber = digits.Take(2, 1, 12);
    if (monthNumber < 0)
        return std::nullopt;
    const year_month m = y / month(static_cast<unsigned>(monthNumber));
    if (digits.AtEnd())
        return TimeSpan{DayNumber(m / 1) * kDay, DayNumber((m + months(1)) / 1) * kDay - 1};
    const int day = digits.Take(2, 1, 31);
    if (day < 0 || !(m / day).ok())
        return std::nullopt;
    const std::int64_t midnight = DayNumber(m / day) * kDay;
    if (digits.AtEnd())
        return TimeSpan{midnight, midnight + kDay - 1};
    const std::optional<TimeSpan> clock = ParseClock(digits, false);
    if (!clock)
        return std::nullopt;
    return TimeSpan{midnight + clock->first, midnight + clock->last};
}

} // namespace

std::optional<TimeSpan> ParseDate(std::string_view text) {
    char compact[8];
    if (text.size() == 10 && text[4] == '.' && text[7] == '.') {
        const char parts[] = {text[0], text[1], text[2], text[3], text[5], text[6], text[8], text[9]};
        std::copy(std::begin(parts), std::end(parts), compact);
        text = {compact, sizeof compact};
    }
    return text.size() == 8 ? ParseLocalDateTime(text) : std::nullopt;
}

std::optional<TimeSpan> ParseTime(std::string_view text) { return ParseClock(Digits(text), true); }

std::optional<TimeSpan> ParseDateTime(std::string_view text) {
    std::int64_t offset = 0;
    if (text.size() > 5) {
        if (const std::optional<std::int64_t> found = ParseOffset(text.substr(text.size() - 5))) {
            offset = *found;
            text.remove_suffix(5);
        }
    }
    std::optional<TimeSpan> span = ParseLocalDateTime(text);
    if (span) {
        span->first -= offset;
        span->last -= offset;
    }
    return span;
}

// A hyphen may also begin an offset: the range is where both sides are values.
std::optional<TimeSpan> ParseRange(std::string_view text, SpanParser parse) {
    if (const std::optional<TimeSpan> single = parse(text))
        return single;
    for (std::size_t hyphen = text.find('-'); hyphen != std::string_view::npos; hyphen = text.find('-', hyphen + 1)) {
        const std::string_view lower = text.substr(0, hyphen);
        const std::string_view upper = text.substr(hyphen + 1);
        const std::optional<TimeSpan> from = lower.empty() ? TimeSpan{} : parse(lower);
        const std::optional<TimeSpan> to = upper.empty() ? TimeSpan{} : parse(upper);
        if (from && to && !(lower.empty() && upper.empty()))
            return TimeSpan{from->first, to->last};
    }
    return std::nullopt;
}

bool IsRange(std::string_view text, SpanParser parse) { return !parse(text) && ParseRange(text, parse).has_value(); }

} // namespace archive
