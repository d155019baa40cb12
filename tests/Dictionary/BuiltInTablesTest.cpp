#include "VDicomTag.h"
#include "VDicomUID.h"
#include "VDicomVR.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr VDicomULong n = DICOM_UNDEFINED;

// An application's static object may use the tables in its constructor and in its destructor.
struct EarlyUser {
    EarlyUser() : rows(Name != nullptr) {}
    ~EarlyUser() {
        if (VDicomTag::Find(0x00100010) == nullptr || VDicomUID::Find("1.2.840.10008.1.2") == nullptr)
            std::abort();
    }
    const DICOMTAG* Name = VDicomTag::Find(0x00100010);
    const DICOMVR* Last = VDicomVR::Find(VDicomVRCode('O', 'F'));
    bool rows;
} const earlyUser;

/// The tables belong to the whole process: every test leaves them as it found them.
class BuiltInTables : public testing::Test {
protected:
    ~BuiltInTables() override {
        VDicomVR::Default();
        VDicomUID::Default();
        VDicomTag::Default();
    }
};

std::string NameOf(VDicomULong tag) {
    const DICOMTAG* entry = VDicomTag::Find(tag);
    return entry == nullptr ? "" : entry->pszName;
}

std::vector<const DICOMTAG*> AllTags() {
    std::vector<const DICOMTAG*> all;
    for (DICOMTAG* entry = VDicomTag::GetFirst(); entry != nullptr; entry = VDicomTag::GetNext(entry))
        all.push_back(entry);
    return all;
}

const DICOMTAG* LinearFind(VDicomULong tag) {
    for (DICOMTAG* entry = VDicomTag::GetFirst(); entry != nullptr; entry = VDicomTag::GetNext(entry)) {
        if ((tag & entry->nMask) == entry->nCode)
            return entry;
    }
    return nullptr;
}

TEST_F(BuiltInTables, AreThereForStaticConstructors) {
    EXPECT_TRUE(earlyUser.rows);
    EXPECT_NE(nullptr, earlyUser.Last);
}

TEST_F(BuiltInTables, TagsHaveTheirRowsInOrder) {
    const auto tags = AllTags();
    ASSERT_EQ(2178U, tags.size());
    std::map<VDicomULong, int> masks;
    for (const DICOMTAG* tag : tags) {
        ++masks[+tag->nMask];
        EXPECT_EQ(0U, tag->nCode & ~tag->nMask);
        EXPECT_NE(nullptr, VDicomVR::Find(tag->nVR)) << tag->pszName;
        EXPECT_EQ(nullptr, tag->Link.pParent);
        EXPECT_EQ(nullptr, tag->Link.pFirstChild);
    }
    const std::map<VDicomULong, int> expected = {
        {0xFFFFFFFF, 2092}, {0xFF00FFFF, 71}, {0xFFFFFF0F, 14}, {0xFFFFFF00, 1}};
    EXPECT_EQ(expected, masks);

    // The five items and delimiters end the standard's rows; vendors' rows follow.
    const VDicomULong last[] = {0xFFFAFFFA, 0xFFFCFFFC, 0xFFFEE000, 0xFFFEE00D, 0xFFFEE0DD};
    for (std::size_t i = 0; i < std::size(last); ++i) {
        EXPECT_EQ(last[i], +tags[2125 + i]->nCode);
        EXPECT_EQ(VDicomVRCode('O', 'B'), +tags[2125 + i]->nVR);
    }
    EXPECT_STREQ("SPI Release 1 - Comments", tags[2130]->pszName);
    EXPECT_STREQ("PAPYRUS - Image Sequence", tags.back()->pszName);
    std::set<VDicomULong> vendorGroups;
    std::size_t misspelt = 0;
    for (auto tag = tags.begin() + 2130; tag != tags.end(); ++tag) {
        vendorGroups.insert((*tag)->nCode >> 16);
        misspelt += std::string((*tag)->pszName) == "SIEMENS MR VA0 COAD - Magnetic Field Strenght" ? 1 : 0;
    }
    EXPECT_EQ((std::set<VDicomULong>{9, 0x11, 0x13, 0x19, 0x41}), vendorGroups);
    EXPECT_EQ(1U, misspelt);

    // The walk backwards is the walk forwards.
    std::size_t left = tags.size();
    for (auto* tag = reinterpret_cast<DICOMTAG*>(VDicomTag::m_InfoTag.GetLast(nullptr, 1)); tag != nullptr;
         tag = VDicomTag::GetPrev(tag))
        ASSERT_EQ(tags[--left], tag);
    EXPECT_EQ(0U, left);
    EXPECT_EQ(nullptr, VDicomTag::GetNext(nullptr));
    EXPECT_EQ(nullptr, VDicomTag::GetPrev(nullptr));
}

