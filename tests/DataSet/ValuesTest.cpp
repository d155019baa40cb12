// Typed values: getters, setters, counts, and what they refuse.
#include "Bytes.h"
#include "VDicomDS.h"
#include "VDicomVR.h"
#include "VRTraits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

using namespace vdicom;
using namespace std::string_literals;

namespace {

constexpr VDicomULong kTag = 0x00091001;
constexpr VDicomULong kAll = DICOM_UNDEFINED;

/// A data set with one element whose raw value is given as it stands in the stream.
class OneElement {
public:
    OneElement(unsigned short vr, const std::string& stored, bool big = false) {
        if (big)
            dataSet.InitDS(DICOM_UNDEFINED, DICOM_FLAG_BIG | DICOM_FLAG_EXPLICIT);
        e = dataSet.InsertElement(nullptr, 0, kTag, vr, 0, 0);
        if (stored.empty())
            return;
        EXPECT_NE(m_stream.Open("", DICOM_FILE_MODE_MEMORY), 0u);
        EXPECT_NE(m_stream.SetMemoryBuffer(reinterpret_cast<const unsigned char*>(stored.data()),
                                           static_cast<VDicomULong>(stored.size()), 0),
                  0u);
        EXPECT_EQ(dataSet.InsertFileBinaryValue(e, 0, &m_stream, 0, static_cast<VDicomULong>(stored.size())), 1u);
    }
    std::string Stored() {
        std::string bytes(e->nLength + 1, '\0');
        EXPECT_EQ(dataSet.GetBinaryValue(e, bytes.data(), e->nLength), 1u);
        bytes.pop_back();
        return bytes;
    }
    std::string String(VDicomULong index) {
        const char* text = dataSet.GetStringValue(e, index, 1);
        return text == nullptr ? "null" : text;
    }

private:
    VDicomFile m_stream; // outlives the data set that reads it

public:
    VDicomDS dataSet;
    DICOMELEMENT* e = nullptr;
};

struct Calls {
    std::vector<std::pair<DICOMELEMENT*, unsigned short>> seen;
    static VDicomULong VDICOM_CALLBACK Note(DICOMELEMENT* element, unsigned short code, void* userData) {
        static_cast<Calls*>(userData)->seen.emplace_back(element, code);
        return 0;
    }
};

// One bit per value type that takes the VR.
unsigned int TypesOf(unsigned short vr) {
    OneElement one(vr, "");
    unsigned int types = 0;
    for (unsigned short type = 0; type <= 10; ++type)
        types |= one.dataSet.VerifyVR(one.e, type) << type;
    return types;
}

} // namespace

TEST(Values, EachVRHasItsTypes) {
    const struct {
        const char* vrs;
        unsigned int types;
    } rows[] = {{"OB SQ UN", 1U << 0},
                {"OW SS US", 1U << 1},
                {"AT SL UL OL", 1U << 2},
                {"IS", 1U << 2 | 1U << 10},
                {"FL OF", 1U << 3},
                {"DS FD OD", 1U << 4},
                {"AE CS LO LT SH ST UI UT PN UC UR", 1U << 5},
                {"AS", 1U << 6},
                {"DA", 1U << 7},
                {"TM", 1U << 8},
                {"DT", 1U << 9},
                {"SV UV OV", 1U << 10},
                {"XX", 0}};
    for (const auto& row : rows) {
        for (const char* at = row.vrs; *at != '\0'; at += at[2] == '\0' ? 2 : 3)
            EXPECT_EQ(TypesOf(VDicomVRCode(at[0], at[1])), row.types) << std::string(at, 2);
    }
    OneElement one(vr::OB, "");
    EXPECT_EQ(one.dataSet.VerifyVR(one.e, 11), 1u);
    EXPECT_EQ(one.dataSet.VerifyVR(nullptr, 11), 0u);
    const struct {
        const char* vr;
        unsigned short size;
    } sizes[] = {{"AT", 4}, {"US", 2}, {"FD", 8}, {"OF", 4}, {"LO", 1}, {"OD", 8}, {"SV", 8}, {"OL", 4}, {"XX", 1}};
    for (const auto& s : sizes)
        EXPECT_EQ(VDicomDS::GetSizeVR(VDicomVRCode(s.vr[0], s.vr[1])), s.size) << s.vr;
}

