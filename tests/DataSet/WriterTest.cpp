// Saving: bytes of every encoding, file meta information, sizes and offsets, files that are never half written.
#include "HexBytes.h"
#include "TestFolder.h"

#include "DataSetState.h"

#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

using namespace support;

namespace {

constexpr unsigned int kDone = DICOM_OK;

const Bytes kContent =
    "0800 0500 'CS' 0A00 'ISO_IR 100' 0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF "
    "0800 5011 'UI' 0400 '1.23' FEFF 0DE0 00000000 FEFF DDE0 00000000 "
    "2800 0900 'AT' 0400 1800 6310 2800 1000 'US' 0200 0002 4000 2592 'FD' 0800 0000000000000440"_bytes;

std::string Whole(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

Bytes ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string Text(VDicomDS& dataSet, VDicomULong tag) {
    char text[128] = {};
    return dataSet.FindGetValue(nullptr, tag, 5, text, sizeof text) != 0 ? text : "";
}

} // namespace

TEST(Writer, BytesOfEveryEncoding) {
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, kContent), kDone);
    EXPECT_EQ(Save(dataSet, 0), kContent) << "flags 0: as it was read, without preamble";
    EXPECT_EQ(Save(dataSet, DICOM_FLAG_BARE | DICOM_TS_IMPLICIT_LITTLE),
              "0800 0500 0A000000 'ISO_IR 100' 0800 4011 FFFFFFFF FEFF 00E0 FFFFFFFF "
              "0800 5011 04000000 '1.23' FEFF 0DE0 00000000 FEFF DDE0 00000000 2800 0900 04000000 1800 6310 "
              "2800 1000 02000000 0002 4000 2592 08000000 0000000000000440"_bytes);
    const Bytes big = "0008 0005 'CS' 000A 'ISO_IR 100' 0008 1140 'SQ' 0000 FFFFFFFF FFFE E000 FFFFFFFF "
                      "0008 1150 'UI' 0004 '1.23' FFFE E00D 00000000 FFFE E0DD 00000000 0028 0009 'AT' 0004 0018 1063 "
                      "0028 0010 'US' 0002 0200 0040 9225 'FD' 0008 4004000000000000"_bytes;
    EXPECT_EQ(Save(dataSet, DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_BIG), big);
    // And back from there.
    VDicomDS other;
    ASSERT_EQ(Load(other, big), kDone);
    EXPECT_EQ(Save(other, DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE), kContent);
    EXPECT_EQ(Save(other, 0), big);
    unsigned int code = 0;
    EXPECT_TRUE(Save(other, 0x0018, &code).empty());
    EXPECT_EQ(code, static_cast<unsigned int>(DICOM_ERROR_PARAMETER)) << "big endian with implicit VR";
}

TEST(Writer, MetaInformationIsFilledAndKeptInStep) {
    VDicomDS dataSet;
    dataSet.FindSetValue(nullptr, 0x00080016, 0, "1.2.840.10008.5.1.4.1.1.7", 1);
    dataSet.FindSetValue(nullptr, 0x00080018, 0, "1.2.3", 1);
    const Bytes bytes = Save(dataSet, DICOM_TS_EXPLICIT_BIG);
    ASSERT_GT(bytes.size(), 144u);
    EXPECT_EQ(std::memcmp(bytes.data() + 128, "DICM", 4), 0);
    VDicomDS read;
    ASSERT_EQ(Load(read, bytes), kDone);
    EXPECT_TRUE(Faults(read).empty()) << "the group length among others";
    EXPECT_EQ(Text(read, 0x00020002), "1.2.840.10008.5.1.4.1.1.7");
    EXPECT_EQ(Text(read, 0x00020003), "1.2.3");
    EXPECT_EQ(Text(read, 0x00020010), kBig);
    EXPECT_EQ(Text(read, 0x00020012), "1.2.840.999001.1");
    EXPECT_NE(Text(read, 0x00020013), "");
    EXPECT_NE(read.FindFirstElement(nullptr, 0x00020001, 1), nullptr);
    // A new instance UID goes into group 0002 as well; other people's implementation class stays.
    read.FindSetValue(nullptr, 0x00080018, 0, "1.2.4", 1);
    read.FindSetValue(nullptr, 0x00020012, 0, "9.9", 1);
    VDicomDS again;
    ASSERT_EQ(Load(again, Save(read, DICOM_TS_IMPLICIT_LITTLE)), kDone);
    EXPECT_TRUE(Faults(again).empty());
    EXPECT_EQ(Text(again, 0x00020003), "1.2.4");
    EXPECT_EQ(Text(again, 0x00020010), kImplicit);
    EXPECT_EQ(Text(again, 0x00020012), "9.9");
    Save(again, DICOM_TS_EXPLICIT_LITTLE | DICOM_FLAG_KEEP_UID);
    EXPECT_EQ(Text(again, 0x00020010), kImplicit) << "left as it stands when asked";
    // Without group 0002.
    EXPECT_EQ(Save(again, DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE)[0], 8);
}

