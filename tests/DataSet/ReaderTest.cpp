// Loading: headers as bytes, every encoding, and what a reader must put up with.
#include "ElementHeader.h"
#include "HexBytes.h"
#include "VRTraits.h"

#include <gmock/gmock.h>

using namespace support;
using testing::Contains;

namespace {

constexpr unsigned int kDone = DICOM_OK;

vdicom::ElementHeader Decode(const Bytes& bytes, vdicom::Encoding encoding) {
    vdicom::ElementHeader header;
    EXPECT_EQ(vdicom::DecodeHeader({bytes.data(), bytes.size()}, encoding, 1 << 20, header), vdicom::Decoded::done);
    return header;
}

} // namespace

TEST(ElementHeader, FormsOfAllEncodings) {
    const struct {
        Bytes bytes;
        vdicom::Encoding encoding;
        VDicomULong tag;
        const char* vr;
        VDicomULong length;
    } cases[] = {
        {"2800 1000 'US' 0200"_bytes, {true, true}, 0x00280010, "US", 2},
        {"0028 0010 'US' 0002"_bytes, {false, true}, 0x00280010, "US", 2},
        {"2800 1000 02000000"_bytes, {true, false}, 0x00280010, "\xFF\xFF", 2},
        {"E07F 1000 'OB' 0000 FFFFFFFF"_bytes, {true, true}, 0x7FE00010, "OB", 0xFFFFFFFF},
        {"7FE0 0010 'OW' 0000 00000100"_bytes, {false, true}, 0x7FE00010, "OW", 256},
        // Group 0002 is explicit VR little endian whatever the stream is.
        {"0200 1000 'UI' 1200"_bytes, {false, true}, 0x00020010, "UI", 18},
        {"0200 1000 'UI' 1200"_bytes, {true, false}, 0x00020010, "UI", 18},
        // ... and implicit where its VR is none.
        {"0200 1000 12000000"_bytes, {true, true}, 0x00020010, "\xFF\xFF", 18},
        {"FEFF 00E0 FFFFFFFF"_bytes, {true, true}, 0xFFFEE000, "OB", 0xFFFFFFFF},
        // A delimiter has no length, whatever the stream says.
        {"FEFF 0DE0 10000000"_bytes, {true, true}, 0xFFFEE00D, "OB", 0},
        // "UT" with a short header, as some write it.
        {"4000 60A1 'UT' 0400 'abcd'"_bytes, {true, true}, 0x0040A160, "UT", 4},
        {"4000 60A1 'UT' 0000 04000000"_bytes, {true, true}, 0x0040A160, "UT", 4},
        // VRs newer than the table, and one that is newer than the library.
        {"2800 1000 'UV' 0000 08000000"_bytes, {true, true}, 0x00280010, "UV", 8},
        {"2800 1000 'ZZ' 0000 08000000"_bytes, {true, true}, 0x00280010, "ZZ", 8},
        // A header without VR among explicit ones.
        {"0900 1010 04000000 'abcd'"_bytes, {true, true}, 0x00091010, "\xFF\xFF", 4},
    };
    for (const auto& one : cases) {
        const vdicom::ElementHeader header = Decode(one.bytes, one.encoding);
        EXPECT_EQ(header.tag, one.tag);
        EXPECT_EQ(header.vr, VDicomVRCode(one.vr[0], one.vr[1])) << std::hex << one.tag;
        EXPECT_EQ(header.length, one.length) << std::hex << one.tag << one.vr;
        // No header is taken from fewer bytes than it has.
        for (std::size_t size = 0; size < header.size; ++size) {
            vdicom::ElementHeader part;
            EXPECT_EQ(vdicom::DecodeHeader({one.bytes.data(), size}, one.encoding, 1 << 20, part),
                      vdicom::Decoded::needMore);
        }
    }
}

