// The element tree through VDicomDS: what may stand where, in which order it is walked, and what deleting leaves.
#include "HexBytes.h"

#include "DataSetState.h"

#include <gmock/gmock.h>
#include <map>
#include <random>

using namespace support;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr VDicomULong kItemTag = 0xFFFEE000;

std::vector<VDicomULong> Tags(VDicomDS& dataSet, DICOMELEMENT* parent, unsigned int siblingOnly,
                              unsigned int includeVolatile) {
    std::vector<VDicomULong> tags;
    for (DICOMELEMENT* e = dataSet.GetFirstElement(parent, siblingOnly, includeVolatile); e != nullptr;
         e = dataSet.GetNextElement(e, siblingOnly, includeVolatile))
        tags.push_back(e->nTag);
    return tags;
}

std::vector<VDicomULong> TagsBackwards(VDicomDS& dataSet, DICOMELEMENT* parent, unsigned int siblingOnly,
                                       unsigned int includeVolatile) {
    std::vector<VDicomULong> tags;
    for (DICOMELEMENT* e = dataSet.GetLastElement(parent, siblingOnly, includeVolatile); e != nullptr;
         e = dataSet.GetPrevElement(e, siblingOnly, includeVolatile))
        tags.insert(tags.begin(), e->nTag);
    return tags;
}

struct Invalid {
    int calls = 0;
    unsigned short code = 0;
    static VDicomULong VDICOM_CALLBACK Count(DICOMELEMENT*, unsigned short code, void* self) {
        ++static_cast<Invalid*>(self)->calls;
        static_cast<Invalid*>(self)->code = code;
        return 0;
    }
};

} // namespace

TEST(Tree, InsertionKeepsTagOrderAndRefusesWhatTheWriterMakes) {
    VDicomDS dataSet;
    DICOMELEMENT* patient = dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0);
    ASSERT_NE(patient, nullptr);
    EXPECT_EQ(patient->nVR, vdicom::vr::PN);
    EXPECT_EQ(patient->nLength, 0u);
    EXPECT_EQ(patient->nCountValue, DICOM_UNDEFINED);
    EXPECT_EQ(patient->nCountPiece, 1u);
    EXPECT_EQ(patient->pPieceOffset[0], DICOM_UNDEFINED);
    EXPECT_EQ(patient->pPieceSize[0], 0u);
    // Before its neighbour although given after it.
    ASSERT_NE(dataSet.InsertElement(patient, 0, 0x00080020, 0, 0, 0), nullptr);
    EXPECT_EQ(dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0), nullptr) << "the tag is there already";
    for (const VDicomULong tag : {0x00080000u, 0x00020000u, 0xFFFEE0DDu, 0xFFFEE00Du, 0xFFFCFFFCu})
        EXPECT_EQ(dataSet.InsertElement(nullptr, 0, tag, 0, 0, 0), nullptr) << std::hex << tag;
    const DICOMELEMENT* unknown = dataSet.InsertElement(nullptr, 0, 0x00291010, 0, 0, 0);
    ASSERT_NE(unknown, nullptr);
    EXPECT_EQ(unknown->nVR, 0) << "nobody knows the tag";
    EXPECT_THAT(Tags(dataSet, nullptr, 1, 1), ElementsAre(0x00080020u, 0x00100010u, 0x00291010u));
}

TEST(Tree, ParentsOfDefinedLengthTakeOneChildAndItemsAreOrderedByIndex) {
    VDicomDS dataSet;
    DICOMELEMENT* text = dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0);
    EXPECT_NE(dataSet.InsertElement(text, 1, 0x00100020, 0, 0, 0), nullptr) << "an empty level is not tested";
    EXPECT_EQ(dataSet.InsertElement(text, 1, 0x00100030, 0, 0, 0), nullptr);

    DICOMELEMENT* sequence = dataSet.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
    EXPECT_EQ(sequence->nLength, DICOM_UNDEFINED);
    DICOMELEMENT* second = dataSet.InsertElement(sequence, 1, kItemTag, 0, 1, 99);
    DICOMELEMENT* first = dataSet.InsertElement(sequence, 1, kItemTag, 0, 1, 0);
    DICOMELEMENT* middle = dataSet.InsertElement(sequence, 1, kItemTag, 0, 1, 1);
    EXPECT_EQ(dataSet.GetIndexElement(sequence, 0), first);
    EXPECT_EQ(dataSet.GetIndexElement(sequence, 1), middle);
    EXPECT_EQ(dataSet.GetIndexElement(sequence, 2), second);
    EXPECT_EQ(dataSet.GetIndexElement(sequence, 3), nullptr);
    EXPECT_EQ(dataSet.GetCountElement(sequence), 3u);
    // The same tag under two items is not doubled.
    EXPECT_NE(dataSet.InsertElement(first, 1, 0x00081150, 0, 0, 0), nullptr);
    EXPECT_NE(dataSet.InsertElement(second, 1, 0x00081150, 0, 0, 0), nullptr);
    EXPECT_EQ(dataSet.InsertElement(second, 1, 0x00081150, 0, 0, 0), nullptr);
}