TEST(Values, CountsFollowTheVR) {
    const struct {
        unsigned short vr;
        VDicomULong count;
        std::string stored;
    } cases[] = {
        {vr::PN, 2, "A^B\\C^D "},   {vr::US, 3, "123456"},     {vr::US, 2, "12345"},    {vr::US, 0, "1"},
        {vr::FD, 0, "1234567"},     {vr::OB, 3, "123"},        {vr::AT, 2, "12345678"}, {vr::LT, 1, "A\\B\\C "},
        {vr::UR, 1, "http://a\\b"}, {vr::UC, 3, "A\\B\\"},     {vr::LO, 0, ""},         {vr::DA, 0, ""},
        {vr::IS, 3, "1\\\\3 "},     {vr::IS, 1, "  "},         {vr::IS, 0, "abc "},     {vr::IS, 2, "abc\\5 "},
        {vr::SV, 1, "12345678"},    {vr::OV, 1, "1234567890"}, {0, 5, "12345"},         {vr::DT, 2, "2007\\2008 "},
    };
    for (const auto& c : cases) {
        OneElement one(c.vr, c.stored);
        EXPECT_EQ(one.dataSet.GetCountValue(one.e), c.count) << c.stored;
    }
    OneElement one(vr::US, "123456");
    VDicomULong count = kAll;
    EXPECT_EQ(one.dataSet.VerifyTypeValue(one.e, 1, &count, 1), 1u);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(one.dataSet.VerifyTypeValue(one.e, 2, &count, 1), 0u);
    count = 0;
    EXPECT_EQ(one.dataSet.VerifyTypeValue(one.e, 3, &count, 1), 1u);
    EXPECT_EQ(one.dataSet.VerifyTypeValue(one.e, 4, &count, 1), 0u);
    count = 0xFFFFFFFE;
    EXPECT_EQ(one.dataSet.VerifyTypeValue(one.e, 2, &count, 1), 0u) << "index and count add up to more than 32 bits";
    EXPECT_EQ(one.dataSet.VerifyTypeValue(one.e, 0, &count, 2), 0u);
    EXPECT_EQ(one.dataSet.GetShortValue(one.e, 3, kAll), nullptr);
    EXPECT_EQ(one.dataSet.GetCountValue(nullptr), 0u);
    one.dataSet.FreeValue(one.e);
    EXPECT_EQ(one.e->nCountValue, DICOM_UNDEFINED);
    EXPECT_EQ(one.e->pTypeValue, nullptr);
}

TEST(Values, BinaryValuesAreInHostOrder) {
    for (const bool big : {false, true}) {
        const auto stored = [big](std::string bytes, std::size_t unit) { // given in big endian
            if (!big)
                SwapUnits(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(), unit);
            return bytes;
        };
        OneElement shorts(vr::SS, stored("\x00\x01\xFF\xFE"s, 2), big);
        const short* s = shorts.dataSet.GetShortValue(shorts.e, 0, kAll);
        ASSERT_NE(s, nullptr);
        EXPECT_TRUE(s[0] == 1 && s[1] == -2);
        EXPECT_EQ(*shorts.dataSet.GetShortValue(shorts.e, 1, 1), -2);

        OneElement tags(vr::AT, stored("\x00\x10\x00\x20\x7F\xE0\x00\x10"s, 2), big);
        const VDicomLong* t = tags.dataSet.GetLongValue(tags.e, 0, 2);
        ASSERT_NE(t, nullptr);
        EXPECT_TRUE(t[0] == 0x00100020 && t[1] == 0x7FE00010);
        const VDicomLong newTag = 0x00280010;
        ASSERT_EQ(tags.dataSet.SetLongValue(tags.e, &newTag, 1), 1u);
        EXPECT_EQ(*tags.dataSet.GetLongValue(tags.e, 0, 1), newTag);
        std::uint16_t halves[2] = {};
        ASSERT_EQ(tags.dataSet.GetBinaryValue(tags.e, halves, 4), 1u);
        EXPECT_TRUE(halves[0] == 0x28 && halves[1] == 0x10);

        OneElement doubles(vr::OD, stored("\x3F\xF8\x00\x00\x00\x00\x00\x00"s, 8), big);
        EXPECT_EQ(*doubles.dataSet.GetDoubleValue(doubles.e, 0, 1), 1.5);
        OneElement floats(vr::FL, stored("\xBF\xC0\x00\x00"s, 4), big);
        EXPECT_EQ(*floats.dataSet.GetFloatValue(floats.e, 0, 1), -1.5F);
        OneElement longs(vr::UV, stored("\x80\x00\x00\x00\x00\x00\x00\x07"s, 8), big);
        VDicomUInt64 number = 0;
        ASSERT_EQ(longs.dataSet.GetLong64Value(longs.e, &number, 0, kAll), 1u);
        EXPECT_EQ(number, 0x8000000000000007u);
    }
}

