// What get asks for in each association, from what an archive says that it has.
#include "scu/RetrievalPlan.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace program {
namespace {

using ::testing::ElementsAre;

constexpr const char* kExplicit = "1.2.840.10008.1.2.1";
constexpr const char* kRle = "1.2.840.10008.1.2.5";

Query Study() {
    Query query;
    query.Add("StudyInstanceUID", "1.2");
    return query;
}

TEST(RetrievalPlan, WhatIsToldHasContextsOfItsOwn) {
    const std::vector<Retrieval> plan =
        PlanRetrievals(Study(), {{"1.2", "1.2.1", {{"1.9", {kExplicit}}}}, {"1.2", "1.2.2", {{"1.9", {kRle}}}}}, 127);
    ASSERT_EQ(plan.size(), 1U);
    ASSERT_EQ(plan[0].requests.size(), 1U);
    EXPECT_EQ(plan[0].requests[0].ValueOf(kStudyUid), "1.2");
    ASSERT_EQ(plan[0].offers.size(), 3U);
    EXPECT_THAT(plan[0].offers[0].syntaxes, ElementsAre(kExplicit));
    EXPECT_THAT(plan[0].offers[1].syntaxes, ElementsAre(kRle));
    EXPECT_EQ(plan[0].offers[2].syntaxes.size(), 3U); // uncompressed, should the peer decompress

    // A class whose syntaxes a series does not tell gets all of them.
    const std::vector<Retrieval> other =
        PlanRetrievals(Study(), {{"1.2", "1.2.1", {{"1.9", {kRle}}}}, {"1.2", "1.2.2", {{"1.9", {}}}}}, 127);
    EXPECT_GT(other[0].offers.size(), 20U);
}

TEST(RetrievalPlan, SeriesAreDividedWhereTheirContextsDoNotFit) {
    std::vector<Holding> holdings;
    holdings.reserve(10);
    for (int i = 0; i < 10; ++i)
        holdings.push_back({"1.2", "1.2." + std::to_string(i), {{"1.9." + std::to_string(i), {}}}});
    const std::vector<Retrieval> plan = PlanRetrievals(Study(), holdings, 127);
    EXPECT_GT(plan.size(), 2U);
    std::vector<std::string> series;
    for (const Retrieval& retrieval : plan) {
        EXPECT_LE(retrieval.offers.size(), 127U);
        EXPECT_EQ(retrieval.left, 0U);
        for (const Query& request : retrieval.requests) {
            EXPECT_EQ(request.level, QueryLevel::series);
            EXPECT_EQ(request.ValueOf(kStudyUid), "1.2");
            series.push_back(request.ValueOf(kSeriesUid));
            const std::string classUid = "1.9" + series.back().substr(3);
            EXPECT_TRUE(std::any_of(retrieval.offers.begin(), retrieval.offers.end(), [&](const StorageOffer& offer) {
                return offer.classUid == classUid && offer.syntaxes == std::vector<std::string>{kRle};
            }));
        }
    }
    EXPECT_EQ(series.size(), 10U);

    // Images of one series stay together, with less of a choice for the peer.
    Query image = Study();
    image.level = QueryLevel::image;
    const std::vector<Retrieval> one = PlanRetrievals(image, holdings, 127);
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(one[0].offers.size(), 20U);

    // A whole study is no part of some series.
    Query asked = Study();
    asked.level = QueryLevel::series;
    asked.Add("SeriesInstanceUID", "1.2.1\\1.2.2");
    EXPECT_GT(PlanRetrievals(asked, holdings, 127).size(), 2U);
    holdings.front().seriesUid.clear();
    const std::vector<Retrieval> whole = PlanRetrievals(asked, holdings, 127);
    ASSERT_EQ(whole.size(), 1U);
    EXPECT_EQ(whole[0].requests[0].ValueOf(kSeriesUid), "1.2.1\\1.2.2");
}

} // namespace
} // namespace program
