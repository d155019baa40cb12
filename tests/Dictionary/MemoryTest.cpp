// The tables when memory runs out at the n-th allocation, and that they give all of it back.
#include "CountedMemory.h"
#include "VDicomTag.h"
#include "VDicomUID.h"
#include "VDicomVR.h"

#include <gtest/gtest.h>

#include <string>

using namespace memory;

namespace {

class TableMemory : public testing::Test {
protected:
    ~TableMemory() override { Fill(); }
    static void Fill() {
        VDicomVR::Default();
        VDicomUID::Default();
        VDicomTag::Default();
    }
    static void Empty() {
        VDicomVR::Reset();
        VDicomUID::Reset();
        VDicomTag::Reset();
    }
};

TEST_F(TableMemory, IsGivenBackAndTakenInFewBlocks) {
    Empty();
    const long empty = g_blocks;
    const long before = g_allocations;
    Fill();
    EXPECT_LE(g_allocations - before, 20) << "nodes and texts come in blocks";
    Fill();
    VDicomTag::SetName(VDicomTag::Find(0x00100010), "a name of its own");
    VDicomUID::SetName(VDicomUID::GetFirst(), "another");
    VDicomTag::Delete(VDicomTag::Find(0x00100010));
    VDicomTag::Delete(VDicomTag::GetFirst());
    VDicomVR::Delete(VDicomVR::GetFirst());
    VDicomTag::Insert(0x00090001, 0xFFFFFFFF, "inserted", 0, 1, 1, 1);
    VDicomUID::Insert("1.2.3", "inserted", 0);
    Empty();
    EXPECT_EQ(empty, g_blocks);
}

TEST_F(TableMemory, RunningOutInInsertLeavesTheListsAsTheyWere) {
    Empty();
    int failures = FailEachTime([] { return VDicomTag::Insert(1, 0xFFFFFFFF, "one", 0, 1, 1, 1) != nullptr; },
                                [] {
                                    EXPECT_EQ(nullptr, VDicomTag::GetFirst());
                                    EXPECT_EQ(nullptr, VDicomTag::Find(1));
                                });
    EXPECT_EQ(4, failures) << "node, name, list of masks and index";
    EXPECT_STREQ("one", VDicomTag::Find(1)->pszName);
    failures = FailEachTime([] { return VDicomTag::Insert(0x100, 0xFFFFFF00, "range", 0, 1, 1, 1) != nullptr; },
                            [] { EXPECT_EQ(nullptr, VDicomTag::Find(0x123)); });
    EXPECT_GE(failures, 3);
    EXPECT_STREQ("range", VDicomTag::Find(0x123)->pszName);
    EXPECT_EQ(nullptr, VDicomTag::Find(0x223));

    failures = FailEachTime([] { return VDicomUID::Insert("1.2.3", "uid", 0) != nullptr; },
                            [] {
                                EXPECT_EQ(nullptr, VDicomUID::GetFirst());
                                EXPECT_EQ(nullptr, VDicomUID::Find("1.2.3"));
                            });
    EXPECT_EQ(4, failures) << "node, both texts and index";
    failures = FailEachTime([] { return VDicomVR::Insert(7, "vr", 0, 0, 0) != nullptr; },
                            [] { EXPECT_EQ(nullptr, VDicomVR::GetFirst()); });
    EXPECT_EQ(3, failures);

    const std::string longName(100, 'x');
    failures = FailEachTime([&] { return VDicomTag::SetName(VDicomTag::Find(1), longName.c_str()) != 0; },
                            [] { EXPECT_STREQ("one", VDicomTag::Find(1)->pszName); });
    EXPECT_EQ(1, failures);
    EXPECT_EQ(longName, VDicomTag::Find(1)->pszName);
}

TEST_F(TableMemory, RunningOutInDefaultLosesRowsAndNothingElse) {
    Empty();
    for (const long allocations : {0L, 1L, 2L, 3L, 9L, 100L}) {
        g_failAfter = allocations;
        Fill();
        g_failAfter = -1;
        VDicomULong rows = 0;
        for (DICOMTAG* tag = VDicomTag::GetFirst(); tag != nullptr; tag = VDicomTag::GetNext(tag), ++rows)
            ASSERT_NE(nullptr, VDicomTag::Find(tag->nCode));
        EXPECT_LE(rows, 2178U);
        EXPECT_EQ(allocations == 100 ? 2178U : rows, rows);
    }
    Fill();
    EXPECT_EQ(2178U, VDicomTag::m_InfoTag.GetCount(nullptr, 1));
    EXPECT_EQ(160U, VDicomUID::m_InfoUID.GetCount(nullptr, 1));
}

} // namespace
