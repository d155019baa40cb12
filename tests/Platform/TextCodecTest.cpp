// What every platform's tables agree on.
#include "TextCodec.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using vdicom::platform::TextCodec;
using vdicom::platform::TextEncoding;

struct Sample {
    TextEncoding encoding;
    std::vector<unsigned char> bytes;
    char32_t expected;
};

TEST(TextCodec, DecodesCharactersOfEveryEncoding) {
    const std::vector<Sample> samples = {
        {TextEncoding::latin2, {0xB1}, 0x105},          // a with ogonek
        {TextEncoding::latin3, {0xA6}, 0x124},          // H with circumflex
        {TextEncoding::latin3, {0xA5}, 0},              // unassigned
        {TextEncoding::latin4, {0xA2}, 0x138},          // kra
        {TextEncoding::cyrillic, {0xBB}, 0x41B},        // el
        {TextEncoding::arabic, {0xE2}, 0x642},          // qaf
        {TextEncoding::arabic, {0xA1}, 0},              // unassigned
        {TextEncoding::greek, {0xC4}, 0x394},           // delta
        {TextEncoding::hebrew, {0xF9}, 0x5E9},          // shin
        {TextEncoding::hebrew, {0xBF}, 0},              // unassigned
        {TextEncoding::latin5, {0xFE}, 0x15F},          // s with cedilla
        {TextEncoding::latin9, {0xA4}, 0x20AC},         // euro sign
        {TextEncoding::thai, {0xA1}, 0xE01},            // ko kai
        {TextEncoding::thai, {0xFF}, 0},                // unassigned
        {TextEncoding::jisX0208, {0x3B, 0x33}, 0x5C71}, // mountain
        {TextEncoding::jisX0208, {0x2D, 0x21}, 0},      // an empty row
        {TextEncoding::jisX0212, {0x30, 0x21}, 0x4E02},
        {TextEncoding::jisX0212, {0x21, 0x21}, 0},
        {TextEncoding::ksX1001, {0x48, 0x2B}, 0xD64D},      // hong
        {TextEncoding::gb2312, {0x4D, 0x75}, 0x738B},       // wang
        {TextEncoding::gbk, {0x81, 0x5C}, 0x4E57},          // a trail byte that is a backslash
        {TextEncoding::gb18030, {0xCD, 0xF5}, 0x738B},      // as GB 2312
        {TextEncoding::gbk, {0xCD}, 0},                     // cut off
        {TextEncoding::jisX0208, {0x3B}, 0},                // likewise
        {TextEncoding::jisX0208, {0x3B, 0x33, 0x3B, 0}, 0}, // too much
        {TextEncoding::latin2, {}, 0},
    };
    for (const Sample& sample : samples) {
        const TextCodec codec(sample.encoding);
        ASSERT_TRUE(codec.IsAvailable()) << static_cast<int>(sample.encoding);
        EXPECT_EQ(codec.Decode(sample.bytes.data(), sample.bytes.size()), sample.expected)
            << static_cast<int>(sample.encoding) << " size " << sample.bytes.size();
    }
}

TEST(TextCodec, Gb18030HasFourBytes) {
    const TextCodec codec(TextEncoding::gb18030);
    const unsigned char pound[] = {0x81, 0x30, 0x84, 0x35};
    if (codec.Decode(pound, 4) == 0)
        GTEST_SKIP() << "this system has GB18030 as far as GBK goes";
    EXPECT_EQ(codec.Decode(pound, 4), 0xA3u);
    const unsigned char face[] = {0x94, 0x39, 0xFC, 0x36};
    EXPECT_EQ(codec.Decode(face, 4), 0x1F600u);
}

} // namespace
