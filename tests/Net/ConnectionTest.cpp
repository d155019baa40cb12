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

/// Accepts with a role and a limit of its own; notes the largest PDU that it sends.
template <class Base> class Limited : public Base {
public:
    void OnReceiveAssociateRequest(VDicomAssociate*) override {
        VDicomAssociate accept(0);
        accept.AddPresentation(3, 0, kCT);
        accept.AddTransfer(3, kExplicit);
        accept.SetRoleSelect(3, 1, 0, 1);
        accept.SetMaxLength(limit != 0 ? 1 : 0, limit != 0 ? limit : 8);
        this->SendAssociateAccept(&accept);
    }
    void OnSend(int, unsigned char nType, VDicomULong nBytes) override {
        if (nType == 4)
            largest = std::max(largest, nBytes);
    }
    VDicomULong largest = 0;
    static inline VDicomULong limit = 0;
};

TEST_F(NetworkTest, TheAcceptHoldsOnBothSides) {
    VDicomDS image;
    const std::string pixels(50000, 'x');
    DICOMELEMENT* e = image.InsertElement(nullptr, 1, 0x7FE00010, vdicom::vr::OB, 0, 0);
    ASSERT_NE(image.SetBinaryValue(e, pixels.data(), 50000), 0u);
    for (const VDicomULong limit : {64u, 20000u, 0u}) { // the request says 16384
        Limited<Recorder>::limit = limit;
        Server<Limited<Recorder>> server;
        Limited<Requestor> client;
        ASSERT_EQ(server.Start(), DICOM_OK);
        ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return client.Has("accept"); }));
        Limited<Recorder>& accepted = *server.clients[0];
        EXPECT_EQ(client.SendCStoreRequest(3, 1, kCT, "1.2", 0, nullptr, 0, &image), DICOM_OK);
        EXPECT_EQ(accepted.SendCFindResponse(3, 1, kCT, 0xFF00, &image), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return client.GetQueueSend() + accepted.GetQueueSend() == 0; }));
        for (VDicomNet* const net : {static_cast<VDicomNet*>(&client), static_cast<VDicomNet*>(&accepted)}) {
            VDicomAssociate& associate = *net->GetAssociate();
            EXPECT_EQ(net == &client ? client.largest : accepted.largest, limit != 0 ? limit + 6 : 50024);
            EXPECT_STREQ(associate.GetAbstract(3), kCT);
            EXPECT_EQ(associate.IsRoleSelect(3), 1u);
            EXPECT_EQ(associate.GetUserRole(3) * 10 + associate.GetProviderRole(3), 1);
        }
    }
}

/// Looks at itself inside the notifications.
class Aware : public Recorder {
public:
    void OnConnect(int nError) override {
        Recorder::OnConnect(nError);
        Note("connected", static_cast<int>(IsConnected()));
    }
    void OnClose(int nError, VDicomNet* connection) override {
        Recorder::OnClose(nError, connection);
        Note("connected", static_cast<int>(connection->IsConnected()));
    }
};

TEST_F(NetworkTest, ClientsOfAServerAndTheirState) {
    Server<Aware> server;
    Aware callers[3];
    ASSERT_EQ(server.Start(), DICOM_OK);
    for (std::size_t i = 0; i < 3; ++i) {
        ASSERT_EQ(callers[i].Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return server.clients.size() == i + 1 && callers[i].IsConnected() != 0; }));
    }
    for (unsigned int i = 0; i < 4; ++i)
        EXPECT_EQ(server.GetClient(i), i < 3 ? server.clients[i].get() : nullptr);
    server.clients[1]->Close();
    ASSERT_TRUE(RunUntil([&] { return callers[1].log.size() == 4; }));
    EXPECT_THAT(callers[1].log, ElementsAre("connect", "connected 1", "close", "connected"));
    EXPECT_EQ(server.GetClientCount(), 2u);
    EXPECT_EQ(server.GetClient(0), server.clients[0].get());
    EXPECT_EQ(server.GetClient(1), server.clients[2].get());
    EXPECT_EQ(server.GetClient(2), nullptr);
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
