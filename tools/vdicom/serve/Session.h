/// @file Session.h
/// One connection that the server has accepted: its association and the messages on it.
#pragma once

#include "serve/Log.h"
#include "serve/Operation.h"
#include "serve/Services.h"
#include "serve/SubOperations.h"

#include "Archive.h"

#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace program {

class Server;

/// Where an answer belongs.
struct Request {
    unsigned char contextId = 0;
    unsigned short messageId = 0;
    unsigned short responseField = 0; ///< Command Field of the response
    std::string classUid;
    std::string instanceUid; ///< empty: the response has none
};

class Session final : public VDicomNet, public StoreChannel {
public:
    Session(Server& server, std::uint64_t number);
    ~Session() override;

    std::uint64_t Number() const { return m_number; }

    /// @name For the server
    /// @{

    /// The connection has been accepted.
    void Opened();
    /// The connection has ended. @param how "timed out" ...
    void Ended(std::string_view how);
    bool HasEnded() const { return m_ended; }
    /// Lets the operations go on. @return whether one of them can go on at once
    bool Work();
    bool IsBusy() const { return !m_operations.empty() || m_incoming.IsOpen(); }
    /// Ends the association, for a server that stops.
    void Stop();
    /// The objects that were committed since are in the archive, or are not.
    void Acknowledge(const Request& request, const archive::Outcome& outcome);
    /// @}

    /// @name For operations
    /// @{
    void Answer(const Request& request, const archive::Outcome& outcome);
    LogLine LogOperation(LogLine::Level level, std::string_view event);
    Server& TheServer() { return m_server; }
    std::string CallingTitle() { return GetRequestAssociate()->GetCalling(); }
    /// Takes an operation in, which goes on from the next turn.
    void Begin(std::unique_ptr<Operation> operation);
    /// Message ID for a report of storage commitment, and whether the peer has answered it.
    unsigned short NextReport() { return ++m_reports; }
    bool TakeReportAnswer(unsigned short messageId) { return m_answeredReports.erase(messageId) != 0; }
    /// @}

    State GetState() override { return m_ended || IsAssociated() == 0 ? State::closed : State::ready; }
    const std::vector<StoreContext>& Contexts() override { return m_storeContexts; }
    unsigned int Store(unsigned char contextId, unsigned short messageId, const archive::RetrievedObject& object,
                       VDicomDS& ds) override;
    unsigned short NextMessageId() override { return ++m_nextMessage; }
    bool HasSent() override { return GetQueueSend() == 0; }

    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override;
    void OnSend(int nError, unsigned char nType, VDicomULong nBytes) override;
    void OnReceiveAssociateRequest(VDicomAssociate* request) override;
    void OnReceiveAssociateAccept(VDicomAssociate*) override { Unexpected(); }
    void OnReceiveAssociateReject(unsigned char, unsigned char, unsigned char) override { Unexpected(); }
    void OnReceiveReleaseResponse() override { Unexpected(); }
    void OnReceiveReleaseRequest() override;
    void OnReceiveAbort(unsigned char source, unsigned char reason) override;
    void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) override;
    VDicomFile* OnReceiveTarget(unsigned char id, VDicomDS* command) override;
    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short priority, const char* moveAE,
                                unsigned short moveMessageID, VDicomDS* data) override;
    void OnReceiveCStoreResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, unsigned short status) override;
    void OnReceiveCFindRequest(unsigned char id, unsigned short messageID, const char* classUID,
                               unsigned short priority, VDicomDS* data) override;
    void OnReceiveCGetRequest(unsigned char id, unsigned short messageID, const char* classUID, unsigned short priority,
                              VDicomDS* data) override;
    void OnReceiveCMoveRequest(unsigned char id, unsigned short messageID, const char* classUID,
                               unsigned short priority, const char* destination, VDicomDS* data) override;
    void OnReceiveCCancelRequest(unsigned char id, unsigned short messageID) override;
    void OnReceiveNActionRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, unsigned short action, VDicomDS* data) override;
    void OnReceiveNReportResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                  const char* instanceUID, unsigned short status, unsigned short event,
                                  VDicomDS* data) override;
    void OnReceiveNReportRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, unsigned short, VDicomDS*) override {
        Refuse(id, messageID, 0x8100, classUID, instanceUID);
    }
    void OnReceiveNGetRequest(unsigned char id, unsigned short messageID, const char* classUID, const char* instanceUID,
                              const VDicomULong*, unsigned short) override {
        Refuse(id, messageID, 0x8110, classUID, instanceUID);
    }
    void OnReceiveNSetRequest(unsigned char id, unsigned short messageID, const char* classUID, const char* instanceUID,
                              VDicomDS*) override {
        Refuse(id, messageID, 0x8120, classUID, instanceUID);
    }
    void OnReceiveNCreateRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, VDicomDS*) override {
        Refuse(id, messageID, 0x8140, classUID, instanceUID);
    }
    void OnReceiveNDeleteRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID) override {
        Refuse(id, messageID, 0x8150, classUID, instanceUID);
    }
    void OnReceiveUnknown(unsigned char id, VDicomDS* command, VDicomDS* data) override;

private:
    void Abort(unsigned char reason, std::string_view why);
    /// What only a requestor is sent.
    void Unexpected();
    /// Ends the operations; what they are sending stays, since it is sent from their data sets.
    void DropOperations(const std::string& why);
    /// Answers a request that cannot even be begun, and logs it.
    void Deny(const Request& request, const archive::Outcome& outcome);
    /// A request that no service here has.
    void Refuse(unsigned char id, unsigned short messageID, unsigned short field, const char* classUID,
                const char* instanceUID);
    void NoteContexts();
    /// Whether the context of a request is one of the service, with the request's data set there.
    bool Admit(const Request& request, ServiceKind kind, const VDicomDS* data);
    archive::QueryOptions OptionsOf(const Request& request);
    void LogObject(const Request& request, const archive::Outcome& outcome);

    Server& m_server;
    std::uint64_t m_number;
    std::chrono::steady_clock::time_point m_begin;
    std::string m_address;
    bool m_asked = false; ///< an association request has come
    bool m_ended = false;
    bool m_aborted = false;
    std::string m_end; ///< how the association ends, once that is known

    archive::IncomingFile m_incoming;
    std::optional<Request> m_store; ///< whose data set is arriving
    archive::Outcome m_storeOutcome;
    std::vector<StoreContext> m_storeContexts; ///< in which the peer lets us store
    std::vector<std::unique_ptr<Operation>> m_operations;
    std::vector<std::unique_ptr<Operation>> m_over; ///< operations that were dropped
    unsigned short m_nextMessage = 0;               ///< of requests of ours
    unsigned short m_reports = 0;
    std::set<unsigned short> m_answeredReports;
    unsigned int m_unsent = 0; ///< last answers (not those of operations) since everything had left

    std::uint64_t m_stored = 0;
    std::uint64_t m_failed = 0;
    VDicomUInt64 m_bytes = 0;
};

} // namespace program
