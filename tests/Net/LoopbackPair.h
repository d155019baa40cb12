/// @file LoopbackPair.h
/// A server and clients in one thread, over the loopback interface.
#pragma once

#include "VDicomMessageLoop.h"
#include "VDicomNet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace loopback {

constexpr const char* kVerification = "1.2.840.10008.1.1";
constexpr const char* kImplicit = "1.2.840.10008.1.2";
constexpr const char* kExplicit = "1.2.840.10008.1.2.1";
constexpr const char* kCT = "1.2.840.10008.5.1.4.1.1.2";

/// A connection that writes down what it is notified of.
class Recorder : public VDicomNet {
public:
    Recorder() : VDicomNet(nullptr, DICOM_SECURE_NONE) {}

    std::vector<std::string> log;
    bool Has(const std::string& entry) const { return std::find(log.begin(), log.end(), entry) != log.end(); }

    void OnConnect(int nError) override { Note("connect", nError); }
    void OnClose(int nError, VDicomNet* connection) override { Note(connection == this ? "close" : "client", nError); }
    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override {
        if (nError != 0)
            Note("error", nError);
        VDicomNet::OnReceive(nError, nType, buffer, length);
    }
    void OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason) override {
        Note("reject", result * 10000 + source * 100 + reason);
    }
    void OnReceiveReleaseRequest() override { Note("release request", 0); }
    void OnReceiveReleaseResponse() override { Note("release response", 0); }
    void OnReceiveAbort(unsigned char source, unsigned char reason) override { Note("abort", source * 100 + reason); }
    void OnReceiveAssociateRequest(VDicomAssociate*) override { Note("request", 0); }
    void OnReceiveAssociateAccept(VDicomAssociate*) override { Note("accept", 0); }

protected:
    void Note(const std::string& what, int number) {
        log.push_back(number == 0 ? what : what + " " + std::to_string(number));
    }
};

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

/// A server that takes every connection into a Client.
template <class Client> class Server : public VDicomNet {
public:
    Server() : VDicomNet(nullptr, DICOM_SECURE_NONE) {}
    ~Server() override { Close(); }

    unsigned int Start() {
        const unsigned int code = Listen("127.0.0.1", 0, 64);
        GetHostInfo(nullptr, &port);
        return code;
    }
    void OnAccept(int) override {
        ++accepted;
        auto client = std::make_unique<Client>();
        if (Accept(client.get()) == DICOM_OK)
            clients.push_back(std::move(client));
    }
    void OnClose(int nError, VDicomNet* connection) override {
        ++closed;
        lastError = nError;
        last = connection;
    }

    unsigned int port = 0;
    std::size_t accepted = 0;
    int closed = 0;
    int lastError = 0;
    VDicomNet* last = nullptr;
    std::vector<std::unique_ptr<Client>> clients;
};

/// Runs the message loop until something holds; false after ten seconds.
template <class Condition> bool RunUntil(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        VDicomMessageLoop::RunOnce(50);
    }
    return true;
}

/// Handles what is under way; nothing more is expected.
inline void Settle() {
    while (VDicomMessageLoop::RunOnce(30) == DICOM_LOOP_HANDLED) {
    }
}

class NetworkTest : public testing::Test {
protected:
    NetworkTest() { EXPECT_EQ(VDicomNet::StartUp(), DICOM_OK); }
    ~NetworkTest() override { EXPECT_EQ(VDicomNet::ShutDown(), DICOM_OK); }
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

} // namespace loopback