TEST(Reader, EveryEncodingGivesTheSameElements) {
    const char* const expected = "(0008,0005) CS 10: 49 53 4F 5F 49 52 20 31 30 30\n"
                                 "(0008,1140) SQ u\n"
                                 "  (FFFE,E000) OB u\n"
                                 "    (0008,1150) UI 4: 31 2E 32 33\n"
                                 "(0028,0010) US 2: 00 02\n"
                                 "(0028,0009) AT 4: 18 00 63 10\n";
    // In order of tags (0028,0009) comes first.
    std::string sorted(expected);
    const std::size_t last = sorted.find("(0028,0009)");
    const std::size_t rows = sorted.find("(0028,0010)");
    sorted = sorted.substr(0, rows) + sorted.substr(last) + sorted.substr(rows, last - rows);

    const Bytes explicitLittle = "0800 0500 'CS' 0A00 'ISO_IR 100' 0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF "
                                 "0800 5011 'UI' 0400 '1.23' FEFF 0DE0 00000000 FEFF DDE0 00000000 "
                                 "2800 0900 'AT' 0400 1800 6310 2800 1000 'US' 0200 0002"_bytes;
    const Bytes definedLittle =
        "0800 0500 'CS' 0A00 'ISO_IR 100' 0800 4011 'SQ' 0000 14000000 FEFF 00E0 0C000000 "
        "0800 5011 'UI' 0400 '1.23' 2800 0900 'AT' 0400 1800 6310 2800 1000 'US' 0200 0002"_bytes;
    const Bytes implicitLittle = "0800 0500 0A000000 'ISO_IR 100' 0800 4011 FFFFFFFF FEFF 00E0 0C000000 "
                                 "0800 5011 04000000 '1.23' FEFF DDE0 00000000 "
                                 "2800 0900 04000000 1800 6310 2800 1000 02000000 0002"_bytes;
    const Bytes explicitBig = "0008 0005 'CS' 000A 'ISO_IR 100' 0008 1140 'SQ' 0000 00000014 FFFE E000 0000000C "
                              "0008 1150 'UI' 0004 '1.23' 0028 0009 'AT' 0004 0018 1063 0028 0010 'US' 0002 0200"_bytes;
    const struct {
        Bytes bytes;
        unsigned short flags;
    } cases[] = {
        {explicitLittle, 0x24},
        {definedLittle, 0x24},
        {implicitLittle, 0x14},
        {explicitBig, 0x28},
        {Part10(kExplicit, explicitLittle), 0x25},
        {Part10(kExplicit, definedLittle), 0x25},
        {Part10(kImplicit, implicitLittle), 0x15},
        {Part10(kBig, explicitBig), 0x29},
        // Transfer syntaxes that the headers contradict.
        {Part10(kImplicit, explicitLittle), 0x25},
        {Part10(kExplicit, implicitLittle), 0x15},
        {Part10(kBig, explicitLittle), 0x25},
        {Part10(kExplicit, explicitBig), 0x29},
        {Part10("1.2.3.4", definedLittle), 0x25},
    };
    for (const auto& one : cases) {
        VDicomDS dataSet;
        ASSERT_EQ(Load(dataSet, one.bytes), kDone);
        EXPECT_EQ(Describe(dataSet, 0x00080000), sorted);
        unsigned short flags = 0;
        dataSet.GetInfoDS(nullptr, &flags);
        EXPECT_EQ(flags & 0x3D, one.flags);
    }
}

