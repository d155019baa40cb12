// Texts of values: division, trimming, numbers.
#include "ValueText.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace vdicom;
using namespace std::string_literals;

namespace {

std::vector<std::string> Split(const std::string& text, SplitRule rule) {
    std::vector<std::string> values;
    ValueSplitter splitter(text, rule);
    for (std::string_view value; splitter.Next(value);)
        values.emplace_back(value);
    EXPECT_EQ(values.size(), CountValues(text, rule));
    return values;
}

std::string Decimal(double number) {
    ValueBuffer out;
    return FormatDecimal(number, out) ? std::string(out.View()) : "refused";
}

} // namespace

TEST(ValueText, DividesAtBackslashes) {
    using Values = std::vector<std::string>;
    const struct {
        std::string text;
        SplitRule rule;
        Values values;
    } cases[] = {
        {"", SplitRule::Everywhere, {""}},
        {"\\", SplitRule::Everywhere, {"", ""}},
        {"A\\B C\\", SplitRule::Everywhere, {"A", "B C", ""}},
        {"A\\B", SplitRule::Never, {"A\\B"}},
        // JIS X 0208: the bytes of a character between "ESC $ B" and "ESC ( B" look like ASCII, backslashes included.
        {"\x1B$B\\;\x3B\\\x1B(B\\B", SplitRule::Everywhere, {"\x1B$B\\;\x3B\\\x1B(B", "B"}},
        {"\x1B$(D\\\\\x1B(J\\B", SplitRule::Everywhere, {"\x1B$(D\\\\\x1B(J", "B"}},
        {"\x1B$)C\xB1\xE8\\\x1B$)C\xB1\xE8", SplitRule::Everywhere, {"\x1B$)C\xB1\xE8", "\x1B$)C\xB1\xE8"}},
        {"\x1B$B0!\r\nA\\B", SplitRule::Everywhere, {"\x1B$B0!\r\nA", "B"}},
        // Escape sequences that are cut off, unknown, or come in the middle of a character.
        {"A\x1B\\B", SplitRule::Everywhere, {"A\x1B", "B"}},
        {"\x1B$B0\x1B(B\\B", SplitRule::Everywhere, {"\x1B$B0\x1B(B", "B"}},
        {"A\\\x1B", SplitRule::Everywhere, {"A", "\x1B"}},
        {"A\\\x1B$B0", SplitRule::Everywhere, {"A", "\x1B$B0"}},
        // GB18030: 0x5C as second byte, in two-byte characters only.
        {"\x81\x5C\\B", SplitRule::Chinese, {"\x81\x5C", "B"}},
        {"\x81\x30\x81\x30\\\x81\x5C", SplitRule::Chinese, {"\x81\x30\x81\x30", "\x81\x5C"}},
        {"\x81\x5C\\B", SplitRule::Everywhere, {"\x81", "", "B"}},
        {"\x41\\\x81", SplitRule::Chinese, {"A", "\x81"}},
        {"\x81\x30\\\x41", SplitRule::Chinese, {"\x81\x30", "A"}}, // no four-byte character
    };
    for (const auto& c : cases)
        EXPECT_EQ(Split(c.text, c.rule), c.values) << testing::PrintToString(c.text);
    EXPECT_TRUE(MayHideBackslash("A\\\x81\\"));
    EXPECT_FALSE(MayHideBackslash("\\A\\\x81"));
    EXPECT_FALSE(MayHideBackslash(""));
}

TEST(ValueText, TrimsBlanksAndPadding) {
    EXPECT_EQ(TrimValue("  AB  "), "AB");
    EXPECT_EQ(TrimValue("   "), "");
    EXPECT_EQ(TrimValue("1.2\0"s), "1.2");
    EXPECT_EQ(TrimValue(" A B \0 C"s), "A B");
    EXPECT_EQ(TrimValue("\tA\t"), "\tA\t") << "only the blank counts as space";
    EXPECT_EQ(TrimText("  AB  \0"s), "  AB");
}

