// Values as texts for people, and back.
#include "TestFolder.h"
#include "VDicomDS.h"
#include "VRTraits.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

using namespace vdicom;
using namespace std::string_literals;

namespace {

constexpr VDicomULong kAll = DICOM_UNDEFINED;

class Element {
public:
    explicit Element(unsigned short vr, bool big = false) {
        if (big)
            dataSet.InitDS(DICOM_UNDEFINED, DICOM_FLAG_BIG | DICOM_FLAG_EXPLICIT);
        e = dataSet.InsertElement(nullptr, 0, 0x00091001, vr, 0, 0);
    }
    void Store(const std::string& bytes) {
        ASSERT_EQ(dataSet.SetBinaryValue(e, bytes.data(), static_cast<VDicomULong>(bytes.size())), 1u);
    }
    std::string Stored() {
        std::string bytes(e->nLength + 1, '\0');
        EXPECT_EQ(dataSet.GetBinaryValue(e, bytes.data(), e->nLength), 1u);
        bytes.pop_back();
        return bytes;
    }
    /// The text, or "no" where there is none.
    std::string Text() {
        const VDicomULong size = dataSet.GetConvertValue(e, nullptr);
        if (size == 0)
            return "no";
        std::string text(size + 1, '*');
        EXPECT_EQ(dataSet.GetConvertValue(e, text.data()), size);
        EXPECT_EQ(text.substr(size - 1), "\0*"s) << "ends with its zero, and nothing is written behind it";
        EXPECT_EQ(e->pTypeValue, nullptr) << "conversion leaves no parsed value behind";
        return text.substr(0, size - 1);
    }
    bool Set(const std::string& text, VDicomULong count = kAll) {
        return dataSet.SetConvertValue(e, text.c_str(), count) != 0;
    }

    VDicomDS dataSet;
    DICOMELEMENT* e = nullptr;
};

template <class Number> std::string BytesOf(std::initializer_list<Number> numbers) {
    std::string bytes;
    for (const Number number : numbers) {
        char raw[sizeof number];
        std::memcpy(raw, &number, sizeof number);
        bytes.append(raw, sizeof number);
    }
    return bytes;
}

} // namespace

// The value, its text, and that the text gives the value again (where it is stored in its usual form).
TEST(Convert, EachVRHasItsFormat) {
    const struct {
        unsigned short vr;
        bool same; // false: the text gives another form of the same value
        std::string value;
        std::string text;
    } cases[] = {
        {vr::AE, false, " STORE ", "STORE"},
        {vr::LO, true, "A\\B C\\", "A\\B C\\"},
        {vr::LT, true, "line\r\nA\\B", "line\r\nA\\B"},
        {vr::ST, true, "  text", "  text"},
        {vr::UI, true, "1.2.840\0"s, "1.2.840"},
        {vr::UR, true, "http://a/b?c\\d", "http://a/b?c\\d"},
        {vr::UC, true, "A\\B ", "A\\B"},
        {vr::AS, true, "034Y", "34 years"},
        {vr::AS, true, "005D\\001W\\010M", "5 days\\1 weeks\\10 months"},
        {vr::AT, true, BytesOf<std::uint16_t>({0x0010, 0x0020, 0x7FE0, 0xABCD}), "0010:0020\\7FE0:ABCD"},
        {vr::DA, true, "20070115", "01/15/2007"},
        {vr::DA, true, "20070101-20071231 ", "01/01/2007-12/31/2007"},
        {vr::DA, true, "20070101\\20070101-\\\\-20070101 ", "01/01/2007\\01/01/2007-\\\\-01/01/2007"},
        {vr::DA, false, "2007.01.15", "01/15/2007"},
        {vr::TM, true, "101112.000100\\101112.5", "10:11:12.000100\\10:11:12.5"},
        {vr::TM, false, "1011", "10:11:00.0"},
        {vr::TM, true, "101112.0-\\-101112.0\\000000.0-101112.7", "10:11:12.0-\\-10:11:12.0\\00:00:00.0-10:11:12.7"},
        {vr::DT, true, "20070115101112.5-0500 ", "01/15/2007  10:11:12.5-500"},
        {vr::DT, true, "2007", "00/00/2007  00:00:00.0+0"},
        {vr::DT, true, "20070115101112.5+0100-20080115101112.0", "01/15/2007  10:11:12.5+100-01/15/2008  10:11:12.0+0"},
        {vr::DS, false, "1.500\\-2e-7", "1.5\\-2e-07"},
        {vr::DS, true, "0.333333\\\\7 ", "0.333333\\\\7"},
        {vr::IS, false, "+007", "7"},
        {vr::IS, true, "2147483647\\3000000000\\-3000000000 ", "2147483647\\3000000000\\-3000000000"},
        {vr::FL, true, BytesOf<float>({1.5F, -0.25F}), "1.500000\\-0.250000"},
        {vr::OF, false, BytesOf<float>({1e-7F}), "0.000000"},
        {vr::FD, true, BytesOf<double>({0.1, 1e100}), "0.1\\1e+100"},
        {vr::OD, true, BytesOf<double>({-0.0}), "-0"},
        {vr::SS, true, BytesOf<std::int16_t>({-32768, 5}), "-32768\\5"},
        {vr::US, true, BytesOf<std::uint16_t>({65535, 0}), "65535\\0"},
        {vr::OW, true, BytesOf<std::uint16_t>({65535}), "65535"},
        {vr::SL, true, BytesOf<std::int32_t>({-2147483647 - 1}), "-2147483648"},
        {vr::UL, true, BytesOf<std::uint32_t>({4294967295U}), "4294967295"},
        {vr::OL, true, BytesOf<std::uint32_t>({4294967295U}), "4294967295"},
        {vr::SV, true, BytesOf<std::int64_t>({INT64_MIN}), "-9223372036854775808"},
        {vr::UV, true, BytesOf<std::uint64_t>({UINT64_MAX}), "18446744073709551615"},
        {vr::OV, true, BytesOf<std::uint64_t>({1}), "1"},
        {vr::OB, true, "\x00\x7F\xFF\x0A"s, "00\\7F\\FF\\0A"},
        {vr::UN, true, "AB", "41\\42"},
        {0, true, "AB", "41\\42"},
    };
    for (const bool big : {false, true}) {
        for (const auto& c : cases) {
            Element element(c.vr, big);
            element.Store(c.value);
            const std::string value = element.Stored();
            EXPECT_EQ(element.Text(), c.text) << c.value;
            Element again(c.vr, big);
            ASSERT_TRUE(again.Set(c.text)) << c.text;
            EXPECT_EQ(again.Text(), c.text);
            EXPECT_EQ(again.Stored() == value, c.same) << c.text << ": " << again.Stored();
        }
    }
}