TEST(Writer, CompressedDataSetsStayExplicitLittleEndian) {
    const Bytes pixels = "0800 0500 'CS' 0200 'A ' E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 04000000 00000000 "
                         "FEFF 00E0 02000000 FFD8 FEFF DDE0 00000000"_bytes;
    for (const char* syntax : {kJpegLossless, "1.2.840.10008.1.2.4.110", "1.2.3.4"}) {
        VDicomDS dataSet;
        ASSERT_EQ(Load(dataSet, Part10(syntax, pixels)), kDone);
        const std::string written = Whole(Save(dataSet, DICOM_TS_IMPLICIT_LITTLE));
        EXPECT_NE(written.find(Whole(pixels)), std::string::npos) << syntax;
        EXPECT_EQ(Text(dataSet, 0x00020010), syntax);
        EXPECT_EQ(dataSet.ChangeTransferSyntax(kImplicit, 0, 0), static_cast<unsigned int>(DICOM_ERROR_UNSUPPORTED));
    }
}

TEST(Writer, DeflatedAndUnknownSequencesComeBackEqual) {
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, kContent)), kDone);
    const std::string before = Describe(dataSet, 0x00080000);
    const Bytes deflated = Save(dataSet, DICOM_TS_EXPLICIT_LITTLE | DICOM_FLAG_DEFLATED);
    EXPECT_EQ(deflated.size() % 2, 0u);
    VDicomDS read;
    ASSERT_EQ(Load(read, deflated), kDone);
    EXPECT_EQ(Describe(read, 0x00080000), before);
    EXPECT_EQ(Text(read, 0x00020010), kDeflated);
    // Again with flags 0 it stays deflated; asked for an encoding it does not.
    VDicomDS again;
    ASSERT_EQ(Load(again, Save(read, 0)), kDone);
    EXPECT_EQ(Text(again, 0x00020010), kDeflated);
    ASSERT_EQ(Load(again, Save(read, DICOM_TS_IMPLICIT_LITTLE)), kDone);
    EXPECT_EQ(Text(again, 0x00020010), kImplicit);
    EXPECT_EQ(Describe(again, 0x00080000), before);
    for (const VDicomUInt64 limit : {VDicomUInt64{10}, VDicomUInt64{100000}}) {
        again.SetInflateLimit(limit);
        EXPECT_EQ(Load(again, deflated), limit == 10 ? static_cast<unsigned int>(DICOM_ERROR_DEFLATE) : kDone);
    }
    const Bytes cut(deflated.begin(), deflated.end() - 6);
    EXPECT_EQ(Load(again, cut), static_cast<unsigned int>(DICOM_ERROR_DEFLATE));
    EXPECT_NE(again.FindFirstElement(nullptr, 0x00020010, 1), nullptr) << "what could be read is kept";

    // What "UN" of undefined length holds stays implicit little endian in a big endian file.
    const Bytes unknown =
        "0800 0500 'CS' 0200 'A ' 0900 1010 'UN' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF 2800 1000 02000000 0002 "
        "FEFF 0DE0 00000000 FEFF DDE0 00000000 2800 1000 'US' 0200 0002"_bytes;
    ASSERT_EQ(Load(dataSet, unknown), kDone);
    const std::string description = Describe(dataSet);
    const Bytes big = Save(dataSet, DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_BIG);
    ASSERT_EQ(Load(dataSet, big), kDone);
    EXPECT_EQ(Describe(dataSet), description);
    EXPECT_EQ(Save(dataSet, 0), big);
    EXPECT_EQ(Save(dataSet, DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE), unknown);
}

