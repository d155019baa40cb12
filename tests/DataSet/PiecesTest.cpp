// Raw values: pieces of several streams, edited at random against a model of bytes, in both byte orders.
#include "Bytes.h"
#include "StreamAccess.h"
#include "TestFolder.h"
#include "VDicomDS.h"
#include "VRTraits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

using namespace vdicom;

namespace {

using Bytes = std::vector<unsigned char>;

constexpr VDicomULong kTag = 0x00091001;

Bytes RandomBytes(std::mt19937& random, std::size_t size) {
    Bytes bytes(size);
    for (auto& byte : bytes)
        byte = static_cast<unsigned char>(random());
    return bytes;
}

Bytes Swapped(Bytes bytes, unsigned int unit) {
    SwapUnits(bytes.data(), bytes.size(), unit);
    return bytes;
}

DICOMELEMENT* Insert(VDicomDS& dataSet, unsigned short vr, VDicomULong tag = kTag) {
    return dataSet.InsertElement(nullptr, 0, tag, vr, 0, 0);
}

void InitBig(VDicomDS& dataSet) { dataSet.InitDS(DICOM_UNDEFINED, DICOM_FLAG_BIG | DICOM_FLAG_EXPLICIT); }

// What stands in the streams.
Bytes StoredOf(const DICOMELEMENT* e) {
    Bytes stored;
    for (VDicomULong i = 0; i < e->nCountPiece; ++i) {
        const std::size_t at = stored.size();
        stored.resize(at + e->pPieceSize[i]);
        if (e->pPieceSize[i] != 0) {
            EXPECT_TRUE(StreamAccess::ReadAt(*e->pPieceStream[i], e->pPieceOffset[i], &stored[at], e->pPieceSize[i]));
        }
    }
    return stored;
}

Bytes ValueOf(VDicomDS& dataSet, DICOMELEMENT* e) {
    Bytes value(e->nLength + 1, 0xCD); // one more, so that there is a buffer for nothing
    EXPECT_EQ(dataSet.GetBinaryValue(e, value.data(), e->nLength), 1u);
    EXPECT_EQ(value.back(), 0xCD) << "written behind the end";
    value.pop_back();
    return value;
}

struct Order {
    unsigned short vr;
    bool big;
};

std::string OrderName(const testing::TestParamInfo<Order>& test) {
    const char letters[] = {static_cast<char>(test.param.vr >> 8), static_cast<char>(test.param.vr & 0xFF)};
    return std::string(letters, 2) + (test.param.big ? "Big" : "Little");
}

class PiecesModel : public testing::TestWithParam<Order> {};

} // namespace