TEST(ValueText, ParsesIntegersWithBounds) {
    const struct {
        const char* text;
        bool good;
        std::int64_t number;
    } cases[] = {
        {"0", true, 0},
        {"-0012", true, -12},
        {"+5", true, 5},
        {"5.00", true, 5},
        {"5.", true, 5},
        {"9223372036854775807", true, std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", true, std::numeric_limits<std::int64_t>::min()},
        {"9223372036854775808", false, 0},
        {"", false, 0},
        {"-", false, 0},
        {"+", false, 0},
        {"+-5", false, 0},
        {"--5", false, 0},
        {".", false, 0},
        {"5.5", false, 0},
        {"5 6", false, 0},
        {"5e2", false, 0},
        {"0x10", false, 0},
        {"abc", false, 0},
    };
    for (const auto& c : cases) {
        std::int64_t number = 77;
        EXPECT_EQ(ParseInteger(c.text, number), c.good) << c.text;
        EXPECT_EQ(number, c.good ? c.number : 77) << c.text;
    }
    std::int64_t s = 0;
    EXPECT_TRUE(ParseSigned("-32768", -32768, 32767, s));
    EXPECT_FALSE(ParseSigned("32768", -32768, 32767, s));
    EXPECT_FALSE(ParseSigned("1.0", -32768, 32767, s));
    std::uint64_t u = 0;
    EXPECT_TRUE(ParseUnsigned("18446744073709551615", UINT64_MAX, u));
    EXPECT_EQ(u, UINT64_MAX);
    EXPECT_FALSE(ParseUnsigned("18446744073709551616", UINT64_MAX, u));
    EXPECT_FALSE(ParseUnsigned("65536", 65535, u));
    EXPECT_FALSE(ParseUnsigned("-1", 65535, u));
    std::uint32_t h = 0;
    EXPECT_TRUE(ParseHex("00fF", 4, h));
    EXPECT_EQ(h, 0xFFu);
    for (const char* bad : {"", "FF", "-0FF", "0x10", "00FG", "000FF"})
        EXPECT_FALSE(ParseHex(bad, 4, h)) << bad;
}

TEST(ValueText, ParsesDecimals) {
    const struct {
        const char* text;
        bool good;
        double number;
    } cases[] = {
        {"1.5", true, 1.5},
        {"+.5", true, 0.5},
        {"-5.", true, -5},
        {"1E+02", true, 100},
        {"1.e-1", true, 0.1},
        {"-0", true, -0.0},
        {"", false, 0},
        {".", false, 0},
        {"e5", false, 0},
        {"1e", false, 0},
        {"1e+", false, 0},
        {"1,5", false, 0},
        {"inf", false, 0},
        {"nan", false, 0},
        {"1e400", false, 0},
        {"0x1p3", false, 0},
        {"1.5mm", false, 0},
        {"1 2", false, 0},
        {"+-1", false, 0},
        {"-+1", false, 0},
        {"1.2.3", false, 0},
        {"infinity", false, 0},
        {"4.9e-324", true, 4.9e-324},
    };
    for (const auto& c : cases) {
        double number = 77;
        EXPECT_EQ(ParseDecimal(c.text, number), c.good) << c.text;
        EXPECT_EQ(number, c.good ? c.number : 77) << c.text;
    }
    double real = 0;
    EXPECT_TRUE(ParseReal("-inf", real) && real == -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(ParseReal("-nan", real) && std::isnan(real) && std::signbit(real));
    float single = 0;
    EXPECT_FALSE(ParseReal("3.5e38", single)) << "more than a float holds";
    EXPECT_FALSE(ParseReal("infinity", single));
}

TEST(ValueText, WritesDecimalsOfSixteenCharacters) {
    EXPECT_EQ(Decimal(0), "0");
    EXPECT_EQ(Decimal(100000000), "100000000");
    EXPECT_EQ(Decimal(-0.1), "-0.1");
    EXPECT_EQ(Decimal(1.0 / 3), "0.33333333333333");
    EXPECT_EQ(Decimal(-1.0 / 3), "-0.3333333333333");
    EXPECT_EQ(Decimal(0.000123456789012345), "1.23456789012e-4") << "more digits than in fixed form";
    EXPECT_EQ(Decimal(1e22), "1e22");
    EXPECT_EQ(Decimal(-5e-324), "-5e-324");
    EXPECT_EQ(Decimal(std::numeric_limits<double>::infinity()), "refused");
    EXPECT_EQ(Decimal(std::numeric_limits<double>::quiet_NaN()), "refused");

    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double number = i == 0 ? DBL_MAX : i == 1 ? -DBL_MAX : std::bit_cast<double>(random());
        if (!std::isfinite(number))
            continue;
        const std::string text = Decimal(number);
        ASSERT_LE(text.size(), kDecimalLimit) << number;
        double read = 0;
        ASSERT_TRUE(ParseDecimal(text, read)) << text;
        // "-1.123456789e-100" leaves room for nine digits at least.
        ASSERT_LE(std::fabs(read - number), std::fabs(number) * 1e-8 + DBL_TRUE_MIN) << text;
    }
}

TEST(ValueText, PrintsLikeTheClassicalFormatsInEveryLocale) {
    const std::array<double, 18> numbers = {0,        -0.0,     1,       -1.5,    0.1,      123456,
                                            1234567,  1e-4,     1e-5,    1e100,   -1e-300,  0.333333,
                                            99999.95, 999999.5, DBL_MAX, FLT_MAX, INFINITY, -INFINITY};
    for (const double number : numbers) {
        char expected[400];
        ValueBuffer out;
        FormatGeneral(number, out);
        std::snprintf(expected, sizeof expected, "%g", number);
        EXPECT_EQ(out.View(), expected);
        if (std::isfinite(number) && std::fabs(number) > FLT_MAX)
            continue;
        out.Clear();
        FormatFixed(static_cast<float>(number), out);
        std::snprintf(expected, sizeof expected, "%f", static_cast<double>(static_cast<float>(number)));
        EXPECT_EQ(out.View(), expected);
        EXPECT_FALSE(out.Overflown());
    }
    // Skipped where the machine has no locale with a decimal comma.
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "de-DE"}) {
        if (std::setlocale(LC_NUMERIC, name) == nullptr)
            continue;
        ValueBuffer out;
        FormatGeneral(1.5, out);
        EXPECT_EQ(out.View(), "1.5");
        double read = 0;
        EXPECT_TRUE(ParseReal("1.5", read));
        break;
    }
    std::setlocale(LC_NUMERIC, before.c_str());
}

TEST(ValueText, ShortTextSaysWhenItIsFull) {
    ShortText<4> text;
    text.PutNumber(123, 4);
    EXPECT_EQ(text.View(), "0123");
    EXPECT_FALSE(text.Overflown());
    text.Put('x');
    EXPECT_TRUE(text.Overflown());
    EXPECT_EQ(text.View(), "0123");
    ValueBuffer number;
    number.PutSigned(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(number.View(), "-9223372036854775808");
}
