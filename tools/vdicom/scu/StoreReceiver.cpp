#include "scu/StoreReceiver.h"

#include "Message.h"
#include "scu/Client.h"

#include "VDicomMessageLoop.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace program {

namespace {

constexpr VDicomULong kRequestTimeout = 30'000, kCloseTimeout = 2000;
constexpr auto kLastWait = std::chrono::seconds(3);
// With no room left, a peer that says nothing for so long makes way.
constexpr auto kSilence = std::chrono::seconds(2);

} // namespace

StoreReceiverConnection::StoreReceiverConnection(StoreReceiver& receiver)
    : VDicomNet(nullptr, DICOM_SECURE_NONE), m_receiver(receiver), m_incoming(receiver.Folder()) {
    // No end of its own for an idle association: archives take their time between objects, and the move has one.
    SetTimeout(DICOM_TIMEOUT_REQUEST, kRequestTimeout);
    SetTimeout(DICOM_TIMEOUT_PDU, receiver.Settings().timeout);
    SetTimeout(DICOM_TIMEOUT_CLOSE, kCloseTimeout);
    SetSocketBuffers(0, 0);
    SetLargestDataSet(kLargestIdentifier);
    SetLargestPDU(std::max<VDicomULong>(receiver.Settings().maxPdu, 1 << 20));
}

void StoreReceiverConnection::OnReceive(int nError, unsigned char, char*, VDicomULong length) {
    m_receiver.NoteActivity(nError == 0 && m_incoming.IsArriving() ? length : 0);
    m_lastActivity = m_receiver.LastActivity();
    if (nError == 0)
        return;
    IncomingObject::Request request;
    if (const unsigned short status = m_incoming.GiveUp(nError, request); status != 0) {
        SendCStoreResponse(request.context, request.messageID, request.classUid.c_str(), request.instanceUid.c_str(),
                           status);
        return;
    }
    m_incoming.Drop();
    if (nError != DICOM_ERROR_TIMEOUT) {
        const std::string own = KeepFailure(nError);
        Say(own.empty() ? fmt::format("what came for storage cannot be understood: {}",
                                      GetErrorText(static_cast<unsigned int>(nError)))
                        : own);
        SendAbort(2, 0);
    }
}

void StoreReceiverConnection::OnReceiveAssociateRequest(VDicomAssociate* request) {
    VDicomAssociate accept(0);
    DICOMASSOCIATEANSWER answer;
    if (m_receiver.Policy().Answer(*request, accept, &answer) != DICOM_OK)
        SendAbort(2, 0);
    else if (answer.bAccepted != 0)
        SendAssociateAccept(&accept);
    else
        SendAssociateReject(answer.nResult, answer.nSource, answer.nReason);
}

void StoreReceiverConnection::OnReceiveReleaseRequest() { SendReleaseResponse(); }

void StoreReceiverConnection::OnReceiveAbort(unsigned char, unsigned char) {
    m_incoming.Drop();
    Close();
}

VDicomFile* StoreReceiverConnection::OnReceiveTarget(unsigned char id, VDicomDS* command) {
    VDicomFile* file = nullptr;
    if (IsStoreRequest(*command))
        file = m_incoming.Begin(id, *command, GetAssociate()->GetTransfer(id, 0), GetRequestAssociate()->GetCalling());
    // What has no file goes through the library's own storage.
    SetLargestDataSet(file ? ~VDicomUInt64{0} : kLargestIdentifier);
    return file;
}

void StoreReceiverConnection::OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                                     const char* instanceUID, unsigned short, const char*,
                                                     unsigned short, VDicomDS* data) {
    SendCStoreResponse(id, messageID, classUID, instanceUID, m_incoming.Finish(data));
}

void StoreReceiverConnection::OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) {
    SendCEchoResponse(id, messageID, classUID, 0);
}

StoreReceiver::StoreReceiver(const Peer& peer, const std::string& title, ObjectFolder& folder)
    : VDicomNet(nullptr, DICOM_SECURE_NONE), m_peer(peer), m_folder(folder) {
    // Objects are stored as they come, whatever class and syntax.
    m_policy.AddAbstract(nullptr);
    m_policy.AcceptAnyTransfer(1);
    m_policy.SetPreference(DICOM_PREFER_REQUESTOR);
    m_policy.SetCalled(title.c_str());
    m_policy.SetMaxLength(peer.maxPdu);
    m_policy.SetImplementation(kImplementationClass, kImplementationVersion);
}

StoreReceiver::~StoreReceiver() {
    m_connections.clear();
    Close();
}

std::string StoreReceiver::Start(unsigned int port) {
    const unsigned int code = Listen(nullptr, port, 16);
    if (code == DICOM_OK)
        return {};
    return fmt::format("port {} cannot be listened at: {}", port, GetErrorText(code));
}

void StoreReceiver::Finish() {
    const auto end = std::chrono::steady_clock::now() + kLastWait;
    while (!m_connections.empty() && std::chrono::steady_clock::now() < end) {
        if (VDicomMessageLoop::RunOnce(100) == DICOM_LOOP_FAILED)
            break;
        std::erase_if(m_connections, [](const auto& one) { return one->IsConnected() == 0; });
    }
}

void StoreReceiver::OnAccept(int nError) {
    if (nError != 0)
        return;
    // Those that closed by themselves; no notification of theirs is running.
    std::erase_if(m_connections, [](const auto& one) { return one->IsConnected() == 0; });
    if (m_connections.size() >= kMostConnections) {
        const auto longest =
            std::min_element(m_connections.begin(), m_connections.end(),
                             [](const auto& a, const auto& b) { return a->LastActivity() < b->LastActivity(); });
        if (std::chrono::steady_clock::now() - (*longest)->LastActivity() > kSilence)
            m_connections.erase(longest);
    }
    auto connection = std::make_unique<StoreReceiverConnection>(*this);
    if (Accept(connection.get()) == DICOM_OK && m_connections.size() < kMostConnections)
        m_connections.push_back(std::move(connection));
}

void StoreReceiver::OnClose(int, VDicomNet* connection) {
    std::erase_if(m_connections, [connection](const auto& one) { return one.get() == connection; });
}

} // namespace program
