#include "scu/StorePlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace program {
namespace {

using testing::ElementsAre;

const std::string kImplicit = "1.2.840.10008.1.2", kExplicit = "1.2.840.10008.1.2.1", kBig = "1.2.840.10008.1.2.2",
                  kDeflated = "1.2.840.10008.1.2.1.99", kJpeg = "1.2.840.10008.1.2.4.50";

TEST(StorePlan, UncompressedFilesComeWithTheOtherUncompressedSyntaxesAndCompressedOnesAlone) {
    const StorePlan plan({{"1.1", kImplicit}, {"1.1", kJpeg}, {"1.2", kBig}, {"1.1", kDeflated}});
    ASSERT_EQ(plan.CountAssociations(), 1U);
    const std::vector<StoreContext>& contexts = plan.Contexts(0);
    ASSERT_EQ(contexts.size(), 6U);
    EXPECT_THAT(contexts[0].syntaxes, ElementsAre(kImplicit));
    EXPECT_THAT(contexts[1].syntaxes, ElementsAre(kDeflated));
    EXPECT_THAT(contexts[2].syntaxes, ElementsAre(kExplicit, kBig));
    EXPECT_THAT(contexts[3].syntaxes, ElementsAre(kJpeg));
    EXPECT_THAT(contexts[4].syntaxes, ElementsAre(kBig));
    EXPECT_THAT(contexts[5].syntaxes, ElementsAre(kExplicit, kImplicit, kDeflated));
    EXPECT_EQ(contexts[2].classUid, "1.1");
    EXPECT_EQ(contexts[5].classUid, "1.2");

    const StorePlan all({{"1.1", kImplicit}, {"1.1", kExplicit}, {"1.1", kBig}, {"1.1", kDeflated}});
    EXPECT_EQ(all.Contexts(0).size(), 4U);
    EXPECT_EQ(StorePlan({}).CountAssociations(), 0U);
}

TEST(StorePlan, EveryKindFindsItsContextsInItsAssociationHoweverManyThereAre) {
    std::vector<ObjectKind> kinds;
    kinds.reserve(500);
    for (std::size_t i = 0; i < 300; ++i)
        kinds.push_back({"1.2." + std::to_string(i / 3), std::vector{kJpeg, kExplicit, kBig}[i % 3]});
    for (int i = 0; i < 200; ++i)
        kinds.push_back({"1.3", "1.2.4." + std::to_string(i)});
    const StorePlan plan(kinds);
    EXPECT_EQ(plan.CountAssociations(), (100 * 4 + 200 + 127) / 128U);
    for (std::size_t i = 0; i < plan.CountAssociations(); ++i) {
        std::set<int> ids;
        for (const StoreContext& context : plan.Contexts(i)) {
            EXPECT_EQ(context.id % 2, 1);
            ids.insert(context.id);
        }
        EXPECT_LE(plan.Contexts(i).size(), StorePlan::kMostContexts);
        EXPECT_EQ(ids.size(), plan.Contexts(i).size());
    }
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const std::vector<StoreContext>& contexts = plan.Contexts(plan.AssociationOf(i));
        const StoreContext* context = ChooseContext(contexts, kinds[i]);
        ASSERT_NE(context, nullptr) << i;
        EXPECT_EQ(context->syntaxes.front(), kinds[i].syntaxUid);
        const auto isFallback = [&](const StoreContext& c) {
            return c.classUid == kinds[i].classUid && c.syntaxes.size() > 1;
        };
        EXPECT_TRUE(!IsUncompressed(kinds[i].syntaxUid) || std::any_of(contexts.begin(), contexts.end(), isFallback))
            << i;
    }
}

TEST(StorePlan, AFileGoesAsItIsWhereThatIsAcceptedAndOnlyUncompressedOnesOtherwise) {
    const std::vector<StoreContext> accepted = {
        {1, "1.1", {kBig}}, {3, "1.1", {kImplicit}}, {5, "1.2", {kExplicit}}, {7, "1.1", {kJpeg}}};
    const auto chosen = [&](const char* classUid, const std::string& syntax) -> int {
        const StoreContext* context = ChooseContext(accepted, {classUid, syntax});
        return context ? context->id : 0;
    };
    EXPECT_EQ(chosen("1.1", kBig), 1);
    EXPECT_EQ(chosen("1.1", kExplicit), 3); // implicit is liked better than big endian
    EXPECT_EQ(chosen("1.1", kDeflated), 3);
    EXPECT_EQ(chosen("1.1", kJpeg), 7);
    EXPECT_EQ(chosen("1.2", kJpeg), 0);
    EXPECT_EQ(chosen("1.1", "1.2.840.10008.1.2.4.51"), 0);
    EXPECT_EQ(chosen("1.3", kExplicit), 0);
}

} // namespace
} // namespace program
