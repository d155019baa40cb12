#include "serve/Forwarder.h"

#include "scu/Client.h"

namespace program {

namespace {

constexpr VDicomULong kConnectPatience = 10'000, kPatience = 300'000, kReleasePatience = 5'000; // milliseconds
constexpr VDicomULong kLargestReceived = VDicomULong{1} << 20;                                  // answers alone
constexpr std::chrono::milliseconds kBetweenTries{100};

} // namespace

Forwarder::Forwarder(const KnownPeer& peer, std::string ownTitle, VDicomULong maxPdu, std::function<void()> wake)
    : VDicomNet(nullptr, DICOM_SECURE_NONE), m_peer(peer), m_ownTitle(std::move(ownTitle)), m_maxPdu(maxPdu),
      m_wake(std::move(wake)) {
    SetSocketBuffers(0, 0);
    SetSendInPlace(1);
    SetLargestPDU(kLargestReceived);
    SetLargestDataSet(kLargestReceived);
    SetTimeout(DICOM_TIMEOUT_CONNECT, kConnectPatience);
    SetTimeout(DICOM_TIMEOUT_ASSOCIATE, kPatience);
    SetTimeout(DICOM_TIMEOUT_IDLE, kPatience);
    SetTimeout(DICOM_TIMEOUT_RELEASE, kReleasePatience);
}

void Forwarder::Open(std::vector<StoreContext> contexts) {
    m_proposed = std::move(contexts);
    m_begin = Clock::now();
    Try();
}

void Forwarder::Try() {
    m_state = State::opening;
    if (const unsigned int code = Connect(nullptr, 0, m_peer.host.c_str(), m_peer.port); code != DICOM_OK)
        NotConnected(code);
}

void Forwarder::NotConnected(unsigned int code) {
    m_next = Clock::now() + kBetweenTries;
    m_toTryAgain = code == DICOM_ERROR_SOCKET_REFUSED && m_next < m_begin + m_patience;
    if (!m_toTryAgain)
        return Lost(GetErrorText(code));
    Close();
    m_wake();
}

void Forwarder::LookAgain() {
    if (!m_toTryAgain || Clock::now() < m_next)
        return;
    m_toTryAgain = false;
    Try();
}

void Forwarder::Lost(std::string why) {
    m_failure = std::move(why);
    m_state = State::closed;
    Close();
    m_wake();
}

void Forwarder::Release() {
    if (IsAssociated() != 0)
        SendReleaseRequest();
    else
        Lost("released");
}

void Forwarder::OnConnect(int nError) {
    if (nError != 0)
        return NotConnected(static_cast<unsigned int>(nError));
    VDicomAssociate request(1);
    request.SetCalled(m_peer.title.c_str());
    request.SetCalling(m_ownTitle.c_str());
    request.SetMaxLength(1, m_maxPdu);
    request.SetImplementClass(1, kImplementationClass);
    request.SetImplementVersion(1, kImplementationVersion);
    bool done = true;
    for (const StoreContext& context : m_proposed)
        done = done && AddContext(request, context.id, context.classUid.c_str(), context.syntaxes);
    Complete(request);
    const unsigned int code = done ? SendAssociateRequest(&request) : static_cast<unsigned int>(DICOM_ERROR_MEMORY);
    if (code != DICOM_OK)
        Lost(GetErrorText(code));
}

void Forwarder::OnReceiveAssociateAccept(VDicomAssociate* accept) {
    if (m_state != State::opening)
        return Lost("the peer accepted twice");
    for (int i = 0; i < accept->GetPresentationCount(); ++i) {
        const unsigned char id = accept->GetPresentation(i);
        const char* syntax = accept->GetTransfer(id, 0);
        if (accept->GetResult(id) == 0 && syntax != nullptr)
            m_accepted.push_back({id, accept->GetAbstract(id), {syntax}});
    }
    m_state = State::ready;
    m_wake();
}

void Forwarder::OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason) {
    Lost(RejectText(result, source, reason));
}

void Forwarder::OnReceiveAbort(unsigned char source, unsigned char reason) { Lost(AbortText(source, reason)); }

// What was queued is dropped: the data sets that it is sent from are not kept for it.
void Forwarder::OnReceiveReleaseRequest() { Lost("the peer released the association"); }

void Forwarder::OnSend(int /*nError*/, unsigned char /*nType*/, VDicomULong /*nBytes*/) {
    if (HasSent())
        m_wake();
}

void Forwarder::OnClose(int nError, VDicomNet* /*connection*/) {
    if (m_state == State::closed)
        return;
    m_failure = nError == 0 ? "the peer closed the connection" : GetErrorText(static_cast<unsigned int>(nError));
    m_state = State::closed;
    m_wake();
}

void Forwarder::OnReceive(int nError, unsigned char /*nType*/, char* /*buffer*/, VDicomULong /*length*/) {
    if (nError != 0)
        Lost(GetErrorText(static_cast<unsigned int>(nError)));
}

unsigned int Forwarder::Store(unsigned char contextId, unsigned short messageId, const archive::RetrievedObject& object,
                              VDicomDS& ds) {
    return SendCStoreRequest(contextId, messageId, object.classUid.c_str(), object.instanceUid.c_str(), 0, nullptr,
                             m_originMessage, &ds);
}

void Forwarder::OnReceiveCStoreResponse(unsigned char /*id*/, unsigned short messageID, const char* /*classUID*/,
                                        const char* /*instanceUID*/, unsigned short status) {
    if (m_onStored)
        m_onStored(messageID, status);
    m_wake();
}

} // namespace program