TEST_F(BuiltInTables, TagsAreFoundByTheFirstMatch) {
    struct Expected {
        const char* name;
        const char* vr;
        VDicomULong tag, minVM, maxVM, divideVM;
    };
    const Expected rows[] = {
        {"Patient's Name", "PN", 0x00100010, 1, 1, 1},
        {"Overlay Rows", "US", 0x60020010, 1, 1, 1},
        {"Overlay Rows", "US", 0x60010010, 1, 1, 1}, // the mask does not tell odd groups from even ones
        {"Overlay Origin", "SS", 0x60FE0050, 2, 2, 2},
        {"Rows For Nth Order Coefficients", "US", 0x00280410, 1, 1, 1},
        {"CoefficientCoding", "LO", 0x002804F2, 1, n, 1},
        {"Source Image IDs (Retired)", "CS", 0x00203105, 1, n, 1},
        {"SPI Release 1 - Comments", "LO", 0x00090010, 1, 1, 1}, // not the later "Recognition Code"
        {"Shutter Presentation Value", "US", 0x00181622, 1, 1, 2},
        {"Referenced File ID", "CS", 0x00041500, 1, 8, 1},
        {"Referenced Waveform Channels", "US", 0x0040A0B0, 2, n, 2},
        {"Pixel Data", "OW", 0x7FE00010, 1, 1, 1}, // not "Variable Pixel Data", which would match too
        {"Variable Pixel Data", "OW", 0x7F020010, 1, 1, 1},
        {"Item", "OB", 0xFFFEE000, 1, 1, 1},
    };
    for (const Expected& row : rows) {
        const DICOMTAG* tag = VDicomTag::Find(row.tag);
        ASSERT_NE(nullptr, tag) << row.name;
        EXPECT_STREQ(row.name, tag->pszName);
        EXPECT_EQ(VDicomVRCode(row.vr[0], row.vr[1]), +tag->nVR) << row.name;
        EXPECT_EQ(row.minVM, +tag->nMinVM) << row.name;
        EXPECT_EQ(row.maxVM, +tag->nMaxVM) << row.name;
        EXPECT_EQ(row.divideVM, +tag->nDivideVM) << row.name;
    }
    for (const VDicomULong tag : {0x00291010U, 0xFFFFFFFFU, 0x00000001U, 0x10000006U})
        EXPECT_EQ(nullptr, VDicomTag::Find(tag));

    // The index answers as the walk does: at every row, beside it, and with each free bit of its mask set.
    for (const DICOMTAG* tag : AllTags()) {
        for (const VDicomULong other : {0U, 1U, 0x10U, 0x100U, 0x10000U, 0x20000U, 0x1000000U}) {
            const VDicomULong searched = tag->nCode ^ other;
            ASSERT_EQ(LinearFind(searched), VDicomTag::Find(searched)) << std::hex << searched;
        }
        const VDicomULong filled = tag->nCode | ~tag->nMask;
        ASSERT_EQ(LinearFind(filled), VDicomTag::Find(filled)) << std::hex << filled;
    }
}