TEST_P(PiecesModel, RandomEditsGiveTheSameBytes) {
    const unsigned int unit = GetParam().big ? SwapUnit(GetParam().vr) : 1;
    std::mt19937 random(GetParam().vr + (GetParam().big ? 1U : 0U));
    const auto pick = [&random](std::size_t below) { return static_cast<VDicomULong>(random() % below); };

    const TestFolder folder;
    const Bytes memoryBytes = RandomBytes(random, 5000);
    const Bytes fileBytes = RandomBytes(random, 70000);
    const std::string path = folder.Write("source", std::string(fileBytes.begin(), fileBytes.end()));
    VDicomFile memory;
    ASSERT_NE(memory.Open("", DICOM_FILE_MODE_MEMORY), 0u);
    ASSERT_NE(memory.SetMemoryBuffer(memoryBytes.data(), static_cast<VDicomULong>(memoryBytes.size()), 1), 0u);
    VDicomFile file;
    ASSERT_NE(file.Open(path.c_str(), DICOM_FILE_MODE_LOAD), 0u);

    VDicomDS dataSet;
    VDicomDS other; // the other byte order
    if (GetParam().big)
        InitBig(dataSet);
    else
        InitBig(other);
    DICOMELEMENT* e = Insert(dataSet, GetParam().vr);
    DICOMELEMENT* twin = Insert(dataSet, GetParam().vr, kTag + 1);
    DICOMELEMENT* foreign = Insert(other, GetParam().vr);
    ASSERT_TRUE(e != nullptr && twin != nullptr && foreign != nullptr);

    Bytes model;
    for (int step = 0; step < 500; ++step) {
        const auto size = static_cast<VDicomULong>(model.size());
        const auto at = static_cast<std::ptrdiff_t>(pick(size + 1U));
        const auto offset = static_cast<VDicomULong>(at);
        // Short ones cut units; some are longer than the copy buffer.
        const VDicomULong length = pick(20) == 0 ? pick(70000) : pick(40);
        switch (size > 150000 ? 3 : pick(8)) {
        case 0: {
            const Bytes bytes = RandomBytes(random, length);
            ASSERT_EQ(dataSet.InsertBinaryValue(e, bytes.data(), offset, length), 1u);
            model.insert(model.begin() + at, bytes.begin(), bytes.end());
            break;
        }
        case 1:
        case 2: {
            const Bytes bytes = RandomBytes(random, length);
            ASSERT_EQ(dataSet.SetFileBinaryValue(e, bytes.data(), offset, length), 1u);
            model.resize(std::max<std::size_t>(model.size(), offset + length));
            std::copy(bytes.begin(), bytes.end(), model.begin() + at);
            break;
        }
        case 3: {
            const VDicomULong removed = size > 150000 ? 140000 : length;
            ASSERT_EQ(dataSet.DeleteFileBinaryValue(e, offset, removed), 1u);
            model.erase(model.begin() + at, model.begin() + std::min<std::ptrdiff_t>(at + removed, size));
            break;
        }
        case 4:
        case 5: {
            const bool fromFile = pick(2) == 0;
            const Bytes& source = fromFile ? fileBytes : memoryBytes;
            const VDicomULong from = pick(source.size());
            const auto part = static_cast<VDicomULong>(std::min<std::size_t>(length, source.size() - from));
            ASSERT_EQ(dataSet.InsertFileBinaryValue(e, offset, fromFile ? &file : &memory, from, part), 1u);
            const auto begin = source.begin() + static_cast<std::ptrdiff_t>(from);
            const Bytes bytes = Swapped({begin, begin + static_cast<std::ptrdiff_t>(part)}, unit);
            model.insert(model.begin() + at, bytes.begin(), bytes.end());
            break;
        }
        case 6: // through a data set of the other byte order and back
            ASSERT_EQ(other.CopyFileBinaryValue(foreign, &dataSet, e), DICOM_OK);
            ASSERT_EQ(ValueOf(other, foreign), model);
            ASSERT_EQ(dataSet.CopyFileBinaryValue(e, &other, foreign), DICOM_OK);
            break;
        default:
            ASSERT_EQ(dataSet.CopyFileBinaryValue(twin, &dataSet, e), DICOM_OK);
            std::swap(e, twin);
            break;
        }
        ASSERT_EQ(e->nLength, model.size()) << step;
        ASSERT_EQ(std::accumulate(e->pPieceSize, e->pPieceSize + e->nCountPiece, VDicomULong{0}), e->nLength);
        ASSERT_EQ(ValueOf(dataSet, e), model) << step;
        ASSERT_EQ(StoredOf(e), Swapped(model, unit)) << step;
        // Ranges that begin and end anywhere, also inside units and behind the end.
        for (int i = 0; i < 5 && !model.empty(); ++i) {
            const auto from = pick(model.size());
            const auto wanted = pick(2) == 0 ? pick(20) + 1 : pick(model.size()) + 1;
            const auto got = static_cast<VDicomULong>(std::min<std::size_t>(wanted, model.size() - from));
            Bytes part(wanted, 0xCD);
            ASSERT_EQ(dataSet.GetBinaryValue(e, part.data(), from, wanted), 1u);
            const auto begin = model.begin() + static_cast<std::ptrdiff_t>(from);
            ASSERT_TRUE(std::equal(begin, begin + got, part.begin())) << step << ' ' << from << ' ' << wanted;
            ASSERT_TRUE(std::all_of(part.begin() + got, part.end(), [](unsigned char c) { return c == 0xCD; }));
        }
    }
    // Overwriting inside values that stand in streams never wrote there.
    Bytes now(fileBytes.size());
    ASSERT_TRUE(StreamAccess::ReadAt(file, 0, now.data(), now.size()));
    EXPECT_EQ(now, fileBytes);
    EXPECT_EQ(StreamAccess::Size(file), fileBytes.size());
    now.resize(memoryBytes.size());
    ASSERT_TRUE(StreamAccess::ReadAt(memory, 0, now.data(), now.size()));
    EXPECT_EQ(now, memoryBytes);
}