TEST(Tree, WalksSkipVolatileElementsAndGoBothWays) {
    VDicomDS dataSet;
    dataSet.InsertElement(nullptr, 0, 0x00020010, 0, 0, 0);
    DICOMELEMENT* sequence = dataSet.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
    DICOMELEMENT* item = dataSet.InsertElement(sequence, 1, kItemTag, 0, 1, 0);
    DICOMELEMENT* rows = dataSet.InsertElement(item, 1, 0x00280010, 0, 0, 0);
    DICOMELEMENT* leaf = dataSet.InsertElement(item, 1, 0x00081150, 0, 0, 0);
    DICOMELEMENT* pixels = dataSet.InsertElement(nullptr, 0, 0x7FE00010, vdicom::vr::OB, 1, 0);
    DICOMELEMENT* fragment = dataSet.InsertElement(pixels, 1, kItemTag, vdicom::vr::OB, 0, 0);

    const std::vector<VDicomULong> all = {0x00020010, 0x00081140, kItemTag, 0x00081150,
                                          0x00280010, 0x7FE00010, kItemTag};
    EXPECT_EQ(Tags(dataSet, nullptr, 0, 1), all);
    EXPECT_EQ(TagsBackwards(dataSet, nullptr, 0, 1), all);
    const std::vector<VDicomULong> lasting = {0x00081140, kItemTag, 0x00081150, 0x7FE00010};
    EXPECT_EQ(Tags(dataSet, nullptr, 0, 0), lasting);
    EXPECT_EQ(TagsBackwards(dataSet, nullptr, 0, 0), lasting);
    EXPECT_THAT(Tags(dataSet, item, 1, 1), ElementsAre(0x00081150u, 0x00280010u));
    EXPECT_THAT(TagsBackwards(dataSet, item, 1, 0), ElementsAre(0x00081150u));
    EXPECT_EQ(dataSet.GetChildElement(pixels, 0), nullptr);
    EXPECT_EQ(dataSet.GetChildElement(pixels, 1), fragment);
    EXPECT_EQ(dataSet.IsVolatileElement(item), 0u);
    EXPECT_EQ(dataSet.IsVolatileElement(rows), 1u);
    EXPECT_EQ(dataSet.GetRootElement(leaf), sequence);
    EXPECT_EQ(dataSet.GetLevelElement(leaf), 2u);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, kItemTag, 0), item);
    EXPECT_EQ(dataSet.FindNextElement(item, 0), fragment);
    EXPECT_EQ(dataSet.FindPrevElement(fragment, 0), item);
    EXPECT_EQ(dataSet.FindLastElement(nullptr, kItemTag, 0), fragment);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, kItemTag, 1), nullptr);
}

TEST(Tree, DeletingGivesTheNeighbourAndTakesAllBelow) {
    VDicomDS dataSet;
    DICOMELEMENT* sequence = dataSet.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
    DICOMELEMENT* name = dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0);
    DICOMELEMENT* item = dataSet.InsertElement(sequence, 1, kItemTag, 0, 1, 0);
    DICOMELEMENT* leaf = dataSet.InsertElement(item, 1, 0x00081150, 0, 0, 0);
    EXPECT_EQ(dataSet.DeleteElement(leaf), item);
    dataSet.InsertElement(item, 1, 0x00081155, 0, 0, 0);
    EXPECT_EQ(dataSet.DeleteElement(sequence), name);
    EXPECT_EQ(dataSet.ExistsElement(item), 0u);
    EXPECT_EQ(dataSet.DeleteElement(name), nullptr);
    EXPECT_THAT(Tags(dataSet, nullptr, 0, 1), IsEmpty());
}

