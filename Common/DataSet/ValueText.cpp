#include "ValueText.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace vdicom {

namespace {

constexpr char kEscape = 0x1B;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t CountDigits(std::string_view text, std::size_t at) {
    std::size_t count = 0;
    while (at + count < text.size() && IsDigit(text[at + count]))
        ++count;
    return count;
}

enum class Mode { single, two, same };
struct Escape {
    std::string_view rest; // behind the escape character
    Mode mode;
};
// The sequences that switch G0, where the bytes of two-byte characters look like ASCII, and those whose own length
// would upset the counting by twos (PS3.3 C.12.1.1.2; "$@" is the first edition of ISO-IR 87).
constexpr Escape kEscapes[] = {{"$B", Mode::two},    {"$@", Mode::two},    {"$(D", Mode::two},  {"(B", Mode::single},
                               {"(J", Mode::single}, {"(I", Mode::single}, {"$)C", Mode::same}, {"$)A", Mode::same}};

// Steps over the escape character at `at`, with its sequence where it is a known one.
std::size_t ReadEscape(std::string_view text, std::size_t at, bool& twoBytes) {
    const std::string_view rest = text.substr(at + 1);
    for (const Escape& escape : kEscapes) {
        if (!rest.starts_with(escape.rest))
            continue;
        if (escape.mode != Mode::same)
            twoBytes = escape.mode == Mode::two;
        return 1 + escape.rest.size();
    }
    return 1;
}

// A half of a two-byte character in G0.
bool IsHalf(char c) { return c > 0x20 && c < 0x7F; }

bool IsChineseLead(char c) { return static_cast<unsigned char>(c) >= 0x81 && static_cast<unsigned char>(c) != 0xFF; }

// Bytes of the character of GB18030 at `at`, of which those with four bytes can be taken one by one: no byte of theirs
// is a backslash or begins a character of two bytes.
std::size_t ChineseLength(std::string_view text, std::size_t at) {
    if (!IsChineseLead(text[at]) || at + 1 >= text.size())
        return 1;
    const auto second = static_cast<unsigned char>(text[at + 1]);
    return second >= 0x40 && second != 0x7F && second != 0xFF ? 2 : 1;
}

template <class Number> bool FromChars(std::string_view text, Number& number) {
    Number parsed{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (error != std::errc() || end != text.data() + text.size())
        return false;
    number = parsed;
    return true;
}

// std::from_chars knows no '+'. A second sign must not become the first.
bool SkipPlus(std::string_view& text) {
    if (text.starts_with('+'))
        text.remove_prefix(1);
    return !text.empty() && (IsDigit(text[0]) || text[0] == '-' || text[0] == '.');
}

bool HasDecimalForm(std::string_view text) {
    std::size_t at = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    std::size_t digits = CountDigits(text, at);
    at += digits;
    if (at < text.size() && text[at] == '.') {
        const std::size_t fraction = CountDigits(text, at + 1);
        digits += fraction;
        at += fraction + 1;
    }
    if (digits == 0)
        return false;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        ++at;
        if (at < text.size() && (text[at] == '-' || text[at] == '+'))
            ++at;
        const std::size_t exponent = CountDigits(text, at);
        if (exponent == 0)
            return false;
        at += exponent;
    }
    return at == text.size();
}

template <class Real> bool ParseFinite(std::string_view text, Real& number) {
    if (!HasDecimalForm(text))
        return false;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    Real parsed{};
    if (!FromChars(text, parsed) || !std::isfinite(parsed))
        return false;
    number = parsed;
    return true;
}

template <class Real> bool ParseAnyReal(std::string_view text, Real& number) {
    const bool negative = text.starts_with('-');
    const std::string_view word = text.substr(negative ? 1 : 0);
    if (word == "inf" || word == "nan") {
        const Real value =
            word == "inf" ? std::numeric_limits<Real>::infinity() : std::numeric_limits<Real>::quiet_NaN();
        number = std::copysign(value, negative ? Real{-1} : Real{1});
        return true;
    }
    return ParseFinite(text, number);
}

template <class Real> void PutReal(Real number, ValueBuffer& out, std::chars_format form) {
    if (!std::isfinite(number)) { // what std::to_chars makes of these differs between libraries
        if (std::signbit(number))
            out.Put('-');
        out.Put(std::isnan(number) ? "nan" : "inf");
        return;
    }
    constexpr int places = 6;
    char digits[64]; // "%f" of the largest float takes 47
    const auto result = std::to_chars(digits, digits + sizeof digits, number, form, places);
    out.Put(std::string_view(digits, static_cast<std::size_t>(result.ptr - digits)));
}

// The exponent without a '+' and leading zeros, which the standard does not ask for: room for more digits.
void ShortenExponent(std::string_view text, ValueBuffer& out) {
    const std::size_t mark = text.find('e');
    if (mark == std::string_view::npos) {
        out.Put(text);
        return;
    }
    out.Put(text.substr(0, mark + 1));
    std::string_view exponent = text.substr(mark + 1);
    if (exponent.starts_with('-'))
        out.Put('-');
    exponent.remove_prefix(1);
    while (exponent.size() > 1 && exponent[0] == '0')
        exponent.remove_prefix(1);
    out.Put(exponent);
}

template <class... Arguments> bool TryDecimal(double number, ValueBuffer& out, Arguments... form) {
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof digits, number, form...);
    if (result.ec != std::errc())
        return false;
    out.Clear();
    ShortenExponent(std::string_view(digits, static_cast<std::size_t>(result.ptr - digits)), out);
    double read = 0;
    // Rounding the largest numbers up would make them infinite.
    return out.Size() <= kDecimalLimit && ParseDecimal(out.View(), read);
}

} // namespace

