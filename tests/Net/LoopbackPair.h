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

/// A connection that writes down what it is notified of.
class Recorder : public VDicomNet {
public:
    Recorder() : VDicomNet(nullptr, static_cast<VDicomLong>(DICOM_SECURE_NONE)) {}

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

/// A server that takes every connection into a Client.
template <class Client> class Server : public VDicomNet {
public:
    Server() : VDicomNet(nullptr, static_cast<VDicomLong>(DICOM_SECURE_NONE)) {}
    ~Server() override { Close(); }

    unsigned int Start() {
        const unsigned int code = Listen("127.0.0.1", 0, 64);
        GetHostInfo(nullptr, &port);
        return code;
    }
    void OnAccept(int) override {
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

} // namespace loopback
