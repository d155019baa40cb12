#include "CharacterSet.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vdicom::CharacterSet;
using vdicom::TextKind;

#define ESC "\x1B"
#define REPLACEMENT "\xEF\xBF\xBD"

std::string Decoded(const CharacterSet& set, const std::string& bytes, TextKind kind = TextKind::values) {
    std::string utf8;
    set.Decode(bytes, kind, utf8);
    return utf8;
}

std::string Encoded(const CharacterSet& set, const std::string& utf8, TextKind kind = TextKind::values) {
    std::string bytes = "kept ";
    if (!set.Encode(utf8, kind, bytes)) {
        EXPECT_EQ(bytes, "kept ");
        return "cannot be expressed";
    }
    return bytes.substr(5);
}

struct Sample {
    const char* specific;
    std::string bytes;
    const char* utf8;
};

// Person names of PS3.5 Annexes H to K and of other languages: the same bytes both ways.
TEST(CharacterSet, NamesInAllRepertoiresBothWays) {
    const std::vector<Sample> samples = {
        {"ISO_IR 100", "Buc^J\xE9r\xF4me", "Buc^Jérôme"},
        {"ISO_IR 101", "W\xB1tek^\xA3ucja", "Wątek^Łucja"},
        {"ISO_IR 109",
         "\xA6"
         "apelisto",
         "Ĥapelisto"},
        {"ISO_IR 110",
         "\xC7\xB9"
         "ne",
         "Įšne"},
        {"ISO_IR 144",
         "\xBB\xEE\xDA"
         "ce\xDC\xD1yp\xD3",
         "Люкceмбypг"},
        {"ISO_IR 127", "\xE2\xC8\xC7\xE6\xEA^\xE4\xE6\xD2\xC7\xD1", "قباني^لنزار"},
        {"ISO_IR 126", "\xC4\xE9\xEF\xED\xF5\xF3\xE9\xEF\xF2", "Διονυσιος"},
        {"ISO_IR 138", "\xF9\xF8\xE5\xEF^\xE3\xE1\xE5\xF8\xE4", "שרון^דבורה"},
        {"ISO_IR 148",
         "\xC7"
         "elik^\xD0\xFC\xFE",
         "Çelik^Ğüş"},
        {"ISO_IR 203", "\xBCuvre \xA4", "Œuvre €"},
        {"ISO_IR 166", "\xCA\xC1\xAA\xD2\xC2", "สมชาย"},
        {"ISO_IR 13", "\xD4\xCF\xC0\xDE^\xC0\xDB\xB3", "ﾔﾏﾀﾞ^ﾀﾛｳ"},
        {"ISO_IR 192", "Wang^XiaoDong=\xE7\x8E\x8B^\xE5\xB0\x8F\xE4\xB8\x9C=", "Wang^XiaoDong=王^小东="},
        {"GB18030", "Wang^XiaoDong=\xCD\xF5^\xD0\xA1\xB6\xAB=", "Wang^XiaoDong=王^小东="},
        {"GBK", "Wang^XiaoDong=\xCD\xF5^\xD0\xA1\xB6\xAB=", "Wang^XiaoDong=王^小东="},
        {"\\ISO 2022 IR 87",
         "Yamada^Tarou=" ESC "$B;3ED" ESC "(B^" ESC "$BB@O:" ESC "(B=" ESC "$B$d$^$@" ESC "(B^" ESC "$B$?$m$&" ESC "(B",
         "Yamada^Tarou=山田^太郎=やまだ^たろう"},
        {"ISO 2022 IR 13\\ISO 2022 IR 87",
         "\xD4\xCF\xC0\xDE^\xC0\xDB\xB3=" ESC "$B;3ED" ESC "(J^" ESC "$BB@O:" ESC "(J=" ESC "$B$d$^$@" ESC "(J^" ESC
         "$B$?$m$&" ESC "(J",
         "ﾔﾏﾀﾞ^ﾀﾛｳ=山田^太郎=やまだ^たろう"},
        {"\\ISO 2022 IR 149",
         "Hong^Gildong=" ESC "$)C\xFB\xF3^" ESC "$)C\xD1\xCE\xD4\xD7=" ESC "$)C\xC8\xAB^" ESC "$)C\xB1\xE6\xB5\xBF",
         "Hong^Gildong=洪^吉洞=홍^길동"},
        {"\\ISO 2022 IR 58",
         "Zhang^XiaoDong=" ESC "$)A\xD5\xC5^" ESC "$)A\xD0\xA1\xB6\xAB=", "Zhang^XiaoDong=张^小东="},
        // JIS X 0212 beside JIS X 0208: the first declared set that has a character is taken.
        {"\\ISO 2022 IR 87\\ISO 2022 IR 159", ESC "$B;3" ESC "$(D0!" ESC "(B", "山丂"},
        // Back to the first value's upper half before every delimiter, and at the end.
        {"ISO 2022 IR 100\\ISO 2022 IR 144\\ISO 2022 IR 126",
         "J\xE9r\xF4me=" ESC "-L\xBB\xEE" ESC "-A=" ESC "-F\xC4" ESC "-L\xBB" ESC "-A", "Jérôme=Лю=ΔЛ"},
    };
    for (const Sample& sample : samples) {
        const CharacterSet set(sample.specific);
        EXPECT_TRUE(set.IsKnown());
        EXPECT_EQ(Decoded(set, sample.bytes, TextKind::names), sample.utf8) << sample.specific;
        EXPECT_EQ(Encoded(set, sample.utf8, TextKind::names), sample.bytes) << sample.specific;
    }
}

