// Directory records: built by key, written with offsets, read back, walked, and walked where they are damaged.
#include "HexBytes.h"

#include "DataSetState.h"

#include <gtest/gtest.h>

using namespace support;

namespace {

constexpr unsigned int kDone = DICOM_OK;

// "PATIENT(STUDY(SERIES IMAGE))" by walking keys downwards.
std::string Outline(VDicomDS& dataSet, DICOMELEMENT* parent) {
    std::string text;
    for (DICOMELEMENT* key = dataSet.GetChildKey(parent); key != nullptr; key = dataSet.GetNextKey(key)) {
        EXPECT_EQ(dataSet.GetParentKey(key), parent);
        text += text.empty() ? "" : " ";
        text += dataSet.GetValueKey(key);
        const std::string below = Outline(dataSet, key);
        if (!below.empty())
            text += "(" + below + ")";
    }
    return text;
}

void Build(VDicomDS& dataSet) {
    dataSet.ResetDS();
    DICOMELEMENT* first = dataSet.InsertKey(nullptr, 0, "PATIENT");
    DICOMELEMENT* study = dataSet.InsertKey(first, 1, "STUDY");
    DICOMELEMENT* series = dataSet.InsertKey(study, 1, "SERIES");
    dataSet.InsertKey(series, 1, "IMAGE");
    DICOMELEMENT* second = dataSet.InsertKey(nullptr, 0, "PATIENT");
    dataSet.InsertKey(second, 1, "STUDY");
    dataSet.InsertKey(study, 0, "VISIT");
    dataSet.InsertKey(series, 1, "WAVEFORM");
}

constexpr char kOutline[] = "PATIENT(STUDY(SERIES(IMAGE WAVEFORM)) VISIT) PATIENT(STUDY)";

} // namespace

TEST(Keys, RecordsAreWrittenWithOffsetsAndFoundAgain) {
    VDicomDS dataSet;
    Build(dataSet);
    EXPECT_EQ(Outline(dataSet, nullptr), kOutline);
    for (const unsigned short flags : std::initializer_list<unsigned short>{0x25, 0x15, 0x29, 0x2025}) {
        const Bytes bytes = Save(dataSet, flags);
        VDicomDS read;
        ASSERT_EQ(Load(read, bytes, DICOM_FLAG_OFFSETS), kDone);
        EXPECT_EQ(Outline(read, nullptr), kOutline) << std::hex << flags;
        // The offsets are those of the items in the stream.
        VDicomLong first = 0;
        ASSERT_NE(read.FindGetValue(nullptr, 0x00041200, 2, &first, sizeof first), 0u);
        EXPECT_EQ(static_cast<VDicomULong>(first), read.GetElementOffset(read.GetFirstKey(nullptr)));
        VDicomLong last = 0;
        ASSERT_NE(read.FindGetValue(nullptr, 0x00041202, 2, &last, sizeof last), 0u);
        EXPECT_EQ(static_cast<VDicomULong>(last), read.GetElementOffset(read.GetLastKey(nullptr)));
        // Changed and saved again.
        DICOMELEMENT* study = read.FindFirstKey(read.GetFirstKey(nullptr), "study", 1);
        ASSERT_NE(study, nullptr);
        EXPECT_EQ(read.DeleteKey(study), read.FindFirstKey(read.GetFirstKey(nullptr), "VISIT", 1));
        VDicomDS again;
        ASSERT_EQ(Load(again, Save(read, 0)), kDone);
        EXPECT_EQ(Outline(again, nullptr), "PATIENT(VISIT) PATIENT(STUDY)");
    }
}

TEST(Keys, NavigationAndNumbers) {
    VDicomDS dataSet;
    Build(dataSet);
    DICOMELEMENT* patient = dataSet.GetFirstKey(nullptr);
    DICOMELEMENT* study = dataSet.GetChildKey(patient);
    DICOMELEMENT* series = dataSet.GetChildKey(study);
    DICOMELEMENT* wave = dataSet.GetLastKey(dataSet.GetChildKey(series));
    EXPECT_STREQ(dataSet.GetValueKey(wave), "WAVEFORM");
    EXPECT_EQ(dataSet.GetFirstKey(wave), dataSet.GetPrevKey(wave));
    EXPECT_EQ(dataSet.GetRootKey(wave), patient);
    EXPECT_EQ(dataSet.FindLastKey(nullptr, "PATIENT", 0), dataSet.GetNextKey(patient));
    EXPECT_EQ(dataSet.FindPrevKey(dataSet.GetNextKey(patient), "Patient"), patient);
    EXPECT_EQ(dataSet.FindNextKey(patient, "STUDY"), nullptr);
    DICOMELEMENT* type = dataSet.FindFirstElement(series, 0x00041430, 1);
    EXPECT_EQ(dataSet.GetItemKey(type), series);
    EXPECT_EQ(dataSet.GetItemKey(dataSet.FindFirstElement(nullptr, 0x00041200, 1)), nullptr);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x00041200, 1)->nKey, patient->nKey);
    EXPECT_EQ(dataSet.FindAttachKey(nullptr, 0x00041430), dataSet.FindFirstElement(patient, 0x00041430, 1));
    EXPECT_EQ(dataSet.FindAttachKey(dataSet.FindFirstElement(patient, 0x00041430, 1), 0x00041430),
              dataSet.FindFirstElement(study, 0x00041430, 1));
    // The smallest free number is used again.
    EXPECT_EQ(dataSet.GetAvailableKey(), 9u);
    const VDicomULong freed = study->nKey;
    dataSet.DeleteKey(study);
    EXPECT_EQ(dataSet.GetAvailableKey(), freed);
    EXPECT_EQ(dataSet.InsertKey(nullptr, 0, "PRIVATE")->nKey, freed);
    EXPECT_EQ(dataSet.GetNumberKey(freed), dataSet.GetLastKey(nullptr));
    EXPECT_EQ(dataSet.InsertKey(nullptr, 0, ""), nullptr);
    EXPECT_EQ(dataSet.InsertKey(nullptr, 0, "SEVENTEEN LETTERS"), nullptr);
    // An item deleted as an element leaves no hole in its chain.
    Build(dataSet);
    patient = dataSet.GetFirstKey(nullptr);
    dataSet.DeleteElement(dataSet.GetChildKey(patient));
    EXPECT_EQ(Outline(dataSet, nullptr), "PATIENT(VISIT) PATIENT(STUDY)");
    VDicomDS read;
    ASSERT_EQ(Load(read, Save(dataSet, 0)), kDone);
    EXPECT_EQ(Outline(read, nullptr), "PATIENT(VISIT) PATIENT(STUDY)") << "nor in the file";
}

