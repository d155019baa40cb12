#include "LoopbackPair.h"

#include <gmock/gmock.h>

using namespace loopback;
using testing::ElementsAre;

namespace {

TEST_F(ConnectionTest, EchoesAndReleases) {
    Associate();
    EXPECT_STREQ(client.GetAssociate()->GetAbstract(3), kCT);
    EXPECT_STREQ(client.GetAssociate()->GetCalling(), "TEST");
    ASSERT_EQ(client.SendCEchoRequest(1, 7, kVerification), DICOM_OK);
    EXPECT_GT(client.GetQueueSend(), 0u);
    ASSERT_TRUE(RunUntil([&] { return client.Has("echo 7 status"); }));
    EXPECT_EQ(client.GetQueueSend(), 0u);
    client.SendReleaseRequest();
    EXPECT_EQ(client.IsAssociated(), 0u);
    ASSERT_TRUE(RunUntil([&] { return client.Has("release response"); }));
    client.Close();
    ASSERT_TRUE(RunUntil([&] { return server.closed == 1; }));
    EXPECT_EQ(server.last, server.clients[0].get());
    EXPECT_EQ(server.GetClientCount(), 0u);
    EXPECT_THAT(client.log, ElementsAre("connect", "accept", "echo 7 status", "release response"));
    EXPECT_THAT(Accepted().log, ElementsAre("request", "echo 7", "release request"));
    EXPECT_THAT(client.sent, ElementsAre(1, 4, 5));
}

TEST_F(ConnectionTest, DataSetsOfManyPdusArriveWhole) {
    Associate();
    VDicomDS image;
    std::string pixels(1000003, '\0');
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<char>(i * 31 + i / 977);
    pixels.push_back('\0');
    image.FindSetValue(nullptr, 0x00080016, vdicom::vr::UI, kCT, 1);
    DICOMELEMENT* e = image.InsertElement(nullptr, 1, 0x7FE00010, vdicom::vr::OB, 0, 0);
    ASSERT_NE(image.SetBinaryValue(e, pixels.data(), static_cast<VDicomULong>(pixels.size())), 0u);
    for (const bool inPlace : {false, true}) {
        client.SetSendInPlace(inPlace ? 1 : 0);
        client.log.clear();
        ASSERT_EQ(client.SendCStoreRequest(3, 1, kCT, "1.2.3", 0, nullptr, 0, &image), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return client.Has("stored"); }));
        EXPECT_TRUE(Accepted().stored == pixels);
        Accepted().stored.clear();
    }
}

} // namespace