TEST(CharacterSet, ValuesLinesAndControlCharactersStartAnew) {
    const CharacterSet set("ISO 2022 IR 100\\ISO 2022 IR 144\\ISO 2022 IR 87");
    for (const std::string delimiter : {"\\", "\n", "\r", "\f", "\t"}) {
        // Reading: what is behind the delimiter is Latin-1 again, called or not.
        EXPECT_EQ(Decoded(set, ESC "-L\xBB\xEE" + delimiter + "\xE9"), "Лю" + delimiter + "é");
        EXPECT_EQ(Encoded(set, "Лю山" + delimiter + "é"),
                  ESC "-L\xBB\xEE" ESC "$B;3" ESC "(B" ESC "-A" + delimiter + "\xE9");
    }
    // In a text of one value a backslash divides nothing, "^" and "=" only names.
    EXPECT_EQ(Decoded(set, ESC "-L\xBB\\\xEE^\xEE=\xEE", TextKind::text), "Л\\ю^ю=ю");
    EXPECT_EQ(Encoded(set, "Л\\ю", TextKind::text), ESC "-L\xBB\\\xEE" ESC "-A");
    EXPECT_EQ(Encoded(set, "Л\\ю"), ESC "-L\xBB" ESC "-A\\" ESC "-L\xEE" ESC "-A");
    // A backslash as half of a character of two bytes: the trail byte of 0x305C.
    EXPECT_EQ(Decoded(set, ESC "$B0\\" ESC "(B\\a"), "移\\a");
    EXPECT_EQ(Encoded(set, "移\\a"), ESC "$B0\\" ESC "(B\\a");
    // Blanks between characters of two bytes.
    EXPECT_EQ(Decoded(set, ESC "$B;3 ED" ESC "(B"), "山 田");
    EXPECT_EQ(Encoded(set, "山 田"), ESC "$B;3" ESC "(B " ESC "$BED" ESC "(B");
}

TEST(CharacterSet, BackslashesInsideChineseCharacters) {
    for (const char* specific : {"GBK", "GB18030"}) {
        const CharacterSet set(specific);
        EXPECT_EQ(Decoded(set, "\x81\x5C\\\x81\x5C"), "乗\\乗"); // one delimiter
        EXPECT_EQ(Encoded(set, "乗\\乗"), "\x81\x5C\\\x81\x5C");
    }
    const CharacterSet full("GB18030");
    EXPECT_EQ(Decoded(full, "\x94\x39\xFC\x36"), "😀");
    EXPECT_EQ(Encoded(full, "😀"), "\x94\x39\xFC\x36");
    EXPECT_EQ(Encoded(CharacterSet("GBK"), "😀"), "cannot be expressed");
    if (Decoded(full, "\x81\x30\x84\x35") != REPLACEMENT "0" REPLACEMENT "5") {
        EXPECT_EQ(Decoded(full, "\x81\x30\x84\x35"), "£");
        EXPECT_EQ(Encoded(full, "£"), "\x81\x30\x84\x35");
    }
}

