#include "ValueDates.h"

#include <algorithm>
#include <cstring>

namespace vdicom {

namespace {

constexpr std::size_t kFractionDigits = 6;
constexpr VDicomULong kFractionNumber = 0x00FFFFFF;
constexpr unsigned int kFractionZeros = 24;

struct AgeUnit {
    char letter;
    std::string_view name;
};
constexpr AgeUnit kAgeUnits[] = {{'D', "days"}, {'W', "weeks"}, {'M', "months"}, {'Y', "years"}};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Takes between `least` and `most` digits off the text.
bool TakeDigits(std::string_view& text, std::size_t least, std::size_t most, std::string_view& digits) {
    std::size_t count = 0;
    while (count < text.size() && count < most && IsDigit(text[count]))
        ++count;
    if (count < least)
        return false;
    digits = text.substr(0, count);
    text.remove_prefix(count);
    return true;
}

bool TakeNumber(std::string_view& text, std::size_t least, std::size_t most, unsigned short& number) {
    std::string_view digits;
    if (!TakeDigits(text, least, most, digits))
        return false;
    unsigned int parsed = 0;
    for (const char c : digits) // at most four
        parsed = parsed * 10 + static_cast<unsigned int>(c - '0');
    number = static_cast<unsigned short>(parsed);
    return true;
}

bool Take(std::string_view& text, char c) {
    if (!text.starts_with(c))
        return false;
    text.remove_prefix(1);
    return true;
}

bool TakeBlanks(std::string_view& text) {
    const std::size_t size = text.size();
    while (Take(text, ' ')) {
    }
    return text.size() < size;
}

bool TakeFraction(std::string_view& text, VDicomULong& fraction) {
    std::string_view digits;
    if (!TakeDigits(text, 1, kFractionDigits, digits))
        return false;
    VDicomULong zeros = 0;
    while (digits.size() > 1 && digits[0] == '0') {
        digits.remove_prefix(1);
        ++zeros;
    }
    VDicomULong number = 0;
    for (const char c : digits)
        number = number * 10 + static_cast<VDicomULong>(c - '0');
    fraction = (zeros << kFractionZeros) | number;
    return true;
}

void PutFraction(VDicomULong fraction, ValueBuffer& out) {
    for (VDicomULong zeros = fraction >> kFractionZeros; zeros > 0; --zeros)
        out.Put('0');
    out.PutNumber(fraction & kFractionNumber);
}

bool IsFraction(VDicomULong fraction) {
    ValueBuffer digits;
    PutFraction(fraction, digits);
    return digits.Size() <= kFractionDigits;
}

bool IsDay(unsigned int year, unsigned int month, unsigned int day) {
    constexpr unsigned char days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (year > 9999 || month < 1 || month > 12 || day < 1)
        return false;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return day <= (month == 2 && leap ? 29U : days[month - 1]);
}

bool IsTime(unsigned int hours, unsigned int minutes, unsigned int seconds, VDicomULong fraction) {
    return hours < 24 && minutes < 60 && seconds <= 60 && IsFraction(fraction);
}

bool IsOffset(VDicomLong offset) {
    return offset >= -1200 && offset <= 1400 && (offset < 0 ? -offset : offset) % 100 < 60;
}

bool IsDateTime(const VALUEDATETIME& value) {
    if (!IsTime(value.nHours, value.nMinutes, value.nSeconds, value.nFraction) || !IsOffset(value.nOffsetUTC))
        return false;
    if (value.nDay != 0)
        return IsDay(value.nYear, value.nMonth, value.nDay);
    return value.nYear <= 9999 && value.nMonth <= 12 && value.nHours == 0 && value.nMinutes == 0 &&
           value.nSeconds == 0 && value.nFraction == 0;
}

void Put(const VALUETIME& time, ValueBuffer& out, bool colons) {
    out.PutNumber(time.nHours, 2);
    if (colons)
        out.Put(':');
    out.PutNumber(time.nMinutes, 2);
    if (colons)
        out.Put(':');
    out.PutNumber(time.nSeconds, 2);
    out.Put('.');
    PutFraction(time.nFraction, out);
}

VALUETIME TimeOf(const VALUEDATETIME& value) { return {value.nHours, value.nMinutes, value.nSeconds, value.nFraction}; }

bool Same(const VALUEDATETIME& a, const VALUEDATETIME& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Bounds that the type leaves out do not matter.
bool Same(const VALUEDATETIMERANGE& a, const VALUEDATETIMERANGE& b) {
    return a.nType == b.nType && (a.nType == DICOM_RANGE_UPPER || Same(a.Lower, b.Lower)) &&
           (a.nType == DICOM_RANGE_SINGLE || a.nType == DICOM_RANGE_LOWER || Same(a.Upper, b.Upper));
}

bool EncodeDateTime(const VALUEDATETIME& dateTime, bool withOffset, ValueBuffer& out) {
    if (!IsDateTime(dateTime))
        return false;
    out.PutNumber(dateTime.nYear, 4);
    if (dateTime.nMonth != 0)
        out.PutNumber(dateTime.nMonth, 2);
    if (dateTime.nDay != 0) {
        out.PutNumber(dateTime.nDay, 2);
        Put(TimeOf(dateTime), out, false);
    }
    const VDicomLong offset = dateTime.nOffsetUTC;
    if (offset != 0 || withOffset) {
        out.Put(offset < 0 ? '-' : '+');
        out.PutNumber(static_cast<std::uint64_t>(offset < 0 ? -offset : offset), 4);
    }
    return true;
}

constexpr VALUEDATE Unbounded(const VALUEDATE*) { return kEmptyDate; }
constexpr VALUETIME Unbounded(const VALUETIME*) { return kEmptyTime; }
constexpr VALUEDATETIME Unbounded(const VALUEDATETIME*) { return {}; }

// The type of a range and its bounds, whatever the values are. `parse` reads one.
template <class Value, class Range, class ParseOne>
bool ParseRange(std::string_view text, Range& range, ParseOne parse) {
    Value lower = Unbounded(static_cast<const Value*>(nullptr));
    Value upper = lower;
    const auto finish = [&](VALUERANGETYPE type) {
        range = {type, lower, upper};
        return true;
    };
    if (parse(text, lower))
        return finish(DICOM_RANGE_SINGLE);
    if (text.starts_with('-') && parse(TrimValue(text.substr(1)), upper))
        return finish(DICOM_RANGE_UPPER);
    if (text.ends_with('-') && parse(TrimValue(text.substr(0, text.size() - 1)), lower))
        return finish(DICOM_RANGE_LOWER);
    for (std::size_t at = text.rfind('-'); at != std::string_view::npos && at > 0; at = text.rfind('-', at - 1)) {
        if (parse(TrimValue(text.substr(0, at)), lower) && parse(TrimValue(text.substr(at + 1)), upper))
            return finish(DICOM_RANGE_BOTH);
    }
    return false;
}

template <class Range, class PutOne> void PutRange(const Range& range, ValueBuffer& out, PutOne put) {
    if (range.nType != DICOM_RANGE_UPPER)
        put(range.Lower);
    if (range.nType != DICOM_RANGE_SINGLE)
        out.Put('-');
    if (range.nType == DICOM_RANGE_UPPER || range.nType == DICOM_RANGE_BOTH)
        put(range.Upper);
}

template <class Range> bool EncodeRange(const Range& range, ValueBuffer& out) {
    if (range.nType > DICOM_RANGE_BOTH)
        return false;
    bool good = true;
    PutRange(range, out, [&](const auto& value) {
        const std::size_t size = out.Size();
        good = good && Encode(value, out) && out.Size() > size; // a bound must not be empty
    });
    return good;
}

template <class Range> void DisplayRange(const Range& range, ValueBuffer& out) {
    PutRange(range, out, [&](const auto& value) { Display(value, out); });
}

bool ParseDisplay(std::string_view text, VALUEDATE& date) {
    VALUEDATE parsed{};
    unsigned short month = 0;
    unsigned short day = 0;
    unsigned short year = 0;
    if (!TakeNumber(text, 1, 2, month) || !Take(text, '/') || !TakeNumber(text, 1, 2, day) || !Take(text, '/') ||
        !TakeNumber(text, 1, 4, year) || !text.empty())
        return false;
    parsed = {year, month, day};
    date = parsed;
    return true;
}

bool TakeDisplay(std::string_view& text, VALUEDATETIME& value) {
    unsigned short part[6] = {};
    VDicomULong fraction = 0;
    unsigned short offset = 0;
    if (!TakeNumber(text, 1, 2, part[1]) || !Take(text, '/') || !TakeNumber(text, 1, 2, part[2]) || !Take(text, '/') ||
        !TakeNumber(text, 1, 4, part[0]) || !TakeBlanks(text) || !TakeNumber(text, 2, 2, part[3]) || !Take(text, ':') ||
        !TakeNumber(text, 2, 2, part[4]) || !Take(text, ':') || !TakeNumber(text, 2, 2, part[5]) || !Take(text, '.') ||
        !TakeFraction(text, fraction))
        return false;
    const bool west = text.starts_with('-');
    if (!Take(text, west ? '-' : '+') || !TakeNumber(text, 1, 4, offset))
        return false;
    value = {part[0], part[1], part[2], part[3], part[4], part[5], fraction, west ? -VDicomLong{offset} : offset};
    return true;
}

// Where a date-time for people ends is certain: its offset is always there.
bool ParseDisplay(std::string_view text, VALUEDATETIMERANGE& range) {
    VALUEDATETIME lower{};
    VALUEDATETIME upper{};
    VALUERANGETYPE type = DICOM_RANGE_SINGLE;
    if (Take(text, '-')) {
        type = DICOM_RANGE_UPPER;
        if (!TakeDisplay(text, upper))
            return false;
    } else {
        if (!TakeDisplay(text, lower))
            return false;
        if (Take(text, '-')) {
            type = DICOM_RANGE_LOWER;
            if (!text.empty()) {
                type = DICOM_RANGE_BOTH;
                if (!TakeDisplay(text, upper))
                    return false;
            }
        }
    }
    range = {type, lower, upper};
    return text.empty();
}

void PutWithout(std::string_view text, std::string_view left, ValueBuffer& out) {
    for (const char c : text) {
        if (left.find(c) == std::string_view::npos)
            out.Put(c);
    }
}

} // namespace

bool IsEmpty(const VALUEDATE& date) { return std::memcmp(&date, &kEmptyDate, sizeof date) == 0; }

bool IsEmpty(const VALUETIME& time) { return std::memcmp(&time, &kEmptyTime, sizeof time) == 0; }

bool Parse(std::string_view text, VALUEAGE& age) {
    unsigned short number = 0;
    if (!TakeNumber(text, 1, 3, number) || text.size() != 1)
        return false;
    const char letter = text[0] >= 'a' ? static_cast<char>(text[0] - 'a' + 'A') : text[0];
    if (std::ranges::find(kAgeUnits, letter, &AgeUnit::letter) == std::end(kAgeUnits))
        return false;
    age = {number, letter};
    return true;
}

bool Parse(std::string_view text, VALUEDATE& date) {
    const bool points = text.size() == 10;
    unsigned short year = 0;
    unsigned short month = 0;
    unsigned short day = 0;
    if (!TakeNumber(text, 4, 4, year) || (points && !Take(text, '.')) || !TakeNumber(text, 2, 2, month) ||
        (points && !Take(text, '.')) || !TakeNumber(text, 2, 2, day) || !text.empty() || !IsDay(year, month, day))
        return false;
    date = {year, month, day};
    return true;
}

bool Parse(std::string_view text, VALUETIME& time) {
    unsigned short part[3] = {};
    VDicomULong fraction = 0;
    const bool colons = text.find(':') != std::string_view::npos;
    for (std::size_t i = 0; i < std::size(part); ++i) {
        if (i > 0 && text.empty())
            break;
        if ((i > 0 && colons && !Take(text, ':')) || !TakeNumber(text, 2, 2, part[i]))
            return false;
        if (i == 2 && Take(text, '.') && !TakeFraction(text, fraction))
            return false;
    }
    if (!text.empty() || !IsTime(part[0], part[1], part[2], fraction))
        return false;
    time = {part[0], part[1], part[2], fraction};
    return true;
}

bool Parse(std::string_view text, VALUEDATETIME& dateTime) {
    constexpr std::size_t offsetSize = 5;
    constexpr std::size_t fullSize = 14;
    VALUEDATETIME value{};
    if (text.size() > offsetSize && (text[text.size() - offsetSize] == '-' || text[text.size() - offsetSize] == '+')) {
        std::string_view offset = text.substr(text.size() - offsetSize);
        const bool west = offset[0] == '-';
        offset.remove_prefix(1);
        unsigned short number = 0;
        if (!TakeNumber(offset, 4, 4, number) || !offset.empty())
            return false;
        value.nOffsetUTC = west ? -VDicomLong{number} : VDicomLong{number};
        text.remove_suffix(offsetSize);
    }
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos) {
        std::string_view digits = text.substr(point + 1);
        VDicomULong fraction = 0;
        if (point != fullSize || !TakeFraction(digits, fraction) || !digits.empty())
            return false;
        value.nFraction = fraction;
        text = text.substr(0, point);
    }
    unsigned short part[6] = {};
    if (!TakeNumber(text, 4, 4, part[0]))
        return false;
    std::size_t parts = 1;
    for (; parts < std::size(part) && !text.empty(); ++parts) {
        if (!TakeNumber(text, 2, 2, part[parts]))
            return false;
    }
    // A month or day that is there must not be 0.
    if (!text.empty() || (parts > 1 && part[1] == 0) || (parts > 2 && part[2] == 0))
        return false;
    value = {part[0], part[1], part[2], part[3], part[4], part[5], value.nFraction, value.nOffsetUTC};
    if (!IsDateTime(value))
        return false;
    dateTime = value;
    return true;
}

bool Parse(std::string_view text, VALUEDATERANGE& range) {
    return ParseRange<VALUEDATE>(text, range, [](std::string_view one, VALUEDATE& value) { return Parse(one, value); });
}

bool Parse(std::string_view text, VALUETIMERANGE& range) {
    return ParseRange<VALUETIME>(text, range, [](std::string_view one, VALUETIME& value) { return Parse(one, value); });
}

bool Parse(std::string_view text, VALUEDATETIMERANGE& range) {
    return ParseRange<VALUEDATETIME>(text, range,
                                     [](std::string_view one, VALUEDATETIME& value) { return Parse(one, value); });
}

bool Encode(const VALUEAGE& age, ValueBuffer& out) {
    const char letter = age.cUnit;
    if (age.nNumber > 999 || std::ranges::find(kAgeUnits, letter, &AgeUnit::letter) == std::end(kAgeUnits))
        return false;
    out.PutNumber(age.nNumber, 3);
    out.Put(letter);
    return true;
}

bool Encode(const VALUEDATE& date, ValueBuffer& out) {
    if (IsEmpty(date))
        return true;
    if (!IsDay(date.nYear, date.nMonth, date.nDay))
        return false;
    out.PutNumber(date.nYear, 4);
    out.PutNumber(date.nMonth, 2);
    out.PutNumber(date.nDay, 2);
    return true;
}

bool Encode(const VALUETIME& time, ValueBuffer& out) {
    if (IsEmpty(time))
        return true;
    if (!IsTime(time.nHours, time.nMinutes, time.nSeconds, time.nFraction))
        return false;
    Put(time, out, false);
    return true;
}

bool Encode(const VALUEDATETIME& dateTime, ValueBuffer& out) { return EncodeDateTime(dateTime, false, out); }

bool Encode(const VALUEDATERANGE& range, ValueBuffer& out) { return EncodeRange(range, out); }

bool Encode(const VALUETIMERANGE& range, ValueBuffer& out) { return EncodeRange(range, out); }

bool Encode(const VALUEDATETIMERANGE& range, ValueBuffer& out) {
    const auto encode = [&range](bool withOffset, ValueBuffer& text) {
        bool good = range.nType <= DICOM_RANGE_BOTH;
        if (good)
            PutRange(range, text,
                     [&](const VALUEDATETIME& value) { good = good && EncodeDateTime(value, withOffset, text); });
        return good;
    };
    ValueBuffer text;
    if (!encode(false, text))
        return false;
    VALUEDATETIMERANGE read{};
    if (!Parse(text.View(), read) || !Same(read, range)) {
        // "2007-0500" would be a value with an offset: the bounds need offsets to be told apart.
        text.Clear();
        if (!encode(true, text) || !Parse(text.View(), read) || !Same(read, range))
            return false;
    }
    out.Put(text.View());
    return true;
}

void Display(const VALUEAGE& age, ValueBuffer& out) {
    const char letter = age.cUnit;
    const AgeUnit* unit = std::ranges::find(kAgeUnits, letter, &AgeUnit::letter);
    out.PutNumber(age.nNumber);
    out.Put(' ');
    if (unit != std::end(kAgeUnits))
        out.Put(unit->name);
}

void Display(const VALUEDATE& date, ValueBuffer& out) {
    out.PutNumber(date.nMonth, 2);
    out.Put('/');
    out.PutNumber(date.nDay, 2);
    out.Put('/');
    out.PutNumber(date.nYear);
}

void Display(const VALUETIME& time, ValueBuffer& out) { Put(time, out, true); }

void Display(const VALUEDATETIME& dateTime, ValueBuffer& out) {
    Display(VALUEDATE{dateTime.nYear, dateTime.nMonth, dateTime.nDay}, out);
    out.Put("  ");
    Put(TimeOf(dateTime), out, true);
    const VDicomLong offset = dateTime.nOffsetUTC;
    if (offset >= 0)
        out.Put('+');
    out.PutSigned(offset);
}

void Display(const VALUEDATERANGE& range, ValueBuffer& out) { DisplayRange(range, out); }

void Display(const VALUETIMERANGE& range, ValueBuffer& out) { DisplayRange(range, out); }

void Display(const VALUEDATETIMERANGE& range, ValueBuffer& out) { DisplayRange(range, out); }

bool EncodeAgeText(std::string_view text, ValueBuffer& out) {
    VALUEAGE age{};
    if (Parse(text, age))
        return Encode(age, out);
    unsigned short number = 0;
    if (!TakeNumber(text, 1, 3, number) || !TakeBlanks(text))
        return false;
    const AgeUnit* unit = std::ranges::find(kAgeUnits, text, &AgeUnit::name);
    return unit != std::end(kAgeUnits) && Encode(VALUEAGE{number, unit->letter}, out);
}

bool EncodeDateText(std::string_view text, ValueBuffer& out) {
    VALUEDATERANGE range{};
    if (text.find('/') != std::string_view::npos)
        return ParseRange<VALUEDATE>(text, range,
                                     [](std::string_view one, VALUEDATE& value) { return ParseDisplay(one, value); }) &&
               Encode(range, out);
    if (!Parse(text, range))
        return false;
    PutWithout(text, ". ", out);
    return true;
}

bool EncodeTimeText(std::string_view text, ValueBuffer& out) {
    VALUETIMERANGE range{};
    if (!Parse(text, range))
        return false;
    PutWithout(text, ": ", out);
    return true;
}

bool EncodeDateTimeText(std::string_view text, ValueBuffer& out) {
    VALUEDATETIMERANGE range{};
    if (text.find('/') != std::string_view::npos)
        return ParseDisplay(text, range) && Encode(range, out);
    if (!Parse(text, range))
        return false;
    PutWithout(text, " ", out);
    return true;
}

} // namespace vdicom