TEST(Tree, TheCallbackIsToldOfForeignAndDeletedElements) {
    VDicomDS dataSet;
    VDicomDS other;
    DICOMELEMENT* foreign = other.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0);
    DICOMELEMENT* deleted = dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0);
    dataSet.DeleteElement(deleted);
    Invalid invalid;
    dataSet.SetDebugDS(Invalid::Count, &invalid);
    int expected = 0;
    for (DICOMELEMENT* e : {foreign, deleted}) {
        EXPECT_EQ(dataSet.GetRootElement(e), nullptr);
        EXPECT_EQ(dataSet.GetNextElement(e, 0, 1), nullptr);
        EXPECT_EQ(dataSet.FindFirstElement(e, 0x00100010, 1), nullptr);
        EXPECT_EQ(dataSet.InsertElement(e, 1, 0x00100020, 0, 0, 0), nullptr);
        EXPECT_EQ(dataSet.DeleteElement(e), nullptr);
        EXPECT_EQ(dataSet.IsVolatileElement(e), 1u);
        EXPECT_EQ(dataSet.GetLevelElement(e), 0u);
        EXPECT_EQ(dataSet.GetCountValue(e), 0u);
        expected += 8;
    }
    EXPECT_EQ(invalid.calls, expected);
    EXPECT_EQ(invalid.code, 256);
    EXPECT_EQ(other.ExistsElement(foreign), 1u);
}

TEST(Tree, NestingEndsAtTheLimit) {
    VDicomDS dataSet;
    dataSet.SetDepthLimit(3);
    DICOMELEMENT* at = nullptr;
    int sequences = 0;
    for (;; ++sequences) {
        at = dataSet.InsertElement(at, 1, 0x00081140, 0, 0, 0);
        DICOMELEMENT* item = at == nullptr ? nullptr : dataSet.InsertElement(at, 1, kItemTag, 0, 1, 0);
        if (item == nullptr)
            break;
        at = item;
    }
    EXPECT_EQ(sequences, 3);
}

// Wide levels have an index that small ones have not: both must be the level that the plain rules make.
TEST(Tree, WideLevelsAreThoseOfThePlainRules) {
    std::mt19937 random(7);
    for (int round = 0; round < 4; ++round) {
        VDicomDS dataSet;
        std::map<VDicomULong, DICOMELEMENT*> model;
        for (int step = 0; step < 4000; ++step) {
            const VDicomULong tag = static_cast<VDicomULong>(0x00110010 + random() % 700);
            if (random() % 3 != 0) {
                DICOMELEMENT* e = dataSet.InsertElement(nullptr, 0, tag, vdicom::vr::LO, 0, 0);
                ASSERT_EQ(e == nullptr, model.count(tag) != 0);
                if (e != nullptr)
                    model[tag] = e;
            } else if (const auto found = model.find(tag); found != model.end()) {
                dataSet.DeleteElement(found->second);
                model.erase(found);
            }
            const VDicomULong sought = static_cast<VDicomULong>(0x00110010 + random() % 700);
            const auto found = model.find(sought);
            ASSERT_EQ(dataSet.FindFirstElement(nullptr, sought, 1), found == model.end() ? nullptr : found->second);
        }
        ASSERT_EQ(dataSet.GetCountElement(nullptr), model.size());
        DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 1, 1);
        for (const auto& [tag, element] : model) {
            ASSERT_EQ(e, element);
            e = dataSet.GetNextElement(e, 1, 1);
        }
    }
}

