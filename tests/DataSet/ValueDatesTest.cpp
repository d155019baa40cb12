// Ages, dates, times, date-times and ranges: what data sets hold, and the forms for people.
#include "ValueDates.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace vdicom;

namespace {

template <class Value> std::string Encoded(const Value& value) {
    ValueBuffer out;
    return Encode(value, out) ? std::string(out.View()) : "refused";
}

template <class Value> std::string Displayed(const Value& value) {
    ValueBuffer out;
    Display(value, out);
    EXPECT_FALSE(out.Overflown());
    return std::string(out.View());
}

// What a data set holds, as the form for people shows it; "no" when it is no such value.
template <class Value> std::string Shown(std::string_view text) {
    Value value{};
    return Parse(text, value) ? Displayed(value) : "no";
}

using EncodeText = bool (*)(std::string_view, ValueBuffer&);
std::string Stored(EncodeText encode, std::string_view text) {
    ValueBuffer out;
    return encode(text, out) ? std::string(out.View()) : "no";
}

struct Case {
    const char* text;
    const char* shown;
};

} // namespace

TEST(ValueDates, Ages) {
    const Case cases[] = {{"034Y", "34 years"}, {"5m", "5 months"}, {"000D", "0 days"}, {"999W", "999 weeks"},
                          {"", "no"},           {"Y", "no"},        {"034", "no"},      {"034X", "no"},
                          {"034YY", "no"},      {"1000Y", "no"},    {"-34Y", "no"}};
    for (const Case& c : cases) {
        EXPECT_EQ(Shown<VALUEAGE>(c.text), c.shown) << c.text;
        EXPECT_EQ(Stored(EncodeAgeText, c.shown) == "no", c.shown == std::string("no")) << c.shown;
    }
    EXPECT_EQ(Encoded(VALUEAGE{7, 'Y'}), "007Y");
    EXPECT_EQ(Encoded(VALUEAGE{1000, 'Y'}), "refused");
    EXPECT_EQ(Encoded(VALUEAGE{1, 'y'}), "refused");
    EXPECT_EQ(Stored(EncodeAgeText, "34 years"), "034Y");
    EXPECT_EQ(Stored(EncodeAgeText, "34y"), "034Y");
    for (const char* bad : {"34 year", "34years", "years", "34 ", "1234 days", "34 Years"})
        EXPECT_EQ(Stored(EncodeAgeText, bad), "no") << bad;
}

TEST(ValueDates, DatesOfTheCalendar) {
    const Case cases[] = {{"20070115", "01/15/2007"}, {"2007.01.15", "01/15/2007"},
                          {"20000229", "02/29/2000"}, {"00010101", "01/01/1"},
                          {"19000229", "no"},         {"20070230", "no"},
                          {"20071301", "no"},         {"20070100", "no"},
                          {"00000000", "no"},         {"2007", "no"},
                          {"200701", "no"},           {"2007-01-15", "no"},
                          {"2007.01.1", "no"},        {"2007.0115", "no"},
                          {"20070115x", "no"},        {"2007011", "no"},
                          {"2007.01/15", "no"},       {"*", "no"}};
    for (const Case& c : cases)
        EXPECT_EQ(Shown<VALUEDATE>(c.text), c.shown) << c.text;
    EXPECT_EQ(Encoded(VALUEDATE{7, 1, 5}), "00070105");
    EXPECT_EQ(Encoded(kEmptyDate), "");
    EXPECT_EQ(Encoded(VALUEDATE{2007, 2, 29}), "refused");
    EXPECT_EQ(Encoded(VALUEDATE{10000, 1, 1}), "refused");
    EXPECT_EQ(Encoded(VALUEDATE{65535, 65535, 1}), "refused");
}

