#include "LoopbackPair.h"

#include <gmock/gmock.h>

using namespace loopback;
using testing::ElementsAre;

namespace {

constexpr const char* kVerification = "1.2.840.10008.1.1";
constexpr const char* kImplicit = "1.2.840.10008.1.2";
constexpr const char* kExplicit = "1.2.840.10008.1.2.1";
constexpr const char* kCT = "1.2.840.10008.5.1.4.1.1.2";

/// Accepts associations and answers echoes, stores and releases.
class Acceptor : public Recorder {
public:
    void OnReceiveAssociateRequest(VDicomAssociate* request) override {
        Note("request", 0);
        if (std::string(request->GetCalled()) == "NOBODY") {
            SendAssociateReject(1, 1, 7);
            return;
        }
        VDicomAssociate accept(0);
        for (int i = 0; i < request->GetPresentationCount(); ++i) {
            const unsigned char id = request->GetPresentation(i);
            accept.AddPresentation(id, 0, request->GetAbstract(id));
            accept.AddTransfer(id, request->GetTransfer(id, 0));
        }
        accept.SetMaxLength(1, 16384);
        SendAssociateAccept(&accept);
    }
    void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) override {
        Note("echo", messageID);
        SendCEchoResponse(id, messageID, classUID, 0);
    }
    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short, const char*, unsigned short,
                                VDicomDS* data) override {
        DICOMELEMENT* pixels = data == nullptr ? nullptr : data->FindFirstElement(nullptr, 0x7FE00010, 1);
        stored.assign(pixels == nullptr ? 0 : pixels->nLength, '\0');
        if (pixels != nullptr)
            data->GetBinaryValue(pixels, stored.data(), pixels->nLength);
        SendCStoreResponse(id, messageID, classUID, instanceUID, 0);
    }
    void OnReceiveReleaseRequest() override {
        Note("release request", 0);
        SendReleaseResponse();
    }
    std::string stored;
};

class Requestor : public Recorder {
public:
    void OnConnect(int nError) override {
        Note("connect", nError);
        if (nError != 0 || called.empty())
            return;
        VDicomAssociate request(1);
        request.SetCalled(called.c_str());
        request.SetCalling("TEST");
        request.AddPresentation(1, 0, kVerification);
        request.AddTransfer(1, kImplicit);
        request.AddPresentation(3, 0, kCT);
        request.AddTransfer(3, kExplicit);
        EXPECT_EQ(SendAssociateRequest(&request), DICOM_OK);
    }
    void OnReceiveCEchoResponse(unsigned char, unsigned short messageID, const char*, unsigned short status) override {
        Note("echo " + std::to_string(messageID) + " status", status);
    }
    void OnReceiveCStoreResponse(unsigned char, unsigned short, const char*, const char*,
                                 unsigned short status) override {
        Note("stored", status);
    }
    void OnSend(int nError, unsigned char nType, VDicomULong nBytes) override {
        EXPECT_EQ(nError, 0);
        sent.push_back(nType);
        bytes += nBytes;
    }
    std::string called = "ACCEPTOR";
    std::vector<int> sent;
    VDicomUInt64 bytes = 0;
};

class ConnectionTest : public NetworkTest {
protected:
    void Associate() {
        ASSERT_EQ(server.Start(), DICOM_OK);
        ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return client.IsAssociated() != 0; }));
    }
    Acceptor& Accepted() { return *server.clients.at(0); }

    Server<Acceptor> server;
    Requestor client;
};

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