TEST(Convert, ValuesWithoutText) {
    const struct {
        unsigned short vr;
        const char* value;
    } cases[] = {{vr::LO, ""},
                 {vr::IS, "abc "},
                 {vr::IS, "1\\abc "},
                 {vr::DA, "20071301"},
                 {vr::DA, "20070101\\*"},
                 {vr::TM, "25"},
                 {vr::DS, "1,5 "},
                 {vr::AS, "34 "},
                 {vr::DT, "200"},
                 {vr::DT, "2007-2008-20"},
                 {vr::DS, "99999999e999"}};
    for (const auto& c : cases) {
        Element element(c.vr);
        element.Store(c.value);
        EXPECT_EQ(element.Text(), "no") << c.value;
        char out[64] = "before";
        EXPECT_EQ(element.dataSet.GetConvertValue(element.e, out), 0u);
        EXPECT_TRUE(out[0] == '\0' || out == "before"s) << "no part of a text: " << out;
    }
    Element sequence(vr::SQ);
    EXPECT_EQ(sequence.Text(), "no");
    EXPECT_FALSE(sequence.Set("00"));
    Element blank(vr::LO);
    blank.Store("  ");
    EXPECT_EQ(blank.Text(), "");
    Element partial(vr::US);
    partial.Store("1");
    EXPECT_EQ(partial.Text(), "49") << "one byte is padded to a value";
    EXPECT_EQ(partial.dataSet.GetConvertValue(nullptr, nullptr), 0u);
}

TEST(Convert, RefusedTextsChangeNothing) {
    const struct {
        unsigned short vr;
        std::vector<const char*> texts;
    } cases[] = {
        {vr::US, {"65536", "-1", "1.5", "x", "1\\", "\\1", "1 2", "0x1"}},
        {vr::SS, {"32768", "-32769", "--1", "+-1"}},
        {vr::UL, {"4294967296", "-1"}},
        {vr::SL, {"2147483648"}},
        {vr::SV, {"9223372036854775808"}},
        {vr::UV, {"18446744073709551616", "-1"}},
        {vr::FL, {"1e39", "1,5", "1.5f", "infinity"}},
        {vr::FD, {"1e309", "1.2.3", "0x1p3", "nan(1)"}},
        {vr::OB, {"0", "000", "GG", "+1", "00\\", "00 01"}},
        {vr::AT, {"0010", "0010:002", "0010,0020", "0010:00200", "0010:+020"}},
        {vr::DA, {"13/01/2007", "02/29/2007", "2007", "01/15/2007 10:00", "01/15/2007--", "20070115-x"}},
        {vr::TM, {"24:00:00.0", "10:00:00.1234567", "10:00:00.", "1:00:00.0", "10-00-00"}},
        {vr::DT, {"01/15/2007", "01/15/2007  10:00:00.0", "01/15/2007  10:00:00.0+0x", "00/15/2007  00:00:00.0+0"}},
        {vr::AS, {"34", "34 year", "1000 years", "34 Years"}},
        {vr::IS, {"abc", "1.5", "99999999999999999999", "1\\x"}},
        {vr::DS, {"abc", "nan", "inf", "1.23456789012345678", "1e999"}},
    };
    for (const auto& c : cases) {
        Element element(c.vr);
        const std::string before = c.vr == vr::DA ? "20070115" : c.vr == vr::AS ? "001Y" : "12345678";
        element.Store(before);
        for (const char* text : c.texts) {
            EXPECT_FALSE(element.Set(text)) << text;
            EXPECT_EQ(element.Stored(), before);
        }
    }
    Element element(vr::LO);
    EXPECT_EQ(element.dataSet.SetConvertValue(element.e, nullptr, kAll), 0u);
    EXPECT_EQ(element.dataSet.SetConvertValue(nullptr, "A", kAll), 0u);
}