TEST(Reader, ImplicitElementsGetTheVRThatTheDataSetSays) {
    // Signed pixels.
    const Bytes head = "0800 1600 02000000 '1.' 2800 0301 02000000 0100 2800 0601 02000000 FFFF "
                       "E07F 1000 02000000 0102"_bytes;
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, head), kDone);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x00280106, 1)->nVR, vdicom::vr::SS);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x7FE00010, 1)->nVR, vdicom::vr::OW);
    EXPECT_EQ(dataSet.GetDefaultVR(nullptr, 0x7FE00010, 1), vdicom::vr::OB);
    EXPECT_EQ(dataSet.GetDefaultVR(nullptr, 0x00290010, 0), vdicom::vr::LO);
    EXPECT_EQ(dataSet.GetDefaultVR(nullptr, 0x00291010, 0), vdicom::vr::UN);
    EXPECT_EQ(dataSet.GetDefaultVR(nullptr, 0x00080000, 0), vdicom::vr::UL);
    EXPECT_EQ(dataSet.GetDefaultVR(nullptr, 0x50003000, 0), vdicom::vr::US);
    EXPECT_EQ(dataSet.GetDefaultVR(nullptr, 0x60123000, 0), vdicom::vr::OW);
    EXPECT_EQ(dataSet.GetDefaultVR(nullptr, 0x54001010, 0), vdicom::vr::OW);

    const Bytes privateBlock = "0800 1600 02000000 '1.' 2900 1000 12000000 'SIEMENS CSA HEADER' "
                               "2900 0810 02000000 'IM' 2900 2010 02000000 '1 '"_bytes;
    ASSERT_EQ(Load(dataSet, privateBlock), kDone);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x00290010, 1)->nVR, vdicom::vr::LO);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x00291008, 1)->nVR, vdicom::vr::CS);
}

TEST(Reader, UnknownSequencesAndFragmentsAreKept) {
    // "UN" of undefined length holds implicit VR little endian.
    const Bytes unknown =
        "0800 0500 'CS' 0200 'A ' 0900 1010 'UN' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF 0800 5011 04000000 '1.23' "
        "FEFF 0DE0 00000000 FEFF DDE0 00000000 2800 1000 'US' 0200 0002"_bytes;
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, unknown), kDone);
    EXPECT_EQ(Describe(dataSet), "(0008,0005) CS 2: 41 20\n(0009,1010) UN u\n  (FFFE,E000) OB u\n"
                                 "    (0008,1150) UI 4: 31 2E 32 33\n(0028,0010) US 2: 00 02\n");
    // Encapsulated pixel data: offset table and fragments stay what they are.
    const Bytes pixels = "0800 0500 'CS' 0200 'A ' E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 04000000 00000000 "
                         "FEFF 00E0 02000000 FFD8 FEFF 00E0 00000000 FEFF DDE0 00000000"_bytes;
    ASSERT_EQ(Load(dataSet, Part10(kJpegLossless, pixels)), kDone);
    EXPECT_EQ(Describe(dataSet, 0x7FE00000), "(7FE0,0010) OB u\n  (FFFE,E000) OB 4: 00 00 00 00\n"
                                             "  (FFFE,E000) OB 2: FF D8\n  (FFFE,E000) OB 0:\n");
    EXPECT_STREQ(dataSet.GetTransferSyntaxUID(), kJpegLossless);
    // A value of undefined length that holds no items ends at the next delimiter.
    const Bytes scanned = "0800 0500 'CS' 0200 'A ' 0900 1010 'OB' 0000 FFFFFFFF 0102030405060708 FEFF DDE0 00000000 "
                          "2800 1000 'US' 0200 0002"_bytes;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, scanned)), kDone);
    EXPECT_EQ(Describe(dataSet, 0x00090000), "(0009,1010) OB 8: 01 02 03 04 05 06 07 08\n(0028,0010) US 2: 00 02\n");
}