INSTANTIATE_TEST_SUITE_P(BothOrders, PiecesModel,
                         testing::Values(Order{vr::OB, false}, Order{vr::OB, true}, Order{vr::OW, false},
                                         Order{vr::OW, true}, Order{vr::AT, true}, Order{vr::UL, true},
                                         Order{vr::FD, true}, Order{vr::LO, true}),
                         OrderName);

TEST(Pieces, AppendingGivesOnePieceAndPaddingFollowsTheVR) {
    VDicomDS dataSet;
    DICOMELEMENT* e = Insert(dataSet, vr::OB);
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(dataSet.SetFileBinaryValue(e, "abc", e->nLength, 3), 1u);
    EXPECT_EQ(e->nCountPiece, 1u);
    EXPECT_EQ(e->nLength, 300u);

    const struct {
        unsigned short vr;
        char pad;
    } cases[] = {{vr::LO, ' '}, {vr::UI, '\0'}, {vr::OB, '\0'}, {vr::UN, '\0'}, {vr::UR, ' '}, {0, '\0'}};
    VDicomULong tag = kTag;
    for (const auto& c : cases) {
        DICOMELEMENT* odd = Insert(dataSet, c.vr, ++tag);
        ASSERT_EQ(dataSet.SetBinaryValue(odd, "abc", 3), 1u);
        EXPECT_EQ(ValueOf(dataSet, odd), (Bytes{'a', 'b', 'c', static_cast<unsigned char>(c.pad)})) << c.vr;
        ASSERT_EQ(dataSet.SetFileBinaryValue(odd, "X", 1, 1), 1u);
        EXPECT_EQ(odd->nLength, 4u);
        ASSERT_EQ(dataSet.SetBinaryValue(odd, nullptr, 0), 1u);
        EXPECT_EQ(odd->nLength, 0u);
        EXPECT_EQ(odd->nCountPiece, 1u);
    }
}