TEST(Convert, TheCountMustBeThatOfTheText) {
    Element names(vr::LO);
    EXPECT_TRUE(names.Set("A\\B", 2));
    EXPECT_FALSE(names.Set("C\\D", 1));
    EXPECT_FALSE(names.Set("C\\D", 3));
    EXPECT_FALSE(names.Set("C", 0));
    EXPECT_EQ(names.Stored(), "A\\B ");
    Element text(vr::UT);
    EXPECT_TRUE(text.Set("A\\B", 1)) << "one value, backslash included";
    EXPECT_FALSE(text.Set("A\\B", 2));
    // The empty text empties any element.
    for (const unsigned short vr : {vr::LO, vr::US, vr::DA, vr::OB, vr::IS}) {
        Element element(vr);
        element.Store("20070115");
        EXPECT_FALSE(element.Set("", 2));
        EXPECT_TRUE(element.Set("", vr == vr::US ? 0 : kAll));
        EXPECT_EQ(element.e->nLength, 0u);
    }
}

// Raw forms of data sets, where they cannot be taken for the forms for people.
TEST(Convert, DataSetFormsAreTakenToo) {
    const struct {
        unsigned short vr;
        const char* text;
        const char* stored;
    } cases[] = {{vr::DA, "20070115-", "20070115- "},
                 {vr::DA, " 2007.01.15 ", "20070115"},
                 {vr::TM, "1011", "1011"},
                 {vr::TM, "10:11", "1011"},
                 {vr::DT, "2007-0500", "2007-0500 "},
                 {vr::AS, "34y", "034Y"},
                 {vr::DS, " 1.50 \\2", "1.50\\2"},
                 {vr::IS, "+05", "5 "},
                 {vr::AT, "7fe0:abcd", "\xE0\x7F\xCD\xAB"},
                 {vr::OB, "0a\\Ff", "\x0A\xFF"}};
    for (const auto& c : cases) {
        Element element(c.vr);
        ASSERT_TRUE(element.Set(c.text)) << c.text;
        EXPECT_EQ(element.Stored(), c.stored);
    }
}

// Any bytes of a binary VR give a text that gives these bytes again; of floating point the same text.
TEST(Convert, RandomBinaryValuesComeBack) {
    std::mt19937 random(3);
    for (const unsigned short vr : {vr::OB, vr::UN, vr::OW, vr::US, vr::SS, vr::UL, vr::SL, vr::OL, vr::AT, vr::SV,
                                    vr::UV, vr::OV, vr::FL, vr::OF, vr::FD, vr::OD}) {
        const bool exact = vr != vr::FL && vr != vr::OF && vr != vr::FD && vr != vr::OD;
        for (const bool big : {false, true}) {
            for (const std::size_t size : {8U, 4096U, 4104U, 20000U}) { // around the size of the conversion's buffer
                std::string bytes(size, '\0');
                for (char& byte : bytes)
                    byte = static_cast<char>(random());
                Element element(vr, big);
                element.Store(bytes);
                const std::string text = element.Text();
                Element again(vr, big);
                ASSERT_TRUE(again.Set(text)) << text.substr(0, 100);
                ASSERT_EQ(again.e->nLength, size);
                ASSERT_EQ(again.Text(), text);
                if (exact) {
                    ASSERT_EQ(again.Stored(), bytes);
                }
            }
        }
    }
}

// Every text that real files give is accepted for an element of the same VR, and stays the same.
TEST(Convert, TextsOfRealFilesComeBack) {
    const auto folder = TestFolder::FromUtf8(VDICOM_SHARED) / "samples";
    if (!std::filesystem::exists(folder))
        GTEST_SKIP() << "no samples beside the checkout";
    constexpr VDicomULong longest = 1 << 20;
    std::size_t texts = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        VDicomDS dataSet;
        if (!entry.is_regular_file() || dataSet.LoadDS(TestFolder::Utf8(entry.path()).c_str(), 0) != DICOM_OK)
            continue;
        DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 0, 1);
        for (; e != nullptr; e = dataSet.GetNextElement(e, 0, 1)) {
            const VDicomULong size = e->nLength > longest ? 0 : dataSet.GetConvertValue(e, nullptr);
            if (size == 0)
                continue;
            std::string text(size, '\0');
            ASSERT_EQ(dataSet.GetConvertValue(e, text.data()), size);
            text.pop_back();
            Element copy(e->nVR);
            ASSERT_TRUE(copy.Set(text)) << entry.path() << std::hex << e->nTag << text.substr(0, 200);
            const std::string again = copy.Text();
            ASSERT_EQ(again == "no" ? "" : again, text) << entry.path() << std::hex << e->nTag;
            ++texts;
        }
    }
    EXPECT_GT(texts, 5000u);
}