TEST(Reader, DamageIsToldAndAllThatCanBeIsKept) {
    const Bytes tail = "2800 1000 'US' 0200 0002"_bytes;
    const struct {
        const char* name;
        Bytes bytes;
        unsigned int code;
        unsigned int fault;
        const char* kept; ///< the last line of the description
    } cases[] = {
        {"delimiter too many", "0800 0500 'CS' 0200 'A ' FEFF DDE0 00000000 FEFF 0DE0 00000000"_bytes + tail, DICOM_OK,
         DICOM_FAULT_DELIMITER, "(0028,0010) US 2: 00 02\n"},
        {"item delimiter missing",
         "0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF 0800 5011 'UI' 0200 '1.' FEFF DDE0 00000000"_bytes + tail,
         DICOM_OK, DICOM_FAULT_DELIMITER, "(0028,0010) US 2: 00 02\n"},
        {"sequence delimiter missing",
         "0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 0A000000 0800 5011 'UI' 0200 '1.'"_bytes + tail, DICOM_OK,
         DICOM_FAULT_DELIMITER, "(0028,0010) US 2: 00 02\n"},
        {"item outside a sequence", "0800 0500 'CS' 0200 'A ' FEFF 00E0 0A000000 2800 1000 'US' 0200 0002"_bytes,
         DICOM_OK, DICOM_FAULT_ITEM, "  (0028,0010) US 2: 00 02\n"},
        {"no item in a sequence", "0800 4011 'SQ' 0000 0A000000 0800 5011 'UI' 0200 '1.'"_bytes + tail, DICOM_OK,
         DICOM_FAULT_ITEM, "(0028,0010) US 2: 00 02\n"},
        {"length past the end of the item",
         "0800 4011 'SQ' 0000 12000000 FEFF 00E0 0A000000 0800 5011 'UI' 0800 '1.'"_bytes + tail, DICOM_ERROR_STRUCTURE,
         DICOM_FAULT_LENGTH, "(0028,0010) US 2: 00 02\n"},
        {"value past the end of the stream", "0800 0500 'CS' 0200 'A ' 2800 1000 'OB' 0000 F0FFFFFF 0102"_bytes,
         DICOM_ERROR_READ, DICOM_FAULT_TRUNCATED, "(0028,0010) OB 2: 01 02\n"},
        {"header cut off", "0800 0500 'CS' 0200 'A ' 2800 10"_bytes, DICOM_ERROR_READ, DICOM_ERROR_READ,
         "(0008,0005) CS 2: 41 20\n"},
        {"sequence cut off", "0800 0500 'CS' 0200 'A ' 0800 4011 'SQ' 0000 FFFFFFFF"_bytes, DICOM_ERROR_END,
         DICOM_ERROR_END, "(0008,1140) SQ u\n"},
        {"out of order", "0800 6000 'CS' 0200 'MR' 0800 0500 'CS' 0200 'A '"_bytes, DICOM_OK, DICOM_FAULT_ORDER,
         "(0008,0060) CS 2: 4D 52\n"},
        {"doubled", "0800 0500 'CS' 0200 'A ' 0800 0500 'CS' 0200 'B '"_bytes, DICOM_OK, DICOM_FAULT_DOUBLED,
         "(0008,0005) CS 2: 42 20\n"},
        {"unknown VR", "0800 0500 'CS' 0200 'A ' 2800 1000 'ZZ' 0200 0002"_bytes, DICOM_OK, DICOM_FAULT_VR,
         "(0028,0010) ZZ 2: 00 02\n"},
        {"odd length", "0800 0500 'CS' 0100 'A'"_bytes + tail, DICOM_OK, DICOM_BAD_ELEMENT,
         "(0028,0010) US 2: 00 02\n"},
    };
    for (const auto& one : cases) {
        VDicomDS dataSet;
        EXPECT_EQ(Load(dataSet, Part10(kExplicit, one.bytes)), one.code) << one.name;
        EXPECT_THAT(Faults(dataSet), Contains(one.fault)) << one.name;
        const std::string text = Describe(dataSet);
        const std::string kept = one.kept;
        EXPECT_TRUE(text.size() >= kept.size() && text.substr(text.size() - kept.size()) == kept) << one.name << "\n"
                                                                                                  << text;
    }
}

