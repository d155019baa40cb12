/// @file Forwarder.h
/// An association of the server's own, to a peer of the peers file: for the objects of a C-MOVE, and for the reports of
/// storage commitments whose association is over.
#pragma once

#include "serve/HostLookup.h"
#include "serve/PeersFile.h"
#include "serve/Settings.h"
#include "serve/SubOperations.h"

#include "VDicomNet.h"

#include <chrono>
#include <functional>

namespace program {

class Forwarder : public VDicomNet, public StoreChannel {
public:
    /// @param wake called when there is something new to look at
    Forwarder(const KnownPeer& peer, const ServeSettings& settings, std::function<void()> wake);
    ~Forwarder() override { Close(); }

    /// Connects and proposes; GetState tells what became of it.
    void Open(const std::vector<StoreContext>& contexts);
    /// A peer that does not listen yet is tried again for so long: some begin to when they have sent their request.
    void SetPatience(std::chrono::milliseconds patience) { m_patience = patience; }
    /// Whether the next try of it is to come, or the peer's address, from LookAgain.
    bool IsToLookAgain() const { return m_toTryAgain || m_lookup != nullptr; }
    void LookAgain();
    /// Who asked for the objects and with which message: their requests say so.
    void SetOrigin(std::string title, unsigned short messageId) {
        m_originTitle = std::move(title);
        m_originMessage = messageId;
    }
    void SetOnStored(std::function<void(unsigned short messageId, unsigned short status)> onStored) {
        m_onStored = std::move(onStored);
    }
    /// Ends the association in order; it may be destroyed when GetState says closed.
    void Release();

    State GetState() override { return m_state; }
    const std::vector<StoreContext>& Contexts() override { return m_accepted; }
    unsigned int Store(unsigned char contextId, unsigned short messageId, const archive::RetrievedObject& object,
                       VDicomDS& ds) override;
    /// It was closed for an object that could not be sent; another one may be over a new association.
    bool IsHalfSent() const { return m_isHalfSent; }
    /// Why it is closed.
    const std::string& Failure() const { return m_failure; }

    unsigned short NextMessageId() override { return ++m_nextMessage; }
    bool HasSent() override { return GetQueueSend() == 0; }

    void OnConnect(int nError) override;
    void OnSend(int nError, unsigned char nType, VDicomULong nBytes) override;
    void OnClose(int nError, VDicomNet* connection) override;
    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override;
    void OnReceiveAssociateAccept(VDicomAssociate* accept) override;
    void OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason) override;
    void OnReceiveReleaseResponse() override { Lost("released"); }
    void OnReceiveReleaseRequest() override;
    void OnReceiveAbort(unsigned char source, unsigned char reason) override;
    void OnReceiveCStoreResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, unsigned short status) override;

protected:
    /// What else the request says.
    virtual void Complete(VDicomAssociate& /*request*/) {}
    void Lost(std::string why);

private:
    using Clock = std::chrono::steady_clock;

    void FindAddresses();
    void Try();
    void NotConnected(unsigned int code);

    KnownPeer m_peer;
    const ServeSettings& m_settings;
    std::function<void()> m_wake;
    std::function<void(unsigned short, unsigned short)> m_onStored;
    State m_state = State::closed;
    std::unique_ptr<HostLookup> m_lookup; ///< under way
    std::vector<std::string> m_addresses;
    std::size_t m_address = 0; ///< which of them is tried
    std::chrono::milliseconds m_patience{0};
    Clock::time_point m_begin; ///< of the first try
    Clock::time_point m_next;
    bool m_toTryAgain = false;
    std::vector<StoreContext> m_proposed;
    std::vector<StoreContext> m_accepted;
    std::string m_originTitle;
    unsigned short m_originMessage = 0;
    bool m_isHalfSent = false;
    unsigned short m_nextMessage = 0;
    std::string m_failure;
};

} // namespace program