TEST(Values, SettersWriteWhatGettersRead) {
    OneElement bytes(vr::OB, "");
    ASSERT_EQ(bytes.dataSet.SetCharValue(bytes.e, "\x01\x02\x03", 3), 1u);
    EXPECT_EQ(bytes.Stored(), "\x01\x02\x03\x00"s);
    OneElement integers(vr::IS, "");
    const VDicomLong longs[] = {-5, 0, std::numeric_limits<VDicomLong>::min()};
    ASSERT_EQ(integers.dataSet.SetLongValue(integers.e, longs, 3), 1u);
    EXPECT_EQ(integers.Stored(), "-5\\0\\-2147483648");
    OneElement decimals(vr::DS, "");
    const double doubles[] = {1.0 / 3, -0.5};
    ASSERT_EQ(decimals.dataSet.SetDoubleValue(decimals.e, doubles, 2), 1u);
    EXPECT_EQ(decimals.Stored(), "0.33333333333333\\-0.5 ");
    EXPECT_EQ(decimals.dataSet.GetDoubleValue(decimals.e, 1, 1)[0], -0.5);
    OneElement ages(vr::AS, "");
    const VALUEAGE age{34, 'Y'};
    ASSERT_EQ(ages.dataSet.SetAgeValue(ages.e, &age, 1), 1u);
    EXPECT_EQ(ages.Stored(), "034Y");
    OneElement dates(vr::DA, "");
    const VALUEDATE twoDates[] = {{2007, 1, 15}, {65535, 65535, 65535}};
    ASSERT_EQ(dates.dataSet.SetDateValue(dates.e, twoDates, 2), 1u);
    EXPECT_EQ(dates.Stored(), "20070115\\ ");
    OneElement times(vr::TM, "");
    const VALUETIME time{1, 2, 3, 0x0300007B};
    ASSERT_EQ(times.dataSet.SetTimeValue(times.e, &time, 1), 1u);
    EXPECT_EQ(times.Stored(), "010203.000123 ");
    OneElement dateTimes(vr::DT, "");
    const VALUEDATETIME dateTime{2007, 1, 15, 1, 2, 3, 4, -500};
    ASSERT_EQ(dateTimes.dataSet.SetDateTimeValue(dateTimes.e, &dateTime, 1), 1u);
    EXPECT_EQ(dateTimes.Stored(), "20070115010203.4-0500 ");
    EXPECT_EQ(dateTimes.dataSet.GetDateTimeValue(dateTimes.e, 0, 1)->nOffsetUTC, -500);
    OneElement names(vr::PN, "");
    ASSERT_EQ(names.dataSet.SetStringValue(names.e, "A^B\0C^D", 2), 1u);
    EXPECT_EQ(names.Stored(), "A^B\\C^D ");
    EXPECT_EQ(names.String(1), "C^D");
    OneElement uids(vr::UI, "");
    ASSERT_EQ(uids.dataSet.SetStringValue(uids.e, "1.2", 1), 1u);
    EXPECT_EQ(uids.Stored(), "1.2\0"s);
    EXPECT_EQ(uids.String(0), "1.2");
    OneElement big(vr::SV, "");
    const VDicomUInt64 minusTwo = ~VDicomUInt64{1};
    VDicomUInt64 read = 0;
    ASSERT_EQ(big.dataSet.SetLong64Value(big.e, &minusTwo, 1), 1u);
    ASSERT_EQ(big.dataSet.GetLong64Value(big.e, &read, 0, 1), 1u);
    EXPECT_EQ(read, minusTwo);

    // Each of them takes no values as the empty value, and nothing of another type.
    ASSERT_EQ(names.dataSet.SetStringValue(names.e, nullptr, 0), 1u);
    EXPECT_EQ(names.e->nLength, 0u);
    EXPECT_EQ(uids.dataSet.SetCharValue(uids.e, "x", 1), 0u);
    EXPECT_EQ(uids.dataSet.SetDateValue(uids.e, twoDates, 1), 0u);
    EXPECT_EQ(uids.dataSet.SetStringValue(uids.e, nullptr, 1), 0u);
    EXPECT_EQ(bytes.dataSet.SetCharValue(bytes.e, "x", kAll), 0u);
    const VALUEDATE badDate{2007, 13, 1};
    EXPECT_EQ(dates.dataSet.SetDateValue(dates.e, &badDate, 1), 0u);
    const double nan = std::nan("");
    EXPECT_EQ(decimals.dataSet.SetDoubleValue(decimals.e, &nan, 1), 0u);
    EXPECT_EQ(decimals.Stored(), "0.33333333333333\\-0.5 ") << "a refused value leaves the old one";
    OneElement text(vr::LT, "");
    EXPECT_EQ(text.dataSet.SetStringValue(text.e, "A\0B", 2), 0u) << "a text of one value";
    EXPECT_EQ(text.dataSet.SetStringValue(text.e, "A\\B", 1), 1u);
    EXPECT_EQ(text.String(0), "A\\B");
}