TEST_F(BuiltInTables, TagsAreRenamedDeletedAndRestored) {
    DICOMTAG* name = VDicomTag::Find(0x00100010);
    ASSERT_NE(nullptr, name);
    EXPECT_EQ(1U, VDicomTag::SetName(name, "Patient Name"));
    EXPECT_EQ("Patient Name", NameOf(0x00100010));
    EXPECT_EQ(1U, VDicomTag::SetName(name, name->pszName)) << "its own name is copied before it is freed";
    EXPECT_EQ(1U, VDicomTag::SetName(name, ""));
    EXPECT_EQ(0U, VDicomTag::SetName(name, nullptr));
    EXPECT_EQ(0U, VDicomTag::SetName(nullptr, "x"));
    EXPECT_EQ("", NameOf(0x00100010));

    // A second entry never shadows the first, and takes its place when that is deleted.
    DICOMTAG* second = VDicomTag::Insert(0x00100010, 0xFFFFFFFF, "second", VDicomVRCode('Z', 'Z'), 7, 3, 0);
    ASSERT_NE(nullptr, second);
    EXPECT_EQ(name, VDicomTag::Find(0x00100010));
    DICOMTAG* following = VDicomTag::GetNext(name);
    EXPECT_EQ(following, VDicomTag::Delete(name));
    EXPECT_EQ("second", NameOf(0x00100010));
    EXPECT_EQ(0U, VDicomTag::m_InfoTag.Exists(&name->Link));

    // What a deleted row hid comes to light.
    VDicomTag::Delete(VDicomTag::Find(0x7FE00010));
    EXPECT_EQ("Variable Pixel Data", NameOf(0x7FE00010));
    VDicomTag::Delete(VDicomTag::Find(0x00090010));
    EXPECT_EQ("SIEMENS MED - Recognition Code", NameOf(0x00090010));

    EXPECT_EQ(nullptr, VDicomTag::Insert(1, 1, nullptr, 0, 1, 1, 1));
    EXPECT_EQ(nullptr, VDicomTag::Delete(nullptr));
    DICOMTAG* before = VDicomTag::GetPrev(second);
    EXPECT_EQ(before, VDicomTag::Delete(second)) << "the last entry's neighbour is the one before it";

    VDicomTag::Reset();
    EXPECT_EQ(nullptr, VDicomTag::GetFirst());
    EXPECT_EQ(nullptr, VDicomTag::Find(0x00100020));
    DICOMTAG* all = VDicomTag::Insert(0, 0, "matches everything", 0, 1, 1, 1);
    EXPECT_EQ(all, VDicomTag::Find(0x12345678));
    EXPECT_EQ(nullptr, VDicomTag::Delete(all)) << "the only entry has no neighbour";

    DICOMTAG* last = VDicomTag::Default();
    ASSERT_NE(nullptr, last);
    EXPECT_STREQ("PAPYRUS - Image Sequence", last->pszName);
    EXPECT_EQ(nullptr, VDicomTag::GetNext(last));
    EXPECT_EQ(2178U, VDicomTag::m_InfoTag.GetCount(nullptr, 1));
    EXPECT_EQ("Patient's Name", NameOf(0x00100010));
    EXPECT_EQ("Pixel Data", NameOf(0x7FE00010));
}

TEST_F(BuiltInTables, DeletedThroughTheContainerAnEntryLeavesTheIndexToo) {
    DICOMTAG* name = VDicomTag::Find(0x00100010);
    VDicomTag::SetName(name, "to be freed");
    VDicomTag::m_InfoTag.Delete(&name->Link);
    EXPECT_EQ(nullptr, VDicomTag::Find(0x00100010));
    DICOMLINK* bare = VDicomTag::m_InfoTag.Insert(nullptr, sizeof(DICOMLINK), DICOM_TREE_FIRST_SIBLING);
    ASSERT_NE(nullptr, bare);
    EXPECT_NE(nullptr, VDicomTag::Find(0x00100020));
    VDicomTag::m_InfoTag.Delete(bare);
}