ValueSplitter::ValueSplitter(std::string_view text, SplitRule rule)
    : m_rest(text), m_rule(rule), m_escapes(text.find(kEscape) != std::string_view::npos) {}

std::size_t ValueSplitter::FindEnd() const {
    if (m_rule == SplitRule::Never)
        return m_rest.size();
    if (m_rule == SplitRule::Everywhere && !m_escapes) {
        const std::size_t end = m_rest.find('\\');
        return end == std::string_view::npos ? m_rest.size() : end;
    }
    bool twoBytes = false;
    std::size_t at = 0;
    while (at < m_rest.size()) {
        const char c = m_rest[at];
        if (c == kEscape) {
            at += ReadEscape(m_rest, at, twoBytes);
        } else if (twoBytes && at + 1 < m_rest.size() && IsHalf(c) && IsHalf(m_rest[at + 1])) {
            at += 2;
        } else if (c == '\\') {
            return at;
        } else {
            if (static_cast<unsigned char>(c) < 0x20)
                twoBytes = false; // the end of a line returns to the first set (PS3.5 6.1.2.5.3)
            at += m_rule == SplitRule::Chinese ? ChineseLength(m_rest, at) : 1;
        }
    }
    return m_rest.size();
}

bool ValueSplitter::Next(std::string_view& value) {
    if (m_done)
        return false;
    const std::size_t end = FindEnd();
    value = m_rest.substr(0, end);
    m_done = end == m_rest.size();
    if (!m_done)
        m_rest.remove_prefix(end + 1);
    return true;
}

std::size_t CountValues(std::string_view text, SplitRule rule) {
    ValueSplitter splitter(text, rule);
    std::size_t count = 0;
    for (std::string_view value; splitter.Next(value);)
        ++count;
    return count;
}

bool MayHideBackslash(std::string_view text) {
    for (std::size_t at = text.find('\\', 1); at != std::string_view::npos; at = text.find('\\', at + 1)) {
        if (IsChineseLead(text[at - 1]))
            return true;
    }
    return false;
}

std::string_view TrimText(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

std::string_view TrimValue(std::string_view value) {
    value = TrimText(value);
    while (value.starts_with(' '))
        value.remove_prefix(1);
    return value;
}

bool ParseInteger(std::string_view text, std::int64_t& number) {
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos) {
        // Many writers print every number as a real one; "5.00" is an integer all the same.
        if (text.find_first_not_of('0', point + 1) != std::string_view::npos)
            return false;
        text = text.substr(0, point);
    }
    return ParseSigned(text, std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
                       number);
}

bool ParseSigned(std::string_view text, std::int64_t lowest, std::int64_t highest, std::int64_t& number) {
    if (text.starts_with("+-") || !SkipPlus(text))
        return false;
    std::int64_t parsed = 0;
    if (!FromChars(text, parsed) || parsed < lowest || parsed > highest)
        return false;
    number = parsed;
    return true;
}

bool ParseUnsigned(std::string_view text, std::uint64_t highest, std::uint64_t& number) {
    if (!SkipPlus(text) || text[0] == '-')
        return false;
    std::uint64_t parsed = 0;
    if (!FromChars(text, parsed) || parsed > highest)
        return false;
    number = parsed;
    return true;
}

bool ParseDecimal(std::string_view text, double& number) { return ParseFinite(text, number); }

bool ParseReal(std::string_view text, double& number) { return ParseAnyReal(text, number); }

bool ParseReal(std::string_view text, float& number) { return ParseAnyReal(text, number); }

bool ParseHex(std::string_view text, std::size_t digits, std::uint32_t& number) {
    if (text.size() != digits)
        return false;
    std::uint32_t parsed = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + digits, parsed, 16);
    if (error != std::errc() || end != text.data() + digits)
        return false;
    number = parsed;
    return true;
}

bool FormatDecimal(double number, ValueBuffer& out) {
    if (!std::isfinite(number))
        return false;
    if (TryDecimal(number, out, std::chars_format::fixed) || TryDecimal(number, out))
        return true;
    constexpr int mostDigits = 16;
    for (int digits = mostDigits; digits > 0; --digits) {
        if (TryDecimal(number, out, std::chars_format::general, digits) ||
            TryDecimal(number, out, std::chars_format::scientific, digits - 1))
            return true;
    }
    return false;
}

void FormatGeneral(double number, ValueBuffer& out) { PutReal(number, out, std::chars_format::general); }

void FormatFixed(float number, ValueBuffer& out) { PutReal(number, out, std::chars_format::fixed); }

void FormatHex(std::uint32_t number, std::size_t digits, ValueBuffer& out) {
    for (std::size_t place = digits; place-- > 0;)
        out.Put("0123456789ABCDEF"[(number >> (4 * place)) & 0xF]);
}

} // namespace vdicom