TEST(Keys, OffsetsElsewhereAreValuesLikeOthers) {
    VDicomDS dataSet;
    Build(dataSet);
    DICOMELEMENT* sequence = dataSet.InsertElement(dataSet.GetFirstKey(nullptr), 1, 0x00081140, 0, 0, 0);
    DICOMELEMENT* item = dataSet.InsertElement(sequence, 1, 0xFFFEE000, 0, 1, 0);
    const VDicomLong number = 4711;
    ASSERT_NE(dataSet.FindSetValue(item, 0x00041420, vdicom::vr::UL, &number, 1), 0u);
    VDicomDS read;
    ASSERT_EQ(Load(read, Save(dataSet, 0)), kDone);
    VDicomLong found = 0;
    DICOMELEMENT* e = read.FindFirstElement(read.GetFirstKey(nullptr), 0x00081140, 1);
    ASSERT_NE(read.FindGetValue(read.GetChildElement(e, 1), 0x00041420, 2, &found, sizeof found), 0u);
    EXPECT_EQ(found, number);
}

TEST(Keys, DamagedChainsCannotMakeAWalkGoInCircles) {
    VDicomDS dataSet;
    Build(dataSet);
    Bytes bytes = Save(dataSet, 0);
    VDicomDS read;
    ASSERT_EQ(Load(read, bytes, DICOM_FLAG_OFFSETS), kDone);
    std::vector<VDicomULong> items;
    std::vector<VDicomULong> fields;
    for (DICOMELEMENT* e = read.FindAttachKey(nullptr, 0xFFFEE000); e != nullptr;
         e = read.FindAttachKey(e, 0xFFFEE000)) {
        items.push_back(read.GetElementOffset(e));
        for (const VDicomULong tag : {0x00041400u, 0x00041420u})
            fields.push_back(read.GetElementOffset(read.FindFirstElement(e, tag, 1)) + 8);
    }
    ASSERT_EQ(items.size(), 8u);
    // Every reference to every record and to nowhere.
    items.push_back(0xFFFFFFF0);
    for (const VDicomULong field : fields) {
        for (const VDicomULong target : items) {
            Bytes damaged = bytes;
            vdicom::Put32(damaged.data() + field, target, true);
            ASSERT_EQ(Load(read, damaged), kDone);
            const std::string outline = Outline(read, nullptr);
            EXPECT_LT(outline.size(), 200u);
            for (VDicomULong key = 1; key <= 8; ++key) {
                DICOMELEMENT* item = read.GetNumberKey(key);
                EXPECT_NE(read.GetFirstKey(item), nullptr);
                EXPECT_NE(read.GetLastKey(item), nullptr);
                EXPECT_NE(read.GetRootKey(item), nullptr);
            }
            EXPECT_NE(read.InsertKey(read.GetNumberKey(3), 0, "IMAGE"), nullptr);
        }
    }
}

TEST(Keys, CopiesKeepTheDirectory) {
    VDicomDS dataSet;
    Build(dataSet);
    VDicomDS copy;
    ASSERT_EQ(copy.CopyDS(nullptr, &dataSet, nullptr), kDone);
    EXPECT_EQ(Outline(copy, nullptr), kOutline);
    // A record copied beside others does not take one of their numbers.
    DICOMELEMENT* records = copy.FindFirstElement(nullptr, 0x00041220, 1);
    ASSERT_EQ(copy.CopyDS(records, &dataSet, dataSet.GetFirstKey(nullptr)), kDone);
    EXPECT_EQ(Outline(copy, nullptr), kOutline);
    EXPECT_EQ(copy.GetNumberKey(9), copy.GetLastElement(records, 1, 1));
}