TEST(Values, StringsAreTrimmedAndDivided) {
    OneElement names(vr::LO, " A \\\\  B C\\ ");
    EXPECT_EQ(names.String(0), "A");
    EXPECT_EQ(names.String(1), "");
    EXPECT_EQ(names.String(2), "B C");
    EXPECT_EQ(names.String(3), "");
    EXPECT_EQ(names.String(4), "null");
    const char* all = names.dataSet.GetStringValue(names.e, 0, kAll);
    EXPECT_EQ(std::memcmp(all, "A\0\0B C\0\0", 8), 0) << "one behind the other";
    std::string numbers = "0";
    for (int i = 1; i < 200; ++i)
        numbers += "\\" + std::to_string(i);
    OneElement many(vr::UC, numbers);
    for (int i : {0, 63, 64, 65, 127, 128, 191, 192, 199})
        EXPECT_EQ(many.String(static_cast<VDicomULong>(i)), std::to_string(i));
    EXPECT_EQ(many.String(200), "null");
    OneElement text(vr::ST, "  A  ");
    EXPECT_EQ(text.String(0), "  A") << "blanks before a text count";
    OneElement zeros(vr::UI, "1.2\0\\1.3\0"s);
    EXPECT_EQ(zeros.String(0), "1.2");
    EXPECT_EQ(zeros.String(1), "1.3");

    // 0x81 0x5C is one character of GB18030, in the character set of the nearest level that has one.
    VDicomDS dataSet;
    DICOMELEMENT* sequence = dataSet.InsertElement(nullptr, 0, 0x00400275, vr::SQ, 1, 0);
    DICOMELEMENT* inner = dataSet.InsertElement(sequence, 1, 0xFFFEE000, 0, 1, 0);
    DICOMELEMENT* outerName = dataSet.InsertElement(nullptr, 0, 0x00100010, vr::PN, 0, 0);
    DICOMELEMENT* innerName = dataSet.InsertElement(inner, 1, 0x00100010, vr::PN, 0, 0);
    ASSERT_NE(innerName, nullptr);
    const auto setAndCount = [&](DICOMELEMENT* e) {
        EXPECT_EQ(dataSet.SetBinaryValue(e, "\x81\\\\B", 4), 1u);
        return dataSet.GetCountValue(e);
    };
    EXPECT_EQ(setAndCount(outerName), 3u);
    ASSERT_EQ(dataSet.FindSetValue(nullptr, 0x00080005, vr::CS, "GB18030", 1), 1u);
    EXPECT_EQ(setAndCount(outerName), 2u);
    EXPECT_EQ(setAndCount(innerName), 2u);
    ASSERT_EQ(dataSet.FindSetValue(inner, 0x00080005, vr::CS, "ISO_IR 100", 1), 1u);
    EXPECT_EQ(setAndCount(innerName), 3u);
}