TEST(Tree, WideSequencesKeepTheirItemsInPlace) {
    std::mt19937 random(11);
    VDicomDS dataSet;
    DICOMELEMENT* sequence = dataSet.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
    std::vector<DICOMELEMENT*> model;
    for (int step = 0; step < 3000; ++step) {
        const auto index = static_cast<VDicomULong>(random() % (model.size() + 2));
        if (random() % 4 != 0 || model.empty()) {
            DICOMELEMENT* item = dataSet.InsertElement(sequence, 1, kItemTag, 0, 1, index);
            ASSERT_NE(item, nullptr);
            model.insert(model.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(index, model.size())), item);
        } else {
            const std::size_t at = std::min<std::size_t>(index, model.size() - 1);
            dataSet.DeleteElement(model[at]);
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
        }
        const std::size_t sought = random() % (model.size() + 1);
        ASSERT_EQ(dataSet.GetIndexElement(sequence, static_cast<VDicomULong>(sought)),
                  sought < model.size() ? model[sought] : nullptr);
    }
    // An element among items: items go on by position, the others stay in the order of the plain walk.
    DICOMELEMENT* odd = dataSet.InsertElement(sequence, 1, 0x00080100, 0, 0, 0);
    ASSERT_NE(odd, nullptr);
    EXPECT_EQ(dataSet.GetIndexElement(sequence, 0), odd);
    DICOMELEMENT* front = dataSet.InsertElement(sequence, 1, kItemTag, 0, 1, 0);
    EXPECT_EQ(dataSet.GetIndexElement(sequence, 0), front);
    EXPECT_EQ(dataSet.FindFirstElement(sequence, 0x00080100, 1), odd);
    DICOMELEMENT* late = dataSet.InsertElement(sequence, 1, 0x00080102, 0, 0, 0);
    EXPECT_EQ(dataSet.GetIndexElement(sequence, 0), late) << "before the first child with a greater tag";
}

TEST(Tree, NothingChangesWhileConformanceIsChecked) {
    struct Frozen : VDicomDS {
        void Set(bool frozen) { m_pState->frozen = frozen; }
    };
    Frozen dataSet;
    const Bytes bytes = "0800 0500 'CS' 0200 'A '"_bytes;
    ASSERT_EQ(Load(dataSet, bytes), 0u);
    const std::string before = Describe(dataSet);
    VDicomDS other;
    ASSERT_NE(other.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0), nullptr);
    VDicomFile stream;
    stream.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    stream.SetMemoryBuffer(bytes.data(), static_cast<VDicomULong>(bytes.size()), 1);
    dataSet.Set(true);
    EXPECT_EQ(dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0), nullptr);
    EXPECT_EQ(dataSet.GetOffsetElement(nullptr, DICOM_FLAG_PART10), DICOM_UNDEFINED) << "group 0002 would be filled";
    EXPECT_EQ(dataSet.DeleteElement(dataSet.GetFirstElement(nullptr, 1, 1)), nullptr);
    EXPECT_EQ(dataSet.InsertKey(nullptr, 0, "PATIENT"), nullptr);
    dataSet.ResetDS();
    dataSet.InitDS(0, 0);
    for (const unsigned int code :
         {dataSet.LoadDS(&stream, 0, 0), dataSet.LoadDS("file", 0), dataSet.LoadDSMemory(bytes.data(), 10, 0),
          dataSet.ReadSequence(&stream, nullptr, DICOM_TS_EXPLICIT_LITTLE, nullptr)})
        EXPECT_EQ(code, static_cast<unsigned int>(DICOM_ERROR_PARAMETER));
    EXPECT_NE(dataSet.CopyDS(nullptr, &other, nullptr), 0u);
    EXPECT_EQ(Describe(dataSet), before);
    dataSet.Set(false);
    EXPECT_NE(dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0), nullptr);
}

TEST(Tree, ResetInitAndInfoKeepTheFlagsWord) {
    VDicomDS dataSet;
    unsigned short flags = 0;
    VDicomULong classId = 0;
    dataSet.GetInfoDS(&classId, &flags);
    EXPECT_EQ(flags, 0x25);
    dataSet.InitDS(1, 0x0018 | 0x0400 | 0x1000 | 0x00C0);
    dataSet.GetInfoDS(nullptr, &flags);
    EXPECT_EQ(flags, 0x0001 | 0x0018 | 0x1400) << "fields that are 0 stay, bits 6 and 7 do not come";
    EXPECT_EQ(dataSet.SetIdentification(std::string(65, 'x').c_str()),
              static_cast<unsigned int>(DICOM_ERROR_PARAMETER));
    EXPECT_EQ(dataSet.SetIdentification("ident"), 0u);
    dataSet.ResetDS();
    dataSet.GetInfoDS(nullptr, &flags);
    EXPECT_EQ(flags, 0x25);
    EXPECT_STREQ(dataSet.GetIdentification(), "");
}
