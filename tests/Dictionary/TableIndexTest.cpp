#include "TableIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <memory>
#include <random>
#include <vector>

namespace {

using vdicom::IndexLink;
using vdicom::MaskedIndex;
using vdicom::TableIndex;

struct Entry {
    IndexLink link{};
    std::uint64_t key = 0;
    std::uint32_t code = 0;
    std::uint32_t mask = 0;
};

std::unique_ptr<Entry> MakeEntry(std::uint64_t order) {
    auto entry = std::make_unique<Entry>();
    entry->link.order = order;
    return entry;
}

/// Keys whose products begin with the same bits, so that they crowd into the same slots.
std::uint64_t CrowdedKey(std::uint64_t i) {
    constexpr std::uint64_t inverse = 0xF1DE83E19937733DU; // of the hash's factor, modulo 2^64
    return inverse * ((std::uint64_t{0xFFFFFFFF} << 32) | i);
}

// A list of entries in order, and the index beside it. Every search of the index must give what a walk gives.
class RandomChanges : public testing::TestWithParam<unsigned int> {};

TEST_P(RandomChanges, OfKeysAgreeWithTheLinearWalk) {
    std::mt19937_64 random(GetParam());
    TableIndex index;
    std::list<std::unique_ptr<Entry>> list;
    const std::uint64_t keys = 5 + 150 * GetParam();
    const bool crowded = GetParam() % 2 == 1;
    std::uint64_t order = 0;
    for (int step = 0; step < 12000; ++step) {
        // The list grows, shrinks to nothing and grows again.
        const bool growing = step / 2000 % 2 == 0;
        if (list.empty() || random() % 10 < (growing ? 7U : 3U)) {
            auto entry = MakeEntry(++order);
            entry->key = crowded ? CrowdedKey(random() % keys) : random() % keys;
            ASSERT_TRUE(index.Add(entry->key, &entry->link));
            list.push_back(std::move(entry));
        } else {
            auto at = std::next(list.begin(), static_cast<std::ptrdiff_t>(random() % list.size()));
            index.Remove((*at)->key, &(*at)->link);
            EXPECT_FALSE((*at)->link.IsIndexed());
            list.erase(at);
        }
        if (step % 50 != 0)
            continue;
        for (std::uint64_t i = 0; i < keys; ++i) {
            const std::uint64_t key = crowded ? CrowdedKey(i) : i;
            IndexLink* link = index.Find(key);
            for (const auto& entry : list) {
                if (entry->key == key) {
                    ASSERT_EQ(&entry->link, link) << "step " << step;
                    link = link->nextSameKey;
                }
            }
            ASSERT_EQ(nullptr, link) << "step " << step;
        }
        ASSERT_EQ(nullptr, index.Find(~std::uint64_t{0}));
    }
    while (!list.empty()) {
        index.Remove(list.front()->key, &list.front()->link);
        list.pop_front();
    }
    EXPECT_EQ(0U, index.KeyCount());
    EXPECT_EQ(nullptr, index.Find(0));
}

TEST_P(RandomChanges, OfMaskedCodesAgreeWithTheLinearWalk) {
    std::mt19937 random(GetParam());
    const std::uint32_t masks[] = {0xFFFFFFFF, 0xFF00FFFF, 0xFFFFFF0F, 0xFFFFFF00, 0xFFFF0000, 0};
    MaskedIndex index;
    std::list<std::unique_ptr<Entry>> list;
    const auto someCode = [&random] {
        // Few groups and elements, so that entries of different masks overlap and equal ones occur.
        return static_cast<std::uint32_t>((0x6000 + random() % 4) << 16 | (random() % 3) << 4 | random() % 3);
    };
    std::uint64_t order = 0;
    int hidden = 0;
    for (int step = 0; step < 8000; ++step) {
        const bool growing = step / 1500 % 2 == 0;
        if (list.empty() || random() % 10 < (growing ? 6U : 3U)) {
            auto entry = MakeEntry(++order);
            // The mask that matches everything is rare, or nothing else would be found.
            entry->mask = masks[random() % (random() % 8 == 0 ? 6 : 5)];
            entry->code = someCode();
            if (random() % 8 != 0)
                entry->code &= entry->mask;
            ASSERT_TRUE(index.Add(entry->code, entry->mask, &entry->link));
            hidden += entry->link.IsIndexed() ? 0 : 1;
            list.push_back(std::move(entry));
        } else {
            auto at = std::next(list.begin(), static_cast<std::ptrdiff_t>(random() % list.size()));
            if ((*at)->link.IsIndexed())
                index.Remove((*at)->code, (*at)->mask, &(*at)->link);
            list.erase(at);
        }
        for (int i = 0; i < 4; ++i) {
            const std::uint32_t value = someCode();
            const auto first = std::find_if(list.begin(), list.end(), [value](const std::unique_ptr<Entry>& entry) {
                return (value & entry->mask) == entry->code;
            });
            ASSERT_EQ(first == list.end() ? nullptr : &(*first)->link, index.Find(value)) << "step " << step;
        }
    }
    EXPECT_GT(hidden, 10) << "codes with bits outside their mask were to occur";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomChanges, testing::Range(0U, 6U));

TEST(TableIndex, RoomIsMadeBeforehandAndReservedOnce) {
    TableIndex index;
    EXPECT_EQ(nullptr, index.Find(7));
    ASSERT_TRUE(index.Reserve(1000));
    std::vector<std::unique_ptr<Entry>> entries;
    for (std::uint64_t i = 0; i < 1000; ++i) {
        entries.push_back(MakeEntry(i));
        ASSERT_TRUE(index.Add(i << 40, &entries.back()->link));
    }
    ASSERT_TRUE(index.Reserve(10));
    for (const auto& entry : entries)
        ASSERT_EQ(&entry->link, index.Find(entry->link.order << 40));
}

} // namespace
