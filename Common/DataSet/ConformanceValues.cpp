#include "ConformanceValues.h"

#include "ValueDates.h"
#include "ValueText.h"

#include <algorithm>

namespace vdicom {

namespace {

constexpr ValueVerdict kGood{};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }

bool AllOf(std::string_view text, std::string_view others) {
    return std::all_of(text.begin(), text.end(),
                       [others](char c) { return IsDigit(c) || others.find(c) != std::string_view::npos; });
}

ValueVerdict Limit(std::size_t characters, std::size_t most, const char* reason) {
    return characters <= most ? kGood : ValueVerdict{ValueFault::length, reason};
}

ValueVerdict CheckAge(std::string_view value) {
    const bool good = value.size() == 4 && AllOf(value.substr(0, 3), "") &&
                      std::string_view("DWMY").find(value[3]) != std::string_view::npos;
    return good ? kGood : ValueVerdict{ValueFault::form, "three digits and D, W, M or Y"};
}

ValueVerdict CheckDate(std::string_view value) {
    VALUEDATE date;
    if (!AllOf(value, ""))
        return {ValueFault::character, "digits alone"};
    return value.size() == 8 && Parse(value, date) ? kGood : ValueVerdict{ValueFault::form, "a day as YYYYMMDD"};
}

ValueVerdict CheckTime(std::string_view value) {
    VALUETIME time;
    if (!AllOf(value, "."))
        return {ValueFault::character, "digits and a point alone"};
    return Parse(value, time) ? kGood : ValueVerdict{ValueFault::form, "a time as HHMMSS.FFFFFF"};
}

ValueVerdict CheckDateTime(std::string_view value) {
    VALUEDATETIME dateTime;
    if (!AllOf(value, ".+-"))
        return {ValueFault::character, "digits, a point and a sign alone"};
    if (value.size() > 26)
        return {ValueFault::length, "at most 26 characters"};
    return Parse(value, dateTime) ? kGood
                                  : ValueVerdict{ValueFault::form, "a date and time as YYYYMMDDHHMMSS.FFFFFF&ZZXX"};
}

ValueVerdict CheckInteger(std::string_view value, std::size_t size) {
    std::int64_t number = 0;
    if (!AllOf(value, "+-"))
        return {ValueFault::character, "digits and a sign alone"};
    if (size > 12)
        return {ValueFault::length, "at most 12 characters"};
    return ParseSigned(value, -2147483648LL, 2147483647LL, number)
               ? kGood
               : ValueVerdict{ValueFault::form, "an integer from -2147483648 to 2147483647"};
}

ValueVerdict CheckDecimal(std::string_view value, std::size_t size) {
    double number = 0;
    if (!AllOf(value, "+-.eE"))
        return {ValueFault::character, "digits, signs, a point and E alone"};
    if (size > kDecimalLimit)
        return {ValueFault::length, "at most 16 characters"};
    return ParseDecimal(value, number) ? kGood : ValueVerdict{ValueFault::form, "a decimal number"};
}

ValueVerdict CheckUid(std::string_view value) {
    if (!AllOf(value, "."))
        return {ValueFault::uid, "digits and points alone"};
    if (value.size() > 64)
        return {ValueFault::uid, "at most 64 characters"};
    for (std::size_t at = 0; at <= value.size();) {
        const std::size_t end = std::min(value.find('.', at), value.size());
        if (end == at)
            return {ValueFault::uid, "no empty component"};
        if (value[at] == '0' && end > at + 1)
            return {ValueFault::uid, "no component that begins with a zero"};
        at = end + 1;
    }
    // An object identifier: two components at least, of which the first is 0, 1 or 2 (PS3.5 9.1, ISO/IEC 8824).
    const bool root = value.size() > 2 && value[0] <= '2' && value[1] == '.';
    return root ? kGood : ValueVerdict{ValueFault::uid, "at least two components, the first of them 0, 1 or 2"};
}

// Component groups are divided by "=", components by "^" (PS3.5 6.2.1). Both are ASCII in every character set that
// may stand in a name, but for the two-byte sets, where they may be halves of characters: such texts are not divided.
ValueVerdict CheckName(std::string_view value, std::size_t characters) {
    if (value.find('\x1B') != std::string_view::npos)
        return kGood;
    std::size_t groups = 1;
    std::size_t carets = 0;
    std::size_t length = 0;
    for (const char c : value) {
        if (c == '=') {
            ++groups;
            carets = 0;
            length = 0;
            continue;
        }
        ++length;
        if (c == '^' && ++carets > 4)
            return {ValueFault::form, "at most five components in a group"};
        // Bytes are at least as many as characters, so only plain texts can be judged group by group.
        if (length > 64 && characters == value.size())
            return {ValueFault::length, "at most 64 characters in a group"};
    }
    return groups <= 3 ? kGood : ValueVerdict{ValueFault::form, "at most three groups"};
}

ValueVerdict CheckCode(std::string_view value, std::size_t size) {
    const bool good = std::all_of(value.begin(), value.end(),
                                  [](char c) { return IsDigit(c) || (c >= 'A' && c <= 'Z') || c == ' ' || c == '_'; });
    if (!good)
        return {ValueFault::character, "capital letters, digits, blanks and underscores alone"};
    return Limit(size, 16, "at most 16 characters");
}

ValueVerdict CheckTitle(std::string_view value, std::size_t size) {
    const bool good = std::all_of(value.begin(), value.end(), [](char c) {
        return !IsControl(c) && static_cast<unsigned char>(c) < 0x80 && c != '\\';
    });
    return good ? Limit(size, 16, "at most 16 characters")
                : ValueVerdict{ValueFault::character, "printable characters of the default repertoire alone"};
}

bool HasControls(std::string_view value, std::string_view allowed) {
    return std::any_of(value.begin(), value.end(),
                       [allowed](char c) { return IsControl(c) && allowed.find(c) == std::string_view::npos; });
}

ValueVerdict CheckText(unsigned short code, std::string_view value, std::size_t characters) {
    const bool lines = code == vr::LT || code == vr::ST || code == vr::UT;
    if (HasControls(value, lines ? "\t\n\f\r\x1B" : "\x1B"))
        return {ValueFault::character,
                lines ? "no control characters but TAB, LF, FF, CR and ESC" : "no control characters but ESC"};
    switch (code) {
    case vr::LO:
        return Limit(characters, 64, "at most 64 characters");
    case vr::SH:
        return Limit(characters, 16, "at most 16 characters");
    case vr::ST:
        return Limit(characters, 1024, "at most 1024 characters");
    case vr::LT:
        return Limit(characters, 10240, "at most 10240 characters");
    case vr::PN:
        return CheckName(value, characters);
    default:
        return kGood;
    }
}

} // namespace

