/// @file Client.h
/// One association as a service class user: what every client command shares.
#pragma once

#include "scu/Peer.h"
#include "scu/PeerTexts.h"

#include "VDicomNet.h"

#include <chrono>
#include <string>
#include <vector>

namespace program {

/// Starts the network for as long as it lives.
class Network {
public:
    Network() : m_code(VDicomNet::StartUp()) {}
    ~Network() { VDicomNet::ShutDown(); }
    Network(const Network&) = delete;
    Network& operator=(const Network&) = delete;

    /// @return why there is no network; empty: there is
    std::string Failure() const { return m_code == DICOM_OK ? std::string() : GetErrorText(m_code); }

private:
    unsigned int m_code;
};

/// Connects, negotiates, lets the command work, releases; whatever goes wrong on the way ends it with a sentence.
class Client : public VDicomNet {
public:
    explicit Client(const Peer& peer);

    /// Handles events until the connection is closed. An object runs once.
    /// @return true: the command called Release, and the association has ended
    bool Run();

    /// Why Run returned false.
    const std::string& Failure() const { return m_failure; }
    enum class Loss {
        none,
        connection, ///< there was none, or it was lost: another try may help
        refusal     ///< the peer does not want it, or the user does not
    };
    Loss LossKind() const { return m_loss; }
    /// Whether the peer went on though it was asked to end the operation, so that the association was aborted.
    bool WasIgnored() const { return m_wasIgnored; }

    const Peer& ThePeer() const { return m_peer; }

    void OnConnect(int nError) override;
    void OnClose(int nError, VDicomNet* connection) override;
    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override;
    void OnReceiveAssociateAccept(VDicomAssociate* accept) override;
    void OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason) override;
    void OnReceiveData(unsigned char id, VDicomDS* command, VDicomDS* data) override;
    void OnReceiveReleaseRequest() override;
    void OnReceiveReleaseResponse() override;
    void OnReceiveAbort(unsigned char source, unsigned char reason) override;
    void OnReceiveUnknown(unsigned char id, VDicomDS* command, VDicomDS* data) override;

protected:
    /// Adds the presentation contexts to a request. @return false: memory ran out
    virtual bool Propose(VDicomAssociate& request) = 0;
    /// The association is established.
    virtual void Start() = 0;
    /// The user wants it to end. A second interrupt, or one that is not followed within some seconds, ends it anyway.
    virtual void Cancel() { Fail("interrupted", Loss::refusal); }

    /// Comes about ten times a second, whatever else happens.
    virtual void Look() {}

    /// Ends the association in order: all is done.
    void Release();
    /// Ends it at once.
    void Fail(std::string sentence, Loss loss = Loss::refusal);
    /// Fail where a result code is none of success. @return whether it is
    bool Sent(unsigned int code);
    /// Whether the response that arrived is the one to `messageID`; if not, this ends the association.
    bool Expect(unsigned short received, unsigned short messageID);

    /// The context in which a SOP class was accepted; without one the association ends, and 0 is returned.
    unsigned char ContextFor(const char* classUid);
    /// What a status means, with the comment that came with it.
    std::string Text(Service service, unsigned short status) const { return StatusText(service, status, m_comment); }
    /// What a time-out (DICOMTIMEOUT) means.
    std::string TimeoutText(unsigned char which) const;
    /// From now on the peer has some seconds to end the operation.
    void LimitPatience();
    /// Whether the work has begun and not ended.
    bool IsWorking() const { return m_state == State::working; }

private:
    enum class State { connecting, associating, working, releasing, closing, ended };

    void LookAtInterrupts();
    void End();
    std::string ConnectText(unsigned int code) const;
    std::string LossText(int code) const;

    Peer m_peer;
    State m_state = State::connecting;
    std::string m_failure;
    Loss m_loss = Loss::none;
    std::string m_comment; ///< Error Comment (0000,0902) of the last response
    int m_interrupts = 0;
    bool m_isPatient = false; ///< an end is waited for, until m_patience
    bool m_wasIgnored = false;
    std::chrono::steady_clock::time_point m_patience;
};

/// Bytes of a data set that is none of an object to be stored.
constexpr VDicomUInt64 kLargestIdentifier = VDicomUInt64{16} << 20;

/// What is told when something that came cannot be kept here. @return empty: the code of OnReceive says something else
std::string KeepFailure(int code);

/// Adds a presentation context with its transfer syntaxes, in order. @return false: memory ran out
bool AddContext(VDicomAssociate& request, unsigned char id, const char* classUid,
                const std::vector<std::string>& syntaxes);

} // namespace program
