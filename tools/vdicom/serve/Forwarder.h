/// @file Forwarder.h
/// An association of the server's own, to a peer of the peers file: for the objects of a C-MOVE, and for the reports of
/// storage commitments whose association is over.
#pragma once

#include "serve/PeersFile.h"
#include "serve/SubOperations.h"

#include "VDicomNet.h"

#include <functional>

namespace program {

class Forwarder : public VDicomNet, public StoreChannel {
public:
    /// @param wake called when there is something new to look at
    Forwarder(const KnownPeer& peer, std::string ownTitle, VDicomULong maxPdu, std::function<void()> wake);
    ~Forwarder() override { Close(); }

    /// Connects and proposes. @return 0, or why not
    unsigned int Open(std::vector<StoreContext> contexts);
    /// Who stored objects, for their requests.
    void SetOrigin(unsigned short messageId) { m_originMessage = messageId; }
    void SetOnStored(std::function<void(unsigned short messageId, unsigned short status)> onStored) {
        m_onStored = std::move(onStored);
    }
    /// Ends the association in order; it may be destroyed when GetState says closed.
    void Release();

    State GetState() override { return m_state; }
    const std::vector<StoreContext>& Contexts() override { return m_accepted; }
    unsigned int Store(unsigned char contextId, unsigned short messageId, const archive::RetrievedObject& object,
                       VDicomDS& ds) override;
    /// Why it is closed.
    const std::string& Failure() const { return m_failure; }

    void OnConnect(int nError) override;
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
    KnownPeer m_peer;
    std::string m_ownTitle;
    VDicomULong m_maxPdu;
    std::function<void()> m_wake;
    std::function<void(unsigned short, unsigned short)> m_onStored;
    State m_state = State::closed;
    std::vector<StoreContext> m_proposed;
    std::vector<StoreContext> m_accepted;
    unsigned short m_originMessage = 0;
    std::string m_failure;
};

} // namespace program