ValueVerdict CheckTextValue(unsigned short code, std::string_view value, std::size_t characters) {
    const std::size_t first = value.find_first_not_of(' ');
    const std::size_t last = value.find_last_not_of(' ');
    const std::string_view trimmed =
        first == std::string_view::npos ? std::string_view() : value.substr(first, last - first + 1);
    if (trimmed.empty()) // an empty value, which multiplicity and type speak of
        return kGood;
    switch (code) {
    case vr::AE:
        return CheckTitle(trimmed, trimmed.size());
    case vr::AS:
        return CheckAge(trimmed);
    case vr::CS:
        return CheckCode(trimmed, value.size());
    case vr::DA:
        return CheckDate(trimmed);
    case vr::DS:
        return CheckDecimal(trimmed, value.size());
    case vr::DT:
        return CheckDateTime(trimmed);
    case vr::IS:
        return CheckInteger(trimmed, value.size());
    case vr::TM:
        return CheckTime(trimmed);
    case vr::UI:
        return CheckUid(value);
    case vr::UR:
        return first != 0 ? ValueVerdict{ValueFault::form, "no blanks at the start"}
                          : CheckText(code, value, characters);
    default:
        return CheckText(code, value, characters);
    }
}

std::size_t BinaryValueSize(unsigned short code) {
    switch (code) {
    case vr::AT:
    case vr::FL:
    case vr::OF:
    case vr::OL:
    case vr::SL:
    case vr::UL:
        return 4;
    case vr::FD:
    case vr::OD:
    case vr::OV:
    case vr::SV:
    case vr::UV:
        return 8;
    case vr::OW:
    case vr::SS:
    case vr::US:
        return 2;
    default:
        return 1;
    }
}

std::size_t CountBinaryValues(unsigned short code, std::size_t length) {
    const std::size_t size = BinaryValueSize(code);
    if (length % size != 0)
        return 0;
    const bool stream = code == vr::OB || code == vr::OD || code == vr::OF || code == vr::OL || code == vr::OV ||
                        code == vr::OW || code == vr::UN;
    return stream ? 1 : length / size;
}

std::string_view WithoutPadding(unsigned short code, std::string_view text, bool& zeros) {
    zeros = false;
    std::size_t size = text.size();
    if (code == vr::UI) {
        if (size > 0 && text[size - 1] == '\0')
            --size;
        return text.substr(0, size);
    }
    for (; size > 0 && (text[size - 1] == '\0' || text[size - 1] == ' '); --size)
        zeros = zeros || text[size - 1] == '\0';
    return text.substr(0, size);
}

} // namespace vdicom