TEST_F(BuiltInTables, ValueRepresentations) {
    std::string order;
    for (DICOMVR* vr = VDicomVR::GetFirst(); vr != nullptr; vr = VDicomVR::GetNext(vr))
        order += std::string{static_cast<char>(vr->nCode >> 8), static_cast<char>(vr->nCode & 0xFF), ' '};
    EXPECT_EQ("AE AS AT CS DA DS DT FD FL IS LO LT OB OW PN SH SL SQ SS ST TM UI UL UN US UT OF ", order);

    struct Expected {
        const char* code;
        const char* name;
        VDicomULong length;
        unsigned short restrict, unit;
    };
    const Expected rows[] = {
        {"AE", "Application Entity", 16, 0x0201, 1}, {"AS", "Age String", 4, 0x0200, 1},
        {"AT", "Attribute Tag", 4, 0x0100, 4},       {"FD", "Floating Point Double", 8, 0x0100, 8},
        {"OW", "Other Word String", 0, 0x0103, 2},   {"PN", "Person Name", 64, 0x0202, 1},
        {"SQ", "Sequence of Items", 0, 0x0004, 1},   {"DT", "Date Time", 26, 0x0201, 1},
        {"LT", "Long Text", 10240, 0x0401, 1},       {"UT", "Unlimited Text", 0xFFFFFFFE, 0x0401, 1},
        {"US", "Unsigned Short", 2, 0x0100, 2},      {"OF", "Other Float String", 0xFFFFFFFC, 0x0101, 4}};
    for (const Expected& row : rows) {
        const DICOMVR* vr = VDicomVR::Find(VDicomVRCode(row.code[0], row.code[1]));
        ASSERT_NE(nullptr, vr) << row.code;
        EXPECT_STREQ(row.name, vr->pszName);
        EXPECT_EQ(row.length, +vr->nLength) << row.code;
        EXPECT_EQ(row.restrict, +vr->nRestrict) << row.code;
        EXPECT_EQ(row.unit, +vr->nUnitSize) << row.code;
    }
    EXPECT_EQ(nullptr, VDicomVR::Find(VDicomVRCode('O', 'L')));
    EXPECT_EQ(nullptr, VDicomVR::Find(0));

    DICOMVR* text = VDicomVR::Find(VDicomVRCode('U', 'T'));
    EXPECT_EQ(nullptr, VDicomVR::Insert(1, nullptr, 0, 0, 0));
    DICOMVR* second = VDicomVR::Insert(text->nCode, "second", 1, 2, 3);
    EXPECT_EQ(text, VDicomVR::Find(text->nCode));
    EXPECT_EQ(VDicomVR::Find(VDicomVRCode('O', 'F')), VDicomVR::Delete(text));
    EXPECT_EQ(second, VDicomVR::Find(VDicomVRCode('U', 'T')));
    EXPECT_EQ(VDicomVR::GetPrev(second), VDicomVR::Find(VDicomVRCode('O', 'F')));
    EXPECT_EQ(1U, VDicomVR::SetName(second, "third"));
    EXPECT_STREQ("third", second->pszName);
    VDicomVR::Reset();
    EXPECT_EQ(nullptr, VDicomVR::GetFirst());
    EXPECT_STREQ("Other Float String", VDicomVR::Default()->pszName);
}