TEST(CharacterSet, YenSignAndOverlineOfJisX0201) {
    const CharacterSet set("ISO_IR 13");
    EXPECT_EQ(Decoded(set, "\x5C\x7E", TextKind::text), "¥‾");
    EXPECT_EQ(Decoded(set, "a\\b"), "a\\b"); // the delimiter is a delimiter
    EXPECT_EQ(Encoded(set, "¥‾", TextKind::text), "\x5C\x7E");
    EXPECT_EQ(Encoded(set, "¥"), "cannot be expressed"); // it would become a delimiter
    EXPECT_EQ(Encoded(set, "~"), "cannot be expressed");
    EXPECT_EQ(Encoded(CharacterSet("ISO 2022 IR 13\\ISO 2022 IR 6"), "ﾔ~"), "\xD4" ESC "(B~" ESC "(J");
    EXPECT_EQ(Decoded(set, std::string(50, '~')), Decoded(set, "~") + Decoded(set, std::string(49, '~')));
}

TEST(CharacterSet, WhatIsNoTextBecomesReplacementCharacters) {
    EXPECT_EQ(Decoded(CharacterSet(), "J\xE9"), "J" REPLACEMENT);
    EXPECT_EQ(Decoded(CharacterSet("nonsense"), "J\xE9"), "J" REPLACEMENT);
    EXPECT_FALSE(CharacterSet("nonsense").IsKnown());
    EXPECT_EQ(Decoded(CharacterSet("ISO_IR 138"), "\xBF\xE0"), REPLACEMENT "א");
    EXPECT_EQ(Decoded(CharacterSet("ISO_IR 100"), std::string("a\0b", 3)), "a" REPLACEMENT "b");
    EXPECT_EQ(Decoded(CharacterSet("ISO_IR 100"), "a" ESC "[1m\xE9"), "a" REPLACEMENT "[1mé");
    EXPECT_EQ(Decoded(CharacterSet("ISO_IR 100"), ESC), REPLACEMENT);
    std::string utf8;
    EXPECT_EQ(
        CharacterSet("ISO_IR 192")
            .Decode("\xE7\x8E|\xC0\xAF|\xED\xA0\x80|\xF4\x90\x80\x80|\xF0\x9F\x98\x80|\xE7", TextKind::values, utf8),
        11u);
    EXPECT_EQ(utf8, REPLACEMENT "|" REPLACEMENT REPLACEMENT "|" REPLACEMENT REPLACEMENT REPLACEMENT
                                "|" REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT "|😀|" REPLACEMENT);
    const CharacterSet japanese("\\ISO 2022 IR 87");
    EXPECT_EQ(Decoded(japanese, ESC "$B;"), REPLACEMENT);
    EXPECT_EQ(Decoded(japanese, ESC "$B-!;3"), REPLACEMENT "山");
    EXPECT_EQ(Decoded(japanese, ESC "$B;3^" ESC "$BED", TextKind::names), "山^田"); // nobody switched back
    EXPECT_EQ(Decoded(CharacterSet("\\ISO 2022 IR 149"), ESC "$)C\xFB\x41\x85\x90"),
              REPLACEMENT "A" REPLACEMENT REPLACEMENT);
    EXPECT_EQ(Decoded(CharacterSet("GBK"), "\xCD\xF5\xCD"), "王" REPLACEMENT);
    EXPECT_EQ(Decoded(CharacterSet("GB18030"), "\xFF\x84\x31\xA4\x40\x90"),
              REPLACEMENT REPLACEMENT "1" + Decoded(CharacterSet("GB18030"), "\xA4\x40") + REPLACEMENT);
}

TEST(CharacterSet, WhatCannotBeExpressedFails) {
    EXPECT_EQ(Encoded(CharacterSet(), "é"), "cannot be expressed");
    EXPECT_EQ(Encoded(CharacterSet("ISO_IR 100"), "Ω"), "cannot be expressed");
    EXPECT_EQ(Encoded(CharacterSet("ISO 2022 IR 100\\ISO 2022 IR 87"), "é\xED\xA0\x80"), "cannot be expressed");
    EXPECT_EQ(Encoded(CharacterSet("ISO_IR 192"), "\xC0\xAF"), "cannot be expressed");
    EXPECT_EQ(Encoded(CharacterSet("ISO_IR 100"), "é" ESC "-L"), "cannot be expressed"); // no escapes from outside
    EXPECT_EQ(Encoded(CharacterSet("ISO_IR 100"), "abc~"), "abc~");
}