TEST(Values, IntegersTooLargeForThirtyTwoBits) {
    OneElement one(vr::IS, "3000000000\\-3000000000\\5 \\x ");
    const VDicomLong* values = one.dataSet.GetLongValue(one.e, 0, 3);
    ASSERT_NE(values, nullptr);
    EXPECT_EQ(values[0], std::numeric_limits<VDicomLong>::max());
    EXPECT_EQ(values[1], std::numeric_limits<VDicomLong>::min());
    VDicomUInt64 large[3] = {};
    ASSERT_EQ(one.dataSet.GetLong64Value(one.e, large, 0, 3), 1u);
    EXPECT_EQ(large[0], 3000000000u);
    EXPECT_EQ(large[1], static_cast<VDicomUInt64>(-3000000000));
    ASSERT_EQ(one.dataSet.GetLong64Value(one.e, large, 2, 1), 1u);
    EXPECT_EQ(large[0], 5u);
    EXPECT_EQ(one.dataSet.GetLong64Value(one.e, large, 2, 2), 0u) << "the last is no number";
    EXPECT_EQ(one.dataSet.GetLong64Value(one.e, large, 4, 1), 0u);
    ASSERT_EQ(one.dataSet.SetLong64Value(one.e, large, 2), 1u);
    EXPECT_EQ(one.Stored(), "5\\-3000000000 ");
}

TEST(Values, BadAndEmptyValuesAreNull) {
    OneElement numbers(vr::DS, "1.5\\\\abc\\2 ");
    EXPECT_EQ(numbers.dataSet.GetCountValue(numbers.e), 4u);
    EXPECT_EQ(*numbers.dataSet.GetDoubleValue(numbers.e, 0, 1), 1.5);
    EXPECT_EQ(*numbers.dataSet.GetDoubleValue(numbers.e, 3, 1), 2.0);
    for (const VDicomULong bad : {1u, 2u})
        EXPECT_EQ(numbers.dataSet.GetDoubleValue(numbers.e, bad, 1), nullptr) << bad;
    EXPECT_EQ(numbers.dataSet.GetDoubleValue(numbers.e, 0, kAll), nullptr);
    for (const char* text : {"1,5 ", "0x10", "nan ", "1.5mm "}) {
        OneElement bad(vr::DS, text);
        EXPECT_EQ(bad.dataSet.GetDoubleValue(bad.e, 0, 1), nullptr) << text;
        EXPECT_EQ(bad.dataSet.GetTypeValue(bad.e), 0u) << text;
    }

    Calls calls;
    OneElement dates(vr::DA, "20070115\\\\20071301 ");
    OneElement none(vr::TM, "");
    OneElement blank(vr::TM, "  ");
    for (OneElement* one : {&dates, &none, &blank})
        one->dataSet.SetDebugDS(Calls::Note, &calls);
    EXPECT_NE(dates.dataSet.GetDateValue(dates.e, 0, 1), nullptr);
    EXPECT_EQ(dates.dataSet.GetDateValue(dates.e, 2, 1), nullptr) << "no day of the calendar";
    EXPECT_EQ(dates.dataSet.GetDateValue(dates.e, 3, 1), nullptr);
    EXPECT_TRUE(calls.seen.empty());
    EXPECT_EQ(dates.dataSet.GetDateValue(dates.e, 1, 1), nullptr);
    EXPECT_EQ(none.dataSet.GetTimeValue(none.e, 0, 1), nullptr);
    EXPECT_EQ(blank.dataSet.GetTimeValue(blank.e, 0, 1), nullptr);
    const decltype(calls.seen) expected = {{dates.e, 256}, {none.e, 256}, {blank.e, 256}};
    EXPECT_EQ(calls.seen, expected);
}