TEST_F(BuiltInTables, UIDs) {
    std::map<VDicomLong, int> kinds;
    std::set<std::string> codes;
    for (DICOMUID* uid = VDicomUID::GetFirst(); uid != nullptr; uid = VDicomUID::GetNext(uid)) {
        ++kinds[+uid->nType];
        EXPECT_EQ(uid, VDicomUID::Find(std::string(uid->pszCode).c_str()));
        codes.insert(uid->pszCode);
    }
    EXPECT_EQ((std::map<VDicomLong, int>{{0, 10}, {1, 4}, {2, 24}, {3, 107}, {4, 9}, {5, 5}, {6, 1}}), kinds);
    EXPECT_EQ(160U, codes.size());

    struct Expected {
        const char* code;
        const char* name;
        VDicomLong type;
    };
    const Expected rows[] = {
        {"1.2.840.10008.1.1", "Verification Class", DICOM_UID_SOP_CLASS},
        {"1.2.840.10008.1.2.1", "Explicit VR - Little Endian", DICOM_UID_TRANSFER_SYNTAX},
        {"1.2.840.10008.1.2.1.99", "Deflated Explicit VR Little Endian", DICOM_UID_TRANSFER_SYNTAX},
        {"1.2.840.10008.1.20", "Papyrus 3 Implicit VR Little Endian", DICOM_UID_OTHER},
        {"1.2.840.10008.1.20.2.1", "Storage Commitment Pull Model Instance(Retired)", DICOM_UID_SOP_INSTANCE},
        {"1.2.840.10008.5.1.4.1.1.9.1.2", "General ECG Waveform Storage", DICOM_UID_OTHER},
        {"1.2.840.10008.5.1.4.1.1.9.1.3", "Ambulatory ECG Waveform Storage", DICOM_UID_SOP_CLASS},
        {"1.2.840.113619.4.4", "GE Private Dicom Display Imagermation Info Object", DICOM_UID_OTHER},
        {"1.2.840.10008.3.1.1.1", "Application Context Name", DICOM_UID_APPLICATION_CONTEXT}};
    for (const Expected& row : rows) {
        const DICOMUID* uid = VDicomUID::Find(row.code);
        ASSERT_NE(nullptr, uid) << row.code;
        EXPECT_STREQ(row.name, uid->pszName);
        EXPECT_EQ(row.type, +uid->nType) << row.code;
    }
    EXPECT_EQ(nullptr, VDicomUID::Find("1.2.840.10008.1.2.1 ")) << "padding counts";
    EXPECT_EQ(nullptr, VDicomUID::Find("1.2.840.10008.1.2."));
    EXPECT_EQ(nullptr, VDicomUID::Find(""));
    EXPECT_EQ(nullptr, VDicomUID::Find(nullptr));

    EXPECT_EQ(nullptr, VDicomUID::Insert(nullptr, "name", 0));
    EXPECT_EQ(nullptr, VDicomUID::Insert("1.2", nullptr, 0));
    DICOMUID* first = VDicomUID::Insert("not a UID", "first", -5);
    DICOMUID* second = VDicomUID::Insert("not a UID", "second", 99);
    EXPECT_EQ(first, VDicomUID::Find("not a UID"));
    EXPECT_EQ(nullptr, VDicomUID::Find("NOT A UID"));
    EXPECT_EQ(second, VDicomUID::Delete(first));
    EXPECT_EQ(second, VDicomUID::Find("not a UID"));
    EXPECT_EQ(1U, VDicomUID::SetName(second, "renamed"));
    DICOMUID* before = VDicomUID::GetPrev(second);
    EXPECT_EQ(before, VDicomUID::Delete(second));
    EXPECT_EQ(nullptr, VDicomUID::Find("not a UID"));
    VDicomUID::Reset();
    EXPECT_EQ(nullptr, VDicomUID::Find("1.2.840.10008.1.1"));
    EXPECT_STREQ("Video Photographic Image Storage", VDicomUID::Default()->pszName);
}

TEST_F(BuiltInTables, ManyThreadsMaySearchAtOnce) {
    const auto tags = AllTags();
    std::vector<std::thread> threads;
    std::atomic<int> wrong{0};
    for (std::size_t t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            for (std::size_t i = t; i < 20 * tags.size(); i += 3) {
                const DICOMTAG* tag = tags[i % tags.size()];
                const DICOMTAG* found = VDicomTag::Find(tag->nCode);
                if (found == nullptr || (tag->nCode & found->nMask) != found->nCode || found->nCode != tag->nCode)
                    ++wrong;
                if (VDicomVR::Find(tag->nVR) == nullptr || VDicomUID::Find("1.2.840.10008.1.2.1") == nullptr)
                    ++wrong;
                DICOMCURRENTTAG current;
                if (VDicomTag::FindKeyword("PatientName", &current) == 0 || current.nCode != 0x00100010)
                    ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(0, wrong);
}

} // namespace