TEST(CharacterSet, UsualMisspellings) {
    for (const char* specific : {"ISO_IR 100", "ISO IR 100", "ISO-IR 100", "iso_ir 100", "ISO_IR_100", "ISO_IR100 ",
                                 "ISO8859-1", "ISO 8859-1", "latin1", " ISO_IR 100", "ISO 2022 IR 100", "IR 100"}) {
        const CharacterSet set(specific);
        EXPECT_TRUE(set.IsKnown()) << specific;
        EXPECT_EQ(Decoded(set, "\xE9"), "é") << specific;
        EXPECT_EQ(Encoded(set, "é"), "\xE9") << specific;
    }
    for (const char* specific : {"ISO_IR 192", "ISO IR 192", "ISO-IR 192", "UTF-8", "utf8", "UTF_8", "\\ISO_IR 192",
                                 "ISO 2022 IR 6\\ISO_IR 192", "ISO_IR 192\\ISO 2022 IR 87"}) {
        EXPECT_TRUE(CharacterSet(specific).IsUtf8()) << specific;
        EXPECT_EQ(Decoded(CharacterSet(specific), "é"), "é") << specific;
    }
    for (const char* specific :
         {"\\ISO 2022 IR 149", "ISO 2022 IR 149", "ISO_IR 149", "ISO2022IR149", "\\iso_2022_ir_149"})
        for (const char* bytes : {ESC "$)C\xFB\xF3", "\xFB\xF3"}) // called, or forgotten to
            EXPECT_EQ(Decoded(CharacterSet(specific), bytes), "洪") << specific;
    EXPECT_EQ(Encoded(CharacterSet("ISO 2022 IR 149"), "洪"), ESC "$)C\xFB\xF3");
    // A set that was not declared is called all the same.
    EXPECT_EQ(Decoded(CharacterSet(), ESC "$B;3ED" ESC "(B"), "山田");
    EXPECT_EQ(Decoded(CharacterSet(), ESC "$@;3ED" ESC "(J"), "山田");
    // The terms are short and few; anything may stand in a file.
    EXPECT_FALSE(CharacterSet(std::string(100000, 'A')).IsKnown());
    std::string many = "ISO 2022 IR 6";
    for (int i = 0; i < 1000; ++i)
        many += "\\ISO 2022 IR 100\\ISO 2022 IR 149\\ISO 2022 IR 13";
    EXPECT_EQ(Decoded(CharacterSet(many), ESC "-A\xE9"), "é");
}

TEST(CharacterSet, PlainTextsAreSeenAtEveryPlace) {
    const CharacterSet set("ISO_IR 100");
    for (std::size_t size = 0; size < 40; ++size) {
        const std::string plain(size, 'x');
        EXPECT_TRUE(CharacterSet::IsPlain(plain.data(), size, TextKind::values));
        EXPECT_EQ(Decoded(set, plain), plain);
        for (std::size_t at = 0; at < size; ++at) {
            for (const char c : {'\x1B', '\0', '~', '\x80', '\xFF'}) {
                std::string other = plain;
                other[at] = c;
                EXPECT_FALSE(CharacterSet::IsPlain(other.data(), size, TextKind::values)) << at << ' ' << size;
            }
            std::string backslash = plain;
            backslash[at] = '\\';
            EXPECT_TRUE(CharacterSet::IsPlain(backslash.data(), size, TextKind::names));
            EXPECT_FALSE(CharacterSet::IsPlain(backslash.data(), size, TextKind::text));
        }
    }
}

// Every two-byte sequence in every set: what is decoded comes back as it was, or as another code of that character.
TEST(CharacterSet, RoundTripOfAllCodes) {
    for (const char* specific : {"ISO_IR 100", "ISO_IR 127", "ISO_IR 166", "ISO_IR 13", "GBK", "GB18030",
                                 "\\ISO 2022 IR 149", "\\ISO 2022 IR 58", "ISO_IR 192"}) {
        const CharacterSet set(specific);
        unsigned int characters = 0;
        for (int first = 0x20; first < 0x100; ++first) {
            for (int second = 0x20; second < 0x100; ++second) {
                const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
                const std::string utf8 = Decoded(set, bytes, TextKind::text);
                if (utf8.find(REPLACEMENT) != std::string::npos || bytes.find('\x1B') != std::string::npos)
                    continue;
                std::string again;
                ASSERT_TRUE(set.Encode(utf8, TextKind::text, again)) << specific << ' ' << first << ' ' << second;
                ASSERT_EQ(Decoded(set, again, TextKind::text), utf8) << specific << ' ' << first << ' ' << second;
                ++characters;
            }
        }
        EXPECT_GT(characters, 9000u) << specific;
    }
}

} // namespace