TEST(Writer, SizesAndOffsetsAreThoseOfTheBytesWritten) {
    const Bytes content =
        "0800 0000 'UL' 0400 FFFFFFFF 0800 0500 'CS' 0200 'A ' 0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF "
        "0800 5011 'UI' 0200 '1.' 0900 1010 'UN' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF 2800 1000 02000000 0002 "
        "FEFF 0DE0 00000000 FEFF DDE0 00000000 FEFF 0DE0 00000000 FEFF DDE0 00000000 "
        "4000 60A1 'UT' 0000 04000000 'abcd' E07F 1000 'OW' 0000 04000000 01020304"_bytes;
    for (const unsigned short flags : std::initializer_list<unsigned short>{0x25, 0x15, 0x29, 0x26, 0x16, 0x2A, 0}) {
        VDicomDS dataSet;
        ASSERT_EQ(Load(dataSet, Part10(kExplicit, content)), kDone);
        std::vector<VDicomULong> offsets;
        for (DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 0, 1); e != nullptr;
             e = dataSet.GetNextElement(e, 0, 1)) {
            if ((e->nTag >> 16) != 2)
                offsets.push_back(dataSet.GetOffsetElement(e, flags));
        }
        DICOMELEMENT* sequence = dataSet.FindFirstElement(nullptr, 0x00081140, 1);
        const VDicomULong below = dataSet.GetLengthSequence(sequence, flags);
        const VDicomULong group = dataSet.GetLengthGroup(sequence, flags);
        const VDicomULong size = dataSet.GetOffsetElement(nullptr, flags);
        const Bytes bytes = Save(dataSet, flags);
        ASSERT_EQ(bytes.size(), size) << std::hex << flags;
        VDicomDS read;
        ASSERT_EQ(Load(read, bytes, DICOM_FLAG_OFFSETS), kDone);
        std::vector<VDicomULong> found;
        for (DICOMELEMENT* e = read.GetFirstElement(nullptr, 0, 1); e != nullptr; e = read.GetNextElement(e, 0, 1)) {
            if ((e->nTag >> 16) != 2)
                found.push_back(read.GetElementOffset(e));
        }
        EXPECT_EQ(found, offsets) << std::hex << flags;
        DICOMELEMENT* readSequence = read.FindFirstElement(nullptr, 0x00081140, 1);
        DICOMELEMENT* next = read.GetNextElement(readSequence, 1, 1);
        const VDicomULong header =
            read.GetLengthElement(0x00081140, vdicom::vr::SQ, DICOM_UNDEFINED, (flags & 0x20) != 0 || flags == 0);
        EXPECT_EQ(read.GetElementOffset(next) - read.GetElementOffset(readSequence), header + below + 8);
        VDicomLong stored = 0;
        ASSERT_NE(read.FindGetValue(nullptr, 0x00080000, 2, &stored, sizeof stored), 0u);
        EXPECT_EQ(static_cast<VDicomULong>(stored), group) << "the group length is written anew";
    }
}

TEST(Writer, GroupLengthsKeepTheirVR) {
    const Bytes content = "0800 0000 'UN' 0000 04000000 00000000 0800 0500 'CS' 0200 'A '"_bytes;
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, content)), kDone);
    const VDicomULong size = dataSet.GetOffsetElement(nullptr, 0);
    EXPECT_EQ(Save(dataSet, 0).size(), size);
    EXPECT_EQ(Save(dataSet, DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE),
              "0800 0000 'UN' 0000 04000000 0A000000 0800 0500 'CS' 0200 'A '"_bytes);
}

TEST(Writer, MetaElementsOfWrongVRsDoNotPreventSaving) {
    const Bytes meta = Bytes(128, 0) + "'DICM' 0200 0000 'OB' 0000 04000000 00000000 0200 1000 'OB' 0000 14000000 "
                                       "'1.2.840.10008.1.2.1' 00 0800 0500 'CS' 0200 'A '"_bytes;
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, meta), kDone);
    VDicomDS read;
    ASSERT_EQ(Load(read, Save(dataSet, DICOM_TS_IMPLICIT_LITTLE)), kDone);
    EXPECT_TRUE(Faults(read).empty());
    EXPECT_EQ(Text(read, 0x00020010), kImplicit);
}