TEST(Values, RangesOfDatesAndTimes) {
    OneElement dates(vr::DA, "20070101-20071231\\-20080101\\20090101\\2009-");
    VALUEDATERANGE range{};
    ASSERT_EQ(dates.dataSet.GetDateRangeValue(dates.e, 0, &range), 0u);
    EXPECT_EQ(range.nType, VDicomULong{DICOM_RANGE_BOTH});
    EXPECT_EQ(range.Upper.nMonth, 12);
    ASSERT_EQ(dates.dataSet.GetDateRangeValue(dates.e, 1, &range), 0u);
    EXPECT_EQ(range.nType, VDicomULong{DICOM_RANGE_UPPER});
    ASSERT_EQ(dates.dataSet.GetXRangeValue(dates.e, 2, &range, 7), 0u);
    EXPECT_EQ(range.nType, VDicomULong{DICOM_RANGE_SINGLE});
    for (const VDicomULong index : {3u, 4u})
        EXPECT_EQ(dates.dataSet.GetDateRangeValue(dates.e, index, &range), unsigned{DICOM_ERROR_PARAMETER});
    EXPECT_EQ(dates.dataSet.GetXRangeValue(dates.e, 0, &range, 8), unsigned{DICOM_ERROR_PARAMETER}) << "a date";
    EXPECT_EQ(dates.dataSet.GetXRangeValue(dates.e, 0, &range, 6), unsigned{DICOM_ERROR_PARAMETER});
    EXPECT_EQ(dates.dataSet.GetXRangeValue(dates.e, 0, nullptr, 7), unsigned{DICOM_ERROR_PARAMETER});

    const VALUEDATERANGE two[] = {{DICOM_RANGE_LOWER, {2007, 1, 1}, {}},
                                  {DICOM_RANGE_BOTH, {2007, 1, 1}, {2008, 1, 1}}};
    ASSERT_EQ(dates.dataSet.SetDateRangeValue(dates.e, two, 2), 1u);
    EXPECT_EQ(dates.Stored(), "20070101-\\20070101-20080101 ");
    OneElement times(vr::TM, "");
    const VALUETIMERANGE upper{DICOM_RANGE_UPPER, {}, {12, 0, 0, 5}};
    ASSERT_EQ(times.dataSet.SetTimeRangeValue(times.e, &upper, 1), 1u);
    EXPECT_EQ(times.Stored(), "-120000.5 ");
    OneElement dateTimes(vr::DT, "");
    const VALUEDATETIMERANGE both{DICOM_RANGE_BOTH, {2007, 0, 0, 0, 0, 0, 0, -500}, {2008, 0, 0, 0, 0, 0, 0, 0}};
    ASSERT_EQ(dateTimes.dataSet.SetDateTimeRangeValue(dateTimes.e, &both, 1), 1u);
    EXPECT_EQ(dateTimes.Stored(), "2007-0500-2008");
    VALUEDATETIMERANGE read{};
    ASSERT_EQ(dateTimes.dataSet.GetDateTimeRangeValue(dateTimes.e, 0, &read), 0u);
    EXPECT_EQ(std::memcmp(&read, &both, sizeof both), 0);
    OneElement number(vr::US, "");
    EXPECT_EQ(number.dataSet.SetTypeValue(number.e, &both, 1, 1), 0u) << "no ranges of numbers";
}

TEST(Values, FindGetAndSetInOneCall) {
    VDicomDS dataSet;
    const unsigned short rows = 512;
    ASSERT_EQ(dataSet.FindSetValue(nullptr, 0x00280010, 0, &rows, 1), 1u) << "the dictionary's VR";
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x00280010, 1)->nVR, vr::US);
    unsigned short got = 0;
    EXPECT_EQ(dataSet.FindGetValue(nullptr, 0x00280010, 1, &got, sizeof got), 1u);
    EXPECT_EQ(got, rows);
    EXPECT_EQ(dataSet.FindGetValue(nullptr, 0x00280010, 1, &got, 1), 0u) << "too small";
    EXPECT_EQ(dataSet.FindGetValue(nullptr, 0x00280010, 2, &got, sizeof got), 0u) << "another type";
    EXPECT_EQ(dataSet.FindGetValue(nullptr, 0x00280011, 1, &got, sizeof got), 0u);
    EXPECT_EQ(dataSet.FindGetValue(nullptr, 0x00280010, 11, &got, sizeof got), 0u);
    EXPECT_EQ(dataSet.FindGetValue(nullptr, 0x00280010, 1, nullptr, 2), 0u);

    ASSERT_EQ(dataSet.FindSetValue(nullptr, 0x00100010, vr::PN, "A^B\0C^D", 2), 1u);
    char text[4] = {};
    EXPECT_EQ(dataSet.FindGetValue(nullptr, 0x00100010, 5, text, 3), 0u) << "no room for the zero";
    EXPECT_EQ(dataSet.FindGetValue(nullptr, 0x00100010, 5, text, 4), 1u);
    EXPECT_STREQ(text, "A^B");
    const double number = 1.5;
    EXPECT_EQ(dataSet.FindSetValue(nullptr, 0x00280010, vr::DS, &number, 1), 0u) << "the element is no DS";
    EXPECT_EQ(dataSet.FindSetValue(nullptr, 0x00181041, vr::DS, nullptr, 1), 0u);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x00181041, 1), nullptr) << "a refused value leaves no element";

    // A text under its tag as "UN", which a stream may have.
    ASSERT_NE(dataSet.InsertElement(nullptr, 0, 0x00091003, vr::UN, 0, 0), nullptr);
    ASSERT_EQ(dataSet.FindSetValue(nullptr, 0x00091003, vr::UI, "1.2.3", 1), 1u);
    EXPECT_EQ(dataSet.FindSetValue(nullptr, 0x00091003, vr::US, &rows, 1), 0u);

    const VALUETIME time{1, 2, 3, 4};
    ASSERT_EQ(dataSet.FindSetValue(nullptr, 0x00080030, vr::TM, &time, 1), 1u);
    VALUETIME gotTime{};
    ASSERT_EQ(dataSet.FindGetValue(nullptr, 0x00080030, 8, &gotTime, sizeof gotTime), 1u);
    EXPECT_EQ(std::memcmp(&gotTime, &time, sizeof time), 0);
    const VDicomLong frames = 7;
    ASSERT_EQ(dataSet.FindSetValue(nullptr, 0x00280008, vr::IS, &frames, 1), 1u);
    VDicomUInt64 large = 0;
    ASSERT_EQ(dataSet.FindGetValue(nullptr, 0x00280008, 10, &large, sizeof large), 1u);
    EXPECT_EQ(large, 7u);
}

