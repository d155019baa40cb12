/// @file ValueText.h
/// The texts of values: divided at backslashes, trimmed, read as numbers and written from numbers. Pure; the same in
/// every locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vdicom {

/// A text of at most N characters that lives on the stack. What does not fit makes it `overflown` and is left out.
template <std::size_t N> class ShortText {
public:
    std::string_view View() const { return {m_data, m_size}; }
    std::size_t Size() const { return m_size; }
    bool Overflown() const { return m_overflown; }
    void Clear() {
        m_size = 0;
        m_overflown = false;
    }
    void Put(char c) {
        if (m_size < N)
            m_data[m_size++] = c;
        else
            m_overflown = true;
    }
    void Put(std::string_view text) {
        for (const char c : text)
            Put(c);
    }
    /// A number with at least `digits` digits.
    void PutNumber(std::uint64_t number, std::size_t digits = 1) {
        char reversed[20];
        std::size_t count = 0;
        do {
            reversed[count++] = static_cast<char>('0' + number % 10);
            number /= 10;
        } while (number != 0);
        for (std::size_t i = count; i < digits; ++i)
            Put('0');
        while (count > 0)
            Put(reversed[--count]);
    }
    void PutSigned(std::int64_t number) {
        if (number < 0)
            Put('-');
        PutNumber(number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number));
    }

private:
    std::size_t m_size = 0;
    bool m_overflown = false;
    char m_data[N];
};

/// Room for one value in any form but strings: the longest is a range of date-times for people.
using ValueBuffer = ShortText<128>;

/// Where backslashes divide a text. Inside a two-byte character set that an escape sequence switched to (PS3.5
/// 6.1.2.5) a backslash is half a character whatever the rule.
enum class SplitRule : unsigned char {
    Never,      ///< texts of one value
    Everywhere, ///< but in two-byte sets as above
    Chinese     ///< GB18030 and GBK: the second byte of a character may be a backslash (PS3.5 6.1.2.5.4)
};

/// Hands out the values of a text one after the other.
class ValueSplitter {
public:
    ValueSplitter(std::string_view text, SplitRule rule);
    /// The next value as it stands, blanks included; false behind the last. An empty text is one empty value.
    bool Next(std::string_view& value);

private:
    std::size_t FindEnd() const;

    std::string_view m_rest;
    SplitRule m_rule;
    bool m_escapes;
    bool m_done = false;
};

/// How many values Next hands out.
std::size_t CountValues(std::string_view text, SplitRule rule);

/// Whether a backslash follows a byte that may begin a character of GB18030: only then SplitRule::Chinese matters.
bool MayHideBackslash(std::string_view text);

/// A value up to its first zero, without the blanks around it.
std::string_view TrimValue(std::string_view value);
/// A text of one value up to its first zero, without the blanks behind it: those before it count (PS3.5 6.2, ST).
std::string_view TrimText(std::string_view text);

/// @name Numbers of a trimmed text; false, with `number` untouched, when it is none or out of bounds
/// @{
/// "IS": a sign, digits; a fraction of zeros is passed over.
bool ParseInteger(std::string_view text, std::int64_t& number);
/// Digits with a sign where wanted, in bounds.
bool ParseSigned(std::string_view text, std::int64_t lowest, std::int64_t highest, std::int64_t& number);
bool ParseUnsigned(std::string_view text, std::uint64_t highest, std::uint64_t& number);
/// "DS": a fixed or floating point number (PS3.5 6.2).
bool ParseDecimal(std::string_view text, double& number);
/// As ParseDecimal, and "inf", "-inf", "nan", "-nan".
bool ParseReal(std::string_view text, double& number);
bool ParseReal(std::string_view text, float& number);
/// Exactly `digits` hexadecimal digits of either case.
bool ParseHex(std::string_view text, std::size_t digits, std::uint32_t& number);
/// @}

/// The longest value of "DS" (PS3.5 6.2).
constexpr std::size_t kDecimalLimit = 16;

/// "DS" of a number: the shortest text that gives it back, else the closest of at most 16 characters. False for
/// infinities and NaN.
bool FormatDecimal(double number, ValueBuffer& out);
/// "%g".
void FormatGeneral(double number, ValueBuffer& out);
/// "%f".
void FormatFixed(float number, ValueBuffer& out);
void FormatHex(std::uint32_t number, std::size_t digits, ValueBuffer& out);

} // namespace vdicom