TEST(Writer, SequencesInFileMetaInformationStayExplicitLittleEndian) {
    const Bytes content = "0200 0201 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF 2800 1000 'US' 0200 0002 "
                          "FEFF 0DE0 00000000 FEFF DDE0 00000000 2800 1000 'US' 0200 0002"_bytes;
    for (const unsigned short flags : {DICOM_TS_EXPLICIT_LITTLE, DICOM_TS_IMPLICIT_LITTLE, DICOM_TS_EXPLICIT_BIG}) {
        VDicomDS dataSet;
        ASSERT_EQ(Load(dataSet, Part10(kExplicit, content)), kDone);
        VDicomDS read;
        ASSERT_EQ(Load(read, Save(dataSet, flags)), kDone);
        EXPECT_TRUE(Faults(read).empty());
        const std::string text = Describe(read);
        EXPECT_NE(text.find("    (0028,0010) US 2: 00 02\n"), std::string::npos) << text;
        ASSERT_EQ(read.SetTS(DICOM_TS_EXPLICIT_LITTLE, 0), kDone);
        EXPECT_EQ(Describe(read, 0x00020013), Describe(dataSet, 0x00020013));
    }
}

TEST(Writer, FileMetaInformationStandsFirst) {
    // Groups below 0002 come after it in a file, and before it in the order of tags.
    const Bytes low = "0100 0100 'UN' 0000 02000000 0102 0800 0500 'CS' 0200 'A '"_bytes;
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, low)), kDone);
    EXPECT_TRUE(Faults(dataSet).empty());
    const Bytes bytes = Save(dataSet, 0);
    const VDicomULong offset = dataSet.GetOffsetElement(dataSet.FindFirstElement(nullptr, 0x00010001, 1), 0);
    VDicomDS read;
    ASSERT_EQ(Load(read, bytes, DICOM_FLAG_OFFSETS), kDone);
    EXPECT_TRUE(Faults(read).empty());
    EXPECT_EQ(Describe(read), Describe(dataSet));
    EXPECT_EQ(read.GetElementOffset(read.FindFirstElement(nullptr, 0x00010001, 1)), offset);
    EXPECT_EQ(Save(read, DICOM_FLAG_BARE), low);

    // Items that an application puts before it, or into it, do not hide it; a second length counts as what it is.
    const Bytes doubled = "0200 0000 'UL' 0400 00000000 0200 0000 'UL' 0400 00000000"_bytes;
    Bytes damaged = Part10(kExplicit, low);
    damaged.insert(damaged.begin() + 132, doubled.begin(), doubled.end());
    for (const VDicomULong index : {0U, 2U}) {
        VDicomDS astray;
        ASSERT_EQ(Load(astray, damaged), kDone);
        DICOMELEMENT* item = astray.InsertElement(nullptr, 0, 0xFFFEE000, 0, 1, index);
        ASSERT_EQ(astray.GetIndexElement(nullptr, index), item);
        VDicomDS again;
        Load(again, Save(astray, 0));
        EXPECT_EQ(Text(again, 0x00020010), kExplicit);
        for (const unsigned int fault : Faults(again))
            EXPECT_NE(fault, static_cast<unsigned int>(DICOM_FAULT_META)) << "the length of the group";
        EXPECT_EQ(again.GetCountElement(nullptr), astray.GetCountElement(nullptr));
    }
}

TEST(Writer, ValuesTooLongForAShortHeaderAreKept) {
    VDicomDS dataSet;
    const std::string text(70000, 'x');
    DICOMELEMENT* e = dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0);
    ASSERT_NE(dataSet.SetBinaryValue(e, text.data(), static_cast<VDicomULong>(text.size())), 0u);
    VDicomDS read;
    ASSERT_EQ(Load(read, Save(dataSet, 0)), kDone);
    DICOMELEMENT* found = read.FindFirstElement(nullptr, 0x00100010, 1);
    EXPECT_EQ(found->nVR, vdicom::vr::UN);
    EXPECT_EQ(found->nLength, 70000u);
    VDicomFile stream;
    stream.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    EXPECT_EQ(dataSet.WriteElement(&stream, 0x00100010, vdicom::vr::PN, 70000, 1, 1),
              static_cast<unsigned int>(DICOM_ERROR_SIZE));
    EXPECT_EQ(dataSet.WriteElement(&stream, 0x00020010, vdicom::vr::UI, 4, 0, 0), kDone);
    VDicomUInt64 size = 0;
    const unsigned char* bytes = stream.GetMemoryBuffer(&size);
    EXPECT_EQ(Bytes(bytes, bytes + size), "0200 1000 'UI' 0400"_bytes) << "group 0002 is always explicit little endian";
}