TEST(Reader, OddLengthsArePaddedInFilesAndRefusedInStreams) {
    const Bytes text = "0800 0500 'CS' 0100 'A' 0800 1800 'UI' 0300 '1.2' 2800 1000 'OB' 0000 01000000 7F"_bytes;
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, text)), kDone);
    EXPECT_EQ(Describe(dataSet, 0x00080000), "(0008,0005) CS 2: 41 20\n(0008,0018) UI 4: 31 2E 32 00\n"
                                             "(0028,0010) OB 2: 7F 00\n");
    EXPECT_EQ(Load(dataSet, text), static_cast<unsigned int>(DICOM_ERROR_LENGTH));
    // The list holds 50; one more ends the load.
    Bytes many;
    for (int i = 0; i < 51; ++i) {
        many = many + "0900 0010 'OB' 0000 01000000 7F"_bytes;
        many[many.size() - 11] = static_cast<unsigned char>(i);
    }
    EXPECT_EQ(Load(dataSet, Part10(kExplicit, many)), static_cast<unsigned int>(DICOM_ERROR_LENGTH));
    many = Bytes(many.begin(), many.end() - 13);
    EXPECT_EQ(Load(dataSet, Part10(kExplicit, many)), kDone);
}

TEST(Reader, WhatIsNoDataSetIsRefused) {
    const Bytes cases[] = {"'This is a text, and it goes on for a while.'"_bytes,
                           "89 'PNG' 0D0A1A0A 0000000D 'IHDR' 00000010 00000010"_bytes,
                           Bytes(200, 0),
                           Bytes(200, 0xFF),
                           "'PK' 0304 1400 0000 0800"_bytes,
                           "08"_bytes};
    for (const Bytes& bytes : cases) {
        VDicomDS dataSet;
        EXPECT_EQ(Load(dataSet, bytes), static_cast<unsigned int>(DICOM_ERROR_FORMAT));
        EXPECT_EQ(dataSet.GetFirstElement(nullptr, 0, 1), nullptr);
    }
    VDicomDS dataSet;
    EXPECT_EQ(dataSet.LoadDS("/no/such/file", 0), static_cast<unsigned int>(DICOM_ERROR_OPEN));
    EXPECT_NE(dataSet.GetError(), 0);
    EXPECT_EQ(dataSet.LoadDS(static_cast<const char*>(nullptr), 0), static_cast<unsigned int>(DICOM_ERROR_PARAMETER));
}

// Streams without preamble that begin with a tag that nobody knows: what follows tells how they are encoded.
TEST(Reader, BareStreamsAreJudgedByMoreThanTheirFirstHeader) {
    const struct {
        Bytes bytes;
        VDicomULong first;
        VDicomULong last;
    } cases[] = {
        {"1100 0110 'LO' 0200 'A ' 2800 1000 'US' 0200 0002"_bytes, 0x00111001, 0x00280010},
        {"0011 1001 'LO' 0000 0028 0010 'US' 0002 0200"_bytes, 0x00111001, 0x00280010},
        {"1100 0110 02000000 'A ' 2800 1000 02000000 0002"_bytes, 0x00111001, 0x00280010},
        {"3130 0110 'LO' 0200 'A ' E07F 1000 'OB' 0000 02000000 0102"_bytes, 0x30311001, 0x7FE00010},
        {"3130 0110 02000000 'A '"_bytes, 0x30311001, 0x30311001},
        {"3130 0110 FFFFFFFF FEFF 00E0 00000000 FEFF DDE0 00000000"_bytes, 0x30311001, 0x30311001},
        {"3031 1001 'SQ' 0000 FFFFFFFF FFFE E000 00000000 FFFE E0DD 00000000"_bytes, 0x30311001, 0x30311001},
    };
    for (const auto& each : cases) {
        VDicomDS dataSet;
        EXPECT_EQ(Load(dataSet, each.bytes), kDone) << Describe(dataSet);
        ASSERT_NE(dataSet.GetFirstElement(nullptr, 1, 1), nullptr);
        EXPECT_EQ(dataSet.GetFirstElement(nullptr, 1, 1)->nTag, each.first) << Describe(dataSet);
        EXPECT_EQ(dataSet.GetLastElement(nullptr, 1, 1)->nTag, each.last) << Describe(dataSet);
    }
}

