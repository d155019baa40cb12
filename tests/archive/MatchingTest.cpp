// Matching of one attribute, as a table (PS3.4 C.2.2.2).
#include "Matching.h"

#include "VDicomTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace archive;
namespace vr = vdicom::vr;

enum Answer { kNo, kYes, kNoKey };

struct Case {
    unsigned short vr;
    const char* key;
    const char* stored;
    Answer answer;
};

constexpr Case kCases[] = {
    // Universal.
    {vr::LO, "", "", kYes},
    {vr::LO, "*", "", kYes},
    {vr::DA, "", "20240229", kYes},
    {vr::UI, "", "1.2", kYes},
    // Single values, as they stand; padding does not count.
    {vr::CS, "CT", "CT ", kYes},
    {vr::CS, " CT", "CT", kYes},
    {vr::CS, "ct", "CT", kNo},
    {vr::SH, "A12", "A123", kNo},
    {vr::LO, "x", "", kNo},
    {vr::SH,
     "Stra\xC3\x9F"
     "e",
     "STRASSE", kNo},
    // Several values, on both sides.
    {vr::CS, "CT\\MR", "MR", kYes},
    {vr::CS, "CT", "PT\\CT", kYes},
    {vr::CS, "CT\\MR", "US\\XA", kNo},
    {vr::UI, "1.2\\1.3", "1.3", kYes},
    {vr::UI, "1.2\\1.3", "1.30", kNo},
    {vr::LT, "a\\b", "a\\b", kYes},
    {vr::LT, "a", "a\\b", kNo},
    // Wildcards.
    {vr::LO, "*foot*", "left foot, 2 views", kYes},
    {vr::LO, "foot*", "left foot", kNo},
    {vr::LO, "?at", "cat", kYes},
    {vr::LO, "?at", "at", kNo},
    {vr::LO, "M?ller", "M\xC3\xBCller", kYes},
    {vr::LO, "*?", "\xC3\xBC", kYes},
    {vr::LO, "*\xBC", "\xC3\xBC", kNo},
    {vr::CS, "C?\\M*", "PT\\MR", kYes},
    {vr::LO, "A*C", "A\\C", kNo},
    {vr::LO, "a[b]*", "a[b]c", kYes},
    {vr::LO, "*a*a*a*b", "aaaaaaaaaaaaaaaaaaaaaaaa", kNo},
    {vr::UI, "1.2.*", "1.2.3", kNoKey},
    {vr::IS, "1?", "12", kNoKey},
    {vr::DA, "2024*", "20240229", kNoKey},
    // Names of persons.
    {vr::PN, "doe^jane", "DOE^Jane", kYes},
    {vr::PN, "Doe^Jane^^", "Doe^Jane", kYes},
    {vr::PN, "Doe", "Doe^Jane", kNo},
    {vr::PN, "Muller^*", "M\xC3\xBCller^J\xC3\xBCrgen", kYes},
    {vr::PN, "M\xC3\x9CLLER*", "Muller^X", kYes},
    {vr::PN, "M\xC3\xBCller*", "Mu\xCC\x88ller^X", kYes}, // the accent as a character of its own
    {vr::PN, "strasse",
     "Stra\xC3\x9F"
     "e",
     kYes},
    {vr::PN, "Yamada^Tarou", "Yamada^Tarou=\xE5\xB1\xB1\xE7\x94\xB0^\xE5\xA4\xAA\xE9\x83\x8E", kYes},
    {vr::PN, "\xE5\xB1\xB1\xE7\x94\xB0*", "Yamada^Tarou=\xE5\xB1\xB1\xE7\x94\xB0^\xE5\xA4\xAA\xE9\x83\x8E", kYes},
    {vr::PN, "=\xE5\xB1\xB1\xE7\x94\xB0*", "Yamada^Tarou=\xE5\xB1\xB1\xE7\x94\xB0^\xE5\xA4\xAA\xE9\x83\x8E", kYes},
    {vr::PN, "\xEA\xB9\x80?\xEC\x88\x98", "\xEA\xB9\x80\xEB\xAF\xBC\xEC\x88\x98", kYes}, // a syllable is one character
    {vr::PN, "Tarou*", "Yamada^Tarou=x", kNo},
    {vr::PN, "*^JANE", "Doe^Jane^^Dr", kNo},
    {vr::PN, "\xFF*", "Doe", kNo},
    // Numbers by value.
    {vr::IS, "7", "007", kYes},
    {vr::IS, "+7", " 7", kYes},
    {vr::DS, "1.5", "15e-1", kYes},
    {vr::US, "512", "5120", kNo},
    {vr::IS, "x", "x", kYes},
    {vr::IS, "12\\x\\7\\+3", "9\\03", kYes},
    {vr::IS, "12\\x\\7\\+3", "9\\x", kYes},
    {vr::IS, "12\\x\\7\\+3", "9\\2", kNo},
    {vr::DS, "nan\\1\\nan\\0", "1.0", kYes},
    // Dates.
    {vr::DA, "20240229", "20240229", kYes},
    {vr::DA, "2024.02.29", "20240229", kYes},
    {vr::DA, "20240201-20240229", "20240229", kYes},
    {vr::DA, "20240201-20240228", "20240229", kNo},
    {vr::DA, "-20240229", "19991231", kYes},
    {vr::DA, "20240301-", "20240229", kNo},
    {vr::DA, "20240101-20241231", "", kNo},
    {vr::DA, "20240101-20241231", "garbage", kNo},
    {vr::DA, "20230229", "20230301", kNoKey},
    {vr::DA, "-", "20240229", kNoKey},
    {vr::DA, "2024", "20240229", kNoKey},
    // Times: a value that leaves parts out means the whole span.
    {vr::TM, "10", "103015", kYes},
    {vr::TM, "1030", "103059.999999", kYes},
    {vr::TM, "1030", "1031", kNo},
    {vr::TM, "103015", "103015.25", kYes},
    {vr::TM, "10:30:15", "103015", kYes},
    {vr::TM, "-1030", "103059", kYes},
    {vr::TM, "1030-1100", "1100", kYes},
    {vr::TM, "1030-1100", "110100", kNo},
    {vr::TM, "103015.5-", "103015.49", kNo},
    {vr::TM, "2500", "2500", kNoKey},
    // Date-times, offsets and their hyphens.
    {vr::DT, "2024", "20240229103015", kYes},
    {vr::DT, "20240229-20240301", "20240301235959.999999", kYes},
    {vr::DT, "20240229100000+0100", "20240229090000+0000", kYes},
    {vr::DT, "20240229100000-0500", "20240229150000", kYes},
    {vr::DT, "20240229100000-0500-20240229120000-0500", "20240229160000", kYes},
    {vr::DT, "20240229-", "20240228235959", kNo},
    {vr::DT, "2024-2025", "20250601", kYes},
};

TEST(Matching, AsTheStandardHasIt) {
    for (const Case& c : kCases) {
        const std::optional<Key> key = Key::Parse(c.vr, c.key);
        const Answer answer = !key ? kNoKey : key->Matches(c.stored) ? kYes : kNo;
        EXPECT_EQ(answer, c.answer) << "key '" << c.key << "' stored '" << c.stored << "'";
    }
}

TEST(Matching, PatternsTakeTimeInProportion) {
    std::string pattern;
    for (int i = 0; i < 300; ++i)
        pattern += "*a?";
    const std::optional<Key> key = Key::Parse(vr::LO, pattern + "b");
    ASSERT_TRUE(key);
    EXPECT_FALSE(key->Matches(std::string(16000, 'a')));
    EXPECT_FALSE(Key::Parse(vr::LO, std::string(1025, '?')));
    for (const unsigned short code : {vr::IS, vr::CS, vr::TM}) {
        std::string many = "11";
        for (std::size_t i = 1; i < kMostValues; ++i)
            many += "\\12";
        EXPECT_TRUE(Key::Parse(code, many));
        EXPECT_FALSE(Key::Parse(code, many + "\\12"));
    }
}

} // namespace