TEST(Writer, FilesAppearWholeOrNotAtAll) {
    const TestFolder folder;
    const std::string path = folder.File("file.dcm");
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, kContent)), kDone);
    ASSERT_EQ(dataSet.SaveDS(path.c_str(), 0), kDone);
    const Bytes first = ReadFile(path);
    // Over the very file that it was loaded from, changed and in another encoding.
    VDicomDS own;
    ASSERT_EQ(own.LoadDS(path.c_str(), 0), kDone);
    own.FindSetValue(nullptr, 0x00100010, 0, "Doe^Jane", 1);
    ASSERT_EQ(own.SaveDS(path.c_str(), DICOM_TS_IMPLICIT_LITTLE), kDone);
    EXPECT_EQ(Text(own, 0x00080005), "ISO_IR 100") << "values are still readable";
    ASSERT_EQ(own.SaveDS(path.c_str(), DICOM_TS_EXPLICIT_BIG), kDone);
    VDicomDS read;
    ASSERT_EQ(read.LoadDS(path.c_str(), 0), kDone);
    EXPECT_EQ(Text(read, 0x00100010), "Doe^Jane");
    EXPECT_EQ(Text(read, 0x00020010), kBig);
    // A save that fails leaves the old file.
    const Bytes before = ReadFile(path);
    DICOMELEMENT* bad = read.InsertElement(nullptr, 0, 0x00291010, vdicom::vr::OB, 0, 0);
    VDicomFile gone;
    gone.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    ASSERT_NE(read.InsertFileBinaryValue(bad, 0, &gone, 0, 0), 0u);
    EXPECT_EQ(read.SaveDS(path.c_str(), 0x0018), static_cast<unsigned int>(DICOM_ERROR_PARAMETER));
    EXPECT_EQ(ReadFile(path), before);
    EXPECT_EQ(read.SaveDS(folder.File("no/such/folder").c_str(), 0), static_cast<unsigned int>(DICOM_ERROR_OPEN));
    EXPECT_NE(read.GetError(), 0);
}

TEST(Writer, LargeValuesGoFromFileToFileWhole) {
    const TestFolder folder;
    Bytes pixels(3 * 1024 * 1024 + 2);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<unsigned char>(i * 2654435761u >> 13);
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, kContent)), kDone);
    DICOMELEMENT* e = dataSet.InsertElement(nullptr, 0, 0x7FE00010, vdicom::vr::OW, 0, 0);
    ASSERT_NE(dataSet.SetBinaryValue(e, pixels.data(), static_cast<VDicomULong>(pixels.size())), 0u);
    // The scratch stream has taken a file by now; then from file to file, over itself and in other encodings.
    const std::string first = folder.File("first.dcm");
    ASSERT_EQ(dataSet.SaveDS(first.c_str(), 0), kDone);
    const Bytes expected = Save(dataSet, 0);
    EXPECT_TRUE(ReadFile(first) == expected);
    for (const unsigned short flags : std::initializer_list<unsigned short>{0x15, 0x29, 0x2025, 0x25}) {
        VDicomDS read;
        ASSERT_EQ(read.LoadDS(first.c_str(), 0), kDone);
        ASSERT_EQ(read.SaveDS(first.c_str(), flags), kDone) << std::hex << flags;
    }
    EXPECT_TRUE(ReadFile(first) == expected);
    // Progress is told up to the last byte, and a save can be stopped.
    struct Told {
        VDicomUInt64 done = 0;
        VDicomUInt64 total = 0;
        unsigned int calls = 0;
        unsigned int stopAt = 0;
        static unsigned int VDICOM_CALLBACK Take(VDicomUInt64 done, VDicomUInt64 total, void* self) {
            Told& told = *static_cast<Told*>(self);
            EXPECT_GT(done, told.done);
            told.done = done;
            told.total = total;
            return ++told.calls == told.stopAt ? 0 : 1;
        }
    };
    for (const unsigned short flags : std::initializer_list<unsigned short>{0, 0x15, 0x29, 0x2025}) {
        VDicomDS read;
        Told told;
        ASSERT_EQ(read.LoadDS(first.c_str(), 0), kDone);
        read.SetProgressDS(Told::Take, &told);
        const std::string copy = folder.File("copy.dcm");
        ASSERT_EQ(read.SaveDS(copy.c_str(), flags), kDone);
        EXPECT_EQ(told.done, told.total) << std::hex << flags;
        EXPECT_GE(told.calls, flags == 0 || flags == 0x15 ? 1u : 3u) << "the system copies more at once";
        if (flags != 0x2025) {
            EXPECT_EQ(told.total, ReadFile(copy).size());
        }
        const Bytes before = ReadFile(copy);
        told = Told{0, 0, 0, 1};
        EXPECT_EQ(read.SaveDS(copy.c_str(), flags), static_cast<unsigned int>(DICOM_ERROR_CANCELLED));
        EXPECT_TRUE(ReadFile(copy) == before);
    }
    // A source that has been cut off meanwhile is told, and nothing is replaced.
    const std::string second = folder.File("second.dcm");
    VDicomDS read;
    ASSERT_EQ(read.LoadDS(first.c_str(), 0), kDone);
    std::error_code error;
    std::filesystem::resize_file(TestFolder::FromUtf8(first), expected.size() - 1024 * 1024, error);
    if (error)
        return; // Windows: a file that is being read cannot be changed
    EXPECT_EQ(read.SaveDS(second.c_str(), DICOM_TS_IMPLICIT_LITTLE), static_cast<unsigned int>(DICOM_ERROR_READ));
    EXPECT_FALSE(std::filesystem::exists(TestFolder::FromUtf8(second)));
}