TEST(ValueDates, TimesKeepTheDigitsOfTheirFraction) {
    const Case cases[] = {
        {"10", "10:00:00.0"},
        {"1030", "10:30:00.0"},
        {"103015", "10:30:15.0"},
        {"103015.5", "10:30:15.5"},
        {"103015.500", "10:30:15.500"},
        {"103015.000123", "10:30:15.000123"},
        {"103015.000000", "10:30:15.000000"},
        {"235960", "23:59:60.0"},
        {"10:30", "10:30:00.0"},
        {"10:30:15.25", "10:30:15.25"},
        {"", "no"},
        {"1", "no"},
        {"103", "no"},
        {"24", "no"},
        {"1060", "no"},
        {"103061", "no"},
        {"103015.", "no"},
        {"103015.1234567", "no"},
        {"1030.5", "no"},
        {"10:30.5", "no"},
        {"10:3015", "no"},
        {"1030:15", "no"},
        {"10:", "no"},
        {":10", "no"},
        {"103015-", "no"},
        {"10 30", "no"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Shown<VALUETIME>(c.text), c.shown) << c.text;

    VALUETIME time{};
    ASSERT_TRUE(Parse("101010.000123", time));
    EXPECT_EQ(VDicomULong{time.nFraction}, 0x0300007Bu);
    ASSERT_TRUE(Parse("101010.123", time));
    EXPECT_EQ(VDicomULong{time.nFraction}, 123u);
    EXPECT_EQ(Encoded(VALUETIME{1, 2, 3, 0}), "010203.0");
    EXPECT_EQ(Encoded(VALUETIME{1, 2, 3, 0x0300007B}), "010203.000123");
    EXPECT_EQ(Encoded(kEmptyTime), "");
    for (const VALUETIME& bad :
         {VALUETIME{24, 0, 0, 0}, VALUETIME{0, 60, 0, 0}, VALUETIME{0, 0, 61, 0}, VALUETIME{0, 0, 0, 1000000},
          VALUETIME{0, 0, 0, 0x06000000}, VALUETIME{0, 0, 0, 0xFF000001}, VALUETIME{65535, 65535, 65535, 0}})
        EXPECT_EQ(Encoded(bad), "refused") << bad.nHours << ' ' << bad.nFraction;
}

TEST(ValueDates, DateTimesEndWhereTheyEnd) {
    const Case cases[] = {
        {"20070115123456.000100+0130", "01/15/2007  12:34:56.000100+130"},
        {"20070115", "01/15/2007  00:00:00.0+0"},
        {"2007011512", "01/15/2007  12:00:00.0+0"},
        {"200701", "01/00/2007  00:00:00.0+0"},
        {"2007", "00/00/2007  00:00:00.0+0"},
        {"2007-0500", "00/00/2007  00:00:00.0-500"},
        {"200701+1400", "01/00/2007  00:00:00.0+1400"},
        {"", "no"},
        {"200", "no"},
        {"20070", "no"},
        {"200713", "no"},
        {"200700", "no"},
        {"20070100", "no"},
        {"2007011524", "no"},
        {"200701151234567", "no"},
        {"2007011512345.5", "no"},
        {"20070115123456.", "no"},
        {"200701151234.5", "no"},
        {"2007+1500", "no"},
        {"2007-1201", "no"},
        {"2007+0160", "no"},
        {"2007+010", "no"},
        {"-0500", "no"},
        {"2007-2008", "no"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Shown<VALUEDATETIME>(c.text), c.shown) << c.text;
    EXPECT_EQ(Encoded(VALUEDATETIME{2007, 1, 15, 12, 34, 56, 5, -500}), "20070115123456.5-0500");
    EXPECT_EQ(Encoded(VALUEDATETIME{2007, 1, 15, 0, 0, 0, 0, 0}), "20070115000000.0");
    EXPECT_EQ(Encoded(VALUEDATETIME{2007, 1, 0, 0, 0, 0, 0, 100}), "200701+0100");
    EXPECT_EQ(Encoded(VALUEDATETIME{2007, 1, 0, 1, 0, 0, 0, 0}), "refused");
    EXPECT_EQ(Encoded(VALUEDATETIME{2007, 0, 15, 0, 0, 0, 0, 0}), "refused");
    EXPECT_EQ(Encoded(VALUEDATETIME{2007, 1, 15, 0, 0, 0, 0, 1500}), "refused");
}

TEST(ValueDates, RangesTellBoundsFromOffsets) {
    const Case dates[] = {{"20070101-20071231", "01/01/2007-12/31/2007"},
                          {"20070101-", "01/01/2007-"},
                          {"-20071231", "-12/31/2007"},
                          {"20070101", "01/01/2007"},
                          {"2007.01.01-2007.12.31", "01/01/2007-12/31/2007"},
                          {"20070101 - 20071231", "01/01/2007-12/31/2007"},
                          {"-", "no"},
                          {"--", "no"},
                          {"20070101--", "no"},
                          {"-20070101-", "no"},
                          {"20070101-20071231-20080101", "no"},
                          {"20070101-2007", "no"}};
    for (const Case& c : dates)
        EXPECT_EQ(Shown<VALUEDATERANGE>(c.text), c.shown) << c.text;
    const Case times[] = {{"1000-120000.5", "10:00:00.0-12:00:00.5"},
                          {"10-", "10:00:00.0-"},
                          {"-10:30:00", "-10:30:00.0"},
                          {"10-25", "no"}};
    for (const Case& c : times)
        EXPECT_EQ(Shown<VALUETIMERANGE>(c.text), c.shown) << c.text;
    const Case dateTimes[] = {
        {"2007-0500", "00/00/2007  00:00:00.0-500"},
        {"2007-2008", "00/00/2007  00:00:00.0+0-00/00/2008  00:00:00.0+0"},
        {"2007-0500-", "00/00/2007  00:00:00.0-500-"},
        {"-2007-0500", "-00/00/2007  00:00:00.0-500"},
        {"2007-0500-2008-0600", "00/00/2007  00:00:00.0-500-00/00/2008  00:00:00.0-600"},
        {"2007-2008-0600", "00/00/2007  00:00:00.0+0-00/00/2008  00:00:00.0-600"},
        {"2007-0500-2008", "00/00/2007  00:00:00.0-500-00/00/2008  00:00:00.0+0"},
        {"2007+0000-0500", "00/00/2007  00:00:00.0+0-00/00/500  00:00:00.0+0"},
        {"20070101-20070201", "01/01/2007  00:00:00.0+0-02/01/2007  00:00:00.0+0"},
        {"2007-2008-2009", "no"},
        {"-", "no"},
    };
    for (const Case& c : dateTimes)
        EXPECT_EQ(Shown<VALUEDATETIMERANGE>(c.text), c.shown) << c.text;

    EXPECT_EQ(Encoded(VALUEDATERANGE{DICOM_RANGE_LOWER, {2007, 1, 1}, {1, 2, 3}}), "20070101-");
    EXPECT_EQ(Encoded(VALUEDATERANGE{DICOM_RANGE_UPPER, kEmptyDate, {2007, 1, 1}}), "-20070101");
    EXPECT_EQ(Encoded(VALUEDATERANGE{DICOM_RANGE_BOTH, {2007, 1, 1}, kEmptyDate}), "refused");
    EXPECT_EQ(Encoded(VALUEDATERANGE{4, {2007, 1, 1}, {2007, 1, 1}}), "refused");
    const VALUEDATETIME year2007{2007, 0, 0, 0, 0, 0, 0, 0};
    const VALUEDATETIME year500{500, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(Encoded(VALUEDATETIMERANGE{DICOM_RANGE_BOTH, year2007, year500}), "2007+0000-0500+0000");
    EXPECT_EQ(Encoded(VALUEDATETIMERANGE{DICOM_RANGE_SINGLE, year2007, year500}), "2007");
}

TEST(ValueDates, TextsForPeopleComeBack) {
    const struct {
        EncodeText encode;
        const char* text;
        const char* stored;
    } cases[] = {
        {EncodeDateText, "01/15/2007", "20070115"},
        {EncodeDateText, "1/5/7", "00070105"},
        {EncodeDateText, "01/15/2007-", "20070115-"},
        {EncodeDateText, "-01/15/2007", "-20070115"},
        {EncodeDateText, "01/01/2007-12/31/2007", "20070101-20071231"},
        {EncodeDateText, "2007.01.15", "20070115"},
        {EncodeDateText, "20070101-", "20070101-"},
        {EncodeDateText, "15/01/2007", "no"},
        {EncodeDateText, "01/15/2007 ", "no"},
        {EncodeDateText, "01/15", "no"},
        {EncodeDateText, "01/15/20070", "no"},
        {EncodeDateText, "20070101-01/01/2008", "no"},
        {EncodeTimeText, "10:30:00.0", "103000.0"},
        {EncodeTimeText, "10:30:00.000100-12:00:00.5", "103000.000100-120000.5"},
        {EncodeTimeText, "1030", "1030"},
        {EncodeTimeText, "10:30", "1030"},
        {EncodeTimeText, "1:30:00.0", "no"},
        {EncodeDateTimeText, "01/15/2007  12:34:56.007-500", "20070115123456.007-0500"},
        {EncodeDateTimeText, "00/00/2007  00:00:00.0+0", "2007"},
        {EncodeDateTimeText, "00/00/2007  01:00:00.0+0", "no"},
        {EncodeDateTimeText, "01/15/2007  12:34:56.007+0-", "20070115123456.007-"},
        {EncodeDateTimeText, "-01/15/2007  12:34:56.007+0", "-20070115123456.007"},
        {EncodeDateTimeText, "00/00/2007  00:00:00.0+0-00/00/500  00:00:00.0+0", "2007+0000-0500+0000"},
        {EncodeDateTimeText, "01/15/2007  12:34:56.007", "no"},
        {EncodeDateTimeText, "01/15/2007  12:34:56.007+1500", "no"},
        {EncodeDateTimeText, "2007-2008", "2007-2008"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Stored(c.encode, c.text), c.stored) << c.text;
}

// Whatever is stored is read as the same record and shown as the same text again.
TEST(ValueDates, RandomRangesComeBack) {
    std::mt19937 random(7);
    const auto pick = [&](unsigned int below) { return static_cast<unsigned short>(random() % below); };
    constexpr VDicomLong offsets[] = {0, 0, 100, -500, -1200, 1400, 545};
    for (int i = 0; i < 20000; ++i) {
        VALUEDATETIMERANGE range{static_cast<VDicomULong>(pick(4)), {}, {}};
        for (VALUEDATETIME* value : {&range.Lower, &range.Upper}) {
            value->nYear = pick(3) == 0 ? pick(1500) : static_cast<unsigned short>(1900 + pick(200));
            value->nOffsetUTC = offsets[pick(std::size(offsets))];
            value->nMonth = pick(3) == 0 ? 0 : static_cast<unsigned short>(1 + pick(12));
            if (value->nMonth == 0 || pick(3) == 0)
                continue;
            value->nDay = static_cast<unsigned short>(1 + pick(28));
            value->nHours = pick(24);
            value->nFraction = static_cast<VDicomULong>(pick(1000) | (pick(4) << 24));
        }
        const std::string stored = Encoded(range);
        ASSERT_NE(stored, "refused") << Displayed(range);
        VALUEDATETIMERANGE read{};
        ASSERT_TRUE(Parse(stored, read)) << stored;
        const std::string shown = Displayed(range);
        ASSERT_EQ(Displayed(read), shown) << stored;
        ASSERT_EQ(Stored(EncodeDateTimeText, shown), stored);
    }
}