TEST(Pieces, RefusalsChangeNothing) {
    VDicomDS dataSet;
    DICOMELEMENT* e = Insert(dataSet, vr::OB);
    DICOMELEMENT* sequence = Insert(dataSet, vr::SQ, kTag + 1);
    DICOMELEMENT* empty = Insert(dataSet, vr::OB, kTag + 2);
    ASSERT_EQ(dataSet.SetBinaryValue(e, "abcdef", 6), 1u);
    VDicomFile memory;
    ASSERT_NE(memory.Open("", DICOM_FILE_MODE_MEMORY), 0u);
    const unsigned char four[4] = {};
    ASSERT_NE(memory.SetMemoryBuffer(four, 4, 1), 0u);
    char buffer[8] = {};

    EXPECT_EQ(dataSet.GetBinaryValue(nullptr, buffer, 8), 0u);
    EXPECT_EQ(dataSet.GetBinaryValue(sequence, buffer, 8), 0u);
    EXPECT_EQ(dataSet.GetBinaryValue(e, nullptr, 8), 0u);
    EXPECT_EQ(dataSet.GetBinaryValue(e, buffer, DICOM_UNDEFINED), 0u);
    EXPECT_EQ(dataSet.GetBinaryValue(e, buffer, 6, 1), 0u);
    EXPECT_EQ(dataSet.GetBinaryValue(e, buffer, 0), 1u);
    EXPECT_EQ(dataSet.GetBinaryValue(empty, buffer, 8), 1u);

    EXPECT_EQ(dataSet.SetBinaryValue(nullptr, "x", 1), 0u);
    EXPECT_EQ(dataSet.SetBinaryValue(sequence, "x", 1), 0u);
    EXPECT_EQ(dataSet.SetBinaryValue(e, nullptr, 1), 0u);
    EXPECT_EQ(dataSet.SetFileBinaryValue(e, "x", 7, 1), 0u);
    EXPECT_EQ(dataSet.InsertBinaryValue(e, "x", 7, 1), 0u);
    EXPECT_EQ(dataSet.DeleteFileBinaryValue(e, 7, 1), 0u);
    EXPECT_EQ(dataSet.InsertFileBinaryValue(e, 0, nullptr, 0, 1), 0u);
    EXPECT_EQ(dataSet.InsertFileBinaryValue(e, 0, &memory, 0, 5), 0u) << "behind the end of the stream";
    EXPECT_EQ(dataSet.InsertFileBinaryValue(e, 0, &memory, ~VDicomUInt64{0}, 2), 0u);
    EXPECT_EQ(dataSet.CopyFileBinaryValue(e, nullptr, e), unsigned{DICOM_ERROR_PARAMETER});
    EXPECT_EQ(dataSet.CopyFileBinaryValue(e, &dataSet, sequence), unsigned{DICOM_ERROR_PARAMETER});
    EXPECT_EQ(dataSet.CopyFileBinaryValue(e, &dataSet, e), unsigned{DICOM_OK});
    EXPECT_EQ(ValueOf(dataSet, e), (Bytes{'a', 'b', 'c', 'd', 'e', 'f'}));

    EXPECT_EQ(dataSet.DeleteFileBinaryValue(e, 2, DICOM_UNDEFINED), 1u);
    EXPECT_EQ(ValueOf(dataSet, e), (Bytes{'a', 'b'}));
}

TEST(Pieces, AStreamThatShrankFailsWithoutHarm) {
    VDicomDS dataSet;
    DICOMELEMENT* e = Insert(dataSet, vr::OW);
    DICOMELEMENT* copy = Insert(dataSet, vr::OW, kTag + 1);
    const Bytes bytes(100000, 7);
    VDicomFile memory;
    ASSERT_NE(memory.Open("", DICOM_FILE_MODE_MEMORY), 0u);
    ASSERT_NE(memory.SetMemoryBuffer(bytes.data(), 100000, 1), 0u);
    ASSERT_EQ(dataSet.InsertFileBinaryValue(e, 0, &memory, 0, 100000), 1u);
    ASSERT_EQ(dataSet.SetBinaryValue(copy, "old1", 4), 1u);
    ASSERT_NE(memory.SetMemoryBuffer(bytes.data(), 50000, 1), 0u);

    Bytes buffer(100000);
    EXPECT_EQ(dataSet.GetBinaryValue(e, buffer.data(), 100000), 0u);
    EXPECT_EQ(dataSet.GetBinaryValue(e, buffer.data(), 50000), 1u);
    EXPECT_EQ(dataSet.GetTypeValue(e), 0u);
    EXPECT_EQ(dataSet.GetShortValue(e, 0, 1), nullptr);
    EXPECT_EQ(dataSet.GetConvertValue(e, nullptr), 0u);
    EXPECT_EQ(dataSet.CopyFileBinaryValue(copy, &dataSet, e), unsigned{DICOM_ERROR_READ});
    EXPECT_EQ(ValueOf(dataSet, copy), (Bytes{'o', 'l', 'd', '1'}));
}