TEST(Reader, DepthLimitLoadLimitAndOffsets) {
    const Bytes open = "0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF"_bytes;
    Bytes nested;
    for (int i = 0; i < 10000; ++i)
        nested.insert(nested.end(), open.begin(), open.end());
    VDicomDS dataSet;
    EXPECT_EQ(Load(dataSet, Part10(kExplicit, nested)), static_cast<unsigned int>(DICOM_ERROR_DEPTH));
    EXPECT_EQ(Faults(dataSet).back(), static_cast<unsigned int>(DICOM_ERROR_DEPTH));

    const Bytes plain = "0800 0500 'CS' 0200 'A ' 1000 1000 'PN' 0200 'B ' 2800 1000 'US' 0200 0002"_bytes;
    dataSet.SetLoadLimit(0x00100010);
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, plain), DICOM_FLAG_OFFSETS), kDone);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x00280010, 1), nullptr);
    DICOMELEMENT* name = dataSet.FindFirstElement(nullptr, 0x00100010, 1);
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(dataSet.GetElementOffset(name), 132u + 8 + 20 + 10);
    dataSet.SetLoadLimit(DICOM_UNDEFINED);
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, plain)), kDone);
    EXPECT_EQ(dataSet.GetElementOffset(dataSet.FindFirstElement(nullptr, 0x00280010, 1)), 0u) << "not asked for";
}

TEST(Reader, ExplicitSequencesUnderUNKeepTheirValues) {
    const Bytes little = "0800 0500 'CS' 0200 'A ' 0900 1010 'UN' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF "
                         "2800 1000 'US' 0200 0002 FEFF 0DE0 00000000 FEFF DDE0 00000000"_bytes;
    const Bytes big = "0008 0005 'CS' 0002 'A ' 0009 1010 'UN' 0000 FFFFFFFF FFFE E000 FFFFFFFF "
                      "0028 0010 'US' 0002 0200 FFFE E00D 00000000 FFFE E0DD 00000000"_bytes;
    for (const Bytes& bytes : {Part10(kExplicit, little), Part10(kBig, big)}) {
        VDicomDS dataSet;
        ASSERT_EQ(Load(dataSet, bytes), kDone);
        const std::string expected = "(0009,1010) SQ u\n  (FFFE,E000) OB u\n    (0028,0010) US 2: 00 02\n";
        EXPECT_EQ(Describe(dataSet, 0x00090000), expected);
        VDicomDS read;
        ASSERT_EQ(Load(read, Save(dataSet, DICOM_TS_EXPLICIT_LITTLE)), kDone);
        EXPECT_EQ(Describe(read, 0x00090000), expected);
    }
}

TEST(Reader, TheReasonComesLastHoweverManyFaultsThereAre) {
    Bytes noisy;
    for (int i = 0; i < 60; ++i)
        noisy = noisy + "FEFF DDE0 00000000"_bytes;
    const Bytes overrun = "0800 4011 'SQ' 0000 12000000 FEFF 00E0 0A000000 0800 5011 'UI' 0800 '1.' "
                          "2800 1000 'US' 0200 0002 FEFF DDE0 00000000"_bytes;
    const Bytes cut = "2800 1000 'OB' 0000 F0FFFFFF 0102"_bytes;
    VDicomDS dataSet;
    EXPECT_EQ(Load(dataSet, Part10(kExplicit, noisy + cut)), static_cast<unsigned int>(DICOM_ERROR_READ));
    EXPECT_EQ(Faults(dataSet).back(), static_cast<unsigned int>(DICOM_FAULT_TRUNCATED));
    EXPECT_EQ(Load(dataSet, Part10(kExplicit, noisy + overrun)), static_cast<unsigned int>(DICOM_ERROR_STRUCTURE));
    ASSERT_EQ(dataSet.GetCountFault(), 51u);
    DICOMFAULT fault;
    ASSERT_NE(dataSet.GetFault(50, &fault), 0u);
    EXPECT_EQ(fault.nCode, static_cast<unsigned int>(DICOM_ERROR_STRUCTURE));
    EXPECT_EQ(fault.nTag, 0x00081150u);
}