// The invalid-element check comes first in every operation, which then fails without touching the element.
TEST(Values, ForeignElementsAreReportedOnce) {
    VDicomDS dataSet;
    VDicomDS other;
    Calls calls;
    dataSet.SetDebugDS(Calls::Note, &calls);
    DICOMELEMENT* foreign = other.InsertElement(nullptr, 0, 0x00080020, vr::DA, 0, 0);
    ASSERT_EQ(other.SetStringValue(other.InsertElement(nullptr, 0, 0x00080060, vr::CS, 0, 0), "CT", 1), 1u);
    DICOMELEMENT* modality = other.FindFirstElement(nullptr, 0x00080060, 1);
    VDicomULong count = 1;
    char buffer[8] = {};
    VALUEDATERANGE range{};
    VDicomFile memory;
    ASSERT_NE(memory.Open("", DICOM_FILE_MODE_MEMORY), 0u);
    const unsigned long long results[] = {
        dataSet.GetCountValue(modality),
        dataSet.VerifyTypeValue(modality, 0, &count, 5),
        dataSet.VerifyVR(modality, 5),
        dataSet.GetTypeValue(modality),
        dataSet.SetTypeValue(modality, "MR", 1, 0),
        dataSet.SetStringValue(modality, "MR", 1),
        dataSet.GetStringValue(modality, 0, 1) != nullptr,
        dataSet.GetDateValue(foreign, 0, 1) != nullptr,
        dataSet.GetDateRangeValue(foreign, 0, &range) == DICOM_OK,
        dataSet.GetConvertValue(modality, nullptr),
        dataSet.SetConvertValue(modality, "MR", 1),
        dataSet.GetBinaryValue(modality, buffer, 2),
        dataSet.SetBinaryValue(modality, "MR", 2),
        dataSet.SetFileBinaryValue(modality, "MR", 0, 2),
        dataSet.InsertBinaryValue(modality, "MR", 0, 2),
        dataSet.InsertFileBinaryValue(modality, 0, &memory, 0, 0),
        dataSet.DeleteFileBinaryValue(modality, 0, 1),
        dataSet.GetFileBinaryIndex(modality, &count),
        dataSet.CopyFileBinaryValue(modality, &other, modality) == DICOM_OK,
        dataSet.FindSetValue(modality, 0x00080060, vr::CS, "MR", 1),
        dataSet.FindGetValue(modality, 0x00080060, 5, buffer, 8),
    };
    for (const unsigned long long& result : results)
        EXPECT_EQ(result, 0u) << &result - results;
    dataSet.FreeValue(modality);
    EXPECT_EQ(calls.seen.size(), std::size(results) + 1);
    EXPECT_EQ(calls.seen.back(), std::make_pair(modality, DICOM_INVALID_ELEMENT));
    char text[8] = {};
    EXPECT_EQ(other.FindGetValue(nullptr, 0x00080060, 5, text, 8), 1u);
    EXPECT_STREQ(text, "CT");
}