TEST(Pieces, AScratchStreamThatCannotGrowKeepsTheOldValue) {
    const TestFolder folder;
    VDicomDS dataSet(TestFolder::Utf8(folder.Path()).c_str());
    DICOMELEMENT* e = Insert(dataSet, vr::OB);
    ASSERT_EQ(dataSet.SetBinaryValue(e, "abcd", 4), 1u) << "small values stay in memory";
    std::filesystem::remove_all(folder.Path());
    const Bytes large(3 << 20, 1);
    EXPECT_EQ(dataSet.SetBinaryValue(e, large.data(), 3 << 20), 0u);
    EXPECT_EQ(dataSet.SetFileBinaryValue(e, large.data(), 2, 3 << 20), 0u);
    EXPECT_EQ(dataSet.InsertBinaryValue(e, large.data(), 2, 3 << 20), 0u);
    EXPECT_EQ(ValueOf(dataSet, e), (Bytes{'a', 'b', 'c', 'd'}));
}

TEST(Pieces, ValuesReachTheLongestLengthAndNoFurther) {
    constexpr VDicomULong run = 16 << 20;
    Bytes bytes(run);
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
    VDicomFile memory;
    ASSERT_NE(memory.Open("", DICOM_FILE_MODE_MEMORY), 0u);
    ASSERT_NE(memory.SetMemoryBuffer(bytes.data(), run, 1), 0u);
    VDicomDS dataSet;
    InitBig(dataSet);
    DICOMELEMENT* e = Insert(dataSet, vr::OW);
    for (int i = 0; i < 255; ++i)
        ASSERT_EQ(dataSet.InsertFileBinaryValue(e, 0, &memory, 0, run), 1u);
    ASSERT_EQ(dataSet.InsertFileBinaryValue(e, e->nLength, &memory, 0, run - 2), 1u);
    EXPECT_EQ(e->nLength, 0xFFFFFFFEu);
    EXPECT_EQ(dataSet.InsertBinaryValue(e, "x", 0, 1), 0u);
    EXPECT_EQ(dataSet.InsertFileBinaryValue(e, 3, &memory, 0, 1), 0u);
    EXPECT_EQ(dataSet.SetFileBinaryValue(e, "xyz", 0xFFFFFFFC, 3), 0u);
    ASSERT_EQ(dataSet.SetFileBinaryValue(e, "x", 0xFFFFFFFD, 1), 1u);
    unsigned char last[4] = {};
    ASSERT_EQ(dataSet.GetBinaryValue(e, last, 0xFFFFFFFA, 4), 1u);
    EXPECT_EQ((Bytes{last, last + 4}), (Bytes{0xFB, 0xFA, 0xFD, 'x'}));
    VDicomULong offset = 0xFFFFFFFF;
    EXPECT_EQ(dataSet.GetFileBinaryIndex(e, &offset), 256u);
    EXPECT_EQ(offset, 1u) << "the last byte, in the piece that was written over it";
    ASSERT_EQ(dataSet.DeleteFileBinaryValue(e, 5, DICOM_UNDEFINED), 1u);
    EXPECT_EQ(ValueOf(dataSet, e), (Bytes{1, 0, 3, 2, 5}));
}

TEST(Pieces, GroupTwoIsLittleEndianEverywhere) {
    VDicomDS dataSet;
    InitBig(dataSet);
    DICOMELEMENT* meta = Insert(dataSet, vr::UL, 0x00020103);
    DICOMELEMENT* own = Insert(dataSet, vr::UL, kTag);
    const VDicomULong number = 0x01020304;
    for (DICOMELEMENT* e : {meta, own}) {
        ASSERT_EQ(dataSet.SetBinaryValue(e, &number, 4), 1u);
        VDicomULong back = 0;
        ASSERT_EQ(dataSet.GetBinaryValue(e, &back, 4), 1u);
        EXPECT_EQ(back, number);
    }
    EXPECT_EQ(StoredOf(meta), (Bytes{4, 3, 2, 1}));
    EXPECT_EQ(StoredOf(own), (Bytes{1, 2, 3, 4}));
}