TEST(Writer, AChangeOfByteOrderThatFailsChangesNothing) {
    VDicomDS dataSet;
    ASSERT_EQ(Load(dataSet, Part10(kExplicit, kContent)), kDone);
    // A value whose stream is gone, behind others that can be read.
    const Bytes bytes = "01020304"_bytes;
    VDicomFile gone;
    gone.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    gone.SetMemoryBuffer(bytes.data(), 4, 0);
    DICOMELEMENT* last = dataSet.InsertElement(nullptr, 0, 0x7FE00010, vdicom::vr::OW, 0, 0);
    ASSERT_NE(dataSet.InsertFileBinaryValue(last, 0, &gone, 0, 4), 0u);
    gone.Close();
    EXPECT_EQ(dataSet.SetTS(DICOM_TS_EXPLICIT_BIG, 0), static_cast<unsigned int>(DICOM_ERROR_READ));
    dataSet.DeleteElement(last);
    EXPECT_EQ(Save(dataSet, DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE), kContent);
}

TEST(Writer, TransferSyntaxInMemoryAndCopiesBetweenByteOrders) {
    VDicomDS little;
    ASSERT_EQ(Load(little, Part10(kExplicit, kContent)), kDone);
    const std::string description = Describe(little, 0x00080000);
    ASSERT_EQ(little.SetTS(DICOM_TS_EXPLICIT_BIG, 0), kDone);
    EXPECT_EQ(Describe(little, 0x00080000), description) << "host order before and after";
    const Bytes big = Save(little, 0);
    VDicomDS read;
    ASSERT_EQ(Load(read, big), kDone);
    EXPECT_EQ(Describe(read, 0x00080000), description);

    VDicomDS copy;
    ASSERT_EQ(copy.CopyDS(nullptr, &read, nullptr), kDone);
    EXPECT_EQ(Describe(copy, 0x00080000), description);
    VDicomDS other;
    ASSERT_NE(other.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0), nullptr);
    ASSERT_EQ(other.CopyDS(nullptr, &read, read.FindFirstElement(nullptr, 0x00409225, 1)), kDone)
        << "into little endian";
    ASSERT_EQ(other.CopyDS(nullptr, &read, read.FindFirstElement(nullptr, 0x00081140, 1)), kDone);
    EXPECT_EQ(Save(other, DICOM_FLAG_BARE),
              "0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF 0800 5011 'UI' 0400 '1.23' FEFF 0DE0 00000000 "
              "FEFF DDE0 00000000 1000 1000 'PN' 0000 4000 2592 'FD' 0800 0000000000000440"_bytes);
    EXPECT_EQ(other.CopyDS(nullptr, &read, read.FindFirstElement(nullptr, 0x00081140, 1)),
              static_cast<unsigned int>(DICOM_ERROR_STRUCTURE));
    EXPECT_EQ(other.CopyDS(nullptr, nullptr, nullptr), static_cast<unsigned int>(DICOM_ERROR_PARAMETER));
    // A copy outlives its source.
    read.ResetDS();
    EXPECT_EQ(Describe(copy, 0x00080000), description);
}
