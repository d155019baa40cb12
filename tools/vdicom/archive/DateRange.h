/// @file DateRange.h
/// Dates, times and date-times as spans on a time line, and ranges of them as queries have them (PS3.4 C.2.2.2.5).
/// Pure: knows texts alone.
///
/// A value that leaves parts out ("1030") is the span of all that it may mean. A stored value is in a range when its
/// first moment is.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace archive {

/// Microseconds: of dates and date-times since 1970, of times since midnight. Both ends belong to it.
struct TimeSpan {
    std::int64_t first = std::numeric_limits<std::int64_t>::min();
    std::int64_t last = std::numeric_limits<std::int64_t>::max();

    bool Holds(std::int64_t moment) const { return moment >= first && moment <= last; }
};

constexpr std::int64_t kDay = std::int64_t{86400} * 1000000;

/// "20240229", and "2024.02.29" of old files.
std::optional<TimeSpan> ParseDate(std::string_view text);
/// "10", "1030", "103015.25", and "10:30:15" of old files.
std::optional<TimeSpan> ParseTime(std::string_view text);
/// "2024" to "20240229103015.25+0100". With an offset the span is in UTC.
std::optional<TimeSpan> ParseDateTime(std::string_view text);

using SpanParser = std::optional<TimeSpan> (*)(std::string_view);

/// "A", "A-B", "A-" or "-B". @return nullopt when a bound is no value, or both are missing
std::optional<TimeSpan> ParseRange(std::string_view text, SpanParser parse);
/// Whether a text is a range and no single value.
bool IsRange(std::string_view text, SpanParser parse);

} // namespace archive