TEST(Values, DelSpacesKeepsItsOddities) {
    const struct {
        const char* before;
        VDicomULong length;
        const char* after;
    } cases[] = {{"   ", 3, ""}, {"  AB  ", 6, "AB"}, {"AB", 2, "AB"},   {"A B ", 4, "A B"},
                 {"", 0, ""},    {"  AB  ", 3, "A"},  {"\tA", 2, "\tA"}, {" ", 1, ""}};
    for (const auto& c : cases) {
        char buffer[16] = "***************";
        std::memcpy(buffer, c.before, std::strlen(c.before));
        VDicomDS::DelSpaces(buffer, c.length);
        EXPECT_STREQ(buffer, c.after) << c.before;
    }
    char padded[] = "AB  ";
    VDicomDS::DelSpaces(padded);
    EXPECT_EQ(std::memcmp(padded, "AB\0\0", 5), 0) << "blanks at the end become zeros";
    VDicomDS::DelSpaces(nullptr);
    VDicomDS::DelSpaces(nullptr, 5);
}

// The table of VRs can be edited; the codec's own knowledge keeps the typed buffers in bounds.
TEST(Values, AnEditedTableStaysSafe) {
    VDicomVR::Delete(VDicomVR::Find(vr::US));
    VDicomVR::Delete(VDicomVR::Find(vr::LO));
    ASSERT_NE(VDicomVR::Insert(vr::US, "Unsigned Short", 2, DICOM_VR_BINARY, 1), nullptr);
    ASSERT_NE(VDicomVR::Insert(vr::LO, "Long String", 64, DICOM_VR_TEXT, 1), nullptr);
    ASSERT_NE(VDicomVR::Insert(VDicomVRCode('X', 'X'), "Own", 0, DICOM_VR_BINARY, 4), nullptr);
    ASSERT_NE(VDicomVR::Insert(VDicomVRCode('X', 'Y'), "Own", 0, DICOM_VR_STRING, 0), nullptr);
    {
        OneElement us(vr::US, "1234");
        EXPECT_EQ(us.dataSet.GetCountValue(us.e), 2u);
        OneElement lo(vr::LO, "A\\B ");
        EXPECT_EQ(lo.dataSet.GetCountValue(lo.e), 1u) << "as the table says";
        OneElement own(VDicomVRCode('X', 'X'), "123456789");
        EXPECT_EQ(own.dataSet.GetCountValue(own.e), 2u);
        OneElement text(VDicomVRCode('X', 'Y'), "A\\B\\C");
        EXPECT_EQ(text.dataSet.GetCountValue(text.e), 3u);
        VDicomVR::Reset();
        OneElement bare(vr::FD, "12345678");
        EXPECT_EQ(bare.dataSet.GetCountValue(bare.e), 1u);
        OneElement decimals(vr::DS, "1.5\\2");
        EXPECT_EQ(*decimals.dataSet.GetDoubleValue(decimals.e, 1, 1), 2.0);
    }
    ASSERT_NE(VDicomVR::Default(), nullptr);
}

// A length that the stream does not hold costs no memory: these elements claim 3 GiB each.
TEST(Values, ClaimedLengthsAllocateNothing) {
    const std::string header = "\x10\x00\x10\x00\xF0\xFF\xFF\xBF"s; // (0010,0010), implicit VR, length 0xBFFFFFF0
    VDicomDS dataSet;
    const std::string stream = header + "A\\B";
    EXPECT_NE(dataSet.LoadDSMemory(reinterpret_cast<const unsigned char*>(stream.data()),
                                   static_cast<VDicomULong>(stream.size()), 0),
              unsigned{DICOM_OK});
    for (DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 0, 1); e != nullptr; e = dataSet.GetNextElement(e, 0, 1)) {
        for (VDicomULong i = 0; i < e->nCountPiece; ++i)
            e->pPieceSize[i] = e->nLength = 0xBFFFFFF0; // also where the reader has put it right
        EXPECT_EQ(dataSet.GetTypeValue(e), 0u);
        EXPECT_EQ(dataSet.GetConvertValue(e, nullptr), 0u);
        e->nVR = vr::OW;
        EXPECT_EQ(dataSet.GetShortValue(e, 0, 1), nullptr);
        EXPECT_EQ(dataSet.GetConvertValue(e, nullptr), 0u);
        e->nVR = vr::DT;
        VALUEDATETIMERANGE range{};
        EXPECT_EQ(dataSet.GetDateTimeRangeValue(e, 0, &range), unsigned{DICOM_ERROR_PARAMETER});
    }
}
