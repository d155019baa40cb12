/// @file StoreReceiver.h
/// A small storage provider for the objects that a move sends to this program.
#pragma once

#include "scu/ObjectFolder.h"
#include "scu/Peer.h"

#include "VDicomAssociatePolicy.h"
#include "VDicomNet.h"

#include <chrono>
#include <memory>
#include <utility>
#include <vector>

namespace program {

class StoreReceiver;

/// One association of a peer that stores.
class StoreReceiverConnection final : public VDicomNet {
public:
    explicit StoreReceiverConnection(StoreReceiver& receiver);

    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override;
    void OnReceiveAssociateRequest(VDicomAssociate* request) override;
    void OnReceiveReleaseRequest() override;
    void OnReceiveAbort(unsigned char source, unsigned char reason) override;
    VDicomFile* OnReceiveTarget(unsigned char id, VDicomDS* command) override;
    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short priority, const char* moveAE,
                                unsigned short moveMessageID, VDicomDS* data) override;
    void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) override;

    /// When something arrived last.
    std::chrono::steady_clock::time_point LastActivity() const { return m_lastActivity; }

private:
    StoreReceiver& m_receiver;
    IncomingObject m_incoming;
    std::chrono::steady_clock::time_point m_lastActivity = std::chrono::steady_clock::now();
};

/// Listens on the thread that Start is called on.
class StoreReceiver final : public VDicomNet {
public:
    /// @param peer its time-out and PDU size are the receiver's @param title own AE title
    StoreReceiver(const Peer& peer, const std::string& title, ObjectFolder& folder);
    ~StoreReceiver() override;

    /// @return why it cannot listen; empty: it does
    std::string Start(unsigned int port);
    /// Handles events until the associations that are there have ended, or some seconds have gone.
    void Finish();

    void OnAccept(int nError) override;
    void OnClose(int nError, VDicomNet* connection) override;

    /// When something arrived last.
    std::chrono::steady_clock::time_point LastActivity() const { return m_lastActivity; }
    /// Bytes that have arrived since the last call.
    std::uint64_t TakeBytes() { return std::exchange(m_bytes, 0); }
    void NoteActivity(std::uint64_t bytes) {
        m_lastActivity = std::chrono::steady_clock::now();
        m_bytes += bytes;
    }

    const Peer& Settings() const { return m_peer; }
    const VDicomAssociatePolicy& Policy() const { return m_policy; }
    ObjectFolder& Folder() { return m_folder; }

private:
    static constexpr std::size_t kMostConnections = 64;

    Peer m_peer;
    ObjectFolder& m_folder;
    VDicomAssociatePolicy m_policy;
    std::chrono::steady_clock::time_point m_lastActivity;
    std::uint64_t m_bytes = 0;
    std::vector<std::unique_ptr<StoreReceiverConnection>> m_connections;
};

} // namespace program