TEST(Reader, NothingOfTheFileBeforeIsLeft) {
    Bytes first = Part10(kExplicit, "0800 0500 'CS' 0200 'A '"_bytes);
    first[0] = 'P';
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, first), kDone);
    ASSERT_EQ(Load(dataSet, "0800 0500 'CS' 0200 'A '"_bytes), kDone);
    char preamble[1] = {'x'};
    ASSERT_EQ(dataSet.GetPreamble(preamble, 1), 1u);
    EXPECT_EQ(preamble[0], '\0');
}

TEST(Reader, LevelsEndAtTheirDelimiterAndKeepTheByteOrder) {
    const Bytes bytes = "0028 0010 'US' 0002 0200 FFFE E00D 00000000 0028 0011 'US' 0002 0100"_bytes;
    VDicomFile stream;
    ASSERT_NE(stream.Open(nullptr, DICOM_FILE_MODE_MEMORY), 0u);
    ASSERT_NE(stream.SetMemoryBuffer(bytes.data(), static_cast<VDicomULong>(bytes.size()), 1), 0u);
    VDicomDS dataSet;
    DICOMELEMENT* sequence = dataSet.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
    DICOMELEMENT* item = dataSet.InsertElement(sequence, 1, 0xFFFEE000, 0, 1, 0);
    VDicomULong length = 20;
    EXPECT_EQ(dataSet.ReadSequence(&stream, item, DICOM_TS_EXPLICIT_BIG, &length),
              static_cast<unsigned int>(DICOM_ERROR_PARAMETER))
        << "the data set is little endian";
    VDicomDS big;
    big.InitDS(DICOM_NO_CLASS, DICOM_TS_EXPLICIT_BIG);
    sequence = big.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
    item = big.InsertElement(sequence, 1, 0xFFFEE000, 0, 1, 0);
    ASSERT_EQ(big.ReadSequence(&stream, item, DICOM_TS_EXPLICIT_BIG, &length), kDone);
    EXPECT_EQ(length, 18u);
    EXPECT_EQ(big.GetCountElement(item), 1u);
    // An empty data set takes the encoding over.
    ASSERT_NE(stream.Seek(18, 0), 0u);
    ASSERT_EQ(dataSet.DeleteElement(dataSet.FindFirstElement(nullptr, 0x00081140, 1)), nullptr);
    ASSERT_EQ(dataSet.ReadSequence(&stream, nullptr, DICOM_TS_EXPLICIT_BIG, nullptr), kDone);
    EXPECT_EQ(Describe(dataSet), "(0028,0011) US 2: 00 01\n");
}

// Each took minutes when every element was looked for from the start of its level.
TEST(Reader, WideLevelsOutOfOrderTakeLinearTime) {
    constexpr unsigned int count = 60000;
    const auto number = [](Bytes element, unsigned int value) {
        element[2] = static_cast<unsigned char>(value & 0xFF);
        element[3] = static_cast<unsigned char>(value >> 8);
        return element;
    };
    // Behind an item astray and an element that belongs behind it.
    Bytes astray = "FFFF 1000 'LO' 0200 'ab' FEFF 00E0 00000000"_bytes;
    Bytes doubledLengths;
    for (unsigned int i = 1; i <= count; ++i) {
        const Bytes element = number("0900 0000 'LO' 0200 'ab'"_bytes, i);
        astray.insert(astray.end(), element.begin(), element.end());
        const Bytes length = "0900 0000 'UL' 0400 00000000"_bytes;
        doubledLengths.insert(doubledLengths.end(), length.begin(), length.end());
    }
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, astray)), kDone);
    EXPECT_EQ(dataSet.GetCountElement(nullptr), count + 3);
    EXPECT_EQ(dataSet.GetLastElement(nullptr, 1, 1)->nTag, 0xFFFF0010);
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, doubledLengths)), kDone);
    EXPECT_GT(Save(dataSet, 0).size(), doubledLengths.size());
}

TEST(Reader, StreamsElementByElement) {
    const Bytes bytes = "0028 0010 'US' 0002 0200 FFFE E000 00000004"_bytes;
    VDicomFile stream;
    ASSERT_NE(stream.Open(nullptr, DICOM_FILE_MODE_MEMORY), 0u);
    ASSERT_NE(stream.SetMemoryBuffer(bytes.data(), static_cast<VDicomULong>(bytes.size()), 1), 0u);
    VDicomDS dataSet;
    VDicomULong tag = 0;
    VDicomULong length = 0;
    unsigned short vr = 0;
    ASSERT_EQ(dataSet.ReadElement(&stream, &tag, &vr, &length, 0, 1), kDone);
    EXPECT_EQ(tag, 0x00280010u);
    EXPECT_EQ(length, 2u);
    unsigned short rows = 0;
    ASSERT_NE(dataSet.Read(&stream, &rows, 2, vr, 0), 0u);
    EXPECT_EQ(rows, 512);
    ASSERT_EQ(dataSet.ReadElement(&stream, &tag, &vr, &length, 0, 1), kDone);
    EXPECT_EQ(tag, 0xFFFEE000u);
    EXPECT_EQ(dataSet.ReadElement(&stream, &tag, &vr, &length, 0, 1), static_cast<unsigned int>(DICOM_ERROR_END));
    // Two elements into an item, and not a byte more.
    VDicomDS target;
    DICOMELEMENT* sequence = target.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
    DICOMELEMENT* item = target.InsertElement(sequence, 1, 0xFFFEE000, 0, 1, 0);
    const Bytes inner = "0800 5011 'UI' 0200 '1.' 0800 5511 'UI' 0200 '2.' 1000 1000 'PN' 0200 'B '"_bytes;
    ASSERT_NE(stream.SetMemoryBuffer(inner.data(), static_cast<VDicomULong>(inner.size()), 1), 0u);
    length = 20;
    ASSERT_EQ(target.ReadSequence(&stream, item, DICOM_TS_EXPLICIT_LITTLE, &length), kDone);
    EXPECT_EQ(length, 20u);
    EXPECT_EQ(target.GetCountElement(item), 2u);
}

// Damage of every byte and every cut: nothing is read outside the buffer, and nothing hangs (run with sanitizers).
TEST(Reader, SurvivesCutsAndChangedBytes) {
    const Bytes whole = Part10(kExplicit, "0800 0500 'CS' 0200 'A ' 0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF "
                                          "0800 5011 'UI' 0200 '1.' FEFF 0DE0 00000000 FEFF DDE0 00000000 "
                                          "0900 1010 'UN' 0000 FFFFFFFF FEFF 00E0 0A000000 0800 5011 02000000 '1.' "
                                          "FEFF DDE0 00000000 4000 60A1 'UT' 0000 02000000 'ab' "
                                          "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000 FEFF 00E0 02000000 FFD8 "
                                          "FEFF DDE0 00000000"_bytes);
    VDicomDS dataSet;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const unsigned int code = Load(dataSet, part);
        Describe(dataSet);
        if (size == whole.size()) {
            EXPECT_EQ(code, kDone);
        }
    }
    for (std::size_t at = 128; at < whole.size(); ++at) {
        for (const int value : {0, 1, 0x7F, 0x80, 0xFE, 0xFF}) {
            Bytes damaged = whole;
            damaged[at] = static_cast<unsigned char>(value);
            Load(dataSet, damaged);
            Describe(dataSet);
            Save(dataSet, 0);
        }
    }
}
